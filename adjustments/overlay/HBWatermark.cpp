// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBWatermark.h"

#include "HBOverlayLayout.h"
#include "HBOverlayOperation.h"
#include "HBRecordStream.h"
#include "HBTextOutlines.h"

#include <HBBlend.h>

#include <QCoreApplication>
#include <QPainter>

namespace
{

using P = HBWatermarkParams;

/// As Qt reads a font, but for its further names: there Qt makes room for as many as the record says that there
/// are.
void ReadFont(QDataStream& stream, QFont& font)
{
    const int version = stream.version();
    stream.setVersion(qMin(version, int(QDataStream::Qt_5_12))); // the last one without those names
    stream >> font;
    stream.setVersion(version);
    if (version <= QDataStream::Qt_5_12)
        return;
    quint32 count = 0;
    stream >> count;
    QStringList names;
    for (; count > 0 && HBIsOk(stream); --count) {
        QString name;
        stream >> name;
        names.append(name);
    }
    if (HBIsOk(stream))
        font.setFamilies(names + font.families());
}

/// As Qt 5 writes a font, also with a stream of Qt 6, so that either reads what the other has written. Qt 5 keeps
/// the name that is tried last apart from the others and writes it first; Qt 6 has one list.
void WriteFont(QDataStream& stream, QFont font)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QStringList names = font.families();
    if (names.isEmpty())
        names.append(QString()); // Qt would write the first of none
    names.prepend(names.takeLast());
    font.setFamilies(names);
#endif
    const int version = stream.version();
    stream.setVersion(qMin(version, int(QDataStream::Qt_5_15)));
    stream << font;
    stream.setVersion(version);
}

/// Turns coverage into pixels of a colour.
void Color(QImage& layer, QRgb color)
{
    for (int y = 0; y < layer.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(layer.scanLine(y));
        for (int x = 0; x < layer.width(); ++x)
            row[x] = QRgb(HBBlend::Scale(qAlpha(row[x]), qAlpha(color))) << 24 | (color & 0xFFFFFF);
    }
}

/// The copies of a text and where they lie.
class Copies
{
public:
    Copies(const HBTextOutlines& text, const QVector<QTransform>& places, QRgb color)
        : m_Text(text)
        , m_Places(places)
        , m_Color(color)
    {
        for (const QTransform& place : places)
            m_Areas.append(place.map(text.Corners()).boundingRect().toAlignedRect());
    }

    const QVector<QRect>& Areas() const { return m_Areas; }

    void Render(const QRect& tile, QImage& layer) const
    {
        // In black, on the same memory: then a pixel is nothing but its coverage.
        QImage coverage(layer.bits(), layer.width(), layer.height(), layer.bytesPerLine(),
                        QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&coverage);
        painter.setRenderHint(QPainter::Antialiasing);
        for (int i = 0; i < m_Places.size(); ++i) {
            if (!m_Areas.at(i).intersects(tile))
                continue;
            // The lane's own: a transform finds out what kind it is when it is first used, also a const one.
            const QTransform toPicture = m_Places.at(i);
            bool invertible = false; // not for a text as small as a millionth of a pixel
            const QRectF window = toPicture.inverted(&invertible).mapRect(QRectF(tile).adjusted(-1, -1, 1, 1));
            if (!invertible)
                continue;
            painter.setTransform(toPicture * QTransform::fromTranslate(-tile.left(), -tile.top()));
            m_Text.Fill(painter, window);
        }
        painter.end();
        Color(layer, m_Color);
    }

private:
    const HBTextOutlines m_Text;
    const QVector<QTransform> m_Places; ///< each maps the text to the picture
    const QRgb m_Color;
    QVector<QRect> m_Areas;
};

HBOperation Operation(const P& params, const QSize& picture)
{
    const HBTextOutlines text = HBTextOutlines::Make(params.text, params.font);
    if (text.IsEmpty())
        return {};
    const QRectF room = HBOverlayRoom(picture, params.margins);
    const double scale = HBFontUnits(params.font) * HBOverlayLayout::Unit(picture) / HBTextOutlines::FontPixels;
    const auto copies = std::make_shared<const Copies>(
        text,
        HBOverlayLayout::Copies(room, text.Corners(), scale, params.angle, HBClamped(params, &P::horizontalTiles),
                                HBClamped(params, &P::verticalTiles)),
        params.color.rgba());
    return HBOverlayOperation(copies->Areas(), HBComposition::Of(unsigned(params.blendingMode), params.opacity),
                              [copies](const QRect& tile, QImage& layer) { copies->Render(tile, layer); });
}

} // namespace

HBWatermarkParams::HBWatermarkParams() : text(QCoreApplication::translate("HBWatermarkWidget", "Watermark")) {}

bool HBWatermarkParams::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> angle >> margins >> text;
    ReadFont(stream, font);
    return HBIsOk(stream >> color >> blendingMode >> opacity >> horizontalTiles >> verticalTiles);
}

// The defaults, big endian, version Qt_5_15: the 19 bytes of the tag; 00 00 00 00; four times 00 00 00 05; the
// text as 00 00 00 12 and its UTF-16; the font; 01 FFFF FFFF FFFF FFFF 0000; 00 00 00 00; 00 00 00 64; twice 00 00
// 00 01. Not the order of the fields.
bool HBWatermarkParams::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << angle << margins << text;
    WriteFont(stream, font);
    return HBIsOk(stream << color << blendingMode << opacity << horizontalTiles << verticalTiles);
}

HBStages HBStagesOf(const HBWatermarkParams& params)
{
    return {HBOverlayStage([params](const QSize& picture) { return Operation(params, picture); })};
}
