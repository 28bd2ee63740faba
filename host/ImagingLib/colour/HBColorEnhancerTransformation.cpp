// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorEnhancerTransformation.h"

#include <QtGlobal>

void HBColorEnhancerTransformation::SetLevels(const HBLevelsTransformation& levels)
{
    m_Levels = levels;
    MakeTables();
}

void HBColorEnhancerTransformation::SetAmountData(int amount)
{
    m_Amount = qBound(0, amount, 100);
    MakeTables();
}

void HBColorEnhancerTransformation::MakeTables()
{
    const auto mixed = [this](const Table& levels) {
        return HBMakeTable([&](int level) {
            return (level * (100 - m_Amount) + levels[std::size_t(level)] * m_Amount + 50) / 100;
        });
    };
    red = mixed(m_Levels.red);
    green = mixed(m_Levels.green);
    blue = mixed(m_Levels.blue);
}
