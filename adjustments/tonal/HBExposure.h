// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

/// Exposure and offset in linear light. Stored as plain values.
struct HB_ADJUSTMENTS_EXPORT HBExposureParams
{
    double exposure = 0.0;
    double offset = 0.0; ///< share of full light to add

    static constexpr auto Fields()
    {
        using P = HBExposureParams;
        return std::make_tuple(HBNumber("exposure", &P::exposure, {-20, 20, 0, HBUnit::Stops, 4}),
                               HBNumber("offset", &P::offset, {-0.5, 0.5, 0, HBUnit::Light, 4}));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBExposureParams& params);
