// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSelectionFigure.h"

#include <QPointF>
#include <QSize>
#include <QVector>

#include <utility>
#include <vector>

/// A polygon, by the distance to its nearest edge, which is looked for among those near a block of pixels only.
class HBPolygonFigure : public HBSelectionFigure
{
public:
    /// \param points at least 3, in shares of the photo's width and height
    HBPolygonFigure(const QVector<QPointF>& points, int feather, const QSize& photo);

    void Cover(const QRect& piece, Coverages* coverages) const override;
    int Everywhere(const QRect& piece) const override;
    QRect Touched() const override { return m_Touched; }

private:
    struct Edge
    {
        QPointF a, b;
        double Distance(const QPointF& point) const;
        bool Crosses(double y) const { return (a.y() <= y) != (b.y() <= y); }
        double CrossingAt(double y) const { return a.x() + (y - a.y()) / (b.y() - a.y()) * (b.x() - a.x()); }
    };
    using Edges = std::vector<Edge>;

    /// How far from an edge the coverage may be neither 0 nor 255.
    double Reach() const { return std::max(double(m_Feather), 0.5); }
    static std::pair<Edges, double> NearestOf(const Edges& edges, const QRect& piece);
    Edges AcrossRows(const QRect& piece) const;
    bool IsInside(const QPointF& point) const;
    static void FillRow(const Edges& edges, const QRect& piece, int row, std::vector<bool>* inside);
    void CoverBlock(const Edges& near, const std::vector<bool>& inside, const QRect& piece, const QRect& block,
                    Coverages* coverages) const;
    std::uint8_t At(const Edges& nearest, const QPointF& point, bool isInside) const;

    Edges m_Edges;
    const int m_Feather;
    QRect m_Touched;
};
