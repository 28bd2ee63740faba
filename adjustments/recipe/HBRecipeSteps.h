// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustment.h"
#include "HBRecipe.h"

// What reading and applying a recipe share.

/// Sets the error that names a step, counted from 1; always false.
/// \param index of the step in the recipe
/// \param panel of the step, as it was read; may be empty
bool HBFailStep(QString* error, int index, const QString& panel, const QString& reason);

/// The step's adjustment and its record; null, with the error set, if there is none.
const HBAdjustment* HBReadStep(const HBRecipeStep& step, int index, std::any* record, QString* error);
