// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBChannelTables.h"

// Table look-ups in vector registers. With AVX-512 VBMI a table of 256 bytes is four registers and a look-up two
// instructions, so that even three different tables run at the speed of memory. Elsewhere a look-up is 16 byte
// shuffles, worth it only if the channels share one table; three different ones go pixel by pixel.

#define HWY_WANT_AVX3_DL 1
// The table is an array of vectors, which needs vectors of a fixed size: NEON is used on machines with SVE.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128)
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBChannelTables.cpp"
#include <hwy/foreach_target.h>

#include "HBWideTable-inl.h"

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{
namespace hn = hwy::HWY_NAMESPACE;

void MapPixels(const HBChannelTables& tables, HBRGBA32i* pixels, int count)
{
    for (int i = 0; i < count; ++i)
        tables(pixels[i]);
}

#if HWY_TARGET == HWY_AVX3_DL

void ApplyTables(const HBChannelTables& tables, HBRGBA32i* pixels, int count)
{
    constexpr __mmask64 blueBytes = 0x1111111111111111u;
    const WideTable blue(tables.blue);
    const WideTable green(tables.green);
    const WideTable red(tables.red);
    int i = 0;
    for (; i + 16 <= count; i += 16) {
        const __m512i levels = _mm512_loadu_si512(pixels + i);
        __m512i result = _mm512_mask_mov_epi8(levels, blueBytes, blue.Look(levels));
        result = _mm512_mask_mov_epi8(result, blueBytes << 1, green.Look(levels));
        result = _mm512_mask_mov_epi8(result, blueBytes << 2, red.Look(levels));
        _mm512_storeu_si512(pixels + i, result);
    }
    MapPixels(tables, pixels + i, count - i);
}

#elif HWY_TARGET != HWY_SCALAR && HWY_TARGET != HWY_SSE2 && !HWY_HAVE_SCALABLE

void ApplyTables(const HBChannelTables& tables, HBRGBA32i* pixels, int count)
{
    if (tables.blue != tables.green || tables.green != tables.red) {
        MapPixels(tables, pixels, count);
        return;
    }
    const hn::ScalableTag<std::uint8_t> d;
    using V = hn::Vec<decltype(d)>;
    const int lanes = int(hn::Lanes(d));
    V rows[16];
    for (int row = 0; row < 16; ++row)
        rows[row] = hn::LoadDup128(d, tables.blue.data() + 16 * row);
    const V alphaBytes = hn::BitCast(d, hn::Set(hn::ScalableTag<std::uint32_t>(), 0xFF000000u));
    const V lowNibble = hn::Set(d, 0x0F);

    int i = 0;
    for (; i + lanes / 4 <= count; i += lanes / 4) {
        auto* bytes = reinterpret_cast<std::uint8_t*>(pixels + i);
        const V levels = hn::LoadU(d, bytes);
        const V low = hn::And(levels, lowNibble);
        const V high = hn::AndNot(lowNibble, levels);
        V result = hn::Zero(d);
        for (int row = 0; row < 16; ++row) {
            const auto inRow = high == hn::Set(d, std::uint8_t(row << 4));
            result = hn::IfThenElse(inRow, hn::TableLookupBytes(rows[row], low), result);
        }
        hn::StoreU(hn::IfThenElse(hn::MaskFromVec(alphaBytes), levels, result), d, bytes);
    }
    MapPixels(tables, pixels + i, count - i);
}

#else

void ApplyTables(const HBChannelTables& tables, HBRGBA32i* pixels, int count)
{
    MapPixels(tables, pixels, count);
}

#endif

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(ApplyTables);
}

HBChannelTables::HBChannelTables() : HBChannelTables(HBMakeTable([](int level) { return level; })) {}

void HBChannelTables::operator()(HBRGBA32i* pixels, int count) const
{
    HWY_DYNAMIC_DISPATCH(ApplyTables)(*this, pixels, count);
}

HBChannelTables HBComposed(const HBChannelTables& first, const HBChannelTables& second)
{
    const auto composed = [](const HBChannelTables::Table& inner, const HBChannelTables::Table& outer) {
        return HBMakeTable([&](int level) { return outer[inner[std::size_t(level)]]; });
    };
    HBChannelTables both;
    both.blue = composed(first.blue, second.blue);
    both.green = composed(first.green, second.green);
    both.red = composed(first.red, second.red);
    return both;
}

#endif
