// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBAdjustment.h>
#include <HBRecipe.h>

#include <QJsonObject>
#include <QStringList>

/// A step of a recipe, readable.
struct HBStepText
{
    const HBAdjustment* adjustment; ///< never null
    QStringList values;             ///< "input all black: 10", one for each field
    QJsonObject json;               ///< the fields by their keys, as the schema describes them
    QStringList manner;             ///< "amount: 60 %", what is not as it is at first
    QJsonObject mannerJson;         ///< the same; HBRecipeStep::Manner
};

/// The steps of a recipe that HBRecipe::Load has read.
QVector<HBStepText> HBDescribeRecipe(const HBRecipe& recipe);

/// A key of a field as words: "cyanRed.shadows" is "cyan red shadows".
QString HBWordsOf(const QString& key);

/// What two recipes differ in, a line each as diff writes them: "-" only the first has it, "+" only the second, "
/// " the steps around. Empty if they do the same.
QStringList HBDiffRecipes(const HBRecipe& first, const HBRecipe& second);

/// The JSON Schema (2020-12) of recipes. The fields of a panel, with their ranges, stand in "$defs": as they are
/// stored by those without a record, and as "explain --json" prints them of the others.
QJsonObject HBRecipeSchema();
