// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// Why an adjustment cannot be made, or its values not be read: HBAdjustmentReason::tr("...").
struct HBAdjustmentReason
{
    Q_DECLARE_TR_FUNCTIONS(HBAdjustment)
};
