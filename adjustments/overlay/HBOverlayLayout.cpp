// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayLayout.h"

#include "HBOverlayFields.h"

#include <QPolygonF>

#include <cmath>

namespace
{

int Clamped(int margin)
{
    return HBClampTo(HBMarginRange, margin, 0);
}

/// How much of the room before a thing is at its left, or above it: 0, a half or 1.
double Share(Qt::Alignment alignment, Qt::AlignmentFlag near, Qt::AlignmentFlag centre, Qt::AlignmentFlag far)
{
    return alignment & near ? 0 : alignment & centre ? 0.5 : alignment & far ? 1 : 0;
}

/// The first of `size` whole pixels in from `from` to `to`, inside the picture also after rounding.
int Position(double from, double to, int size, double share, int picture)
{
    return qBound(0, qRound(from + (to - from - size) * share), picture - size);
}

} // namespace

double HBOverlayLayout::Unit(const QSize& picture)
{
    return double(qMin(picture.width(), picture.height())) / UnitsPerSide;
}

QRectF HBOverlayLayout::Between(const QSize& picture, const QRect& margins)
{
    const double unit = Unit(picture);
    const int left = Clamped(margins.left());
    const int top = Clamped(margins.top());
    const double width = picture.width() / unit - left - Clamped(margins.right());
    const double height = picture.height() / unit - top - Clamped(margins.bottom());
    return width < 1 || height < 1 ? QRectF() : QRectF(left * unit, top * unit, width * unit, height * unit);
}

QRect HBOverlayLayout::StampRect(const QSize& picture, const QRectF& between, const QSize& stamp,
                                 Qt::Alignment alignment)
{
    const double scale =
        qMin(Unit(picture), qMin(between.width() / stamp.width(), between.height() / stamp.height()));
    const int width = qBound(1, qRound(stamp.width() * scale), picture.width());
    const int height = qBound(1, qRound(stamp.height() * scale), picture.height());
    const double x = Share(alignment, Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight);
    const double y = Share(alignment, Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom);
    return {Position(between.left(), between.right(), width, x, picture.width()),
            Position(between.top(), between.bottom(), height, y, picture.height()), width, height};
}

QVector<QTransform> HBOverlayLayout::Copies(const QRectF& between, const QPolygonF& outline, double scale,
                                            int degrees, int across, int down)
{
    const double cellWidth = between.width() / across;
    const double cellHeight = between.height() / down;
    // Any angle has a meaning; only the remainder is exact for a hostile one. A painter turns clockwise.
    const QTransform turn = QTransform().rotate(-(degrees % 360));
    const QRectF box = turn.map(outline).boundingRect();
    const double fitting = qMin(scale, qMin(cellWidth / box.width(), cellHeight / box.height()));

    QVector<QTransform> copies;
    for (int row = 0; row < down; ++row) {
        for (int column = 0; column < across; ++column) {
            const QPointF middle(between.left() + (column + 0.5) * cellWidth,
                                 between.top() + (row + 0.5) * cellHeight);
            copies.append(turn * QTransform::fromTranslate(-box.center().x(), -box.center().y()) *
                          QTransform::fromScale(fitting, fitting) *
                          QTransform::fromTranslate(middle.x(), middle.y()));
        }
    }
    return copies;
}
