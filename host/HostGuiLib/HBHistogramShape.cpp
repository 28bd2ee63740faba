// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBHistogramShape.h"

#include <algorithm>

namespace
{

std::array<double, 256> Smoothed(const HBHistogramShape::Levels& counts)
{
    std::array<double, 256> smooth;
    for (int level = 0; level < 256; ++level) {
        const double before = double(counts[std::max(level - 1, 0)]);
        const double after = double(counts[std::min(level + 1, 255)]);
        smooth[level] = (before + 2.0 * double(counts[level]) + after) / 4.0;
    }
    return smooth;
}

} // namespace

double HBHistogramShape::Ceiling(const Levels& counts)
{
    std::vector<double> used;
    for (const double count : Smoothed(counts))
        if (count > 0)
            used.push_back(count);
    if (used.empty())
        return 1;
    std::sort(used.begin(), used.end());
    // The height that 96 % of the levels in use stay below; up to ten levels may tower above it.
    const double usual = used[(used.size() - 1) * 96 / 100];
    const double highest = used.back();
    return std::max(1.0, highest <= 3 * usual ? highest : 1.5 * usual);
}

HBHistogramShape HBHistogramShape::Of(const Levels& counts, double ceiling)
{
    HBHistogramShape shape;
    const std::array<double, 256> smooth = Smoothed(counts);
    for (int level = 0; level < 256; ++level) {
        shape.cut[level] = smooth[level] > ceiling;
        shape.heights[level] = std::min(smooth[level] / ceiling, 1.0);
    }
    return shape;
}

std::vector<int> HBHistogramShape::CutPeaks(const Levels& counts) const
{
    std::vector<int> peaks;
    for (int level = 0; level < 256; ++level) {
        if (!cut[level])
            continue;
        if (level == 0 || !cut[level - 1])
            peaks.push_back(level);
        else if (counts[level] > counts[peaks.back()])
            peaks.back() = level;
    }
    return peaks;
}
