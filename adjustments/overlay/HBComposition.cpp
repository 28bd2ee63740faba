// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBComposition.h"

// Vectors are members here, which needs vectors of a fixed size: NEON is used on machines with SVE.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128)
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBComposition.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{
namespace hn = hwy::HWY_NAMESPACE;

using D = hn::CappedTag<float, HBComposition::Step>;
using V = hn::Vec<D>;
const D d;

V Number(float value)
{
    return hn::Set(d, value);
}

V Inverse(V value)
{
    return hn::Sub(Number(1), value);
}

// ---- What each mode makes of two opaque colours, 0..1: below and above ----

struct Normal
{
    V operator()(V, V above) const { return above; }
};

struct Multiply
{
    V operator()(V below, V above) const { return hn::Mul(below, above); }
};

struct Screen
{
    V operator()(V below, V above) const { return Inverse(hn::Mul(Inverse(below), Inverse(above))); }
};

struct HardLight
{
    V operator()(V below, V above) const
    {
        const V twice = hn::Add(above, above);
        return hn::IfThenElse(hn::Lt(twice, Number(1)), hn::Mul(twice, below),
                              Screen()(below, hn::Sub(twice, Number(1))));
    }
};

struct Overlay
{
    V operator()(V below, V above) const { return HardLight()(above, below); }
};

struct Darken
{
    V operator()(V below, V above) const { return hn::Min(below, above); }
};

struct Lighten
{
    V operator()(V below, V above) const { return hn::Max(below, above); }
};

struct ColorDodge
{
    V operator()(V below, V above) const
    {
        const V rest = Inverse(above);
        // Also where the quotient is none: white, but black stays black.
        const V quotient = hn::IfThenElse(hn::Lt(below, rest), hn::Div(below, rest), Number(1));
        return hn::IfThenZeroElse(hn::Eq(below, hn::Zero(d)), quotient);
    }
};

struct ColorBurn
{
    V operator()(V below, V above) const { return Inverse(ColorDodge()(Inverse(below), Inverse(above))); }
};

struct SoftLight
{
    V operator()(V below, V above) const
    {
        const V twice = hn::Sub(hn::Add(above, above), Number(1)); // -1..1
        const V dark = hn::Mul(below, Inverse(below));
        const V polynomial =
            hn::Mul(below, hn::Add(Number(3), hn::Mul(below, hn::Sub(hn::Mul(Number(16), below), Number(12)))));
        const V light = hn::IfThenElse(hn::Le(below, Number(0.25f)), polynomial, hn::Sub(hn::Sqrt(below), below));
        return hn::Add(below, hn::Mul(twice, hn::IfThenElse(hn::Lt(twice, hn::Zero(d)), dark, light)));
    }
};

struct Difference
{
    V operator()(V below, V above) const { return hn::Abs(hn::Sub(below, above)); }
};

struct Exclusion
{
    V operator()(V below, V above) const
    {
        const V product = hn::Mul(below, above);
        return hn::Sub(hn::Add(below, above), hn::Add(product, product));
    }
};

// ---- Compositing ----

using Words = hn::Vec<hn::RebindToUnsigned<D>>;

template <int Shift>
V Channel(Words words)
{
    const hn::RebindToUnsigned<D> du;
    const hn::RebindToSigned<D> di;
    const auto byte = hn::BitCast(di, hn::And(hn::ShiftRight<Shift>(words), hn::Set(du, 0xFFu)));
    return hn::Mul(hn::ConvertTo(d, byte), Number(1 / 255.0f));
}

template <int Shift>
Words Byte(V value)
{
    const hn::RebindToUnsigned<D> du;
    const hn::RebindToSigned<D> di;
    const V level = hn::Mul(hn::Min(hn::Max(value, hn::Zero(d)), Number(1)), Number(255));
    return hn::ShiftLeft<Shift>(hn::BitCast(du, hn::ConvertTo(di, hn::Add(level, Number(0.5f)))));
}

/// What is laid over: its coverage and the factor that makes its bytes, of 255, to its colour.
struct Layer
{
    Layer(Words words, bool premultiplied)
        : pixels(words)
        , alpha(Channel<24>(words))
        , factor(premultiplied ? hn::Div(Number(1), alpha) : Number(1))
    {
    }

    template <int Shift>
    V Color() const
    {
        return hn::Mul(Channel<Shift>(pixels), factor);
    }

    Words pixels;
    V alpha;
    V factor;
};

/// A blend mode: source over with the colour that the mode makes where both cover.
template <class Blend>
struct Blended
{
    explicit Blended(float share) : opacity(Number(share)) {}

    Words operator()(Words below, const Layer& above) const
    {
        const V belowAlpha = Channel<24>(below);
        const V aboveAlpha = hn::Mul(above.alpha, opacity);
        const V both = hn::Mul(belowAlpha, aboveAlpha);
        const V alpha = hn::Sub(hn::Add(belowAlpha, aboveAlpha), both);
        // Shares of the result's coverage; alpha is 0 only where the opacity is.
        const V whole = hn::Div(Number(1), alpha);
        const V shares[] = {hn::Mul(hn::Sub(belowAlpha, both), whole), hn::Mul(hn::Sub(aboveAlpha, both), whole),
                            hn::Mul(both, whole)};
        return hn::Or(hn::Or(Byte<24>(alpha), Mixed<16>(below, above, shares)),
                      hn::Or(Mixed<8>(below, above, shares), Mixed<0>(below, above, shares)));
    }

    template <int Shift>
    Words Mixed(Words below, const Layer& above, const V* shares) const
    {
        const V under = Channel<Shift>(below);
        const V over = above.Color<Shift>();
        return Byte<Shift>(hn::Add(hn::Add(hn::Mul(under, shares[0]), hn::Mul(over, shares[1])),
                                   hn::Mul(Blend()(under, over), shares[2])));
    }

    V opacity;
};

/// Addition of the premultiplied colours and of the coverages; the opacity mixes the sum, which may have been cut,
/// with what was there.
struct Added
{
    explicit Added(float share) : opacity(Number(share)) {}

    Words operator()(Words below, const Layer& above) const
    {
        const V belowAlpha = Channel<24>(below);
        const V aboveAlpha = above.alpha;
        const V alpha = Sum(belowAlpha, aboveAlpha);
        const V whole = hn::Div(Number(1), alpha);
        auto color = [&](V under, V over) {
            return hn::Mul(Sum(hn::Mul(under, belowAlpha), hn::Mul(over, aboveAlpha)), whole);
        };
        return hn::Or(hn::Or(Byte<24>(alpha), Byte<16>(color(Channel<16>(below), above.Color<16>()))),
                      hn::Or(Byte<8>(color(Channel<8>(below), above.Color<8>())),
                             Byte<0>(color(Channel<0>(below), above.Color<0>()))));
    }

    V Sum(V under, V over) const
    {
        const V sum = hn::Min(hn::Add(under, over), Number(1));
        return hn::Add(under, hn::Mul(hn::Sub(sum, under), opacity));
    }

    V opacity;
};

template <class Compose>
void RunVectors(QRgb* pixels, const QRgb* layer, int count, const HBComposition& composition)
{
    const hn::RebindToUnsigned<D> du;
    const Compose compose(composition.opacity);
    const int lanes = int(hn::Lanes(d));
    for (int i = 0; i < count; i += lanes) {
        const Words above = hn::LoadU(du, layer + i);
        const auto transparent = hn::Lt(above, hn::Set(du, 1u << 24));
        if (hn::AllTrue(du, transparent))
            continue;
        const Words below = hn::LoadU(du, pixels + i);
        hn::StoreU(hn::IfThenElse(transparent, below, compose(below, Layer(above, composition.premultiplied))), du,
                   pixels + i);
    }
}

void Compose(QRgb* pixels, const QRgb* above, int count, const HBComposition& composition)
{
    switch (composition.mode) {
    case QPainter::CompositionMode_Plus:
        return RunVectors<Added>(pixels, above, count, composition);
    case QPainter::CompositionMode_Multiply:
        return RunVectors<Blended<Multiply>>(pixels, above, count, composition);
    case QPainter::CompositionMode_Screen:
        return RunVectors<Blended<Screen>>(pixels, above, count, composition);
    case QPainter::CompositionMode_Overlay:
        return RunVectors<Blended<Overlay>>(pixels, above, count, composition);
    case QPainter::CompositionMode_Darken:
        return RunVectors<Blended<Darken>>(pixels, above, count, composition);
    case QPainter::CompositionMode_Lighten:
        return RunVectors<Blended<Lighten>>(pixels, above, count, composition);
    case QPainter::CompositionMode_ColorDodge:
        return RunVectors<Blended<ColorDodge>>(pixels, above, count, composition);
    case QPainter::CompositionMode_ColorBurn:
        return RunVectors<Blended<ColorBurn>>(pixels, above, count, composition);
    case QPainter::CompositionMode_HardLight:
        return RunVectors<Blended<HardLight>>(pixels, above, count, composition);
    case QPainter::CompositionMode_SoftLight:
        return RunVectors<Blended<SoftLight>>(pixels, above, count, composition);
    case QPainter::CompositionMode_Difference:
        return RunVectors<Blended<Difference>>(pixels, above, count, composition);
    case QPainter::CompositionMode_Exclusion:
        return RunVectors<Blended<Exclusion>>(pixels, above, count, composition);
    default:
        return RunVectors<Blended<Normal>>(pixels, above, count, composition);
    }
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(Compose);
}

HBComposition HBComposition::Of(unsigned mode, int percent)
{
    HBComposition composition;
    if (mode >= QPainter::CompositionMode_Plus && mode <= QPainter::CompositionMode_Exclusion)
        composition.mode = QPainter::CompositionMode(mode);
    const int steps = int(qBound(0, percent, 100) / 100.0 * 256);
    composition.opacity = float(255 * steps >> 8) / 255;
    return composition;
}

void HBComposition::Run(QRgb* pixels, const QRgb* above, int count) const
{
    if (opacity > 0)
        HWY_DYNAMIC_DISPATCH(Compose)(pixels, above, count, *this);
}

#endif
