// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTint.h"

#include "HBAverageTintRGB32.h"
#include "HBRecordStream.h"

#include <HBTintRGB32.h>

bool HBTintParams::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    qint32 typeValue = 0;
    stream >> blackTone >> whiteTone >> amount >> typeValue;
    type = Type(typeValue);
    return HBIsOk(stream);
}

// The defaults, big endian, version Qt_5_15: the 14 bytes of the tag; 01 FFFF 0505 0606 0808 0000;
// 01 FFFF AAAA D1D1 FFFF 0000; 00 00 00 4B; 00 00 00 00.
bool HBTintParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << blackTone << whiteTone << amount << qint32(type));
}

HBStages HBStagesOf(const HBTintParams& params)
{
    using P = HBTintParams;
    const HBRGBA32i black = HBRGBA32i::FromRgba(params.blackTone.rgba());
    const HBRGBA32i white = HBRGBA32i::FromRgba(params.whiteTone.rgba());
    const int percent = HBClamped(params, &P::amount);
    const int amount = percent * 2550; // of HBAverageTintRGB32's 255000
    switch (params.type) {
    // NOLINTNEXTLINE(bugprone-branch-clone): other weights
    case P::Average:
        return {HBStageOf(HBAverageTintRGB32<333, 334, 333>(black, white, amount))};
    case P::NTSC:
        return {HBStageOf(HBAverageTintRGB32<300, 590, 110>(black, white, amount))};
    case P::LUMA:
        return {HBStageOf(HBAverageTintRGB32<212, 715, 73>(black, white, amount))};
    case P::RGB:
        return {HBStageOf(HBTintRGB32(black, white, percent))};
    }
    return {};
}
