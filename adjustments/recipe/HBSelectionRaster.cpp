// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// How a selection's shapes become coverage. On a photo of one size all is counted in its pixels.

#include "HBSelectionShape.h"

#include <HBTileWalk.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <vector>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;
/// The coverages of a piece of at most a tile, row by row.
using Coverages = std::array<std::uint8_t, HBImage<>::TilePixels>;

/// 0 up to 0, 1 from 1 on, flat at both ends.
double Smooth(double t)
{
    const double share = std::clamp(t, 0.0, 1.0);
    return share * share * (3 - 2 * share);
}

/// From 0 at -feather to 1 at +feather.
double Ramp(double distance, int feather)
{
    return Smooth((distance + feather) / (2.0 * feather));
}

std::uint8_t Level(double coverage)
{
    return std::uint8_t(std::lround(coverage * 255));
}

/// A shape on a photo, not inverted.
class Figure
{
public:
    virtual ~Figure() = default;
    virtual void Cover(const QRect& piece, Coverages* coverages) const = 0;
    /// 0 or 255 if that is the coverage all over the piece; -1 if it is not known.
    virtual int Everywhere(const QRect& piece) const = 0;
    /// Outside the coverage is 0.
    virtual QRect Touched() const = 0;

protected:
    Figure() = default;
    template <class Function>
    static void ForEach(const QRect& piece, Coverages* coverages, const Function& function)
    {
        for (int y = 0; y < piece.height(); ++y) {
            for (int x = 0; x < piece.width(); ++x)
                (*coverages)[std::size_t(y * TileSide + x)] = function(piece.left() + x, piece.top() + y);
        }
    }
};

/// A rectangle or an ellipse.
class Box : public Figure
{
public:
    Box(const QRect& rect, int feather, bool round) : m_Rect(rect), m_Feather(feather), m_Round(round) {}

    void Cover(const QRect& piece, Coverages* coverages) const override
    {
        ForEach(piece, coverages, [this](int x, int y) { return At(x, y); });
    }
    int Everywhere(const QRect& piece) const override
    {
        // Tested before they meet: QRect turns an empty rectangle round.
        if (m_Rect.isEmpty())
            return 0;
        // Coverage falls from the middle outwards; but in an ellipse only nearly so, its distance being an
        // approximation.
        const int margin = m_Round ? 8 : 0;
        const QRect wide = piece.adjusted(-margin, -margin, margin, margin);
        const QPoint nearest(std::clamp(m_Rect.center().x(), wide.left(), wide.right()),
                             std::clamp(m_Rect.center().y(), wide.top(), wide.bottom()));
        if (At(nearest.x(), nearest.y()) == 0)
            return 0;
        const bool inside = At(wide.left(), wide.top()) == 255 && At(wide.right(), wide.top()) == 255 &&
                            At(wide.left(), wide.bottom()) == 255 && At(wide.right(), wide.bottom()) == 255;
        return inside ? 255 : -1;
    }
    QRect Touched() const override
    {
        return m_Rect.isEmpty() ? QRect() : m_Rect.adjusted(-m_Feather, -m_Feather, m_Feather, m_Feather);
    }

private:
    std::uint8_t At(int x, int y) const
    {
        const double px = x + 0.5;
        const double py = y + 0.5;
        if (m_Round) {
            const double inside = InsideDistance(px, py);
            return Level(m_Feather > 0 ? Ramp(inside, m_Feather) : std::clamp(inside + 0.5, 0.0, 1.0));
        }
        if (m_Feather == 0)
            return m_Rect.contains(x, y) ? 255 : 0;
        const double left = m_Rect.left();
        const double top = m_Rect.top();
        return Level(Ramp(std::min(px - left, left + m_Rect.width() - px), m_Feather) *
                     Ramp(std::min(py - top, top + m_Rect.height() - py), m_Feather));
    }
    /// How deep inside the ellipse a point lies, negative outside: the ellipse's equation divided by its gradient,
    /// which is exact at the edge in the first order.
    double InsideDistance(double x, double y) const
    {
        const double a = m_Rect.width() / 2.0;
        const double b = m_Rect.height() / 2.0;
        const double dx = x - (m_Rect.left() + a);
        const double dy = y - (m_Rect.top() + b);
        const double radius = std::sqrt(dx * dx / (a * a) + dy * dy / (b * b));
        const double gradient = std::sqrt(dx * dx / (a * a * a * a) + dy * dy / (b * b * b * b));
        const double middle = std::min(a, b);
        return gradient > 0 ? std::min(radius * (1 - radius) / gradient, middle) : middle;
    }

