// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSign.h"

#include "HBOverlayLayout.h"
#include "HBOverlayOperation.h"
#include "HBRecordStream.h"
#include "HBStamp.h"

namespace
{

constexpr struct
{
    const char* word;
    Qt::AlignmentFlag flag;
} words[] = {{"left", Qt::AlignLeft}, {"hcenter", Qt::AlignHCenter}, {"right", Qt::AlignRight},
             {"top", Qt::AlignTop},   {"vcenter", Qt::AlignVCenter}, {"bottom", Qt::AlignBottom}};

HBOperation Operation(const HBSignParams& params, const QSize& picture)
{
    if (params.fileName.isEmpty())
        return {};
    const QRectF room = HBOverlayRoom(picture, params.margins);
    QRect area;
    const std::shared_ptr<const HBStamp> stamp = HBStamp::Load(params.fileName, [&](const QSize& size) {
        area = HBOverlayLayout::StampRect(picture, room, size, params.alignment);
        return area.size();
    });
    HBComposition composition = HBComposition::Of(params.blendingMode, params.opacity);
    composition.premultiplied = stamp->IsPremultiplied();
    return HBOverlayOperation({area}, composition, [stamp, area](const QRect& tile, QImage& layer) {
        const QRect part = tile & area;
        const QPoint at = part.topLeft() - tile.topLeft();
        const int stride = layer.bytesPerLine() / int(sizeof(QRgb));
        auto* pixels = reinterpret_cast<QRgb*>(layer.bits()) + at.y() * stride + at.x();
        stamp->Read(part.translated(-area.topLeft()), pixels, stride);
    });
}

} // namespace

bool HBSignParams::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    qint32 flags = 0;
    stream >> flags >> margins >> fileName >> blendingMode >> opacity;
    alignment = Qt::Alignment(QFlag(flags));
    return HBIsOk(stream);
}

// The defaults, big endian: the 14 bytes of the tag; 00 00 00 21; four times 00 00 00 05; FF FF FF FF (a null
// name); 00 00 00 00; 00 00 00 64. Not the order of the fields.
bool HBSignParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) &&
           HBIsOk(stream << qint32(int(alignment)) << margins << fileName << blendingMode << opacity);
}

QVariant HBToVariant(const Qt::Alignment& alignment)
{
    QStringList found;
    Qt::Alignment rest = alignment;
    for (const auto& entry : words) {
        if (alignment & entry.flag)
            found.append(QLatin1String(entry.word));
        rest &= ~Qt::Alignment(entry.flag);
    }
    return rest || found.isEmpty() ? QVariant(int(alignment)) : QVariant(found.join(QLatin1Char(' ')));
}

void HBFromVariant(const QVariant& variant, Qt::Alignment& alignment)
{
    bool isNumber = false;
    Qt::Alignment flags(QFlag(variant.toInt(&isNumber)));
    if (!isNumber) {
        flags = {};
        const QStringList found = variant.toString().split(QLatin1Char(' '));
        for (const QString& word : found) {
            const auto* entry = std::find_if(std::begin(words), std::end(words), [&word](const auto& candidate) {
                return word == QLatin1String(candidate.word);
            });
            if (entry == std::end(words))
                return;
            flags |= entry->flag;
        }
    }
    alignment = flags;
}

HBStages HBStagesOf(const HBSignParams& params)
{
    return {HBOverlayStage([params](const QSize& picture) { return Operation(params, picture); })};
}
