// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"
#include "HBIterativeAdjustmentTransformation.h"

/// The pixel operation of HBIterativeColorBalanceTransformation.
class HB_IMAGINGLIB_EXPORT HBColorBalance
{
public:
    HBColorBalance(const int* cyanRed, const int* magentaGreen, const int* yellowBlue);

    void operator()(HBRGBA32i& pixel) const { (*this)(&pixel, 1); }
    void operator()(HBRGBA32i* pixels, int count) const;

    /// What a channel is raised by, in levels: constant + linear × Y + square × Y².
    struct Curve
    {
        float constant;
        float linear;
        float square;
    };
    /// What is derived from the arguments.
    struct Curves
    {
        Curve red;
        Curve green;
        Curve blue;
    };

private:
    Curves m_Curves;
    bool m_Identity;
};

/// Colour balance by tone range: each channel is raised by the sum, over shadows, midtones and highlights, of the
/// range's value in levels × the range's weight at the pixel. The weights are the quadratic Bernstein polynomials
///
///     shadows (1 - Y)²,  midtones 2 Y (1 - Y),  highlights Y²
///
/// of the pixel's luma Y, 0..1 (ITU-R BT.709): smooth, and 1 in sum, so that equal values in the three ranges
/// raise all tones alike.
///
/// Alpha is kept; all zero is the exact identity, and the same values on all three axes keep grey grey.
class HBIterativeColorBalanceTransformation : public HBIterativeAdjustmentTransformation<HBColorBalance>
{
public:
    /// Three values each, for shadows, midtones and highlights: -100..100, clamped; copied. Towards the second
    /// name is positive.
    HBIterativeColorBalanceTransformation(const int* cyanRed, const int* magentaGreen, const int* yellowBlue)
        : HBIterativeAdjustmentTransformation(HBColorBalance(cyanRed, magentaGreen, yellowBlue))
    {
    }
};
