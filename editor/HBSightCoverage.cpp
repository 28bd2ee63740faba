// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSightCoverage.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;

/// The shape in shares of the part.
HBShape Within(HBShape shape, const QSize& photo, const QRect& part, const QSize& size)
{
    const auto map = [&](const QPointF& point) {
        return QPointF((point.x() * photo.width() - part.left()) / part.width(),
                       (point.y() * photo.height() - part.top()) / part.height());
    };
    shape.rect = QRectF(map(shape.rect.topLeft()), map(shape.rect.bottomRight()));
    for (QPointF& point : shape.points)
        point = map(point);
    const double pixels = shape.feather * std::min(photo.width(), photo.height());
    shape.feather = pixels * size.width() / part.width() / std::min(size.width(), size.height());
    return shape;
}

/// Single pixels of the part: means would have colours that the photo has not.
HBImage<> Sampled(const HBImage<>& photo, const QRect& part, const QSize& size)
{
    QImage sample(size, QImage::Format_ARGB32);
    if (sample.isNull())
        throw std::bad_alloc();
    for (int y = 0; y < size.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(sample.scanLine(y));
        const int row = part.top() + int((y + 0.5) * part.height() / size.height());
        for (int x = 0; x < size.width();) {
            const int left = part.left() + int((x + 0.5) * part.width() / size.width());
            const int index = row / TileSide * photo.Columns() + left / TileSide;
            const KMTilePin<HBRGBA32i> pin(photo.Tile(index), false);
            const HBRGBA32i* const pixels = pin.Pixels() + row % TileSide * TileSide;
            const int end = left - left % TileSide + TileSide;
            for (int column = left; column < end && x < size.width(); ++x) {
                line[x] = pixels[column % TileSide].ToRgba();
                column = part.left() + int((x + 1.5) * part.width() / size.width());
            }
        }
    }
    return HBImage<>::FromQImage(sample);
}

} // namespace

QImage HBCoverageInSight(const HBSelectionShape& selection, const HBImage<>& photo, const QRect& part,
                         const QSize& size)
{
    HBSelectionShape within = selection;
    for (HBShape& shape : within.shapes)
        shape = Within(shape, {photo.Width(), photo.Height()}, part, size);
    const HBImage<> small =
        selection.LooksAtPhoto() ? Sampled(photo, part, size) : HBImage<>(size.width(), size.height());
    const HBSelection covered = within.Rasterize(small);
    QImage coverage(size, QImage::Format_Grayscale8);
    if (coverage.isNull())
        throw std::bad_alloc();
    coverage.fill(0);
    const QImage mask = covered.mask.ToQImage();
    for (int y = 0; y < mask.height(); ++y) {
        const auto* const from = reinterpret_cast<const QRgb*>(mask.constScanLine(y));
        uchar* const to = coverage.scanLine(covered.offset.y() + y) + covered.offset.x();
        for (int x = 0; x < mask.width(); ++x)
            to[x] = uchar(qAlpha(from[x]));
    }
    return coverage;
}

bool HBSelectsNothing(const HBSelectionShape& selection, const HBImage<>& photo)
{
    const HBSelection covered = selection.Rasterize(photo);
    if (!covered.bounds.isValid())
        return true;
    const auto& tiles = covered.mask.Tiles();
    return std::none_of(tiles.begin(), tiles.end(), [](const KMTileRef& tile) {
        const KMTilePin<HBRGBA32i> pin(tile, false);
        return std::any_of(pin.Pixels(), pin.Pixels() + HBImage<>::TilePixels,
                           [](const HBRGBA32i& pixel) { return pixel.alpha != 0; });
    });
}
