// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiCoreLibExport.h"

#include <QString>

#include <functional>

/// The host's file dialogs. GUI thread only.
class HB_HOSTGUICORELIB_EXPORT KMFileDialog
{
public:
    /// Lets the user choose an existing file, and remembers its folder for the next time (KMApplication).
    /// \param filter as QFileDialog takes it, "Images (*.png *.jpg);;All files (*)"
    /// \return the full path; a null string if none was chosen or if the window below died meanwhile
    static QString GetOpenFileName(const QString& title, const QString& folder, const QString& filter);

    using Chooser = std::function<QString(const QString& title, const QString& folder, const QString& filter)>;
    /// For tests and scripts: answers in place of the dialog; null shows the dialog again.
    static void SetChooser(const Chooser& chooser);
};
