// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

#include <QColor>

/// Fill colour: the picture filled with one colour.
struct HB_ADJUSTMENTS_EXPORT HBFillColorParams
{
    QColor color = Qt::black; ///< its own alpha counts for nothing
    qint32 opacity = 100;

    static constexpr char Tag[] = "KMFillColor 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBFillColorParams;
        return std::make_tuple(HBPlain("color", &P::color),
                               HBNumber("opacity", &P::opacity, {0, 100, 0, HBUnit::Percent}));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBFillColorParams& params);
