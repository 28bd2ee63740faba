// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBIterativePhotoFilterTransformation.h"

#include <QtGlobal>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBIterativePhotoFilterTransformation.cpp"
#include <hwy/foreach_target.h>

#include "HBColorVectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

struct Filter
{
    const HBPhotoFilter::Factors& factors;

    // SetLum adds the luminosity that the filter took and then, where a channel has left the range, pulls all
    // three towards the luminosity until it is back. Only the upper end can be left, because light is only added.
    template <class D>
    HWY_INLINE void operator()(D d, Colors<D>& c) const
    {
        const Colors<D> passed{hn::Mul(c.red, hn::Set(d, factors.red)),
                               hn::Mul(c.green, hn::Set(d, factors.green)),
                               hn::Mul(c.blue, hn::Set(d, factors.blue))};
        const auto luminosity = Weigh(d, c, 0.3f, 0.59f, 0.11f);
        const auto left = Weigh(d, passed, 0.3f, 0.59f, 0.11f);
        const auto reach = hn::Sub(hn::Max(hn::Max(passed.red, passed.green), passed.blue), left);
        const auto room = hn::Sub(hn::Set(d, 255.0f), luminosity);
        const auto pull = hn::Div(room, hn::Max(reach, hn::Max(room, hn::Set(d, 1e-3f))));
        const auto restored = [&](auto channel) {
            return hn::Add(luminosity, hn::Mul(hn::Sub(channel, left), pull));
        };
        c.red = Lerp(d, c.red, restored(passed.red), factors.density);
        c.green = Lerp(d, c.green, restored(passed.green), factors.density);
        c.blue = Lerp(d, c.blue, restored(passed.blue), factors.density);
    }
};

void FilterPixels(const HBPhotoFilter::Factors& factors, HBRGBA32i* pixels, int count)
{
    MapColors(Filter{factors}, pixels, count);
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(FilterPixels);
}

HBPhotoFilter::HBPhotoFilter(const HBRGBA32i& color, int density)
    : m_Factors{color.red / 255.0f, color.green / 255.0f, color.blue / 255.0f, qBound(0, density, 100) / 100.0f}
{
}

void HBPhotoFilter::operator()(HBRGBA32i* pixels, int count) const
{
    if (m_Factors.density > 0.0f)
        HWY_DYNAMIC_DISPATCH(FilterPixels)(m_Factors, pixels, count);
}

#endif
