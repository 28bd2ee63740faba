// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentsExport.h"

#include <HBRGBA32i.h>

/// What HBAverageTintRGB32 works with.
struct HBTintFactors
{
    int redWeight; ///< thousandths
    int greenWeight;
    int blueWeight;
    HBRGBA32i black;
    HBRGBA32i white;
    int amount; ///< 0..255000
};

/// HBAverageTintRGB32 by vector instructions, over as many of the pixels as fill whole vectors; returns how many.
HB_ADJUSTMENTS_EXPORT int HBAverageTintVectors(HBRGBA32i* pixels, int count, const HBTintFactors& factors);

/// A pixel operation that replaces colours by a ramp between two tones, by brightness, and mixes it with the
/// pixel. Whole numbers; the two divisions truncate one after the other, on purpose: stored adjustments keep their
/// look to the last bit. Alpha is kept, that of the tones plays no part.
///
/// The template arguments are the weights of the brightness in thousandths.
template <int W1, int W2, int W3>
class HBAverageTintRGB32
{
public:
    static_assert(W1 >= 0 && W2 >= 0 && W3 >= 0 && W1 + W2 + W3 == 1000, "the weights are shares");
    static constexpr int Whole = 255 * 1000;

    /// \param amount of the ramp, 0 (the identity) .. 255000, clamped
    HBAverageTintRGB32(const HBRGBA32i& black, const HBRGBA32i& white, int amount)
        : m_Factors{W1, W2, W3, black, white, amount < 0 ? 0 : amount > Whole ? Whole : amount}
    {
    }

    void operator()(HBRGBA32i& pixel) const
    {
        const int brightness = pixel.red * W1 + pixel.green * W2 + pixel.blue * W3;
        const auto mixed = [&](int level, int black, int white) {
            const int tone = (black * (Whole - brightness) + white * brightness) / Whole;
            return std::uint8_t((level * (Whole - m_Factors.amount) + tone * m_Factors.amount) / Whole);
        };
        pixel.red = mixed(pixel.red, m_Factors.black.red, m_Factors.white.red);
        pixel.green = mixed(pixel.green, m_Factors.black.green, m_Factors.white.green);
        pixel.blue = mixed(pixel.blue, m_Factors.black.blue, m_Factors.white.blue);
    }
    /// The run form: the same bytes.
    void operator()(HBRGBA32i* pixels, int count) const
    {
        for (int i = HBAverageTintVectors(pixels, count, m_Factors); i < count; ++i)
            (*this)(pixels[i]);
    }

private:
    HBTintFactors m_Factors;
};
