// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// Linear light by the tables of HBSrgbBytes.h, for machines with AVX-512 VBMI: a gather there takes as long as
// all the rest of a formula. The same bytes as by HBSrgbVectors-inl.h. Included once per instruction set.
#if defined(HB_SRGB_BYTES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef HB_SRGB_BYTES_INL_H
#undef HB_SRGB_BYTES_INL_H
#else
#define HB_SRGB_BYTES_INL_H
#endif

#include "HBRGBA32i.h"
#include "HBSrgbBytes.h"
#include "HBWideTable-inl.h"

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

#if HWY_TARGET == HWY_AVX3_DL

/// The bytes of one channel of 64 pixels. In each 128-bit lane stand the four pixels that the same lane of the
/// first vector of pixels holds, then those of the second, third and fourth: the order in which unpacking and
/// packing within lanes undo each other.
struct Planes
{
    __m512i blue;
    __m512i green;
    __m512i red;

    explicit Planes(const HBRGBA32i* pixels)
    {
        const __m512i order = _mm512_broadcast_i32x4(
            _mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15)); // bbbb gggg rrrr aaaa
        __m512i part[4];
        for (int z = 0; z < 4; ++z)
            part[z] = _mm512_shuffle_epi8(_mm512_loadu_si512(pixels + 16 * z), order);
        const __m512i blueGreen01 = _mm512_unpacklo_epi32(part[0], part[1]);
        const __m512i blueGreen23 = _mm512_unpacklo_epi32(part[2], part[3]);
        const __m512i red01 = _mm512_unpackhi_epi32(part[0], part[1]);
        const __m512i red23 = _mm512_unpackhi_epi32(part[2], part[3]);
        blue = _mm512_unpacklo_epi64(blueGreen01, blueGreen23);
        green = _mm512_unpackhi_epi64(blueGreen01, blueGreen23);
        red = _mm512_unpacklo_epi64(red01, red23);
    }
};

/// Floats of 64 pixels, in their order.
struct Light
{
    __m512 part[4];
};

/// Puts floats together from their bytes.
struct LightTable
{
    WideTable byte[4];

    explicit LightTable(const HBSrgb::LevelBytes& table)
        : byte{WideTable(table.byte[0]), WideTable(table.byte[1]), WideTable(table.byte[2]),
               WideTable(table.byte[3])}
    {
    }
    Light Look(__m512i levels) const
    {
        const __m512i b0 = byte[0].Look(levels);
        const __m512i b1 = byte[1].Look(levels);
        const __m512i b2 = byte[2].Look(levels);
        const __m512i b3 = byte[3].Look(levels);
        const __m512i low01 = _mm512_unpacklo_epi8(b0, b1);
        const __m512i high01 = _mm512_unpackhi_epi8(b0, b1);
        const __m512i low23 = _mm512_unpacklo_epi8(b2, b3);
        const __m512i high23 = _mm512_unpackhi_epi8(b2, b3);
        return {{_mm512_castsi512_ps(_mm512_unpacklo_epi16(low01, low23)),
                 _mm512_castsi512_ps(_mm512_unpackhi_epi16(low01, low23)),
                 _mm512_castsi512_ps(_mm512_unpacklo_epi16(high01, high23)),
                 _mm512_castsi512_ps(_mm512_unpackhi_epi16(high01, high23))}};
    }
};

/// Steps of a ShadeTable, 16 bits each: of pixels 0-31 and 32-63, lane by lane.
struct Steps
{
    __m512i half[2];
};

/// What is outside 0..1 becomes the first or the last step, also where packing cuts it.
inline Steps StepsOf(const Light& light)
{
    using Table = HBSrgb::ShadeTable;
    const __m512i firstStep = _mm512_set1_epi16(short(Table::First));
    const __m512i lastStep = _mm512_set1_epi16(Table::Doublings << Table::StepBits);
    const auto packed = [&](__m512 a, __m512 b) {
        const __m512i both = _mm512_packus_epi32(_mm512_srai_epi32(_mm512_castps_si512(a), Table::Shift),
                                                 _mm512_srai_epi32(_mm512_castps_si512(b), Table::Shift));
        return _mm512_min_epu16(_mm512_subs_epu16(both, firstStep), lastStep);
    };
    return {{packed(light.part[0], light.part[1]), packed(light.part[2], light.part[3])}};
}

/// The rounded levels of steps, in the order of Planes.
struct ShadeLevels
{
    WideTable first;
    WideTable slope;
    WideTable lastLow;
    WideTable lastHigh;

