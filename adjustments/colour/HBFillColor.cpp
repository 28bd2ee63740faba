// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFillColor.h"

#include "HBOpacity.h"
#include "HBRecordStream.h"

#include <KMFillTransformation.h>

bool HBFillColorParams::Read(QDataStream& stream)
{
    return HBReadTag(stream, Tag) && HBIsOk(stream >> color >> opacity);
}

// The defaults, big endian, version Qt_5_15: the 19 bytes of the tag; 01 FFFF 0000 0000 0000 0000; 00 00 00 64.
bool HBFillColorParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << color << opacity);
}

HBStages HBStagesOf(const HBFillColorParams& params)
{
    KMFillTransformation fill;
    fill.SetData(HBWithOpacity(params.color, HBClamped(params, &HBFillColorParams::opacity)));
    return {HBStageOf(fill)};
}
