// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustment.h"

const HBAdjustment* HBFindAdjustment(const QString& className)
{
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        if (className == QLatin1String(adjustment.className))
            return &adjustment;
    }
    return nullptr;
}
