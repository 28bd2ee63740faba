// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentsExport.h"

#include <HBRGBA32i.h>

/// The weights of HBThresholdRGB32, in percent.
struct HBThresholdWeights
{
    int red;
    int green;
    int blue;
};

/// HBThresholdRGB32 by vector instructions, over as many of the pixels as fill whole vectors; returns how many.
HB_ADJUSTMENTS_EXPORT int HBThresholdVectors(HBRGBA32i* pixels, int count, const HBThresholdWeights& weights,
                                             int level);

/// A pixel operation that leaves black and white: a pixel whose luminance, the weighted mean of its colours in
/// whole numbers, truncated, is below `level` becomes black, any other white. Alpha is kept.
///
/// The template arguments are the weights in percent; 30, 59, 11 are the luma of ITU-R BT.601, to two digits.
template <int R, int G, int B>
struct HBThresholdRGB32
{
    static_assert(R >= 0 && G >= 0 && B >= 0 && R + G + B == 100, "the weights are shares");

    /// Any int: from 0 down every pixel becomes white, from 256 up every pixel black.
    int level = 128;

    void operator()(HBRGBA32i& pixel) const
    {
        const int luminance = (pixel.red * R + pixel.green * G + pixel.blue * B) / 100;
        pixel.red = pixel.green = pixel.blue = luminance < level ? 0 : 255;
    }
    /// The run form: the same bytes.
    void operator()(HBRGBA32i* pixels, int count) const
    {
        for (int i = HBThresholdVectors(pixels, count, {R, G, B}, level); i < count; ++i)
            (*this)(pixels[i]);
    }
};
