// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBChannelTables.h"
#include "HBIterativeAdjustmentTransformation.h"

/// Leaves a number of levels in each colour. The 256 input levels are cut into that many bins of equal width (one
/// level more or less where 256 cannot be divided); bin i of n becomes 255 × i / (n - 1), rounded, so that the
/// outputs are evenly spaced from 0 to 255.
///
/// Alpha is kept. No count is the identity: 255 levels, the most, still darken 1..127 by one.
class HB_IMAGINGLIB_EXPORT HBIterativePosterizeTransformation
    : public HBIterativeAdjustmentTransformation<HBChannelTables>
{
public:
    /// \param levels levels in each colour, 2..255, clamped
    explicit HBIterativePosterizeTransformation(int levels);
};
