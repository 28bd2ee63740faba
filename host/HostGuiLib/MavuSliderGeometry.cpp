// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "MavuSliderGeometry.h"

#include <cmath>

double MavuSliderGeometry::PositionOf(int value) const
{
    const double range = double(maximum) - minimum;
    return range > 0 && length > 0 ? left + (double(value) - minimum) / range * length : left;
}

int MavuSliderGeometry::ValueAt(double x) const
{
    const double range = double(maximum) - minimum;
    if (!(range > 0 && length > 0) || std::isnan(x))
        return minimum;
    // Bounded before the cast, which is undefined for what no int holds.
    return int(qBound(double(minimum), minimum + std::floor((x - left) / length * range + 0.5), double(maximum)));
}

int MavuSliderGeometry::MovedBy(int value, double pixels) const
{
    return ValueAt(PositionOf(value) + pixels);
}

QVector<int> MavuSliderGeometry::NearestTo(double x, const QVector<int>& values) const
{
    QVector<int> nearest;
    double least = 0;
    for (int i = 0; i < values.size(); ++i) {
        const double distance = std::abs(PositionOf(values.at(i)) - x);
        if (!nearest.isEmpty() && distance > least)
            continue;
        if (distance < least)
            nearest.clear();
        least = distance;
        nearest.append(i);
    }
    return nearest;
}
