// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionShape.h"

#include <HBParallel.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <vector>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;

/// From 0 at -feather to 1 at +feather, flat at both ends.
double Ramp(double distance, int feather)
{
    const double t = std::clamp((distance + feather) / (2.0 * feather), 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

/// A tile with coverage 255 everywhere, for all to share.
KMTileRef FullTile()
{
    const HBImage<> full(TileSide, TileSide);
    const KMTilePin<HBRGBA32i> pin(full.Tile(0), true);
    std::fill_n(pin.Pixels(), HBImage<>::TilePixels, HBRGBA32i(255, 255, 255, 255));
    return full.Tile(0);
}

void FillTile(const HBSelectionShape& shape, const HBImage<>& mask, const QPoint& offset, int index)
{
    const QRect area = mask.TileRect(index);
    const KMTilePin<HBRGBA32i> pin(mask.Tile(index), true);
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x) {
            const auto coverage =
                std::uint8_t(shape.CoverageAt(offset.x() + area.left() + x, offset.y() + area.top() + y));
            pin.Pixels()[y * TileSide + x] = HBRGBA32i(coverage, coverage, coverage, coverage);
        }
    }
}

} // namespace

/// How deep inside the ellipse a point lies, negative outside: the ellipse's equation divided by its gradient,
/// which is exact at the edge in the first order.
double HBSelectionShape::InsideDistance(double x, double y) const
{
    const double a = rect.width() / 2.0;
    const double b = rect.height() / 2.0;
    const double dx = x - (rect.left() + a);
    const double dy = y - (rect.top() + b);
    const double radius = std::sqrt(dx * dx / (a * a) + dy * dy / (b * b));
    const double gradient = std::sqrt(dx * dx / (a * a * a * a) + dy * dy / (b * b * b * b));
    const double middle = std::min(a, b);
    return gradient > 0 ? std::min(radius * (1 - radius) / gradient, middle) : middle;
}

int HBSelectionShape::CoverageAt(int x, int y) const
{
    const double px = x + 0.5;
    const double py = y + 0.5;
    double coverage = 0;
    if (kind == Kind::Rectangle && feather == 0) {
        coverage = rect.contains(x, y) ? 1 : 0;
    } else if (kind == Kind::Rectangle) {
        const double left = rect.left();
        const double top = rect.top();
        coverage = Ramp(std::min(px - left, left + rect.width() - px), feather) *
                   Ramp(std::min(py - top, top + rect.height() - py), feather);
    } else if (kind == Kind::Ellipse) {
        const double inside = InsideDistance(px, py);
        coverage = feather > 0 ? Ramp(inside, feather) : std::clamp(inside + 0.5, 0.0, 1.0);
    }
    const int value = int(std::lround(coverage * 255));
    return inverted ? 255 - value : value;
}

HBSelection HBSelectionShape::Rasterize(const QSize& photo) const
{
    HBSelection selection;
    // Tested before they meet: QRect turns an empty rectangle round.
    if (IsNone() || rect.isEmpty() || photo.isEmpty())
        return selection;
    const QRect frame(QPoint(0, 0), photo);
    const QRect touched = rect.adjusted(-feather, -feather, feather, feather) & frame;
    if (touched.isEmpty())
        return selection;

    const QRect area = inverted ? frame : touched;
    selection.offset = area.topLeft();
    selection.bounds = QRect(QPoint(0, 0), area.size());
    selection.mask = HBImage<>(area.width(), area.height());

    // Tiles that are wholly inside the shape or wholly outside are not painted pixel by pixel, and those that are
    // full share one: a selection costs what its edge costs.
    const KMTileRef full = FullTile();
    std::vector<int> edge;
    for (int index = 0; index < selection.mask.Tiles().size(); ++index) {
        switch (Place(selection.mask.TileRect(index).translated(area.topLeft()))) {
        case Where::Inside:
            if (!inverted)
                selection.mask.ShareTile(index, full);
            break;
        case Where::Outside:
            if (inverted)
                selection.mask.ShareTile(index, full);
            break;
        case Where::Edge:
            edge.push_back(index);
            break;
        }
    }

    std::atomic<int> next{0};
    HBRunLanes(HBLaneCount(int(edge.size())), [&] {
        for (int i; (i = next.fetch_add(1)) < int(edge.size());)
            FillTile(*this, selection.mask, selection.offset, edge[std::size_t(i)]);
    });
    return selection;
}

/// Where the shape, inverted or not, has a piece of the photo.
HBSelectionShape::Where HBSelectionShape::Place(const QRect& piece) const
{
    // Coverage falls from the middle outwards; but in an ellipse only nearly so, its distance being an
    // approximation.
    const int margin = kind == Kind::Ellipse ? 8 : 0;
    const QRect wide = piece.adjusted(-margin, -margin, margin, margin);
    auto covered = [this](int x, int y) { return inverted ? 255 - CoverageAt(x, y) : CoverageAt(x, y); };

    const QPoint nearest(std::clamp(rect.center().x(), wide.left(), wide.right()),
                         std::clamp(rect.center().y(), wide.top(), wide.bottom()));
    if (covered(nearest.x(), nearest.y()) == 0)
        return Where::Outside;
    const bool inside = covered(wide.left(), wide.top()) == 255 && covered(wide.right(), wide.top()) == 255 &&
                        covered(wide.left(), wide.bottom()) == 255 && covered(wide.right(), wide.bottom()) == 255;
    return inside ? Where::Inside : Where::Edge;
}

QPainterPath HBSelectionShape::Outline(const QSize& photo) const
{
    QPainterPath path;
    if (kind == Kind::Rectangle)
        path.addRect(rect);
    else if (kind == Kind::Ellipse)
        path.addEllipse(rect);
    if (inverted)
        path.addRect(QRect(QPoint(0, 0), photo));
    return path;
}
