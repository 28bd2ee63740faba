// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAverageTintRGB32.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBAverageTintRGB32.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR

int TintVectors(HBRGBA32i*, int, const HBTintFactors&)
{
    return 0; // the pixel form is as good
}

#else

constexpr std::uint32_t Whole = 255000;

/// value / 255000 without remainder for values up to 255 × 255000: multiplied by 2^45 / 255000, rounded up, and
/// shifted. The factor is too large by less than 1, the product by less than 2^26, and a quotient that is not
/// whole stays clear of the next whole number by 2^45 / 255000, more than 2^27.
template <class D>
HWY_INLINE hn::Vec<D> DivideByWhole(D d, hn::Vec<D> values)
{
    constexpr int shift = 45;
    constexpr auto factor = std::uint32_t(((std::uint64_t(1) << shift) + Whole - 1) / Whole);
    const hn::RepartitionToWide<D> wide;
    const auto factors = hn::Set(d, factor);
    const auto even = hn::ShiftRight<shift>(hn::MulEven(values, factors));
    const auto oddValues = hn::BitCast(d, hn::ShiftRight<32>(hn::BitCast(wide, values)));
    const auto odd = hn::ShiftRight<shift>(hn::MulEven(oddValues, factors));
    return hn::BitCast(d, hn::Or(even, hn::ShiftLeft<32>(odd)));
}

/// (from × (255000 - share) + to × share) / 255000
template <class D>
HWY_INLINE hn::Vec<D> Mix(D d, hn::Vec<D> from, hn::Vec<D> to, hn::Vec<D> share)
{
    const auto rest = hn::Sub(hn::Set(d, Whole), share);
    return DivideByWhole(d, hn::Add(hn::Mul(from, rest), hn::Mul(to, share)));
}

template <class D>
HWY_INLINE void TintVector(D d, const HBTintFactors& factors, std::uint32_t* words)
{
    const auto set = [&](int value) { return hn::Set(d, std::uint32_t(value)); };
    const auto source = hn::LoadU(d, words);
    const auto red = hn::And(hn::ShiftRight<16>(source), set(255));
    const auto green = hn::And(hn::ShiftRight<8>(source), set(255));
    const auto blue = hn::And(source, set(255));
    const auto brightness =
        hn::Add(hn::Add(hn::Mul(red, set(factors.redWeight)), hn::Mul(green, set(factors.greenWeight))),
                hn::Mul(blue, set(factors.blueWeight)));
    const auto mixed = [&](auto level, int black, int white) {
        return Mix(d, level, Mix(d, set(black), set(white), brightness), set(factors.amount));
    };
    auto result = hn::And(source, hn::Set(d, 0xFF000000u));
    result = hn::Or(result, hn::ShiftLeft<16>(mixed(red, factors.black.red, factors.white.red)));
    result = hn::Or(result, hn::ShiftLeft<8>(mixed(green, factors.black.green, factors.white.green)));
    result = hn::Or(result, mixed(blue, factors.black.blue, factors.white.blue));
    hn::StoreU(result, d, words);
}

int TintVectors(HBRGBA32i* pixels, int count, const HBTintFactors& factors)
{
    const hn::ScalableTag<std::uint32_t> d;
    const int lanes = int(hn::Lanes(d));
    auto* words = reinterpret_cast<std::uint32_t*>(pixels);
    int i = 0;
    for (; i + lanes <= count; i += lanes)
        TintVector(d, factors, words + i);
    return i;
}

#endif

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(TintVectors);
}

int HBAverageTintVectors(HBRGBA32i* pixels, int count, const HBTintFactors& factors)
{
    return HWY_DYNAMIC_DISPATCH(TintVectors)(pixels, count, factors);
}

#endif
