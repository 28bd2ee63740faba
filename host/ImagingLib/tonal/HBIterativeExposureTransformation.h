// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBChannelTables.h"
#include "HBIterativeAdjustmentTransformation.h"

/// Exposure and offset in linear light, the same for the three colours: levels are decoded with the transfer
/// function of sRGB (IEC 61966-2-1), light becomes light × 2^exposure + offset, clamped to 0..1, and is encoded
/// again, rounded.
///
/// Alpha is kept; (0, 0) is the exact identity.
class HB_IMAGINGLIB_EXPORT HBIterativeExposureTransformation
    : public HBIterativeAdjustmentTransformation<HBChannelTables>
{
public:
    /// \param exposure stops, -20..20
    /// \param offset share of full light to add, -0.5..0.5
    /// Both are clamped to their range; NaN counts as 0.
    HBIterativeExposureTransformation(double exposure, double offset);
};
