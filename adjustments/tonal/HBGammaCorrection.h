// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

/// Gamma correction. Stored as a plain value.
struct HB_ADJUSTMENTS_EXPORT HBGammaCorrectionParams
{
    double gamma = 1.0; ///< more brightens

    static constexpr auto Fields()
    {
        return std::make_tuple(
            HBNumber("gamma", &HBGammaCorrectionParams::gamma, {0.01, 5, 1, HBUnit::Exponent, 2}));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBGammaCorrectionParams& params);
