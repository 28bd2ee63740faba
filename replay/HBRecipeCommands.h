// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBReplayOptions.h"

// The commands that look at no photo. Each returns the exit code.

int HBListPanels(const HBReplayOptions& options);
int HBExplainRecipe(const HBReplayOptions& options);
int HBValidateRecipes(const HBReplayOptions& options);
int HBShowDifferences(const HBReplayOptions& options);
int HBPrintSchema(const HBReplayOptions& options);
