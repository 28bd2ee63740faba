// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBChannelTables.h"
#include "HBIterativeAdjustmentTransformation.h"

/// Brightness and contrast as one straight line over the levels (point processing s = a × r + b; Gonzalez & Woods,
/// Digital Image Processing, section "Basic intensity transformations"), the same for the three colours:
///
///     s = 127.5 + a × (r - 127.5) + brightness,  rounded, clamped to 0..255
///
/// The slope a = tan(π/4 × (1 + contrast / 128)) tilts the line about middle grey: 1 at contrast 0, nearly flat at
/// -127, nearly upright at 127. Alpha is kept; (0, 0) is the exact identity.
class HB_IMAGINGLIB_EXPORT HBIterativeBrightnessContrastTransformation
    : public HBIterativeAdjustmentTransformation<HBChannelTables>
{
public:
    /// \param brightness levels to add, -127..127
    /// \param contrast tilt of the line, -127..127
    /// Both are clamped to their range.
    HBIterativeBrightnessContrastTransformation(int brightness, int contrast);
};
