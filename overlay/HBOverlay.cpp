// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlay.h"

#include "HBOverlayLayout.h"
#include "HBOverlayText.h"
#include "HBOverlayTiles.h"
#include "HBStamp.h"
#include "HBTextOutlines.h"

#include <HBBlend.h>

#include <QPainter>

#include <new>

namespace
{

/// Draws, or returns the picture as it was with a reason: no exception leaves the library.
template <class Draw>
HBImage<> Guarded(const HBImage<>& image, QString* error, Draw draw)
{
    QString problem;
    HBImage<> result = image;
    try {
        if (!image.IsEmpty())
            result = draw(&problem);
    } catch (const std::bad_alloc&) {
        problem = HBOverlayText::tr("There is not enough memory");
    } catch (...) {
        problem = HBOverlayText::tr("It cannot be drawn");
    }
    if (error)
        *error = problem;
    return result;
}

/// The picture between the margins; empty, with an error, if they leave no room.
QRectF RoomBetween(const HBImage<>& image, const QRect& margins, QString* error)
{
    const QRectF room = HBOverlayLayout::Between({image.Width(), image.Height()}, margins);
    if (room.isEmpty())
        *error = HBOverlayText::tr("The margins leave no room");
    return room;
}

HBImage<> DrawSign(const HBImage<>& image, const HBSignWidget::Params& params, QString* error)
{
    if (params.fileName.isEmpty())
        return image;
    const QRectF room = RoomBetween(image, params.margins, error);
    const QImage picture = error->isEmpty() ? HBStamp::Load(params.fileName, error) : QImage();
    if (!error->isEmpty())
        return image;
    const QRect area =
        HBOverlayLayout::StampRect({image.Width(), image.Height()}, room, picture.size(), params.alignment);
    const HBStamp stamp(picture, area.size());
    auto render = [&](const QRect& tile, QImage& layer) {
        const QRect part = tile & area;
        const QPoint at = part.topLeft() - tile.topLeft();
        const int stride = layer.bytesPerLine() / int(sizeof(QRgb));
        auto* pixels = reinterpret_cast<QRgb*>(layer.bits()) + at.y() * stride + at.x();
        stamp.Read(part.translated(-area.topLeft()), pixels, stride);
    };
    HBComposition composition = HBComposition::Of(params.blendingMode, params.opacity);
    composition.premultiplied = stamp.IsPremultiplied();
    return HBComposeTiles(image, {area}, composition, render);
}

/// Turns coverage into pixels of a colour.
void Colour(QImage& layer, QRgb color)
{
    for (int y = 0; y < layer.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(layer.scanLine(y));
        for (int x = 0; x < layer.width(); ++x)
            row[x] = QRgb(HBBlend::Scale(qAlpha(row[x]), qAlpha(color))) << 24 | (color & 0xFFFFFF);
    }
}

HBImage<> DrawWatermark(const HBImage<>& image, const HBWatermarkWidget::Params& params, QString* error)
{
    const HBTextOutlines text = HBTextOutlines::Make(params.text, params.font, error);
    if (text.IsEmpty())
        return image;
    const QRectF room = RoomBetween(image, params.margins, error);
    if (room.isEmpty())
        return image;
    const double scale = HBFontUnits(params.font) * HBOverlayLayout::Unit({image.Width(), image.Height()}) /
                         HBTextOutlines::FontPixels;
    const QVector<QTransform> copies = HBOverlayLayout::Copies(room, text.Corners(), scale, params.angle,
                                                               params.horizontalTiles, params.verticalTiles);
    QVector<QRect> areas;
    for (const QTransform& copy : copies)
        areas.append(copy.map(text.Corners()).boundingRect().toAlignedRect());

    auto render = [&](const QRect& tile, QImage& layer) {
        // In black, on the same memory: then a pixel is nothing but its coverage.
        QImage coverage(layer.bits(), layer.width(), layer.height(), layer.bytesPerLine(),
                        QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&coverage);
        painter.setRenderHint(QPainter::Antialiasing);
        for (int i = 0; i < copies.size(); ++i) {
            if (!areas.at(i).intersects(tile))
                continue;
            // The lane's own: a transform finds out what kind it is when it is first used, also a const one.
            const QTransform toPicture = copies.at(i);
            bool invertible = false; // not for a text as small as a millionth of a pixel
            const QRectF window = toPicture.inverted(&invertible).mapRect(QRectF(tile).adjusted(-1, -1, 1, 1));
            if (!invertible)
                continue;
            painter.setTransform(toPicture * QTransform::fromTranslate(-tile.left(), -tile.top()));
            text.Fill(painter, window);
        }
        painter.end();
        Colour(layer, params.color.rgba());
    };
    return HBComposeTiles(image, areas, HBComposition::Of(unsigned(params.blendingMode), params.opacity), render);
}

} // namespace

HBImage<> HBDrawSign(const HBImage<>& image, const HBSignWidget::Params& params, QString* error)
{
    return Guarded(image, error, [&](QString* problem) { return DrawSign(image, params, problem); });
}

HBImage<> HBDrawWatermark(const HBImage<>& image, const HBWatermarkWidget::Params& params, QString* error)
{
    return Guarded(image, error, [&](QString* problem) { return DrawWatermark(image, params, problem); });
}
