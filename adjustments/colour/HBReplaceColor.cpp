// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplaceColor.h"

#include "HBOpacity.h"
#include "HBRecordStream.h"

#include <HBFloodFillHelper.h>

namespace
{

using P = HBReplaceColorParams;

/// \param replacementIn the replacement for a picture of that size
template <class Function>
HBStages FillStages(Function replacementIn)
{
    HBStage stage;
    stage.seesPicture = true;
    stage.ignoresSelection = true;
    stage.prepare = [replacementIn](const HBImage<>& picture, const HBJobControl* control) -> HBOperation {
        const HBColorReplacement fill = replacementIn(QSize(picture.Width(), picture.Height()));
        const quint32 t = quint32(fill.tolerance);
        const HBRGBA32i tolerance = HBRGBA32i::FromRgba(t | t << 8 | t << 16 | t << 24);
        return {nullptr, HBFloodFillHelper::Prepare(picture, fill.seed, tolerance, fill.replacement, control)};
    };
    return {stage};
}

} // namespace

bool HBReplaceColorParams::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    qint32 positionValue = 0;
    stream >> tolerance >> positionValue >> color >> opacity;
    position = PositionType(positionValue);
    return HBIsOk(stream);
}

// The defaults, big endian, version Qt_5_15: the 22 bytes of the tag; 00 00 00 00; 00 00 00 00;
// 01 FFFF FFFF FFFF FFFF 0000; 00 00 00 64.
bool HBReplaceColorParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << tolerance << qint32(position) << color << opacity);
}

HBColorReplacement HBReplacementOf(const HBReplaceColorParams& params, const QSize& picture)
{
    HBColorReplacement fill{HBWithOpacity(params.color, HBClamped(params, &P::opacity)), {}, params.tolerance};
    if (params.position == P::RightTop || params.position == P::RightBottom)
        fill.seed.setX(picture.width() - 1);
    if (params.position == P::LeftBottom || params.position == P::RightBottom)
        fill.seed.setY(picture.height() - 1);
    return fill;
}

HBStages HBStagesOf(const HBReplaceColorParams& params)
{
    return FillStages([params](const QSize& picture) { return HBReplacementOf(params, picture); });
}

HBStages HBStagesOf(const HBColorReplacement& replacement)
{
    return FillStages([replacement](const QSize&) { return replacement; });
}
