// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBChannelTables.h"
#include "HBLevelsTransformation.h"

/// Levels, mixed with the source: each channel goes amount / 100 of the way from what it is to what the levels
/// make of it, rounded. Alpha is kept; the identity until levels and an amount are set, and with amount 0.
class HB_IMAGINGLIB_EXPORT HBColorEnhancerTransformation : public HBChannelTables
{
public:
    void SetLevels(const HBLevelsTransformation& levels);
    /// \param amount percent, 0..100, clamped
    void SetAmountData(int amount);

private:
    void MakeTables();

    HBLevelsTransformation m_Levels;
    int m_Amount = 0;
};
