// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// A table of 256 bytes in four vector registers, for machines with AVX-512 VBMI: 64 look-ups are a few
// instructions of the fastest kind. Included once per instruction set; a file that includes it defines
// HWY_WANT_AVX3_DL.
#if defined(HB_WIDE_TABLE_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef HB_WIDE_TABLE_INL_H
#undef HB_WIDE_TABLE_INL_H
#else
#define HB_WIDE_TABLE_INL_H
#endif

#include <hwy/highway.h>

#include <array>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

#if HWY_TARGET == HWY_AVX3_DL

struct WideTable
{
    __m512i quarter[4];

    explicit WideTable(const std::array<std::uint8_t, 256>& table)
    {
        for (int q = 0; q < 4; ++q)
            quarter[q] = _mm512_loadu_si512(table.data() + 64 * q);
    }
    __m512i Look(__m512i levels) const
    {
        const __m512i lower = _mm512_permutex2var_epi8(quarter[0], levels, quarter[1]);
        const __m512i upper = _mm512_permutex2var_epi8(quarter[2], levels, quarter[3]);
        return _mm512_mask_blend_epi8(_mm512_movepi8_mask(levels), lower, upper);
    }
};

#endif

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#endif
