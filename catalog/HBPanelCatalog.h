// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBCatalogExport.h"

#include <HBAdjustment.h>

#include <functional>

class HBAdjustmentWidget;
class QWidget;

/// Draws an overlay with fixed values; any thread. If it cannot, the picture comes back as it was, and `error`,
/// which is otherwise empty, says why.
using HBOverlayDrawing = std::function<HBImage<>(const HBImage<>& source, QString* error)>;

/// One panel, as menus and the tests of all panels know it: its adjustment, and what makes it a widget.
struct HB_CATALOG_EXPORT HBPanelEntry
{
    const HBAdjustment* adjustment;
    // As in the adjustment.
    const char* className;
    const char* tag;
    const char* group;
    const char* title;

    /// A new panel; see HBAdjustmentWidget's constructor. A panel that has no job has no frame either: `dialog` is
    /// without effect there.
    HBAdjustmentWidget* (*create)(bool dialog, QWidget* parent);

    /// The panel's present record.
    std::any (*get)(const HBAdjustmentWidget& panel);
    /// Shows a record, which must be of the adjustment's type.
    void (*set)(HBAdjustmentWidget& panel, const std::any& record);

    /// For a panel that only describes an overlay and has no job: the drawing of its present values, which may run
    /// when they have changed or the panel has gone. Null for a panel with a job.
    HBOverlayDrawing (*draw)(const HBAdjustmentWidget& panel);

    /// The panel's present values as a recipe step stores them; see HBAdjustment::save.
    QJsonObject save(const HBAdjustmentWidget& panel) const { return adjustment->save(get(panel)); }
    /// Loads what `save` returned, however hostile; false with a reason, and the panel left as it was, if it
    /// is not exactly that.
    bool restore(HBAdjustmentWidget& panel, const QJsonObject& values, QString* reason) const;

    QString Group() const { return adjustment->Group(); }
    QString Title() const { return adjustment->Title(); }
};

/// Our panels, in the order of the menus.
HB_CATALOG_EXPORT const QVector<HBPanelEntry>& HBPanelCatalog();

/// Adds a panel of the program's own, and its adjustment: recipes may name it from here on. False, with nothing
/// added, if the class name is taken. HBPanelRow makes the row. GUI thread.
HB_CATALOG_EXPORT bool HBRegisterPanel(const HBPanelEntry& entry);

/// Our panels and then the registered ones. A row stays where it is for the rest of the program. GUI thread.
HB_CATALOG_EXPORT QVector<const HBPanelEntry*> HBAllPanels();

/// The panel with that class name, ours or registered; null if there is none. GUI thread.
HB_CATALOG_EXPORT const HBPanelEntry* HBFindPanel(const QString& className);
