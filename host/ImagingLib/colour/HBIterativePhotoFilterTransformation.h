// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"
#include "HBIterativeAdjustmentTransformation.h"

/// The pixel operation of HBIterativePhotoFilterTransformation.
class HB_IMAGINGLIB_EXPORT HBPhotoFilter
{
public:
    HBPhotoFilter(const HBRGBA32i& color, int density);

    void operator()(HBRGBA32i& pixel) const { (*this)(&pixel, 1); }
    void operator()(HBRGBA32i* pixels, int count) const;

    /// What is derived from the arguments.
    struct Factors
    {
        float red; ///< what the filter lets pass, 0..1
        float green;
        float blue;
        float density; ///< 0..1
    };

private:
    Factors m_Factors;
};

/// A coloured filter before the lens that does not darken: the pixel is multiplied by the filter's colour (blend
/// mode "multiply" of W3C Compositing and Blending 1), gets its luminosity back (SetLum there) and is mixed with
/// what it was by density / 100.
///
/// Alpha is kept, the filter's alpha plays no part; density 0 is the exact identity.
class HBIterativePhotoFilterTransformation : public HBIterativeAdjustmentTransformation<HBPhotoFilter>
{
public:
    /// \param density percent, 0..100, clamped
    HBIterativePhotoFilterTransformation(const HBRGBA32i& color, int density)
        : HBIterativeAdjustmentTransformation(HBPhotoFilter(color, density))
    {
    }
};
