// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBChannelTables.h"
#include "HBIterativeAdjustmentTransformation.h"

/// Gamma correction by the power law s = 255 × (r / 255)^(1 / gamma), rounded, the same for the three colours
/// (Gonzalez & Woods, Digital Image Processing, section "Power-law (gamma) transformations").
///
/// A larger gamma brightens, as in the levels; black and white stay. Alpha is kept; gamma 1 is the exact identity.
class HB_IMAGINGLIB_EXPORT HBIterativeGammaCorrectionTransformation
    : public HBIterativeAdjustmentTransformation<HBChannelTables>
{
public:
    /// \param gamma 0.01..5, clamped; NaN counts as 1
    explicit HBIterativeGammaCorrectionTransformation(double gamma);
};
