// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBIterativeBlackAndWhiteTransformation.h"

#include <QtGlobal>

#include <cmath>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBIterativeBlackAndWhiteTransformation.cpp"
#include <hwy/foreach_target.h>

#include "HBSrgbVectors-inl.h"

// Of all instruction sets in common.
#ifndef HB_BLACK_AND_WHITE_ONCE
#define HB_BLACK_AND_WHITE_ONCE
namespace
{

/// CIE 1976 lightness, 0..1 instead of 0..100.
double Lightness(double luminance)
{
    constexpr double delta = 6.0 / 29.0;
    const double root =
        luminance > delta * delta * delta ? std::cbrt(luminance) : luminance / (3 * delta * delta) + 4.0 / 29.0;
    return 1.16 * root - 0.16;
}

const HBSrgb::ShadeTable& LightnessTable()
{
    static const HBSrgb::ShadeTable table(Lightness);
    return table;
}

} // namespace
#endif

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

struct Luma
{
    const HBBlackAndWhite::Weights& weights;

    template <class D>
    HWY_INLINE void operator()(D d, Colors<D>& c) const
    {
        const auto grey = Weigh(d, c, weights.red, weights.green, weights.blue);
        c = {grey, grey, grey};
    }
};

struct CieLightness
{
    const HBBlackAndWhite::Weights& weights;
    const HBSrgb::LevelTable& decoding;
    const HBSrgb::ShadeTable& lightness;

    template <class D>
    HWY_INLINE void operator()(D d, Colors<D>& c) const
    {
        const Colors<D> light{LightOf(d, decoding, c.red), LightOf(d, decoding, c.green),
                              LightOf(d, decoding, c.blue)};
        const auto luminance = Weigh(d, light, weights.red, weights.green, weights.blue);
        const auto grey = ShadeOf(d, lightness, luminance);
        c = {grey, grey, grey};
    }
};

void MakeGrey(const HBBlackAndWhite::Weights& weights, HBRGBA32i* pixels, int count)
{
    if (weights.cie)
        MapColors(CieLightness{weights, HBSrgb::Decoding(), LightnessTable()}, pixels, count);
    else
        MapColors(Luma{weights}, pixels, count);
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(MakeGrey);

float Weight(float weight)
{
    return std::isfinite(weight) ? qBound(-1000.0f, weight, 1000.0f) : 0.0f;
}

} // namespace

HBBlackAndWhite::HBBlackAndWhite(bool cie, float red, float green, float blue)
    : m_Weights{Weight(red), Weight(green), Weight(blue), cie}
{
    if (cie) {
        // Built now, not under the first tiles.
        HBSrgb::Decoding();
        LightnessTable();
    }
}

void HBBlackAndWhite::operator()(HBRGBA32i* pixels, int count) const
{
    HWY_DYNAMIC_DISPATCH(MakeGrey)(m_Weights, pixels, count);
}

#endif
