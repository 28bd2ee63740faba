// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBIterativeColorizeTransformation.h"

#include <QtGlobal>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBIterativeColorizeTransformation.cpp"
#include <hwy/foreach_target.h>

#include "HBColorVectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

struct Tone
{
    const HBColorize::Factors& factors;

    // SetLum pulls a colour that has left the range towards its luminosity by luminosity / (luminosity - least) or
    // (white - luminosity) / (greatest - luminosity). For one colour these divisors are constant, and no more than
    // one end can be left.
    template <class D>
    HWY_INLINE void operator()(D d, Colors<D>& c) const
    {
        const auto luminosity = Weigh(d, c, 0.3f, 0.59f, 0.11f);
        const auto below = hn::Mul(luminosity, hn::Set(d, factors.shadows));
        const auto above = hn::Mul(hn::Sub(hn::Set(d, 255.0f), luminosity), hn::Set(d, factors.highlights));
        const auto pull = hn::Min(hn::Min(below, above), hn::Set(d, 1.0f));
        const auto toned = [&](float excess) { return hn::Add(luminosity, hn::Mul(pull, hn::Set(d, excess))); };
        c.red = Lerp(d, c.red, toned(factors.red), factors.amount);
        c.green = Lerp(d, c.green, toned(factors.green), factors.amount);
        c.blue = Lerp(d, c.blue, toned(factors.blue), factors.amount);
    }
};

void TonePixels(const HBColorize::Factors& factors, HBRGBA32i* pixels, int count)
{
    MapColors(Tone{factors}, pixels, count);
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(TonePixels);
}

HBColorize::HBColorize(const HBRGBA32i& color, int amount)
{
    const double luminosity = 0.3 * color.red + 0.59 * color.green + 0.11 * color.blue;
    const int greatest = qMax(color.red, qMax(color.green, color.blue));
    const int least = qMin(color.red, qMin(color.green, color.blue));
    // A grey has no excess; any finite factor will do.
    const auto perLevel = [](double reach) { return float(1.0 / qMax(reach, 1e-3)); };
    m_Factors = {float(color.red - luminosity), float(color.green - luminosity), float(color.blue - luminosity),
                 perLevel(luminosity - least),  perLevel(greatest - luminosity), qBound(0, amount, 100) / 100.0f};
}

void HBColorize::operator()(HBRGBA32i* pixels, int count) const
{
    if (m_Factors.amount > 0.0f)
        HWY_DYNAMIC_DISPATCH(TonePixels)(m_Factors, pixels, count);
}

#endif
