// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBIterativePosterizeTransformation.h"

namespace
{

HBChannelTables::Table MakeSteps(int levels)
{
    const int count = qBound(2, levels, 255);
    return HBMakeTable([=](int level) {
        const int bin = level * count / 256;
        return (2 * 255 * bin + count - 1) / (2 * (count - 1));
    });
}

} // namespace

HBIterativePosterizeTransformation::HBIterativePosterizeTransformation(int levels)
    : HBIterativeAdjustmentTransformation(HBChannelTables(MakeSteps(levels)))
{
}
