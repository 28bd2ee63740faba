// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// What is wrong with a recipe: HBRecipeReason::tr("...").
struct HBRecipeReason
{
    Q_DECLARE_TR_FUNCTIONS(HBRecipe)
};
