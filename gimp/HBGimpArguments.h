// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBAdjustment.h>
#include <HBRecipe.h>

// What scripts give to the procedures as text. On failure: false with a reason in words, and the output left
// alone. Any thread.

/// The values of one adjustment:
///
///     {"brightness": 20, "contrast": -5}     fields by their keys, the others as they are by default
///     {"record": "S01Ccmln…"}                a step as a recipe stores it; it may name its panel
///     4b4d4272…                              the bytes of the record in hexadecimal digits
///     (nothing)                              the defaults
///
/// Numbers out of their range are refused.
bool HBReadStepArgument(const HBAdjustment& adjustment, const QString& text, HBRecipeStep* step, QString* reason);

/// A recipe: its JSON, that of a single step with its panel, or the path of a recipe's file.
bool HBReadRecipeArgument(const QString& text, HBRecipe* recipe, QString* reason);