    const QRect m_Rect;
    const int m_Feather;
    const bool m_Round;
};

/// By the distance to the nearest edge, which is looked for among those near a block of pixels only.
class Polygon : public Figure
{
public:
    Polygon(const QVector<QPointF>& points, int feather, const QSize& photo) : m_Feather(feather)
    {
        QRectF bounds;
        for (int i = 0; i < points.size(); ++i) {
            const QPointF a(points.at(i).x() * photo.width(), points.at(i).y() * photo.height());
            const QPointF& next = points.at((i + 1) % points.size());
            m_Edges.push_back({a, QPointF(next.x() * photo.width(), next.y() * photo.height())});
            bounds |= QRectF(a, QSizeF(1e-6, 1e-6));
        }
        const int reach = feather + 1;
        m_Touched = bounds.toAlignedRect().adjusted(-reach, -reach, reach, reach);
    }

    void Cover(const QRect& piece, Coverages* coverages) const override
    {
        const Edges near = NearestOf(m_Edges, piece).first;
        const Edges beside = AcrossRows(piece);
        std::vector<bool> inside(std::size_t(piece.width() * piece.height()));
        for (int y = 0; y < piece.height(); ++y)
            FillRow(beside, piece, y, &inside);
        for (int top = piece.top(); top <= piece.bottom(); top += BlockSide) {
            for (int left = piece.left(); left <= piece.right(); left += BlockSide) {
                const QRect block = QRect(left, top, BlockSide, BlockSide) & piece;
                CoverBlock(near, inside, piece, block, coverages);
            }
        }
    }
    int Everywhere(const QRect& piece) const override
    {
        const double nearest = NearestOf(m_Edges, piece).second;
        if (nearest <= Reach() + Radius(piece))
            return -1;
        return IsInside(Middle(piece)) ? 255 : 0;
    }
    QRect Touched() const override { return m_Touched; }

private:
    static constexpr int BlockSide = 16;

    struct Edge
    {
        QPointF a, b;
        double Distance(const QPointF& point) const
        {
            const QPointF along = b - a;
            const QPointF from = point - a;
            const double square = QPointF::dotProduct(along, along);
            const double t = square > 0 ? std::clamp(QPointF::dotProduct(from, along) / square, 0.0, 1.0) : 0.0;
            const QPointF off = from - along * t;
            return std::sqrt(QPointF::dotProduct(off, off));
        }
        bool Crosses(double y) const { return (a.y() <= y) != (b.y() <= y); }
        double CrossingAt(double y) const { return a.x() + (y - a.y()) / (b.y() - a.y()) * (b.x() - a.x()); }
    };
    using Edges = std::vector<Edge>;

    static QPointF Middle(const QRect& piece)
    {
        return {piece.left() + piece.width() / 2.0, piece.top() + piece.height() / 2.0};
    }
    static double Radius(const QRect& piece) { return std::hypot(piece.width(), piece.height()) / 2; }
    double Reach() const { return std::max(double(m_Feather), 0.5); }

