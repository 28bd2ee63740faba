// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBSelectionShape.h>

#include <QPolygonF>
#include <QString>

#include <memory>

enum class HBSelectionToolKind { None, Rectangle, Ellipse, Lasso, Gradient, Color, Move };

/// What becomes of the selection that is there when another shape is drawn.
enum class HBSelectionMode { New, Add, Subtract, Intersect };

/// What a gesture begins with.
struct HBSelectionStart
{
    HBSelectionShape before;
    HBSelectionMode mode = HBSelectionMode::New;
    HBImage<> photo; ///< as it was opened
    int feather = 0; ///< pixels
    int tolerance = 0;
    double pixel = 1; ///< of the screen, in those of the photo
};

/// One gesture of a tool, from its first point to its last, dragged, clicked or given by keys. Points are in
/// pixels of the photo, and may lie beside it.
class HBSelectionGesture
{
public:
    /// Null: the tool has none, or has nothing to do there.
    static std::unique_ptr<HBSelectionGesture> Begin(HBSelectionToolKind tool, const HBSelectionStart& start,
                                                     const QPointF& at);
    virtual ~HBSelectionGesture() = default;

    /// The mouse or the crosshair is there.
    /// \param held with its button down
    /// \param regular a square, a circle, a direction of 45 degrees
    virtual void MoveTo(const QPointF& at, bool held, bool regular) = 0;
    /// A point is set there: the button is let go, or a key was pressed.
    /// \param last it is to be the last
    /// \returns whether the gesture is over
    virtual bool Set(const QPointF& at, bool last) = 0;
    /// Takes the last point back, if there is more than one.
    virtual void TakeBack() {}
    /// Whether it goes on after a click that has not moved the mouse.
    virtual bool TakesClicks() const { return false; }

    /// As it is drawn now; that before, as long as nothing is.
    virtual HBSelectionShape Selection() const = 0;
    /// What is drawn that no outline shows yet.
    virtual QPolygonF Line() const { return {}; }
    /// Its size, for the user; empty if there is nothing to say.
    virtual QString Measure() const = 0;
};

/// Of all shapes, as HBSelectionShape::MaximumPoints counts them.
int HBPointCount(const HBSelectionShape& selection);

/// The points without those that a straight line between others comes nearer than that, and so many at most; the
/// first and the last stay. At least 2 are wanted.
QPolygonF HBSimplified(const QPolygonF& points, double tolerance, int most);
