// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTemperatureCorrection.h"

#include "HBPlanckianLocus.h"

#include <QtGlobal>

#define HWY_WANT_AVX3_DL 1
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBTemperatureCorrection.cpp"
#include <hwy/foreach_target.h>

#include "HBSrgbBytes-inl.h"
#include "HBSrgbVectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

struct Adapt
{
    const HBTemperatureCorrection::Matrix& matrix;
    const HBSrgb::LevelTable& decoding;
    const HBSrgb::ShadeTable& encoding;

    template <class D>
    HWY_INLINE void operator()(D d, Colors<D>& c) const
    {
        const Colors<D> light{LightOf(d, decoding, c.red), LightOf(d, decoding, c.green),
                              LightOf(d, decoding, c.blue)};
        const auto adapted = [&](const float(&row)[3]) {
            return ShadeOf(d, encoding, Weigh(d, light, row[0], row[1], row[2]));
        };
        c = {adapted(matrix.rows[0]), adapted(matrix.rows[1]), adapted(matrix.rows[2])};
    }
};

void AdaptPixels(const HBTemperatureCorrection::Matrix& matrix, HBRGBA32i* pixels, int count)
{
#if HWY_TARGET == HWY_AVX3_DL
    static const HBSrgb::LevelBytes decoding(HBSrgb::Decoding());
    static const HBSrgb::ShadeBytes encoding(HBSrgb::Encoding());
    if (encoding.isExact) {
        const int done = MixLight(matrix.rows, decoding, encoding, pixels, count);
        pixels += done;
        count -= done;
    }
#endif
    MapColors(Adapt{matrix, HBSrgb::Decoding(), HBSrgb::Encoding()}, pixels, count);
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(AdaptPixels);

using Matrix3 = std::array<HBTriple, 3>;

// IEC 61966-2-1, between the light of sRGB's primaries and XYZ.
constexpr Matrix3 ToXYZ{
    {{0.4124564, 0.3575761, 0.1804375}, {0.2126729, 0.7151522, 0.0721750}, {0.0193339, 0.1191920, 0.9503041}}};
constexpr Matrix3 FromXYZ{
    {{3.2404542, -1.5371385, -0.4985314}, {-0.9692660, 1.8760108, 0.0415560}, {0.0556434, -0.2040259, 1.0572252}}};
// Bradford, between XYZ and cone responses.
constexpr Matrix3 ToCones{{{0.8951, 0.2664, -0.1614}, {-0.7502, 1.7135, 0.0367}, {0.0389, -0.0685, 1.0296}}};
constexpr Matrix3 FromCones{
    {{0.9869929, -0.1470543, 0.1599627}, {0.4323053, 0.5183603, 0.0492912}, {-0.0085287, 0.0400428, 0.9684867}}};

HBTriple Apply(const Matrix3& matrix, const HBTriple& v)
{
    HBTriple result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t i = 0; i < 3; ++i)
            result[row] += matrix[row][i] * v[i];
    }
    return result;
}

/// What the light of one primary becomes when the white's cone responses are scaled.
HBTriple AdaptLight(const HBTriple& light, const HBTriple& scale)
{
    HBTriple cones = Apply(ToCones, Apply(ToXYZ, light));
    for (std::size_t i = 0; i < 3; ++i)
        cones[i] *= scale[i];
    return Apply(FromXYZ, Apply(FromCones, cones));
}

constexpr double NeutralKelvin = 6500.0;
constexpr double DuvPerTint = -0.02 / 100.0;

int Kelvin(int kelvin)
{
    return qBound(1000, kelvin, 40000);
}

} // namespace

HBTemperatureCorrection::HBTemperatureCorrection()
{
    SetData(int(NeutralKelvin), 0, 0);
}

void HBTemperatureCorrection::SetData(int kelvin, int strength, int tint)
{
    const double share = qBound(0, strength, 100) / 100.0;
    const int t = qBound(-100, tint, 100);
    m_Identity = share == 0.0 || (kelvin == int(NeutralKelvin) && t == 0);

    const HBTriple from = Apply(ToCones, HBPlanckianWhite(NeutralKelvin, 0.0));
    const HBTriple to = Apply(ToCones, HBPlanckianWhite(Kelvin(kelvin), t * DuvPerTint));
    HBTriple scale;
    for (std::size_t i = 0; i < 3; ++i)
        scale[i] = qMax(0.0, to[i] / from[i]); // a strong magenta has hardly any response of the middle cones
    for (std::size_t primary = 0; primary < 3; ++primary) {
        HBTriple light{};
        light[primary] = 1.0;
        const HBTriple adapted = AdaptLight(light, scale);
        for (std::size_t i = 0; i < 3; ++i)
            m_Matrix.rows[i][primary] = float(light[i] + share * (adapted[i] - light[i]));
    }
    // Built now, not under the first tiles.
    HBSrgb::Decoding();
    HBSrgb::Encoding();
}

void HBTemperatureCorrection::operator()(HBRGBA32i* pixels, int count) const
{
    if (!m_Identity)
        HWY_DYNAMIC_DISPATCH(AdaptPixels)(m_Matrix, pixels, count);
}

HBRGBA32i HBTemperatureCorrection::GetTemperatureColor(int kelvin)
{
    const HBTriple light = Apply(FromXYZ, HBPlanckianWhite(Kelvin(kelvin), 0.0));
    const double brightest = qMax(light[0], qMax(light[1], light[2]));
    const auto level = [=](double value) {
        return std::uint8_t(std::lround(255.0 * HBSrgb::Encode(qMax(0.0, value / brightest))));
    };
    return {level(light[0]), level(light[1]), level(light[2])};
}

#endif
