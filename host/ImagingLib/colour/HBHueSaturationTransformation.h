// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"
#include "HBRGBA32i.h"

/// Hue, saturation and lightness in the HSL hexcone (Joblove & Greenberg, "Color spaces for computer graphics",
/// SIGGRAPH 1978; the same as hsl() of CSS Color 4): the hue is turned by `hue` degrees, the saturation multiplied
/// by 1 + saturation / 100 and clamped, the lightness moved by lightness / 100 of the way to white, or to black if
/// that is negative.
///
/// With `colorize` the hue is replaced by `hue` and the saturation by (100 + saturation) / 200; the pixel's
/// lightness stays, moved as above.
///
/// Alpha is kept, grey stays grey unless it is colourised, and (0, 0, 0, false) is the exact identity.
class HB_IMAGINGLIB_EXPORT HBHueSaturationTransformation
{
public:
    /// \param hue degrees, 0..359
    /// \param saturation percent, -100..100
    /// \param lightness percent, -100..100
    /// All are clamped to their range.
    HBHueSaturationTransformation(int hue, int saturation, int lightness, bool colorize);

    void operator()(HBRGBA32i& pixel) const { (*this)(&pixel, 1); }
    /// The run form: the same bytes.
    void operator()(HBRGBA32i* pixels, int count) const;

    /// What is derived from the arguments.
    struct Factors
    {
        float turn;       ///< sectors of 60 degrees
        float saturation; ///< factor or, with colorize, value, 0..2
        float lightScale; ///< what the lightness is multiplied by, 0..1, ...
        float lightShift; ///< ... and then raised by, in half levels
        bool colorize;
        bool identity;
    };

private:
    Factors m_Factors;
};
