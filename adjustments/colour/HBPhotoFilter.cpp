// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoFilter.h"

#include "HBRecordStream.h"

#include <HBIterativePhotoFilterTransformation.h>

bool HBPhotoFilterParams::Read(QDataStream& stream)
{
    return HBReadTag(stream, Tag) && HBIsOk(stream >> color >> density);
}

// The defaults, big endian, version Qt_5_15: the 21 bytes of the tag; 01 FFFF EBEB B1B1 1313 0000; 00 00 00 32.
bool HBPhotoFilterParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << color << density);
}

HBStages HBStagesOf(const HBPhotoFilterParams& params)
{
    return {HBStageOf(HBIterativePhotoFilterTransformation(HBRGBA32i::FromRgba(params.color.rgba()),
                                                           HBClamped(params, &HBPhotoFilterParams::density)))};
}
