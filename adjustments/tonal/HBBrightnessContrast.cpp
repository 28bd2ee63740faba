// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBrightnessContrast.h"

#include "HBRecordStream.h"

#include <HBIterativeBrightnessContrastTransformation.h>

bool HBBrightnessContrastParams::Read(QDataStream& stream)
{
    return HBReadTag(stream, Tag) && HBIsOk(stream >> brightness >> contrast);
}

// (10, -20), big endian: the 28 bytes of the tag, 00 00 00 0A, FF FF FF EC.
bool HBBrightnessContrastParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << brightness << contrast);
}

HBStages HBStagesOf(const HBBrightnessContrastParams& params)
{
    using P = HBBrightnessContrastParams;
    return {HBStageOf(HBIterativeBrightnessContrastTransformation(HBClamped(params, &P::brightness),
                                                                  HBClamped(params, &P::contrast)))};
}
