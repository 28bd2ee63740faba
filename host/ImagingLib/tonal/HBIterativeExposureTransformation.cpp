// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBIterativeExposureTransformation.h"

#include <cmath>

namespace
{

// The transfer function of IEC 61966-2-1 and its inverse; both sides 0..1.
double Decode(double value)
{
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Encode(double light)
{
    return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1.0 / 2.4) - 0.055;
}

double Bounded(double value, double limit)
{
    return std::isnan(value) ? 0.0 : qBound(-limit, value, limit);
}

HBChannelTables::Table MakeExposure(double exposure, double offset)
{
    const double factor = std::exp2(Bounded(exposure, 20.0));
    const double shift = Bounded(offset, 0.5);
    return HBMakeTable([=](int level) {
        const double light = Decode(level / 255.0) * factor + shift;
        return std::lround(255.0 * Encode(qBound(0.0, light, 1.0)));
    });
}

} // namespace

HBIterativeExposureTransformation::HBIterativeExposureTransformation(double exposure, double offset)
    : HBIterativeAdjustmentTransformation(HBChannelTables(MakeExposure(exposure, offset)))
{
}
