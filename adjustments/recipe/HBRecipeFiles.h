// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBRecipe.h"

// The files that a recipe's steps name (HBFieldInfo::isFile), seen from the folder that the recipe lies in: both
// can be moved or passed on together.

/// For a recipe that is written to the folder: files at it or below it get names that begin there.
HBRecipe HBWithNamesFrom(const HBRecipe& recipe, const QString& folder);
/// For a recipe that was read from the folder: a name that does not begin at a root counts from there, if there is
/// such a file; else it is left, and counts from the process's folder.
HBRecipe HBWithFilesOf(const HBRecipe& recipe, const QString& folder);
