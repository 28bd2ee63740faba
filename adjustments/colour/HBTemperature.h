// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

/// Colour temperature: the picture as lit by light of that temperature, with a tint between green and magenta.
struct HB_ADJUSTMENTS_EXPORT HBTemperatureParams
{
    qint32 temperature = 6500;
    qint32 tint = 0; ///< less is greener, more is more magenta
    qint32 strength = 50;

    static constexpr char Tag[] = "KMTemperature 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBTemperatureParams;
        return std::make_tuple(HBNumber("temperature", &P::temperature, {1000, 40000, 6500, HBUnit::Kelvin}),
                               HBNumber("tint", &P::tint, {-100, 100, 0}),
                               HBNumber("strength", &P::strength, {0, 100, 0, HBUnit::Percent}));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBTemperatureParams& params);
