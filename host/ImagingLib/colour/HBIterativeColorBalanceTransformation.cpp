// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBIterativeColorBalanceTransformation.h"

#include <QtGlobal>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBIterativeColorBalanceTransformation.cpp"
#include <hwy/foreach_target.h>

#include "HBColorVectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

struct Balance
{
    const HBColorBalance::Curves& curves;

    template <class D>
    HWY_INLINE void operator()(D d, Colors<D>& c) const
    {
        const auto luma = Weigh(d, c, 0.2126f / 255.0f, 0.7152f / 255.0f, 0.0722f / 255.0f);
        const auto raised = [&](auto level, const HBColorBalance::Curve& curve) {
            const auto slope = hn::Add(hn::Set(d, curve.linear), hn::Mul(luma, hn::Set(d, curve.square)));
            return hn::Add(hn::Add(level, hn::Set(d, curve.constant)), hn::Mul(luma, slope));
        };
        c.red = raised(c.red, curves.red);
        c.green = raised(c.green, curves.green);
        c.blue = raised(c.blue, curves.blue);
    }
};

void BalancePixels(const HBColorBalance::Curves& curves, HBRGBA32i* pixels, int count)
{
    MapColors(Balance{curves}, pixels, count);
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(BalancePixels);

HBColorBalance::Curve MakeCurve(const int* values)
{
    const int shadows = qBound(-100, values[0], 100);
    const int midtones = qBound(-100, values[1], 100);
    const int highlights = qBound(-100, values[2], 100);
    // The weighted sum, ordered by powers of Y.
    return {float(shadows), float(2 * (midtones - shadows)), float(shadows - 2 * midtones + highlights)};
}

bool IsZero(const int* values)
{
    return values[0] == 0 && values[1] == 0 && values[2] == 0;
}

} // namespace

HBColorBalance::HBColorBalance(const int* cyanRed, const int* magentaGreen, const int* yellowBlue)
    : m_Curves{MakeCurve(cyanRed), MakeCurve(magentaGreen), MakeCurve(yellowBlue)}
    , m_Identity(IsZero(cyanRed) && IsZero(magentaGreen) && IsZero(yellowBlue))
{
}

void HBColorBalance::operator()(HBRGBA32i* pixels, int count) const
{
    if (!m_Identity)
        HWY_DYNAMIC_DISPATCH(BalancePixels)(m_Curves, pixels, count);
}

#endif
