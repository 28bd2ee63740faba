// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "catalog_export.h"

#include <QJsonObject>
#include <QString>
#include <QVector>

class HBAdjustmentWidget;
class QWidget;

/// One panel, as everything that works with all of them knows it: menus, the replayer, the tests of all
/// panels.
struct CATALOG_EXPORT HBPanelEntry
{
    const char* className; ///< its key in recipes: never translated, never changed
    const char* tag;       ///< opens its stored record; null for a panel without one
    const char* group;     ///< untranslated; see Group()
    const char* title;     ///< untranslated; see Title()

    /// A new panel; see HBAdjustmentWidget's constructor.
    HBAdjustmentWidget* (*create)(bool dialog, QWidget* parent);

    /// The panel's present values as a recipe step stores them: {"record": base64} or
    /// {"values": {name: number}}.
    QJsonObject (*save)(const HBAdjustmentWidget& panel);
    /// Loads what `save` returned, however hostile; false with a reason, and the panel left as it was, if it
    /// is not exactly that. Other keys of `values` are ignored.
    bool (*restore)(HBAdjustmentWidget& panel, const QJsonObject& values, QString* reason);

    QString Group() const;
    QString Title() const;
};

/// All panels, in the order of the menus.
CATALOG_EXPORT const QVector<HBPanelEntry>& HBPanelCatalog();

/// The panel with that class name; null if there is none.
CATALOG_EXPORT const HBPanelEntry* HBFindPanel(const QString& className);
