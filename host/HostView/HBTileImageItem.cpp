// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTileImageItem.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionGraphicsItem>
#include <QTimer>

#include <algorithm>
#include <cmath>
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

} // namespace

HBTileImageItem::HBTileImageItem(QGraphicsItem* parent) : QGraphicsItem(parent)
{
    setFlag(ItemUsesExtendedStyleOption); // for the exposed rectangle
    setAcceptedMouseButtons(Qt::NoButton);
}

void HBTileImageItem::SetImage(const HBImage<>& image)
{
    if (image.Width() != m_Image.Width() || image.Height() != m_Image.Height())
        prepareGeometryChange();
    m_Image = image;
    m_Mips.SetImage(image);
    update();
}

void HBTileImageItem::SetClip(const QRectF& clip)
{
    m_Clip = clip;
    update();
}

QRectF HBTileImageItem::boundingRect() const
{
    return m_Image.IsEmpty() ? QRectF() : QRectF(0, 0, m_Image.Width(), m_Image.Height());
}

QRect HBTileImageItem::TilesUnder(const QRectF& area) const
{
    const QRect pixels = area.toAlignedRect() & QRect(0, 0, m_Image.Width(), m_Image.Height());
    if (pixels.isEmpty())
        return {};
    return {QPoint(pixels.left() / TileSide, pixels.top() / TileSide),
            QPoint(pixels.right() / TileSide, pixels.bottom() / TileSide)};
}

void HBTileImageItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*)
{
    QRectF exposed = option->exposedRect & boundingRect();
    if (!m_Clip.isNull())
        exposed &= m_Clip;
    if (exposed.isEmpty())
        return;

    // Device pixels per pixel of the image, whatever the screen's pixel ratio.
    const double scale = painter->deviceTransform().m11();
    // A little more than what is exposed, so that smoothing has its neighbours.
    const double margin = 2 / scale;
    const QRect tiles = TilesUnder(exposed.adjusted(-margin, -margin, margin, margin));
    painter->save();
    // Without antialiasing edges are rounded to device pixels, and those of neighbours to the same one.
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, scale < 2 && !qFuzzyCompare(scale, 1));
    if (!m_Clip.isNull())
        painter->setClipRect(m_Clip, Qt::IntersectClip);
    if (scale >= 0.5)
        PaintTiles(painter, tiles);
    else
        PaintShrunken(painter, tiles, scale);
    painter->restore();
}

void HBTileImageItem::PaintTiles(QPainter* painter, const QRect& tiles)
{
    for (int row = tiles.top(); row <= tiles.bottom(); ++row) {
        for (int column = tiles.left(); column <= tiles.right(); ++column) {
            const int index = row * m_Image.Columns() + column;
            const QRect area = m_Image.TileRect(index);
            try {
                const KMTilePin<HBRGBA32i> pin(m_Image.Tile(index), false);
                const bool opaque = IsOpaque(pin.Pixels(), area.size());
                if (!opaque)
                    PaintChecker(painter, area);
                const QImage tile(reinterpret_cast<const uchar*>(pin.Pixels()), area.width(), area.height(),
                                  TileSide * int(sizeof(HBRGBA32i)),
                                  opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32);
                painter->drawImage(QRectF(area), tile);
            } catch (const std::bad_alloc&) {
                PaintChecker(painter, area); // a tile that cannot be read shows as a hole
            }
        }
    }
}

void HBTileImageItem::PaintShrunken(QPainter* painter, const QRect& tiles, double scale)
{
    const int level = qBound(1, int(std::floor(-std::log2(scale))), HBTileMips::LastLevel);
    if (!m_Mips.Prepare(tiles, level, m_Patience)) {
        // The rest with the next turn of the event loop; by then the scene may be gone.
        QTimer::singleShot(0, scene(), [scene = QPointer<QGraphicsScene>(scene())] {
            if (scene)
                scene->update();
        });
    }
    const QImage image = m_Mips.Assemble(tiles, level);
    const QRectF target(tiles.left() * TileSide, tiles.top() * TileSide, tiles.width() * TileSide,
                        tiles.height() * TileSide);
    if (image.hasAlphaChannel())
        PaintChecker(painter, target & boundingRect());
    painter->setClipRect(boundingRect(), Qt::IntersectClip); // the border tiles reach beyond it
    painter->drawImage(target, image);
}

/// Squares of the same size on the screen at any scale, fixed to the image, so that they scroll with it.
void HBTileImageItem::PaintChecker(QPainter* painter, const QRectF& area) const
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
