// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

#include <QColor>

/// Photo filter: a coloured gel before the lens.
struct HB_ADJUSTMENTS_EXPORT HBPhotoFilterParams
{
    QColor color = QColor("#EBB113");
    qint32 density = 50;

    static constexpr char Tag[] = "KMPhotoFilter 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBPhotoFilterParams;
        return std::make_tuple(HBPlain("color", &P::color),
                               HBNumber("density", &P::density, {0, 100, 0, HBUnit::Percent}));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBPhotoFilterParams& params);
