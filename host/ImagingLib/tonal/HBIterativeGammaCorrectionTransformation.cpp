// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBIterativeGammaCorrectionTransformation.h"

#include <cmath>

namespace
{

HBChannelTables::Table MakePowerLaw(double gamma)
{
    const double exponent = std::isnan(gamma) ? 1.0 : 1.0 / qBound(0.01, gamma, 5.0);
    return HBMakeTable([=](int level) { return std::lround(255.0 * std::pow(level / 255.0, exponent)); });
}

} // namespace

HBIterativeGammaCorrectionTransformation::HBIterativeGammaCorrectionTransformation(double gamma)
    : HBIterativeAdjustmentTransformation(HBChannelTables(MakePowerLaw(gamma)))
{
}