    /// Those of the edges one of which is the nearest to any point of the piece, and how far the nearest is from
    /// its middle.
    static std::pair<Edges, double> NearestOf(const Edges& edges, const QRect& piece)
    {
        const QPointF middle = Middle(piece);
        std::vector<double> distances;
        distances.reserve(edges.size());
        for (const Edge& edge : edges)
            distances.push_back(edge.Distance(middle));
        const double nearest = *std::min_element(distances.begin(), distances.end());
        Edges kept;
        for (std::size_t i = 0; i < edges.size(); ++i) {
            if (distances[i] <= nearest + 2 * Radius(piece) + 1e-6)
                kept.push_back(edges[i]);
        }
        return {kept, nearest};
    }
    Edges AcrossRows(const QRect& piece) const
    {
        Edges across;
        for (const Edge& edge : m_Edges) {
            if (std::max(edge.a.y(), edge.b.y()) >= piece.top() &&
                std::min(edge.a.y(), edge.b.y()) <= piece.bottom() + 1)
                across.push_back(edge);
        }
        return across;
    }
    bool IsInside(const QPointF& point) const
    {
        bool isInside = false;
        for (const Edge& edge : m_Edges) {
            if (edge.Crosses(point.y()) && edge.CrossingAt(point.y()) <= point.x())
                isInside = !isInside;
        }
        return isInside;
    }
    static void FillRow(const Edges& edges, const QRect& piece, int row, std::vector<bool>* inside)
    {
        const double y = piece.top() + row + 0.5;
        std::vector<double> crossings;
        for (const Edge& edge : edges) {
            if (edge.Crosses(y))
                crossings.push_back(edge.CrossingAt(y));
        }
        std::sort(crossings.begin(), crossings.end());
        std::size_t passed = 0;
        for (int x = 0; x < piece.width(); ++x) {
            while (passed < crossings.size() && crossings[passed] <= piece.left() + x + 0.5)
                ++passed;
            (*inside)[std::size_t(row * piece.width() + x)] = passed % 2 != 0;
        }
    }
    void CoverBlock(const Edges& near, const std::vector<bool>& inside, const QRect& piece, const QRect& block,
                    Coverages* coverages) const
    {
        const auto [nearest, distance] = NearestOf(near, block);
        const bool far = distance > Reach() + Radius(block);
        for (int y = block.top(); y <= block.bottom(); ++y) {
            for (int x = block.left(); x <= block.right(); ++x) {
                const int column = x - piece.left();
                const int row = y - piece.top();
                const bool isInside = inside[std::size_t(row * piece.width() + column)];
                (*coverages)[std::size_t(row * TileSide + column)] =
                    far ? (isInside ? 255 : 0) : At(nearest, {x + 0.5, y + 0.5}, isInside);
            }
        }
    }
    std::uint8_t At(const Edges& nearest, const QPointF& point, bool isInside) const
    {
        double distance = nearest.front().Distance(point);
        for (std::size_t i = 1; i < nearest.size(); ++i)
            distance = std::min(distance, nearest[i].Distance(point));
        const double depth = isInside ? distance : -distance;
        return Level(m_Feather > 0 ? Ramp(depth, m_Feather) : std::clamp(depth + 0.5, 0.0, 1.0));
    }

    Edges m_Edges;
    const int m_Feather;
    QRect m_Touched;
};

/// Full before the first point, nothing behind the second.
class Gradient : public Figure
{
public:
    Gradient(const QVector<QPointF>& points, const QSize& photo)
        : m_From(points.value(0).x() * photo.width(), points.value(0).y() * photo.height())
        , m_Frame(QPoint(0, 0), photo)
    {
        const QPointF to(points.value(1).x() * photo.width(), points.value(1).y() * photo.height());
        const QPointF along = to - m_From;
        const double square = QPointF::dotProduct(along, along);
        m_Along = square > 0 ? along / square : QPointF();
    }

    void Cover(const QRect& piece, Coverages* coverages) const override
    {
        ForEach(piece, coverages, [this](int x, int y) { return Level(1 - Smooth(Along(x, y))); });
    }
    int Everywhere(const QRect& piece) const override
    {
        if (m_Along.isNull())
            return 0; // without a direction
        const auto [least, most] =
            std::minmax({Along(piece.left(), piece.top()), Along(piece.right(), piece.top()),
                         Along(piece.left(), piece.bottom()), Along(piece.right(), piece.bottom())});
        return most <= 0 ? 255 : least >= 1 ? 0 : -1;
    }
    QRect Touched() const override { return m_Frame; }

private:
    double Along(int x, int y) const { return QPointF::dotProduct(QPointF(x + 0.5, y + 0.5) - m_From, m_Along); }

    const QPointF m_From;
    const QRect m_Frame;
    QPointF m_Along; ///< its product with a way is the share of the gradient that lies on it
};

