// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEditorContext.h"

#include <QMainWindow>
#include <QStatusBar>

void HBEditorContext::ShowDone(const QString& text) const
{
    constexpr int milliseconds = 4000;
    window->statusBar()->showMessage(text, milliseconds);
}
