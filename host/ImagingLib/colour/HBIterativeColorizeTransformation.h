// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"
#include "HBIterativeAdjustmentTransformation.h"

/// The pixel operation of HBIterativeColorizeTransformation.
class HB_IMAGINGLIB_EXPORT HBColorize
{
public:
    HBColorize(const HBRGBA32i& color, int amount);

    void operator()(HBRGBA32i& pixel) const { (*this)(&pixel, 1); }
    void operator()(HBRGBA32i* pixels, int count) const;

    /// What is derived from the arguments.
    struct Factors
    {
        float red; ///< the colour's channels above its luminosity, levels
        float green;
        float blue;
        float shadows;    ///< how much of them a pixel can have, per level above black ...
        float highlights; ///< ... and per level below white
        float amount;     ///< 0..1
    };

private:
    Factors m_Factors;
};

/// Gives all pixels the hue and saturation of one colour: the colour gets the pixel's luminosity (blend mode
/// "color" of W3C Compositing and Blending 1: SetLum(colour, Lum(pixel))) and is mixed with the pixel by amount /
/// 100.
///
/// Alpha is kept, the colour's alpha plays no part; amount 0 is the exact identity.
class HBIterativeColorizeTransformation : public HBIterativeAdjustmentTransformation<HBColorize>
{
public:
    /// \param amount percent, 0..100, clamped
    HBIterativeColorizeTransformation(const HBRGBA32i& color, int amount)
        : HBIterativeAdjustmentTransformation(HBColorize(color, amount))
    {
    }
};
