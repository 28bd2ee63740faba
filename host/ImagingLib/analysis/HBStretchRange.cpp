// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStretchRange.h"

#include <algorithm>

std::pair<int, int> HBStretchRange(const unsigned* counts, int lo, int hi, double total)
{
    constexpr int MinimumWidth = 16;
    double sum = 0.0;
    const int last = hi;
    for (int level = lo; level <= last; ++level) {
        sum += counts[level];
        const double share = sum / total; // NaN without pixels, which moves neither end
        if (share < 0.002) {
            lo = level;
        } else if (share >= 0.998) {
            hi = level;
            break;
        }
    }
    if (hi - lo < MinimumWidth) {
        lo = std::max((lo + hi) / 2 - MinimumWidth / 2, 0);
        hi = lo + MinimumWidth;
        if (hi > 255) {
            hi = 255;
            lo = hi - MinimumWidth;
        }
    }
    return {lo, hi};
}
