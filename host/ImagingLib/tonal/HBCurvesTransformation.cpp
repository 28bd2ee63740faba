// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBCurvesTransformation.h"

#include <cmath>

namespace
{

/// From one point to the next. In floating point: the difference of two ints may need 33 bits.
struct Interval
{
    double width;
    double slope;

    Interval(const QPoint& from, const QPoint& to) : width(double(to.x()) - from.x()), slope(0.0)
    {
        if (width > 0.0)
            slope = (double(to.y()) - from.y()) / width;
    }
};

/// The slope at the point between two intervals: a harmonic mean, weighted by their widths.
double InnerSlope(const Interval& left, const Interval& right)
{
    if (left.slope * right.slope <= 0.0)
        return 0.0;
    const double leftWeight = left.width + 2.0 * right.width;
    const double rightWeight = 2.0 * left.width + right.width;
    return (leftWeight + rightWeight) / (leftWeight / left.slope + rightWeight / right.slope);
}

int RoundToLevel(double value)
{
    return int(qBound(0.0, value, 255.0) + 0.5);
}

/// The interval that holds x, first.x <= x < last.x. Each step keeps points[low].x <= x < points[high].x, in an
/// unordered list too: the interval found goes forward.
int FindInterval(int x, const QVector<QPoint>& points)
{
    int low = 0;
    int high = points.size() - 1;
    while (high - low > 1) {
        const int middle = low + (high - low) / 2;
        (points[middle].x() <= x ? low : high) = middle;
    }
    return low;
}

HBChannelTables::Table MakeCurve(const QVector<QPoint>& points)
{
    if (points.size() > HBCurvesTransformation::MaxPoints)
        return MakeCurve({});
    QVector<double> a, b, c;
    HBCurvesTransformation::BuildSplineParts(points, a, b, c);
    return HBMakeTable([&](int level) { return HBCurvesTransformation::SplineValue(level, points, a, b, c); });
}

HBChannelTables::Table Chain(const HBChannelTables::Table& channel, const HBChannelTables::Table& composite,
                             int amount)
{
    const double share = qBound(0, amount, 100) / 100.0;
    return HBMakeTable(
        [&](int level) { return std::lround(level + share * (composite[channel[level]] - level)); });
}

} // namespace

HBCurvesTransformation::HBCurvesTransformation(const QVector<QPoint> points[4], int amount)
{
    const Table composite = MakeCurve(points[0]);
    red = Chain(MakeCurve(points[1]), composite, amount);
    green = Chain(MakeCurve(points[2]), composite, amount);
    blue = Chain(MakeCurve(points[3]), composite, amount);
}

void HBCurvesTransformation::BuildSplineParts(const QVector<QPoint>& points, QVector<double>& a,
                                              QVector<double>& b, QVector<double>& c)
{
    const int intervals = qMax(0, points.size() - 1);
    for (QVector<double>* parts : {&a, &b, &c})
        parts->fill(0.0, intervals);
    if (intervals == 0)
        return;

    Interval current(points[0], points[1]);
    // At both ends the slope of the straight line to the neighbour, which is monotone without further limits.
    double slope = current.slope;
    for (int i = 0; i < intervals; ++i) {
        const bool last = i + 1 == intervals;
        const Interval next(points[i + 1], points[last ? i + 1 : i + 2]);
        const double nextSlope = last ? current.slope : InnerSlope(current, next);
        if (current.width > 0.0) {
            a[i] = slope;
            // By how much the ends bend away from the straight line: exactly 0 where they do not.
            const double here = slope - current.slope;
            const double there = nextSlope - current.slope;
            b[i] = -(2.0 * here + there) / current.width;
            c[i] = (here + there) / (current.width * current.width);
        }
        current = next;
        slope = nextSlope;
    }
}

int HBCurvesTransformation::SplineValue(int x, const QVector<QPoint>& points, const QVector<double>& a,
                                        const QVector<double>& b, const QVector<double>& c)
{
    const int intervals = points.size() - 1;
    if (intervals < 1 || a.size() != intervals || b.size() != intervals || c.size() != intervals)
        return qBound(0, x, 255);
    if (x >= points.last().x())
        return RoundToLevel(points.last().y());
    if (x < points.first().x())
        return RoundToLevel(points.first().y());
    const int i = FindInterval(x, points);
    const double h = double(x) - points[i].x();
    return RoundToLevel(points[i].y() + h * (a[i] + h * (b[i] + h * c[i])));
}
