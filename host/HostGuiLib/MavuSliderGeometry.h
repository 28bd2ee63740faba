// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiLibExport.h"

#include <QVector>

/// Where on a groove a value stands and back, in logical pixels: the arithmetic of a slider, without a widget.
struct HB_HOSTGUILIB_EXPORT MavuSliderGeometry
{
    int minimum = 0;
    int maximum = 255;
    double left = 0;   ///< x of `minimum`
    double length = 0; ///< from `minimum` to `maximum`; 0 or less puts every value on `left`

    /// x of a value, which need not be in the range.
    double PositionOf(int value) const;
    /// The value nearest to x, inside minimum..maximum; `minimum` for a NaN and on a groove without length.
    int ValueAt(double x) const;
    /// The value that lies `pixels` beside another, for a drag that keeps the distance of pointer and handle.
    int MovedBy(int value, double pixels) const;

    /// Indices of the values nearest to x, in order: more than one where handles stand on the same spot or x is
    /// halfway.
    QVector<int> NearestTo(double x, const QVector<int>& values) const;
};
