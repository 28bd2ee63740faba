// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBThresholdRGB32.h"

#include <QtGlobal>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBThresholdRGB32.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{
namespace hn = hwy::HWY_NAMESPACE;

// A truncated quotient is below the level exactly if the undivided sum, at most 100 × 255, is below 100 × level: no
// division is needed, and both sides fit 16 bits.
void Threshold(HBRGBA32i* pixels, int count, const HBThresholdWeights& weights, int level)
{
    const hn::ScalableTag<std::uint32_t> d;
    const hn::Repartition<std::uint16_t, decltype(d)> d16;
    const int lanes = int(hn::Lanes(d));
    // The channels as 16-bit numbers, two a pixel: blue and red, green and alpha.
    const auto blueAndRed = hn::BitCast(d16, hn::Set(d, std::uint32_t(weights.blue | weights.red << 16)));
    const auto green = hn::BitCast(d16, hn::Set(d, std::uint32_t(weights.green)));
    const auto evenBytes = hn::Set(d, 0x00FF00FFu);
    const auto colours = hn::Set(d, 0x00FFFFFFu);
    const auto low16 = hn::Set(d, 0xFFFFu);
    const auto limit = hn::Set(d, std::uint32_t(100 * qBound(0, level, 256)));

    const auto map = [&](auto source) HWY_ATTR {
        const auto even = hn::BitCast(d16, hn::And(source, evenBytes));
        const auto odd = hn::BitCast(d16, hn::And(hn::ShiftRight<8>(source), evenBytes));
        const auto halves = hn::BitCast(d, hn::Add(hn::Mul(even, blueAndRed), hn::Mul(odd, green)));
        const auto sum = hn::Add(hn::And(halves, low16), hn::ShiftRight<16>(halves));
        return hn::IfThenElse(hn::Lt(sum, limit), hn::AndNot(colours, source), hn::Or(source, colours));
    };

    auto* words = reinterpret_cast<std::uint32_t*>(pixels);
    int i = 0;
    for (; i + lanes <= count; i += lanes)
        hn::StoreU(map(hn::LoadU(d, words + i)), d, words + i);
    const hn::CappedTag<std::uint32_t, 1> one;
    static_cast<void>(one);
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();
