// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorize.h"

#include "HBRecordStream.h"

#include <HBIterativeColorizeTransformation.h>

bool HBColorizeParams::Read(QDataStream& stream)
{
    return HBReadTag(stream, Tag) && HBIsOk(stream >> color >> amount);
}

// The defaults, big endian, version Qt_5_15: the 24 bytes of the tag; 01 FFFF FFFF D2D2 FFFF 0000; 00 00 00 19.
bool HBColorizeParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << color << amount);
}

HBStages HBStagesOf(const HBColorizeParams& params)
{
    return {HBStageOf(HBIterativeColorizeTransformation(HBRGBA32i::FromRgba(params.color.rgba()),
                                                        HBClamped(params, &HBColorizeParams::amount)))};
}
