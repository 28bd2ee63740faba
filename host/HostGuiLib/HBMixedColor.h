// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

/// A colour between two opaque ones: `a` with a share of 0, `b` with 1.
inline QColor HBMixedColor(const QColor& a, const QColor& b, double share)
{
    const auto mix = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}
