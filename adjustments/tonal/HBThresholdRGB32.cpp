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

// A truncated quotient is below the level exactly if the undivided sum, at most 100 × 255, is below 100 × level.
int ThresholdVectors(HBRGBA32i* pixels, int count, const HBThresholdWeights& weights, int level)
{
    const hn::ScalableTag<std::uint32_t> d;
    using V = hn::Vec<decltype(d)>;
    const int lanes = int(hn::Lanes(d));
    const V red = hn::Set(d, std::uint32_t(weights.red));
    const V green = hn::Set(d, std::uint32_t(weights.green));
    const V blue = hn::Set(d, std::uint32_t(weights.blue));
    const V limit = hn::Set(d, std::uint32_t(100 * qBound(0, level, 256)));
    const V lowByte = hn::Set(d, 0xFFu);
    const V colors = hn::Set(d, 0x00FFFFFFu);

    auto* words = reinterpret_cast<std::uint32_t*>(pixels);
    int i = 0;
    for (; i + lanes <= count; i += lanes) {
        const V source = hn::LoadU(d, words + i);
        V sum = hn::Mul(hn::And(source, lowByte), blue);
        sum = hn::Add(sum, hn::Mul(hn::And(hn::ShiftRight<8>(source), lowByte), green));
        sum = hn::Add(sum, hn::Mul(hn::And(hn::ShiftRight<16>(source), lowByte), red));
        const V black = hn::AndNot(colors, source);
        const V white = hn::Or(source, colors);
        hn::StoreU(hn::IfThenElse(hn::Lt(sum, limit), black, white), d, words + i);
    }
    return i;
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(ThresholdVectors);
}

int HBThresholdVectors(HBRGBA32i* pixels, int count, const HBThresholdWeights& weights, int level)
{
    return HWY_DYNAMIC_DISPATCH(ThresholdVectors)(pixels, count, weights, level);
}

#endif
