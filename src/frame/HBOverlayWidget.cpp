// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayWidget.h"

#include "HBBlendingModes.h"

unsigned HBOverlayWidget::BlendingIndexToMode(int index) const
{
    return HBBlendingIndexToMode(index);
}

int HBOverlayWidget::BlendingModeToIndex(unsigned mode) const
{
    return HBBlendingModeToIndex(mode);
}

void HBOverlayWidget::FillBlendingModes(QComboBox* combo)
{
    HBFillBlendingModes(combo);
}
