// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMFillTransformation.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "KMFillTransformation.cpp"
#include <hwy/foreach_target.h>

#include "HBColorVectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

/// Quotient without remainder of whole numbers below 2^24. Division of floats rounds, but not up to the next whole
/// number: with a divisor up to 255² and a quotient up to 255 that is always further away.
template <class D>
HWY_INLINE hn::Vec<hn::RebindToUnsigned<D>> Quotient(D, hn::Vec<D> numerator, hn::Vec<D> divisor)
{
    const hn::RebindToUnsigned<D> du;
    return hn::BitCast(du, hn::ConvertTo(hn::RebindToSigned<D>(), hn::Div(numerator, divisor)));
}

template <class D>
HWY_INLINE hn::Vec<hn::RebindToUnsigned<D>>
Joined(hn::Vec<hn::RebindToUnsigned<D>> red, hn::Vec<hn::RebindToUnsigned<D>> green,
       hn::Vec<hn::RebindToUnsigned<D>> blue, hn::Vec<hn::RebindToUnsigned<D>> alpha)
{
    return hn::Or(hn::Or(hn::ShiftLeft<16>(red), hn::ShiftLeft<8>(green)), hn::Or(blue, hn::ShiftLeft<24>(alpha)));
}

/// HBBlend::HBSourceOver in whole numbers that a float holds exactly. The colour is not fully transparent.
template <class D>
HWY_INLINE hn::Vec<hn::RebindToUnsigned<D>> Over(D d, HBRGBA32i color, hn::Vec<hn::RebindToUnsigned<D>> source)
{
    const auto below = hn::Mul(Channel<24>(d, source), hn::Set(d, 255.0f - color.alpha));
    const auto total = hn::Add(below, hn::Set(d, color.alpha * 255.0f));
    const auto half = hn::Floor(hn::Mul(total, hn::Set(d, 0.5f)));
    const auto mean = [&](int own, auto other) {
        const auto ownShare = hn::Set(d, float(own * color.alpha * 255));
        return Quotient(d, hn::Add(hn::Add(ownShare, hn::Mul(other, below)), half), total);
    };
    const auto alpha = Quotient(d, hn::Add(total, hn::Set(d, 127.0f)), hn::Set(d, 255.0f));
    return Joined<D>(mean(color.red, Channel<16>(d, source)), mean(color.green, Channel<8>(d, source)),
                     mean(color.blue, Channel<0>(d, source)), alpha);
}

/// The same on opaque pixels, where the divisor is 255: multiplying by its inverse is exact as well, if half a
/// unit keeps the products off the whole numbers.
template <class D>
HWY_INLINE hn::Vec<hn::RebindToUnsigned<D>> OverOpaque(D d, HBRGBA32i color,
                                                       hn::Vec<hn::RebindToUnsigned<D>> source)
{
    const hn::RebindToUnsigned<D> du;
    const auto below = hn::Set(d, 255.0f - color.alpha);
    const auto mean = [&](int own, auto other) {
        const auto sum = hn::Add(hn::Set(d, own * color.alpha + 127.5f), hn::Mul(other, below));
        const auto scaled = hn::Mul(sum, hn::Set(d, 1.0f / 255.0f));
        return hn::BitCast(du, hn::ConvertTo(hn::RebindToSigned<D>(), scaled));
    };
    return Joined<D>(mean(color.red, Channel<16>(d, source)), mean(color.green, Channel<8>(d, source)),
                     mean(color.blue, Channel<0>(d, source)), hn::Set(du, 255u));
}

template <class D>
HWY_INLINE void FillVector(D d, HBRGBA32i color, std::uint32_t* words)
{
    const hn::RebindToUnsigned<D> du;
    const auto source = hn::LoadU(du, words);
    const bool opaque = hn::AllTrue(du, hn::ShiftRight<24>(source) == hn::Set(du, 255u));
    hn::StoreU(opaque ? OverOpaque(d, color, source) : Over(d, color, source), du, words);
}

/// Over as many of the pixels as fill whole vectors; returns how many.
int FillVectors(HBRGBA32i color, HBRGBA32i* pixels, int count)
{
    const hn::ScalableTag<float> d;
    const hn::RebindToUnsigned<decltype(d)> du;
    const int lanes = int(hn::Lanes(d));
    auto* words = reinterpret_cast<std::uint32_t*>(pixels);
    int i = 0;
    if (color.alpha == 255) {
        for (; i + lanes <= count; i += lanes)
            hn::StoreU(hn::Set(du, color.ToRgba()), du, words + i);
    } else {
        for (; i + lanes <= count; i += lanes)
            FillVector(d, color, words + i);
    }
    return i;
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(FillVectors);
}

void KMFillTransformation::operator()(HBRGBA32i* pixels, int count) const
{
    if (m_Color.alpha == 0)
        return;
    for (int i = HWY_DYNAMIC_DISPATCH(FillVectors)(m_Color, pixels, count); i < count; ++i)
        (*this)(pixels[i]);
}

#endif