    explicit ShadeLevels(const HBSrgb::ShadeBytes& table)
        : first(table.first)
        , slope(table.slope)
        , lastLow(table.lastLow)
        , lastHigh(table.lastHigh)
    {
    }
    __m512i Look(const Steps& steps) const
    {
        constexpr int binBits = HBSrgb::ShadeBytes::BinBits;
        const __m512i zero = _mm512_setzero_si512();
        const __m512i inBin = _mm512_set1_epi16((1 << binBits) - 1);
        const __m512i bins = _mm512_packus_epi16(_mm512_srli_epi16(steps.half[0], binBits),
                                                 _mm512_srli_epi16(steps.half[1], binBits));
        const __m512i slopes = slope.Look(bins);
        // The slope as the upper byte, so that the upper half of the product is the line, cut.
        const __m512i line = _mm512_packus_epi16(
            _mm512_mulhi_epu16(_mm512_unpacklo_epi8(zero, slopes), _mm512_and_si512(steps.half[0], inBin)),
            _mm512_mulhi_epu16(_mm512_unpackhi_epi8(zero, slopes), _mm512_and_si512(steps.half[1], inBin)));
        const __m512i levels = _mm512_add_epi8(first.Look(bins), line);
        const __m512i low = lastLow.Look(levels);
        const __m512i high = lastHigh.Look(levels);
        const __m512i beyond =
            _mm512_packus_epi16(_mm512_subs_epu16(steps.half[0], _mm512_unpacklo_epi8(low, high)),
                                _mm512_subs_epu16(steps.half[1], _mm512_unpackhi_epi8(low, high)));
        return _mm512_add_epi8(levels, _mm512_min_epu8(beyond, _mm512_set1_epi8(1)));
    }
};

/// Makes each channel the weighted sum of the light of red, green and blue. In two rounds over a few pixels at a
/// time: the tables of both would not fit the registers.
/// \return how many pixels are done; the rest, fewer than 64, is left
inline int MixLight(const float (&rows)[3][3], const HBSrgb::LevelBytes& decoding,
                    const HBSrgb::ShadeBytes& encoding, HBRGBA32i* pixels, int count)
{
    constexpr int Group = 64;
    constexpr int Groups = 8;
    Steps steps[Groups][3];
    int done = 0;
    while (count - done >= Group) {
        const int groups = std::min(Groups, (count - done) / Group);
        const LightTable lights(decoding);
        for (int g = 0; g < groups; ++g) {
            const Planes planes(pixels + done + g * Group);
            const Light red = lights.Look(planes.red);
            const Light green = lights.Look(planes.green);
            const Light blue = lights.Look(planes.blue);
            for (int row = 0; row < 3; ++row) {
                Light sum;
                for (int z = 0; z < 4; ++z) {
                    sum.part[z] = _mm512_add_ps(_mm512_mul_ps(red.part[z], _mm512_set1_ps(rows[row][0])),
                                                _mm512_mul_ps(green.part[z], _mm512_set1_ps(rows[row][1])));
                    sum.part[z] =
                        _mm512_add_ps(sum.part[z], _mm512_mul_ps(blue.part[z], _mm512_set1_ps(rows[row][2])));
                }
                steps[g][row] = StepsOf(sum);
            }
        }
        const ShadeLevels shades(encoding);
        const __m512i alpha = _mm512_set1_epi32(int(0xFF000000u));
        for (int g = 0; g < groups; ++g) {
            const __m512i red = shades.Look(steps[g][0]);
            const __m512i green = shades.Look(steps[g][1]);
            const __m512i blue = shades.Look(steps[g][2]);
            const __m512i blueGreen[2] = {_mm512_unpacklo_epi8(blue, green), _mm512_unpackhi_epi8(blue, green)};
            const __m512i redAny[2] = {_mm512_unpacklo_epi8(red, red), _mm512_unpackhi_epi8(red, red)};
            for (int z = 0; z < 4; ++z) {
                HBRGBA32i* const to = pixels + done + g * Group + 16 * z;
                const __m512i colors = z % 2 ? _mm512_unpackhi_epi16(blueGreen[z / 2], redAny[z / 2])
                                             : _mm512_unpacklo_epi16(blueGreen[z / 2], redAny[z / 2]);
                // alpha ? source : colors
                _mm512_storeu_si512(to, _mm512_ternarylogic_epi32(alpha, _mm512_loadu_si512(to), colors, 0xCA));
            }
        }
        done += groups * Group;
    }
    return done;
}

#endif

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#endif
