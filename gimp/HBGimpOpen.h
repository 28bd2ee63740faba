// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBGimpCall.h"

#include <HBAdjustment.h>

// With the user. GUI thread, which is that of main(); a reason is set if the answer is Failed.

/// The dialog of one adjustment, and what OK says on GIMP's image. \throws std::bad_alloc
HBGimpAnswer HBOpenAdjustment(const HBGimpCall& call, const HBAdjustment& adjustment, QStringList* notes,
                              QString* reason);

/// The file of a recipe; empty if the user gave up.
QString HBAskForRecipe();

/// Before the first window: colors as GIMP's, and the style of our editor.
void HBUseGimpColors();