/// What is like a colour.
class Likeness : public Figure
{
public:
    Likeness(QRgb color, int tolerance, const HBImage<>& photo)
        : m_Color(qRed(color), qGreen(color), qBlue(color))
        , m_Tolerance(tolerance)
        , m_Photo(photo)
    {
    }

    void Cover(const QRect& piece, Coverages* coverages) const override
    {
        // The pieces need not lie as the photo's tiles do.
        for (int top = piece.top(); top <= piece.bottom(); top += TileSide - top % TileSide) {
            for (int left = piece.left(); left <= piece.right(); left += TileSide - left % TileSide) {
                const int index = top / TileSide * m_Photo.Columns() + left / TileSide;
                const KMTilePin<HBRGBA32i> pin(m_Photo.Tile(index), false);
                const QRect part = m_Photo.TileRect(index) & piece;
                for (int y = part.top(); y <= part.bottom(); ++y) {
                    const HBRGBA32i* const pixels = pin.Pixels() + y % TileSide * TileSide;
                    std::uint8_t* const row = coverages->data() + (y - piece.top()) * TileSide - piece.left();
                    for (int x = part.left(); x <= part.right(); ++x)
                        row[x] = At(pixels[x % TileSide]);
                }
            }
        }
    }
    int Everywhere(const QRect&) const override { return -1; }
    QRect Touched() const override { return {0, 0, m_Photo.Width(), m_Photo.Height()}; }

private:
    std::uint8_t At(const HBRGBA32i& pixel) const
    {
        const int difference = std::max({std::abs(pixel.red - m_Color.red), std::abs(pixel.green - m_Color.green),
                                         std::abs(pixel.blue - m_Color.blue)});
        if (difference <= m_Tolerance)
            return 255;
        const int left = 3 * m_Tolerance - 2 * difference; // of a fall over half the tolerance
        return std::uint8_t(left > 0 ? (255 * left + m_Tolerance / 2) / m_Tolerance : 0);
    }

    const HBRGBA32i m_Color;
    const int m_Tolerance;
    const HBImage<>& m_Photo;
};

std::unique_ptr<Figure> FigureOf(const HBShape& shape, const HBImage<>& photo)
{
    const QSize size(photo.Width(), photo.Height());
    switch (shape.kind) {
    case HBShape::Kind::Rectangle:
    case HBShape::Kind::Ellipse:
        return std::make_unique<Box>(shape.PixelRect(size), shape.PixelFeather(size),
                                     shape.kind == HBShape::Kind::Ellipse);
    case HBShape::Kind::Polygon:
        if (shape.points.size() >= 3)
            return std::make_unique<Polygon>(shape.points, shape.PixelFeather(size), size);
        break;
    case HBShape::Kind::Gradient:
        return std::make_unique<Gradient>(shape.points, size);
    case HBShape::Kind::Color:
        return std::make_unique<Likeness>(shape.color, shape.tolerance, photo);
    }
    return std::make_unique<Box>(QRect(), 0, false);
}

/// All shapes of a selection on a photo.
class Raster
{
public:
    Raster(const HBSelectionShape& selection, const HBImage<>& photo)
    {
        const QRect frame(0, 0, photo.Width(), photo.Height());
        for (const HBShape& shape : selection.shapes) {
            m_Parts.push_back({FigureOf(shape, photo), shape.combination, shape.inverted});
            const QRect touched = m_Parts.back().figure->Touched();
            const QRect covered = shape.inverted ? frame : touched.isEmpty() ? QRect() : touched & frame;
            if (shape.combination == HBShape::Combination::Intersect)
                m_Area = m_Area.isEmpty() || covered.isEmpty() ? QRect() : m_Area & covered;
            else if (shape.combination == HBShape::Combination::Add && !covered.isEmpty())
                m_Area = m_Area | covered;
        }
    }

    /// Outside nothing is selected; empty: anywhere.
    QRect Area() const { return m_Area; }

