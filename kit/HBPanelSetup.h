// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBKitExport.h"

class QLocale;
class QThreadPool;
class QWidget;

/// Sets up what all panels need of the program around them: the pictures of their buttons, the scale of picking
/// (a scene's unit is a pixel of the picture), the parent of their dialogs, the pool of their jobs. Once, behind
/// QApplication and before the first panel is made; without it the first HBPanelSession does the same, with no
/// window and the default pool. GUI thread.
/// \param mainWindow may be null, and may be destroyed
/// \param pool where all jobs run. Null: in Qt 5 the global pool, where they wait behind the program's own tasks;
///        in Qt 6 one of the panels. Not owned; it must outlive every session, and all that HBAdjust and
///        HBApplyRecipe do
HB_KIT_EXPORT void HBSetUpPanels(QWidget* mainWindow = nullptr, QThreadPool* pool = nullptr);

/// The panels speak that language from here on, as far as they know it; those that are made already stay as they
/// are. False if they do not: then they speak English. The translations are found beside the libraries or the
/// program. Texts of Qt's own, such as "Cancel", are the program's to translate. GUI thread.
HB_KIT_EXPORT bool HBSetPanelLanguage(const QLocale& language);
