// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBIterativeBrightnessContrastTransformation.h"

#include <QtMath>

#include <cmath>

namespace
{

constexpr int Limit = 127;

HBChannelTables::Table MakeLine(int brightness, int contrast)
{
    const int shift = qBound(-Limit, brightness, Limit);
    // Not left to tan(): its value at π/4 is only nearly 1, and contrast 0 must change nothing.
    const double slope = contrast == 0 ? 1.0 : std::tan(M_PI_4 * (1.0 + qBound(-Limit, contrast, Limit) / 128.0));
    return HBMakeTable(
        [=](int level) { return qBound(0, int(std::lround(127.5 + slope * (level - 127.5) + shift)), 255); });
}

} // namespace

HBIterativeBrightnessContrastTransformation::HBIterativeBrightnessContrastTransformation(int brightness,
                                                                                         int contrast)
    : HBIterativeAdjustmentTransformation(HBChannelTables(MakeLine(brightness, contrast)))
{
}
