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

#undef HB_COLOR_VECTORS_PACK
#if HWY_ARCH_X86 && HWY_TARGET != HWY_SCALAR && HWY_TARGET != HWY_EMU128
#define HB_COLOR_VECTORS_PACK 1
#else
#define HB_COLOR_VECTORS_PACK 0
#endif

/// Without the fraction; less than 2^31 in size. ConvertTo does more on x86: it mends what is larger.
template <class D>
HWY_INLINE hn::Vec<hn::RebindToSigned<D>> Truncated([[maybe_unused]] D d, hn::Vec<D> value)
{
    const hn::RebindToSigned<D> di;
#if HB_COLOR_VECTORS_PACK
    using V = hn::Vec<decltype(di)>;
    if constexpr (sizeof(V) == 64)
        return V{_mm512_cvttps_epi32(value.raw)};
    else if constexpr (sizeof(V) == 32)
        return V{_mm256_cvttps_epi32(value.raw)};
    else
        return V{_mm_cvttps_epi32(value.raw)};
#else
    return hn::ConvertTo(di, value);
#endif
}

/// Clamped to 0..255 and rounded, halves upwards.
template <class D>
HWY_INLINE hn::Vec<hn::RebindToUnsigned<D>> Level(D d, hn::Vec<D> value)
{
    const hn::RebindToUnsigned<D> du;
    const auto bounded = hn::Min(hn::Max(value, hn::Zero(d)), hn::Set(d, 255.0f));
    return hn::BitCast(du, Truncated(d, hn::Add(bounded, hn::Set(d, 0.5f))));
}

/// The pixels of these levels (clamped and rounded as by Level), with the alpha of `source`.
template <class D>
HWY_INLINE hn::Vec<hn::RebindToUnsigned<D>> PixelsOf(D d, const Colors<D>& colors,
                                                     hn::Vec<hn::RebindToUnsigned<D>> source)
{
    const hn::RebindToUnsigned<D> du;
#if HB_COLOR_VECTORS_PACK
    // Packing with saturation is the clamp. In each block of four pixels: b b b b r r r r, with g and a alike.
    const auto rounded = [&](auto value) { return Truncated(d, hn::Add(value, hn::Set(d, 0.5f))).raw; };
    using V = hn::Vec<decltype(du)>;
    const hn::Repartition<std::uint8_t, decltype(du)> bytes;
    alignas(16) static constexpr std::uint8_t order[16] = {0, 8, 4, 12, 1, 9, 5, 13, 2, 10, 6, 14, 3, 11, 7, 15};
    [[maybe_unused]] const auto alpha = hn::ShiftRight<24>(source).raw;
    if constexpr (sizeof(V) == 64) {
        const auto blueRed = _mm512_packs_epi32(rounded(colors.blue), rounded(colors.red));
        const V packed{_mm512_packus_epi16(blueRed, _mm512_packs_epi32(rounded(colors.green), alpha))};
        return hn::BitCast(du, hn::TableLookupBytes(hn::BitCast(bytes, packed), hn::LoadDup128(bytes, order)));
    } else if constexpr (sizeof(V) == 32) {
        const auto blueRed = _mm256_packs_epi32(rounded(colors.blue), rounded(colors.red));
        const V packed{_mm256_packus_epi16(blueRed, _mm256_packs_epi32(rounded(colors.green), alpha))};
        return hn::BitCast(du, hn::TableLookupBytes(hn::BitCast(bytes, packed), hn::LoadDup128(bytes, order)));
    }
#endif
    auto result = hn::And(source, hn::Set(du, 0xFF000000u));
    result = hn::Or(result, hn::ShiftLeft<16>(Level(d, colors.red)));
    result = hn::Or(result, hn::ShiftLeft<8>(Level(d, colors.green)));
    return hn::Or(result, Level(d, colors.blue));
}

/// One vector of pixels. The kernel is `void operator()(D, Colors<D>&) const` for any float tag D; what it makes
/// is less than 2^31 in size; alpha is kept.
template <class D, class Kernel>
HWY_INLINE void MapVector(D d, const Kernel& kernel, std::uint32_t* words)
{
    const hn::RebindToUnsigned<D> du;
    const auto source = hn::LoadU(du, words);
    Colors<D> colors{Channel<16>(d, source), Channel<8>(d, source), Channel<0>(d, source)};
    kernel(d, colors);
    hn::StoreU(PixelsOf(d, colors, source), du, words);
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
