// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionFigure.h"

#include "HBPolygonFigure.h"

namespace
{

/// A rectangle or an ellipse.
class Box : public HBSelectionFigure
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
            return AtDepth(InsideDistance(px, py), m_Feather);
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

/// Full before the first point, nothing behind the second.
class Gradient : public HBSelectionFigure
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
class Likeness : public HBSelectionFigure
{
public:
    Likeness(QRgb color, int tolerance, const HBImage<>& photo)
        : m_Color(qRed(color), qGreen(color), qBlue(color))
        , m_Photo(photo)
    {
        for (int difference = 0; difference < int(m_Levels.size()); ++difference)
            m_Levels[std::size_t(difference)] = LevelOf(difference, tolerance);
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
                    std::uint8_t* const row = coverages->data() + (y - piece.top()) * TileSide;
                    CoverRow(pixels + part.left() % TileSide, part.width(), row + part.left() - piece.left());
                }
            }
        }
    }
    int Everywhere(const QRect&) const override { return -1; }
    QRect Touched() const override { return {0, 0, m_Photo.Width(), m_Photo.Height()}; }

private:
    static std::uint8_t LevelOf(int difference, int tolerance)
    {
        if (difference <= tolerance)
            return 255;
        const int left = 3 * tolerance - 2 * difference; // of a fall over half the tolerance
        return std::uint8_t(left > 0 ? (255 * left + tolerance / 2) / tolerance : 0);
    }
    static std::uint8_t Apart(std::uint8_t a, std::uint8_t b)
    {
        return std::uint8_t(std::max(a, b) - std::min(a, b));
    }
    void CoverRow(const HBRGBA32i* pixels, int count, std::uint8_t* row) const
    {
        const HBRGBA32i color = m_Color; // apart from what is written, for the vectors
        std::uint8_t least = 255;
        std::uint8_t most = 0;
        for (int i = 0; i < count; ++i) {
            const std::uint8_t apart =
                std::max(std::max(Apart(pixels[i].red, color.red), Apart(pixels[i].green, color.green)),
                         Apart(pixels[i].blue, color.blue));
            row[i] = apart;
            least = std::min(least, apart);
            most = std::max(most, apart);
        }
        // Most rows are all alike, and levels fall.
        if (m_Levels[least] == m_Levels[most])
            std::fill_n(row, count, m_Levels[least]);
        else
            std::transform(row, row + count, row, [this](std::uint8_t apart) { return m_Levels[apart]; });
    }

    const HBRGBA32i m_Color;
    const HBImage<>& m_Photo;
    std::array<std::uint8_t, 256> m_Levels; ///< by the largest difference of a channel
};

} // namespace

std::unique_ptr<HBSelectionFigure> HBSelectionFigure::Of(const HBShape& shape, const HBImage<>& photo)
{
    const QSize size(photo.Width(), photo.Height());
    switch (shape.kind) {
    case HBShape::Kind::Rectangle:
    case HBShape::Kind::Ellipse:
        return std::make_unique<Box>(shape.PixelRect(size), shape.PixelFeather(size),
                                     shape.kind == HBShape::Kind::Ellipse);
    case HBShape::Kind::Polygon:
        if (shape.points.size() >= 3)
            return std::make_unique<HBPolygonFigure>(shape.points, shape.PixelFeather(size), size);
        break;
    case HBShape::Kind::Gradient:
        return std::make_unique<Gradient>(shape.points, size);
    case HBShape::Kind::Color:
        return std::make_unique<Likeness>(shape.color, shape.tolerance, photo);
    }
    return std::make_unique<Box>(QRect(), 0, false);
}
