// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBChannelTables.h"

#include <QPoint>
#include <QVector>

/// Tone curves: for each colour, the channel's own curve and then the composite one. A curve is a list of points
/// (x input level, y output level, 0..255) ordered by x.
///
/// Alpha is kept; the curve through (0, 0) and (255, 255) is the exact identity.
class HB_IMAGINGLIB_EXPORT HBCurvesTransformation : public HBChannelTables
{
public:
    /// A longer list does not come from an editor.
    static constexpr int MaxPoints = 256;

    /// The identity.
    HBCurvesTransformation() = default;

    /// \param points four curves: 0 composite, 1 red, 2 green, 3 blue; one of fewer than 2 or more than MaxPoints
    ///        points is the identity
    /// \param amount percent of the way from the source to the result, 0..100, clamped
    HBCurvesTransformation(const QVector<QPoint> points[4], int amount);

    // The spline, which drawing and processing share: the monotone piecewise cubic of F. N. Fritsch and J.
    // Butland, "A method for constructing local monotone piecewise cubic interpolants", SIAM J. Sci. Stat. Comput.
    // 5 (1984). It passes through every point and never overshoots between two. Between points i and i + 1, with h
    // = x - x_i:
    //
    //     y = y_i + h × (a_i + h × (b_i + h × c_i))

    /// The coefficients of the points.size() - 1 intervals; empty for fewer than 2 points. An interval that does
    /// not go forward (points at one x, or unordered) is level, and so is the curve on both sides of it. Any
    /// coordinates.
    static void BuildSplineParts(const QVector<QPoint>& points, QVector<double>& a, QVector<double>& b,
                                 QVector<double>& c);

    /// The curve at x, clamped to 0..255 and rounded to the nearest, halves up; flat before the first and after
    /// the last point. Of several points at one x the last counts. With fewer than 2 points, or coefficients that
    /// are not as many as these points need, the result is x itself, clamped. Any x and coordinates.
    static int SplineValue(int x, const QVector<QPoint>& points, const QVector<double>& a,
                           const QVector<double>& b, const QVector<double>& c);
};
