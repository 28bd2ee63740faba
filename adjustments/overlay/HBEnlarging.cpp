// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEnlarging.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBEnlarging.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{
namespace hn = hwy::HWY_NAMESPACE;

/// Two pixels a lane, the weight of the second in 1/256: two channels of 8 bits in 16 at once, rounded.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V Mixed(D d, V first, V second, V weight)
{
    const V rest = hn::Sub(hn::Set(d, 256u), weight);
    const V low = hn::Set(d, 0x00FF00FFu);
    const auto mean = [&](V a, V b) {
        const V sum = hn::Add(hn::Mul(a, rest), hn::Mul(b, weight));
        return hn::And(hn::ShiftRight<8>(hn::Add(sum, hn::Set(d, 0x00800080u))), low);
    };
    const V even = mean(hn::And(first, low), hn::And(second, low));
    const V odd = mean(hn::And(hn::ShiftRight<8>(first), low), hn::And(hn::ShiftRight<8>(second), low));
    return hn::Or(even, hn::ShiftLeft<8>(odd));
}

/// Calls `run(tag, index)` for whole vectors and then for the single pixels that are left.
template <class Run>
HWY_INLINE void ForAll(int count, const Run& run)
{
    const hn::ScalableTag<std::uint32_t> d;
    const hn::CappedTag<std::uint32_t, 1> single;
    const int lanes = int(hn::Lanes(d));
    int i = 0;
    for (; i + lanes <= count; i += lanes)
        run(d, i);
    for (; i < count; ++i)
        run(single, i);
}

void MixRows(const QRgb* first, const QRgb* second, int weight, int count, QRgb* target)
{
    ForAll(count, [=](auto d, int i) {
        const auto w = hn::Set(d, std::uint32_t(weight));
        hn::StoreU(Mixed(d, hn::LoadU(d, first + i), hn::LoadU(d, second + i), w), d, target + i);
    });
}

/// `pixels` is that at `origin`.
void MixColumns(const QRgb* pixels, const qint32* first, const qint32* weights, int origin, int count,
                QRgb* target)
{
    ForAll(count, [=](auto d, int i) {
        const hn::RebindToSigned<decltype(d)> di;
        const auto index = hn::Sub(hn::LoadU(di, first + i), hn::Set(di, origin));
        const auto a = hn::GatherIndex(d, pixels, index);
        const auto b = hn::GatherIndex(d, pixels + 1, index);
        hn::StoreU(Mixed(d, a, b, hn::BitCast(d, hn::LoadU(di, weights + i))), d, target + i);
    });
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(MixRows);
HWY_EXPORT(MixColumns);
} // namespace

HBEnlarging::HBEnlarging(int from, int to) : m_First(to), m_Weights(to)
{
    for (int i = 0; i < to; ++i) {
        const double at = qBound(0.0, (i + 0.5) * from / to - 0.5, double(from - 1));
        m_First[i] = qMin(int(at), qMax(0, from - 2));
        m_Weights[i] = qRound((at - m_First[i]) * 256);
    }
}

void HBEnlarging::Across(const QRgb* pixels, int origin, int index, int count, QRgb* target) const
{
    HWY_DYNAMIC_DISPATCH(MixColumns)
    (pixels, m_First.constData() + index, m_Weights.constData() + index, origin, count, target);
}

void HBEnlarging::Mix(const QRgb* first, const QRgb* second, int weight, int count, QRgb* target)
{
    HWY_DYNAMIC_DISPATCH(MixRows)(first, second, weight, count, target);
}

#endif
