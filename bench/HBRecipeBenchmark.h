// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBBenchmarkSummary.h"

#include <HBImage.h>

#include <string>

/// The name of the benchmark of a panel's demonstration as a recipe.
std::string HBRecipeBenchmarkOf(const std::string& className);

/// Registers the demonstration of a panel as a recipe of one step, without the panel.
/// \return the benchmark's name
std::string HBRegisterRecipe(const std::string& className, const HBImage<>& (*photo)());

/// Registers recipes of one and of five steps, with the demonstrations' settings, and picture correction in its
/// advanced mode, all without a panel.
void HBRegisterRecipes(const HBImage<>& (*photo)());

/// Prints what several steps in one pass cost, and whether the aims are reached.
/// \return whether they are
bool HBPrintRecipes(const HBMedianReporter& reporter, const std::string& copy);
