// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBlackAndWhite.h"

#include "HBRecordStream.h"

#include <HBIterativeBlackAndWhiteTransformation.h>

namespace
{

using P = HBBlackAndWhiteParams;

struct Weights
{
    float r, g, b;
};
constexpr Weights average{P::AverageWeight, P::AverageWeight, P::AverageWeight};
constexpr Weights luminance{0.212671f, 0.71516f, 0.072169f};
constexpr Weights ntsc{0.3f, 0.59f, 0.11f};

/// D65 and CIE weigh as luminance does, on purpose; the operation treats CIE differently.
Weights WeightsOf(const P& params)
{
    switch (params.type) {
    case P::Average:
        return average;
    case P::Luminance:
    case P::D65:
    case P::CIE:
        return luminance;
    case P::NTSC:
        return ntsc;
    default:
        return {params.r, params.g, params.b};
    }
}

/// Reads either tag. The older one is 3 bytes shorter, so that a foreign record loses 23 bytes.
bool ReadEitherTag(QDataStream& stream)
{
    QByteArray bytes = HBReadRaw(stream, int(sizeof P::OldTag) - 1);
    if (bytes == P::OldTag)
        return true;
    bytes += HBReadRaw(stream, int(sizeof P::Tag) - int(sizeof P::OldTag));
    return bytes == P::Tag;
}

} // namespace

float HBBlackAndWhiteParams::GetR() const
{
    return WeightsOf(*this).r;
}

float HBBlackAndWhiteParams::GetG() const
{
    return WeightsOf(*this).g;
}

float HBBlackAndWhiteParams::GetB() const
{
    return WeightsOf(*this).b;
}

bool HBBlackAndWhiteParams::Read(QDataStream& stream)
{
    return ReadEitherTag(stream) && HBIsOk(stream >> type >> r >> g >> b);
}

// The defaults, big endian, double precision: the 23 bytes of the tag, 00 00 00 00, three times 3FD54FDF40000000.
bool HBBlackAndWhiteParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << type << r << g << b);
}

HBStages HBStagesOf(const HBBlackAndWhiteParams& params)
{
    const auto [r, g, b] = WeightsOf(params);
    return {HBStageOf(HBIterativeBlackAndWhiteTransformation(params.type == P::CIE, r, g, b))};
}
