// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTemperature.h"

#include "HBRecordStream.h"

#include <HBTemperatureCorrection.h>

bool HBTemperatureParams::Read(QDataStream& stream)
{
    return HBReadTag(stream, Tag) && HBIsOk(stream >> temperature >> tint >> strength);
}

// The defaults, big endian: the 21 bytes of the tag, 00 00 19 64, 00 00 00 00, 00 00 00 32.
bool HBTemperatureParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << temperature << tint << strength);
}

HBStages HBStagesOf(const HBTemperatureParams& params)
{
    using P = HBTemperatureParams;
    HBTemperatureCorrection correction;
    // Not the record's order.
    correction.SetData(HBClamped(params, &P::temperature), HBClamped(params, &P::strength),
                       HBClamped(params, &P::tint));
    return {HBStageOf(correction)};
}
