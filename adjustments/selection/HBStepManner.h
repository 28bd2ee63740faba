// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSelectionShape.h"
#include "HBStage.h"

// Where and how much a step acts.

/// Whether all stages can be one, which looks at the picture before it if at all.
bool HBCanBecomeOne(const HBStages& stages);
/// All of them as one, of which the amount remains, in per cent.
HBStage HBAmountOf(HBStages&& stages, int amount);

/// Leaves so many per cent of what an outcome has changed, if it is whole, rounded to nearest in each channel;
/// shared tiles stay shared, and those that nobody else holds are changed where they are. Throws nothing.
HB_ADJUSTMENTS_EXPORT HBOutcome HBBlendAmount(const HBImage<>& before, int amount, HBOutcome after,
                                              HBJobControl* control);

/// The target with only that selected of what is selected in it. Covers nothing rather than be "no selection".
/// \param photo whose colours count \throws std::bad_alloc
HB_ADJUSTMENTS_EXPORT HBTarget HBSelectIn(const HBTarget& target, const HBSelectionShape& selection,
                                          const HBImage<>& photo, const HBJobControl* control);
