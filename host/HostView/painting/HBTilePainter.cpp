// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTilePainter.h"

#include <HBChangedTiles.h>

#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;

bool IsOpaque(const HBRGBA32i* pixels, const QSize& size)
{
    QRgb all = 0xff000000;
    for (int y = 0; y < size.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(pixels + y * TileSide);
        for (int x = 0; x < size.width(); ++x)
            all &= row[x];
    }
    return all >= 0xff000000;
}

QPixmap CheckerPattern(double ratio)
{
    const int side = std::max(1, int(std::lround(8 * ratio)));
    QPixmap pattern(2 * side, 2 * side);
    pattern.fill(QColor(0xff, 0xff, 0xff));
    QPainter painter(&pattern);
    painter.fillRect(0, 0, side, side, QColor(0xcc, 0xcc, 0xcc));
    painter.fillRect(side, side, side, side, QColor(0xcc, 0xcc, 0xcc));
    return pattern;
}

/// Squares of the same size on the screen at any scale, fixed to the image, so that they scroll with it.
void PaintChecker(QPainter* painter, const QRectF& area)
{
    const QTransform toDevice = painter->deviceTransform();
    const double ratio = painter->device()->devicePixelRatioF();
    const QRectF device = toDevice.mapRect(area);
    const QRect pixels(QPoint(qRound(device.left()), qRound(device.top())),
                       QPoint(qRound(device.right()) - 1, qRound(device.bottom()) - 1));
    painter->save();
    // In device pixels, exactly: undo also what is left when there is no transformation, the pixel ratio and the
    // viewport's place in its window.
    painter->resetTransform();
    painter->setWorldTransform(painter->deviceTransform().inverted());
    painter->setBrushOrigin(qRound(toDevice.dx()), qRound(toDevice.dy()));
    painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter->fillRect(pixels, QBrush(CheckerPattern(ratio)));
    painter->restore();
}

} // namespace

QRegion HBTilePainter::SetImage(const HBImage<>& image)
{
    const QRegion changed = HBChangedTiles(m_Image, image);
    m_Image = image;
    m_Mips.SetImage(image);
    return changed;
}

QRect HBTilePainter::TilesUnder(const QRectF& area) const
{
    const QRect pixels = area.toAlignedRect() & QRect(0, 0, m_Image.Width(), m_Image.Height());
    if (pixels.isEmpty())
        return {};
    return {QPoint(pixels.left() / TileSide, pixels.top() / TileSide),
            QPoint(pixels.right() / TileSide, pixels.bottom() / TileSide)};
}

bool HBTilePainter::Paint(QPainter* painter, const QRectF& exposed)
{
    return Paint(painter, exposed, m_Patience, true);
}

bool HBTilePainter::Paint(QPainter* painter, const QRectF& exposed, int patience, bool onChecker)
{
    // Device pixels per pixel of the image, whatever the screen's pixel ratio.
    const double scale = painter->deviceTransform().m11();
    // A little more than what is exposed, so that smoothing has its neighbours.
    const double margin = 2 / scale;
    const QRect tiles = TilesUnder(exposed.adjusted(-margin, -margin, margin, margin));
    if (tiles.isEmpty())
        return true;
    painter->save();
    // Without antialiasing edges are rounded to device pixels, and those of neighbours to the same one.
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, scale < 2 && !qFuzzyCompare(scale, 1));
    bool whole = true;
    if (scale >= 0.5)
        whole = PaintTiles(painter, tiles, patience, onChecker);
    else
        whole = PaintShrunken(painter, tiles, scale, patience, onChecker);
    painter->restore();
    return whole;
}

QImage HBTilePainter::ToImage(const QRect& area, double scale)
{
    const QRect part = area & QRect(0, 0, m_Image.Width(), m_Image.Height());
    const QSizeF size = QSizeF(part.size()) * scale;
    if (part.isEmpty() || !(size.width() > 0) || std::max(size.width(), size.height()) > (1 << 16))
        return {};
    QImage image(std::max(1, qRound(size.width())), std::max(1, qRound(size.height())),
                 QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(image.width() / double(part.width()), image.height() / double(part.height()));
    painter.translate(-part.topLeft());
    Paint(&painter, part, std::numeric_limits<int>::max(), false);
    return image;
}

bool HBTilePainter::PaintTiles(QPainter* painter, const QRect& tiles, int patience, bool onChecker)
{
    const bool plain = m_Mips.PresentLook().IsPlain();
    const bool whole = plain || m_Mips.Prepare(tiles, 0, patience);
    for (int row = tiles.top(); row <= tiles.bottom(); ++row) {
        for (int column = tiles.left(); column <= tiles.right(); ++column) {
            const int index = row * m_Image.Columns() + column;
            const QImage shown = plain ? QImage() : m_Mips.TileImage(index);
            if (shown.isNull()) {
                PaintTile(painter, index, onChecker); // as it is, until its look is made
                continue;
            }
            const QRect area = m_Image.TileRect(index);
            if (shown.hasAlphaChannel() && onChecker)
                PaintChecker(painter, area);
            painter->drawImage(QRectF(area), shown);
        }
    }
    return whole;
}

void HBTilePainter::PaintTile(QPainter* painter, int index, bool onChecker) const
{
    const QRect area = m_Image.TileRect(index);
    try {
        const KMTilePin<HBRGBA32i> pin(m_Image.Tile(index), false);
        const bool opaque = IsOpaque(pin.Pixels(), area.size());
        if (!opaque && onChecker)
            PaintChecker(painter, area);
        const QImage tile(reinterpret_cast<const uchar*>(pin.Pixels()), area.width(), area.height(),
                          TileSide * int(sizeof(HBRGBA32i)),
                          opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32);
        painter->drawImage(QRectF(area), tile);
    } catch (const std::bad_alloc&) {
        if (onChecker)
            PaintChecker(painter, area); // a tile that cannot be read shows as a hole
    }
}

bool HBTilePainter::PaintShrunken(QPainter* painter, const QRect& tiles, double scale, int patience,
                                  bool onChecker)
{
    const int level = qBound(1, int(std::floor(-std::log2(scale))), HBTileMips::LastLevel);
    const bool whole = m_Mips.Prepare(tiles, level, patience);
    const QImage image = m_Mips.Assemble(tiles, level);
    const QRectF target(tiles.left() * TileSide, tiles.top() * TileSide, tiles.width() * TileSide,
                        tiles.height() * TileSide);
    const QRectF picture(0, 0, m_Image.Width(), m_Image.Height());
    if (image.hasAlphaChannel() && onChecker)
        PaintChecker(painter, target & picture);
    painter->setClipRect(picture, Qt::IntersectClip); // the border tiles reach beyond it
    painter->drawImage(target, image);
    return whole;
}
