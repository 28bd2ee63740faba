// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

/// Hue, saturation and lightness, or the picture in one tone.
struct HB_ADJUSTMENTS_EXPORT HBHueSaturationParams
{
    qint32 hue = 0; ///< to turn by, or the hue itself if colorize
    qint32 saturation = 0;
    qint32 lightness = 0;
    bool colorize = false;

    static constexpr char Tag[] = "KMHueSaturation 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBHueSaturationParams;
        return std::make_tuple(HBNumber("hue", &P::hue, {0, 359, 0, HBUnit::Degrees}),
                               HBNumber("saturation", &P::saturation, {-100, 100, 0, HBUnit::Percent}),
                               HBNumber("lightness", &P::lightness, {-100, 100, 0, HBUnit::Percent}),
                               HBPlain("colorize", &P::colorize));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBHueSaturationParams& params);
