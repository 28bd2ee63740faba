// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "catalog_export.h"

#include <HBImage.h>

#include <QJsonObject>
#include <QString>
#include <QVector>

#include <functional>

/// One stored adjustment: which panel, and its values as HBPanelEntry::save returned them.
struct HBRecipeStep
{
    QString panel;
    QJsonObject values;
};

/// Adjustments in the order in which they are applied; a readable JSON file:
///
///     { "format": "adjustment-recipe", "version": 1,
///       "steps": [ { "panel": "HBBrightnessContrastWidget", "record": "S01Ccmln…" } ] }
///
/// A record is the panel's own stored form as base64 (QDataStream version Qt_5_15, big endian). What a
/// written file means never changes: a new meaning takes a new version.
struct CATALOG_EXPORT HBRecipe
{
    QVector<HBRecipeStep> steps;

    /// Reads a recipe and tries every step on its panel. On failure returns false, leaves `recipe` alone and
    /// names the step (counted from 1), its panel and the reason in `error`. GUI thread, needs a
    /// QApplication.
    static bool FromJson(const QByteArray& json, HBRecipe* recipe, QString* error);
    QByteArray ToJson() const;

    /// As FromJson; the error names the file too.
    static bool Load(const QString& path, HBRecipe* recipe, QString* error);
    /// Writes the file whole or not at all.
    bool Save(const QString& path, QString* error) const;
};

/// Applies the steps to the whole image, one panel's job after the other, without showing anything, and
/// returns the result: the same bytes as a panel that the user works with gives. An overlay, whose panel
/// has no job of its own, is drawn. GUI thread; runs an event loop meanwhile. The image is
/// returned empty, with `error` set, if a step cannot be applied; with `error` empty, if `progress` gave up.
/// \param progress told the work done in 1/1000 of the whole; false gives up. May be null
CATALOG_EXPORT HBImage<> HBApplyRecipe(const HBImage<>& image, const HBRecipe& recipe, QString* error,
                                       const std::function<bool(int)>& progress = nullptr);