    int Everywhere(const QRect& piece) const
    {
        int all = 0;
        for (const Part& part : m_Parts) {
            const int one = part.Everywhere(piece);
            if (one < 0)
                return -1;
            all = Combined(part.combination, all, one);
        }
        return all;
    }
    void Cover(const QRect& piece, Coverages* coverages) const
    {
        ForEachPixel(piece, coverages, [](std::size_t) { return std::uint8_t(0); });
        Coverages one;
        for (const Part& part : m_Parts) {
            const int everywhere = part.Everywhere(piece);
            if (everywhere < 0)
                part.figure->Cover(piece, &one);
            ForEachPixel(piece, coverages, [&](std::size_t i) {
                const int coverage = everywhere >= 0 ? everywhere : part.inverted ? 255 - one[i] : one[i];
                return std::uint8_t(Combined(part.combination, (*coverages)[i], coverage));
            });
        }
    }

private:
    struct Part
    {
        std::unique_ptr<Figure> figure;
        HBShape::Combination combination;
        bool inverted;

        int Everywhere(const QRect& piece) const
        {
            const int coverage = figure->Everywhere(piece);
            return coverage >= 0 && inverted ? 255 - coverage : coverage;
        }
    };

    template <class Function>
    static void ForEachPixel(const QRect& piece, Coverages* coverages, const Function& function)
    {
        for (int y = 0; y < piece.height(); ++y) {
            for (int x = 0; x < piece.width(); ++x) {
                const auto i = std::size_t(y * TileSide + x);
                (*coverages)[i] = function(i);
            }
        }
    }
    static int Combined(HBShape::Combination combination, int before, int coverage)
    {
        switch (combination) {
        case HBShape::Combination::Subtract:
            return std::min(before, 255 - coverage);
        case HBShape::Combination::Intersect:
            return std::min(before, coverage);
        default:
            return std::max(before, coverage);
        }
    }

    std::vector<Part> m_Parts;
    QRect m_Area;
};

/// A tile with coverage 255 everywhere, for all to share.
KMTileRef FullTile()
{
    const HBImage<> full(TileSide, TileSide);
    const KMTilePin<HBRGBA32i> pin(full.Tile(0), true);
    std::fill_n(pin.Pixels(), HBImage<>::TilePixels, HBRGBA32i(255, 255, 255, 255));
    return full.Tile(0);
}

void FillTile(const Raster& raster, const QPoint& offset, HBTileAccess* tile)
{
    const QRect area = tile->Area();
    Coverages coverages;
    raster.Cover(area.translated(offset), &coverages);
    HBRGBA32i* const pixels = tile->Pixels();
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x) {
            const std::uint8_t coverage = coverages[std::size_t(y * TileSide + x)];
            pixels[y * TileSide + x] = HBRGBA32i(coverage, coverage, coverage, coverage);
        }
    }
}

} // namespace

int HBSelectionShape::CoverageAt(const HBImage<>& photo, int x, int y) const
{
    const Raster raster(*this, photo);
    if (!raster.Area().contains(x, y))
        return 0;
    Coverages coverages;
    raster.Cover(QRect(x, y, 1, 1), &coverages);
    return coverages[0];
}

HBSelection HBSelectionShape::Rasterize(const HBImage<>& photo, HBJobControl* control) const
{
    HBSelection selection;
    if (photo.IsEmpty())
        return selection;
    const Raster raster(*this, photo);
    const QRect area = raster.Area();
    if (area.isEmpty())
        return selection;
    selection.offset = area.topLeft();
    selection.bounds = QRect(QPoint(0, 0), area.size());
    HBTarget mask{HBImage<>(area.width(), area.height())};

    // Tiles that are wholly covered or not at all are not painted pixel by pixel, and those that are full share
    // one: a selection costs what its edge costs.
    const KMTileRef full = FullTile();
    std::vector<bool> edge(std::size_t(mask.source.Tiles().size()));
    for (int index = 0; index < mask.source.Tiles().size(); ++index) {
        const int coverage = raster.Everywhere(mask.source.TileRect(index).translated(area.topLeft()));
        edge[std::size_t(index)] = coverage < 0;
        if (coverage == 255)
            mask.source.ShareTile(index, full);
    }
    const HBOutcome outcome = HBWalkTiles(
        mask,
        [&](HBTileAccess& tile) {
            if (edge[std::size_t(tile.Index())])
                FillTile(raster, selection.offset, &tile);
        },
        control);
    if (outcome.exception)
        std::rethrow_exception(outcome.exception);
    selection.mask = outcome.image;
    return selection;
}
