// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMIterativeWBTransformation.h"

#include "HBLightBalance.h"

KMIterativeWBTransformation::KMIterativeWBTransformation(const HBImage<>& image, BalanceFunction function,
                                                         int strength)
{
    if (strength <= 0)
        return;
    auto& tables = static_cast<HBChannelTables&>(*this);
    if (function == AutoBalance) {
        const auto norms = std::make_shared<HBNormsLook>();
        HBLookAt(image, {norms});
        tables = HBCorrectCast(norms->Result(), strength);
    } else if (function == Overexposure || function == Underexposure) {
        const auto average = std::make_shared<HBLogAverageLook>();
        HBLookAt(image, {average});
        tables = HBCorrectLight(average->Result(), function, strength);
    }
}
