// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

// The transfer function of IEC 61966-2-1 (sRGB), between a stored level 0..255 and a share of full light.

inline double HBDecode(double level) {
    const double value = level / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// Not rounded.
inline double HBEncode(double light) {
    const double bounded = std::clamp(light, 0.0, 1.0);
    return 255.0 * (bounded <= 0.0031308 ? bounded * 12.92 : 1.055 * std::pow(bounded, 1.0 / 2.4) - 0.055);
}
