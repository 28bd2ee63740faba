// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiLibExport.h"

class QWidget;

/// Access to the host's main window, the parent of its modal dialogs. GUI thread only.
class HB_HOSTGUILIB_EXPORT HBMdiArea
{
public:
    /// Null if the host has none, or none any more.
    static QWidget* MainWindow();
    static void SetMainWindow(QWidget* window);
};
