// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImage.h"
#include "KMWBTransformation.h"

/// A white-balance correction found in a picture, as a transformation of tiles.
///
/// AutoBalance takes the colour of the light to be the Minkowski norm of each channel (shades of gray: Finlayson &
/// Trezzi, CIC 2004) with exponent 32 on the stored values, which is about 14 in light: near enough to the
/// brightest surfaces that a picture without a cast hardly changes. It divides each channel's light (IEC
/// 61966-2-1) by it, von Kries' way, keeping the luminance, with gains of a quarter to four. Where a channel is
/// black throughout nothing can be known and nothing changes.
///
/// Overexposure and Underexposure raise all light to one power, which takes the log-average luminance of the
/// picture to the key of 0.18 (Reinhard et al., SIGGRAPH 2002): the first only ever darkens, the second only ever
/// lightens. The power is 1/4 .. 4; grey stays grey, black stays black and white white.
///
/// Gains and power are moved towards 1 as the strength falls: 0 is the exact identity, as is an unknown function
/// and an empty picture.
class HB_IMAGINGLIB_EXPORT KMIterativeWBTransformation : public KMWBTransformation
{
public:
    /// Looks at every pixel of the image, on several threads; any thread may call it. The image is not kept.
    /// \param strength percent, 0..100, clamped
    /// \throws std::bad_alloc
    KMIterativeWBTransformation(const HBImage<>& image, BalanceFunction function, int strength);

    using KMWBTransformation::operator();

    /// The pixels to work on; they must outlive the calls below.
    void SetProcessingBuffer(HBRGBA32i* pixels) { m_pPixels = pixels; }
    void operator()(int index) const { (*this)(m_pPixels[index]); }
    void operator()(int first, int count) const { (*this)(m_pPixels + first, count); }

private:
    HBRGBA32i* m_pPixels = nullptr;
};
