// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBHueSaturationTransformation.h"

#include <QtGlobal>

#include <cstdlib>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBHueSaturationTransformation.cpp"
#include <hwy/foreach_target.h>

#include "HBColorVectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

using Factors = HBHueSaturationTransformation::Factors;

// The lightness is kept as its double, greatest + least channel, 0..510: whole numbers, exact. The chroma,
// greatest - least, is then at most 255 - |double lightness - 255|.

template <class D>
HWY_INLINE hn::Vec<D> MostChroma(D d, hn::Vec<D> doubleLightness)
{
    const auto full = hn::Set(d, 255.0f);
    return hn::Sub(full, hn::Abs(hn::Sub(doubleLightness, full)));
}

template <class D>
HWY_INLINE hn::Vec<D> MoveLightness(D d, hn::Vec<D> doubleLightness, const Factors& factors)
{
    return hn::Add(hn::Mul(doubleLightness, hn::Set(d, factors.lightScale)), hn::Set(d, factors.lightShift));
}

/// The colour of hue (in sectors, 0..6), chroma and double lightness.
template <class D>
HWY_INLINE void SetColors(D d, Colors<D>& c, hn::Vec<D> hue, hn::Vec<D> chroma, hn::Vec<D> doubleLightness)
{
    const auto one = hn::Set(d, 1.0f);
    const auto two = hn::Set(d, 2.0f);
    // As whole numbers, the bits of floats of at least 0 stand in the same order and all below 0 are negative: the
    // clamp is the same, in units that have less to do.
    const hn::RebindToSigned<D> di;
    auto bounded = [&](auto share) {
        const auto bits = hn::Max(hn::BitCast(di, share), hn::Zero(di));
        return hn::BitCast(d, hn::Min(bits, hn::BitCast(di, one)));
    };
    const auto least = hn::Mul(hn::Sub(doubleLightness, chroma), hn::Set(d, 0.5f));
    const auto red = bounded(hn::Sub(hn::Abs(hn::Sub(hue, hn::Set(d, 3.0f))), one));
    const auto green = bounded(hn::Sub(two, hn::Abs(hn::Sub(hue, two))));
    const auto blue = bounded(hn::Sub(two, hn::Abs(hn::Sub(hue, hn::Set(d, 4.0f)))));
    c.red = hn::Add(least, hn::Mul(chroma, red));
    c.green = hn::Add(least, hn::Mul(chroma, green));
    c.blue = hn::Add(least, hn::Mul(chroma, blue));
}

/// The greatest and the least of the three. The bits of floats of at least 0 stand in the same order as whole
/// numbers.
template <class D>
HWY_INLINE hn::Vec<D> Greatest(D d, const Colors<D>& c)
{
    const hn::RebindToSigned<D> di;
    const auto bits = hn::Max(hn::BitCast(di, c.red), hn::BitCast(di, c.green));
    return hn::BitCast(d, hn::Max(bits, hn::BitCast(di, c.blue)));
}

template <class D>
HWY_INLINE hn::Vec<D> Least(D d, const Colors<D>& c)
{
    const hn::RebindToSigned<D> di;
    const auto bits = hn::Min(hn::BitCast(di, c.red), hn::BitCast(di, c.green));
    return hn::BitCast(d, hn::Min(bits, hn::BitCast(di, c.blue)));
}

/// \tparam FarTurn by a sector or more: the hue then never falls below 0, and is never 6 or more otherwise
template <bool FarTurn>
struct Adjust
{
    const Factors& factors;

    template <class D>
    HWY_INLINE void operator()(D d, Colors<D>& c) const
    {
        const auto zero = hn::Zero(d);
        const auto one = hn::Set(d, 1.0f);
        const auto six = hn::Set(d, 6.0f);
        const auto most = Greatest(d, c);
        const auto chroma = hn::Sub(most, Least(d, c));
        const auto light = hn::Add(most, Least(d, c));
        // Whole numbers, so this is MostChroma. Grey has chroma 0: any divisor will do.
        const auto mostChroma = hn::Max(hn::Min(light, hn::Sub(hn::Set(d, 510.0f), light)), one);
        const auto scaled = hn::Mul(hn::Div(chroma, mostChroma), hn::Set(d, factors.saturation));

        const auto redMost = most == c.red;
        const auto greenMost = most == c.green;
        const auto other = hn::IfThenElse(greenMost, hn::Sub(c.blue, c.red), hn::Sub(c.red, c.green));
        const auto slope = hn::IfThenElse(redMost, hn::Sub(c.green, c.blue), other);
        const auto sector = hn::IfThenElse(greenMost, hn::Set(d, 2.0f), hn::Set(d, 4.0f));
        const auto start = hn::IfThenElse(redMost, zero, sector);
        auto hue = hn::Add(hn::Add(hn::Div(slope, hn::Max(chroma, one)), start), hn::Set(d, factors.turn));
        if constexpr (FarTurn)
            hue = hn::IfThenElse(hue >= six, hn::Sub(hue, six), hue);
        else
            hue = hn::IfThenElse(hue < zero, hn::Add(hue, six), hue);

        const auto moved = MoveLightness(d, light, factors);
        SetColors(d, c, hue, hn::Mul(MostChroma(d, moved), hn::Min(scaled, one)), moved);
    }
};

struct Colorize
{
    const Factors& factors;

    template <class D>
    HWY_INLINE void operator()(D d, Colors<D>& c) const
    {
        const auto moved = MoveLightness(d, hn::Add(Greatest(d, c), Least(d, c)), factors);
        const auto chroma = hn::Mul(MostChroma(d, moved), hn::Set(d, factors.saturation));
        SetColors(d, c, hn::Set(d, factors.turn), chroma, moved);
    }
};

void AdjustPixels(const Factors& factors, HBRGBA32i* pixels, int count)
{
    if (factors.colorize)
        MapColors(Colorize{factors}, pixels, count);
    else if (factors.turn >= 1.0f)
        MapColors(Adjust<true>{factors}, pixels, count);
    else
        MapColors(Adjust<false>{factors}, pixels, count);
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(AdjustPixels);
}

HBHueSaturationTransformation::HBHueSaturationTransformation(int hue, int saturation, int lightness, bool colorize)
{
    const int s = qBound(-100, saturation, 100);
    const int l = qBound(-100, lightness, 100);
    m_Factors.turn = float(qBound(0, hue, 359) / 60.0);
    m_Factors.saturation = colorize ? float((100 + s) / 200.0) : float((100 + s) / 100.0);
    m_Factors.lightScale = float((100 - std::abs(l)) / 100.0);
    m_Factors.lightShift = float(qMax(l, 0) * 510 / 100.0);
    m_Factors.colorize = colorize;
    m_Factors.identity = !colorize && m_Factors.turn == 0.0f && s == 0 && l == 0;
}

void HBHueSaturationTransformation::operator()(HBRGBA32i* pixels, int count) const
{
    if (!m_Factors.identity)
        HWY_DYNAMIC_DISPATCH(AdjustPixels)(m_Factors, pixels, count);
}

#endif
