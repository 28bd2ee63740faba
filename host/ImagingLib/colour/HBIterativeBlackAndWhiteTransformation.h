// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"
#include "HBIterativeAdjustmentTransformation.h"

/// The pixel operation of HBIterativeBlackAndWhiteTransformation.
class HB_IMAGINGLIB_EXPORT HBBlackAndWhite
{
public:
    HBBlackAndWhite(bool cie, float red, float green, float blue);

    void operator()(HBRGBA32i& pixel) const { (*this)(&pixel, 1); }
    void operator()(HBRGBA32i* pixels, int count) const;

    /// What is derived from the arguments.
    struct Weights
    {
        float red;
        float green;
        float blue;
        bool cie;
    };

private:
    Weights m_Weights;
};

/// Grey from the weighted sum of the colours, rounded and clamped: of the stored values, as in the luma of ITU-R
/// BT.601 and BT.709, or, with the CIE flag, of their light (IEC 61966-2-1), shown as CIE 1976 lightness (ISO/CIE
/// 11664-4), L* 0..100 as 0..255. Alpha is kept.
class HBIterativeBlackAndWhiteTransformation : public HBIterativeAdjustmentTransformation<HBBlackAndWhite>
{
public:
    /// The weights are shares, 1 in sum for a picture as bright as before; -1000..1000, clamped. What is not a
    /// finite number counts as 0.
    HBIterativeBlackAndWhiteTransformation(bool cie, float red, float green, float blue)
        : HBIterativeAdjustmentTransformation(HBBlackAndWhite(cie, red, green, blue))
    {
    }
};
