// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPolygonFigure.h"

#include <QRectF>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int BlockSide = 16;

QPointF Middle(const QRect& piece)
{
    return {piece.left() + piece.width() / 2.0, piece.top() + piece.height() / 2.0};
}

double Radius(const QRect& piece)
{
    return std::hypot(piece.width(), piece.height()) / 2;
}

} // namespace

HBPolygonFigure::HBPolygonFigure(const QVector<QPointF>& points, int feather, const QSize& photo)
    : m_Feather(feather)
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

double HBPolygonFigure::Edge::Distance(const QPointF& point) const
{
    const QPointF along = b - a;
    const QPointF from = point - a;
    const double square = QPointF::dotProduct(along, along);
    const double t = square > 0 ? std::clamp(QPointF::dotProduct(from, along) / square, 0.0, 1.0) : 0.0;
    const QPointF off = from - along * t;
    return std::sqrt(QPointF::dotProduct(off, off));
}

void HBPolygonFigure::Cover(const QRect& piece, Coverages* coverages) const
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

int HBPolygonFigure::Everywhere(const QRect& piece) const
{
    const double nearest = NearestOf(m_Edges, piece).second;
    if (nearest <= Reach() + Radius(piece))
        return -1;
    return IsInside(Middle(piece)) ? 255 : 0;
}

/// Those of the edges one of which is the nearest to any point of the piece, and how far the nearest is from
/// its middle.
std::pair<HBPolygonFigure::Edges, double> HBPolygonFigure::NearestOf(const Edges& edges, const QRect& piece)
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

HBPolygonFigure::Edges HBPolygonFigure::AcrossRows(const QRect& piece) const
{
    Edges across;
    for (const Edge& edge : m_Edges) {
        if (std::max(edge.a.y(), edge.b.y()) >= piece.top() &&
            std::min(edge.a.y(), edge.b.y()) <= piece.bottom() + 1)
            across.push_back(edge);
    }
    return across;
}

bool HBPolygonFigure::IsInside(const QPointF& point) const
{
    bool isInside = false;
    for (const Edge& edge : m_Edges) {
        if (edge.Crosses(point.y()) && edge.CrossingAt(point.y()) <= point.x())
            isInside = !isInside;
    }
    return isInside;
}

void HBPolygonFigure::FillRow(const Edges& edges, const QRect& piece, int row, std::vector<bool>* inside)
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

void HBPolygonFigure::CoverBlock(const Edges& near, const std::vector<bool>& inside, const QRect& piece,
                                 const QRect& block, Coverages* coverages) const
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

std::uint8_t HBPolygonFigure::At(const Edges& nearest, const QPointF& point, bool isInside) const
{
    double distance = nearest.front().Distance(point);
    for (std::size_t i = 1; i < nearest.size(); ++i)
        distance = std::min(distance, nearest[i].Distance(point));
    return AtDepth(isInside ? distance : -distance, m_Feather);
}
