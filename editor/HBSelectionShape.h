// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

#include <QPainterPath>
#include <QRect>
#include <QSize>

/// A selection as the panels take it.
struct HBSelection
{
    HBImage<> mask; ///< coverage, the same in all four bytes; covers no more of the photo than it must
    QPoint offset;  ///< of the mask on the photo
    QRect bounds;   ///< in pixels of the mask; not valid: nothing is selected, and the whole photo is worked on
};

/// A selection as the user draws it. Pixel (x, y) is covered by what lies at its middle, (x + 0.5, y + 0.5).
struct HBSelectionShape
{
    enum class Kind { None, Rectangle, Ellipse };

    Kind kind = Kind::None;
    QRect rect;            ///< in pixels of the photo; may reach beyond it
    int feather = 0;       ///< pixels from the edge to where the coverage is 0, and inwards to where it is full
    bool inverted = false; ///< all but the shape

    bool IsNone() const { return kind == Kind::None; }
    /// 0..255.
    int CoverageAt(int x, int y) const;
    /// None if the shape does not touch a photo of that size.
    HBSelection Rasterize(const QSize& photo) const;
    /// The line around what is selected.
    QPainterPath Outline(const QSize& photo) const;

private:
    double InsideDistance(double x, double y) const;
};
