// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorBalance.h"

#include "HBRecordStream.h"

#include <HBIterativeColorBalanceTransformation.h>

// The flag and the range come first, which is not the order of the fields.

bool HBColorBalanceParams::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    preserveLuminosity = HBReadBool32(stream);
    stream >> toneRange;
    for (qint32(*axis)[3] : {&cyanRed, &magentaGreen, &yellowBlue})
        stream >> (*axis)[0] >> (*axis)[1] >> (*axis)[2];
    return HBIsOk(stream);
}

// The defaults, big endian: the 22 bytes of the tag, 00 00 00 01, 00 00 00 02, nine times 00 00 00 00.
bool HBColorBalanceParams::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << qint32(preserveLuminosity) << toneRange;
    for (const qint32(*axis)[3] : {&cyanRed, &magentaGreen, &yellowBlue})
        stream << (*axis)[0] << (*axis)[1] << (*axis)[2];
    return HBIsOk(stream);
}

HBStages HBStagesOf(const HBColorBalanceParams& params)
{
    // The transformation clamps.
    return {
        HBStageOf(HBIterativeColorBalanceTransformation(params.cyanRed, params.magentaGreen, params.yellowBlue))};
}
