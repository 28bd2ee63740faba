// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentsExport.h"
#include "HBSelectionShape.h"

#include <HBTileWalk.h>

#include <QJsonObject>
#include <QString>
#include <QVector>

#include <functional>

/// One stored adjustment: which one, its values as HBAdjustment::save returned them, where and how much.
struct HB_ADJUSTMENTS_EXPORT HBRecipeStep
{
    static constexpr int MaximumAmount = 100;

    QString panel; ///< class name: HBAdjustment::className
    QJsonObject values;
    bool on = true;   ///< false: it is kept, but not applied
    int amount = 100; ///< per cent of what it does; 0: nothing
    /// Where; none: on the whole photo. What works on all of it (HBAdjustment::IgnoresSelection) has none: one
    /// that is set is not stored, and one in a file is an error.
    HBSelectionShape selection{};

    /// What of "on", "amount" and "selection" is not as it is at first, as a recipe of version 2 stores it.
    QJsonObject Manner() const;

    bool operator==(const HBRecipeStep& other) const;
    bool operator!=(const HBRecipeStep& other) const { return !(*this == other); }
};

/// Adjustments in the order in which they are applied; a readable JSON file:
///
///     { "format": "adjustment-recipe", "version": 1,
///       "steps": [ { "panel": "HBBrightnessContrastWidget", "record": "S01Ccmln…" } ] }
///
/// In version 2 a step may have `"on": false`, `"amount": 60` and a `"selection"`, a list of shapes. It is written
/// only where a step needs it, so that programs that know version 1 read all that they can apply.
///
/// A record is the adjustment's own stored form as base64 (QDataStream version Qt_5_15, big endian). What a
/// written file means never changes: a new meaning takes a new version. Any thread; no application object.
struct HB_ADJUSTMENTS_EXPORT HBRecipe
{
    static constexpr int MaximumSteps = 1000; ///< of a recipe that is read

    QVector<HBRecipeStep> steps;

    /// Reads a recipe and the record of every step. On failure returns false, leaves `recipe` alone and names the
    /// step (counted from 1), its panel and the reason in `error`.
    static bool FromJson(const QByteArray& json, HBRecipe* recipe, QString* error);
    /// \throws std::bad_alloc
    QByteArray ToJson() const;

    /// As FromJson; the error names the file too. Files that steps name, stamps, are looked for from the recipe's
    /// folder first; the steps have their whole paths then.
    static bool Load(const QString& path, HBRecipe* recipe, QString* error);
    /// Writes the file whole or not at all. Names of files that lie in its folder or below begin there, so that
    /// they can be passed on together.
    bool Save(const QString& path, QString* error) const;
};

/// Applies the steps that are on to the whole image, or to what each selects of it, and returns the result: the
/// same bytes as panel after panel gives, but made in as few passes as the steps allow; one on a selection is a
/// pass of its own. The image is returned empty, with `error` set, if a step cannot be applied; with `error`
/// empty, if `progress` gave up. Any thread, which takes part in the work; no application object, unless a step
/// draws a text. Also for steps that were not read by HBRecipe::FromJson. Throws nothing.
/// \param progress told the work done in 1/1000 of the whole, on the calling thread, every few milliseconds; never
///        falls. False gives up. May be null
HB_ADJUSTMENTS_EXPORT HBImage<> HBApplyRecipe(const HBImage<>& image, const HBRecipe& recipe, QString* error,
                                              const std::function<bool(int)>& progress = nullptr);

/// The same to what is selected of a picture: each step is blended by the selection before the next one begins,
/// but for overlays, which are drawn on all of it. Where a step has a selection too, only what both select counts.
/// \param control told the work done as 0 .. 1000; may be null
/// \param photo whose colours the selections by colour look for, of the same size; empty: target.source
HB_ADJUSTMENTS_EXPORT HBImage<> HBApplyRecipe(const HBTarget& target, const HBRecipe& recipe, QString* error,
                                              HBJobControl* control, const HBImage<>& photo = {});
