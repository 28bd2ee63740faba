// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentsExport.h"

#include <HBImage.h>
#include <HBJobControl.h>

#include <QJsonArray>
#include <QPointF>
#include <QRect>
#include <QSize>
#include <QVector>

/// A selection as the panels take it (HBTarget).
struct HBSelection
{
    HBImage<> mask; ///< coverage, the same in all four bytes; covers no more of the photo than it must
    QPoint offset;  ///< of the mask on the photo
    QRect bounds;   ///< in pixels of the mask; not valid: nothing is selected, and the whole photo is worked on
};

/// One shape of a selection, in shares of the photo's width and height: (0, 0) is the photo's upper left corner,
/// (1, 1) its lower right one. So it means the same on a photo of another size. Pixel (x, y) is covered by what
/// lies at its middle, (x + 0.5, y + 0.5).
struct HB_ADJUSTMENTS_EXPORT HBShape
{
    enum class Kind { Rectangle, Ellipse, Polygon, Gradient, Color };
    /// With what the shapes before it select. The first is added to nothing.
    enum class Combination { Add, Subtract, Intersect };

    Kind kind = Kind::Rectangle;
    Combination combination = Combination::Add;
    bool inverted = false; ///< all but the shape
    /// Of a rectangle or an ellipse; may reach beyond the photo. Its edges are rounded to whole pixels.
    QRectF rect;
    /// The corners of a polygon, at least 3; what it goes round twice is outside again, so that its soft edge is
    /// the same all along. Of a gradient two: where the coverage begins to fall, and where it has fallen to
    /// nothing.
    QVector<QPointF> points;
    /// All pixels of the photo that are like it: wholly covered if no channel differs by more than `tolerance`
    /// levels, not at all from one and a half times that on.
    QRgb color = 0;
    int tolerance = 0; ///< 0..255
    /// From the edge to where the coverage is 0, and inwards to where it is full, in shares of the photo's shorter
    /// side, 0..1, rounded to whole pixels; not of a gradient or a colour.
    double feather = 0;

    /// A rectangle or an ellipse in pixels of a photo of that size.
    static HBShape OfPixels(Kind kind, const QRect& rect, int feather, const QSize& photo);
    /// The inverse of OfPixels.
    QRect PixelRect(const QSize& photo) const;
    int PixelFeather(const QSize& photo) const;
    void SetPixelFeather(int feather, const QSize& photo);
    bool HasFeather() const { return kind != Kind::Gradient && kind != Kind::Color; }

    bool operator==(const HBShape& other) const;
    bool operator!=(const HBShape& other) const { return !(*this == other); }
};

/// What is selected, as the user has drawn it: shapes, each combined with those before it. Without any nothing is
/// selected, and the whole photo is worked on.
struct HB_ADJUSTMENTS_EXPORT HBSelectionShape
{
    static constexpr int MaximumShapes = 64;
    static constexpr int MaximumPoints = 4000; ///< of all polygons together

    QVector<HBShape> shapes;

    bool IsNone() const { return shapes.isEmpty(); }
    /// Does it depend on what is on the photo?
    bool LooksAtPhoto() const;
    /// All that is not selected. Of none: none.
    HBSelectionShape Inverted() const;
    void SetPixelFeather(int feather, const QSize& photo);

    /// 0..255, as Rasterize has it, but for a level where an ellipse is thinner than its soft edge; slow.
    int CoverageAt(const HBImage<>& photo, int x, int y) const;
    /// The coverage on that photo; not valid if none of it can be covered. Any thread, and those of the pool. Its
    /// memory is that of its edges: of the tiles that are covered in part. \throws std::bad_alloc
    /// \param control its cancelling makes the mask any; may be null
    HBSelection Rasterize(const HBImage<>& photo, HBJobControl* control = nullptr) const;

    /// As a step of a recipe stores it.
    QJsonArray ToJson() const;
    /// False with a reason, and the selection left alone, if the value is not what ToJson returns.
    static bool FromJson(const QJsonValue& value, HBSelectionShape* selection, QString* reason);

    bool operator==(const HBSelectionShape& other) const { return shapes == other.shapes; }
    bool operator!=(const HBSelectionShape& other) const { return !(*this == other); }
};
