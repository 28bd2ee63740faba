// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// Runs a formula over the colours of pixels, many at a time. The formula, a kernel, is written once, over vectors
// of floats; the pixels that do not fill a vector go through the same kernel one by one, so that every pixel gets
// the same bytes wherever it stands in a run. Only operations that IEEE 754 fixes bit by bit are used, and files
// that include this are compiled with -ffp-contract=off: all instruction sets then agree as well.
//
// Included once per instruction set, therefore no #pragma once.
#if defined(HB_COLOR_VECTORS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef HB_COLOR_VECTORS_INL_H
#undef HB_COLOR_VECTORS_INL_H
#else
#define HB_COLOR_VECTORS_INL_H
#endif

#include "HBRGBA32i.h"

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{
namespace hn = hwy::HWY_NAMESPACE;

/// The colours of as many pixels as a vector has lanes; levels, 0..255.
template <class D>
struct Colors
{
    using V = hn::Vec<D>;
    V red;
    V green;
    V blue;
};

/// Byte `Shift` / 8 of the words as floats.
template <int Shift, class D>
HWY_INLINE hn::Vec<D> Channel(D d, hn::Vec<hn::RebindToUnsigned<D>> words)
{
    const hn::RebindToUnsigned<D> du;
    const hn::RebindToSigned<D> di;
    return hn::ConvertTo(d, hn::BitCast(di, hn::And(hn::ShiftRight<Shift>(words), hn::Set(du, 0xFFu))));
}

/// Clamped to 0..255 and rounded, halves upwards.
template <class D>
HWY_INLINE hn::Vec<hn::RebindToUnsigned<D>> Level(D d, hn::Vec<D> value)
{
    const hn::RebindToUnsigned<D> du;
    const hn::RebindToSigned<D> di;
    const auto bounded = hn::Min(hn::Max(value, hn::Zero(d)), hn::Set(d, 255.0f));
    return hn::BitCast(du, hn::ConvertTo(di, hn::Add(bounded, hn::Set(d, 0.5f))));
}

/// One vector of pixels. The kernel is `void operator()(D, Colours<D>&) const` for any float tag D; alpha is kept.
template <class D, class Kernel>
HWY_INLINE void MapVector(D d, const Kernel& kernel, std::uint32_t* words)
{
    const hn::RebindToUnsigned<D> du;
    const auto source = hn::LoadU(du, words);
    Colors<D> colors{Channel<16>(d, source), Channel<8>(d, source), Channel<0>(d, source)};
    kernel(d, colors);
    auto result = hn::And(source, hn::Set(du, 0xFF000000u));
    result = hn::Or(result, hn::ShiftLeft<16>(Level(d, colors.red)));
    result = hn::Or(result, hn::ShiftLeft<8>(Level(d, colors.green)));
    result = hn::Or(result, Level(d, colors.blue));
    hn::StoreU(result, du, words);
}

template <class Kernel>
void MapColors(const Kernel& kernel, HBRGBA32i* pixels, int count)
{
    const hn::ScalableTag<float> many;
    const hn::CappedTag<float, 1> one;
    const int lanes = int(hn::Lanes(many));
    auto* words = reinterpret_cast<std::uint32_t*>(pixels);
    int i = 0;
    for (; i + lanes <= count; i += lanes)
        MapVector(many, kernel, words + i);
    for (; i < count; ++i)
        MapVector(one, kernel, words + i);
}

/// from + (to - from) × share
template <class D>
HWY_INLINE hn::Vec<D> Lerp(D d, hn::Vec<D> from, hn::Vec<D> to, float share)
{
    return hn::Add(from, hn::Mul(hn::Sub(to, from), hn::Set(d, share)));
}

/// The sum of the colours, weighted.
template <class D>
HWY_INLINE hn::Vec<D> Weigh(D d, const Colors<D>& colors, float red, float green, float blue)
{
    const auto sum = hn::Add(hn::Mul(colors.red, hn::Set(d, red)), hn::Mul(colors.green, hn::Set(d, green)));
    return hn::Add(sum, hn::Mul(colors.blue, hn::Set(d, blue)));
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#endif
