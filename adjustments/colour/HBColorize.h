// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

#include <QColor>

/// Colorize: the whole picture towards one colour.
struct HB_ADJUSTMENTS_EXPORT HBColorizeParams
{
    QColor color = QColor(255, 210, 255);
    qint32 amount = 25;

    static constexpr char Tag[] = "KMColorizeFilter 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBColorizeParams;
        return std::make_tuple(HBPlain("color", &P::color),
                               HBNumber("amount", &P::amount, {0, 100, 0, HBUnit::Percent}));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBColorizeParams& params);
