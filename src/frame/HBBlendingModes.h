// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

class QComboBox;

// The blending modes of the overlays, in the order of their list. A mode is stored as its number, which is that of
// QPainter::CompositionMode and never changes.

/// The mode of a row; 0, "Normal", for a row that does not exist.
unsigned HBBlendingIndexToMode(int index);
/// The row of a mode; 0, "Normal", for a mode that is not in the list.
int HBBlendingModeToIndex(unsigned mode);
/// Fills the list, in place of what it held.
void HBFillBlendingModes(QComboBox* combo);
