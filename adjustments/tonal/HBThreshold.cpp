// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBThreshold.h"

#include "HBRecordStream.h"
#include "HBThresholdRGB32.h"

bool HBThresholdParams::Read(QDataStream& stream)
{
    return HBReadTag(stream, Tag) && HBIsOk(stream >> level);
}

// 128, big endian: the 19 bytes of the tag, 00 00 00 80.
bool HBThresholdParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << level);
}

HBStages HBStagesOf(const HBThresholdParams& params)
{
    return {HBStageOf(HBThresholdRGB32<30, 59, 11>{HBClamped(params, &HBThresholdParams::level)})};
}
