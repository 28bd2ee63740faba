// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBHueSaturation.h"

#include "HBRecordStream.h"

#include <HBHueSaturationTransformation.h>

bool HBHueSaturationParams::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> hue >> saturation >> lightness;
    colorize = HBReadBool32(stream);
    return HBIsOk(stream);
}

// (200, 10, -20, true), big endian: the 23 bytes of the tag, 00 00 00 C8, 00 00 00 0A, FF FF FF EC, 00 00 00 01.
bool HBHueSaturationParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << hue << saturation << lightness << qint32(colorize));
}

HBStages HBStagesOf(const HBHueSaturationParams& params)
{
    using P = HBHueSaturationParams;
    return {HBStageOf(HBHueSaturationTransformation(HBClamped(params, &P::hue), HBClamped(params, &P::saturation),
                                                    HBClamped(params, &P::lightness), params.colorize))};
}
