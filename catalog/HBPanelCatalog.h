// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "catalog_export.h"

#include <HBImage.h>

#include <QJsonObject>
#include <QString>
#include <QVector>

#include <functional>

class HBAdjustmentWidget;
class QWidget;

/// Draws an overlay with fixed values; any thread. If it cannot, the picture comes back as it was, and `error`, which is
/// otherwise empty, says why.
using HBOverlayDrawing = std::function<HBImage<>(const HBImage<>& source, QString* error)>;

/// One panel, as everything that works with all of them knows it: menus, the replayer, the tests of all
/// panels.
struct CATALOG_EXPORT HBPanelEntry
{
    const char* className; ///< its key in recipes: never translated, never changed
    const char* tag;       ///< opens its stored record; null for a panel without one
    const char* group;     ///< untranslated; see Group()
    const char* title;     ///< untranslated; see Title()

    /// A new panel; see HBAdjustmentWidget's constructor. A panel that has no job has no frame either: `dialog` is
    /// without effect there.
    HBAdjustmentWidget* (*create)(bool dialog, QWidget* parent);

    /// The panel's present values as a recipe step stores them: {"record": base64} or
    /// {"values": {name: number}}.
    QJsonObject (*save)(const HBAdjustmentWidget& panel);
    /// Loads what `save` returned, however hostile; false with a reason, and the panel left as it was, if it
    /// is not exactly that. Other keys of `values` are ignored.
    bool (*restore)(HBAdjustmentWidget& panel, const QJsonObject& values, QString* reason);

    /// For a panel that only describes an overlay and has no job: the drawing of its present values, which may run
    /// when they have changed or the panel has gone. Null for a panel with a job.
    HBOverlayDrawing (*draw)(const HBAdjustmentWidget& panel) = nullptr;

    QString Group() const;
    QString Title() const;
};

/// All panels, in the order of the menus.
CATALOG_EXPORT const QVector<HBPanelEntry>& HBPanelCatalog();

/// The panel with that class name; null if there is none.
CATALOG_EXPORT const HBPanelEntry* HBFindPanel(const QString& className);
