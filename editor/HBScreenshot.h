// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

class HBEditorWindow;

/// What --screenshot takes a picture of.
struct HBScreenshotOptions
{
    QString file;  ///< a PNG
    QString panel; ///< class name; empty: none, or that of the recipe's first step
    QString recipe;
    QSize size = QSize(1200, 800); ///< of the window, without its frame
    QString applied;               ///< a recipe, whose steps the photo has before the panel is opened
    QStringList presets;           ///< of the panel: recipes
};

/// Shows the window with the panel open, waits for the panel's result and writes the picture. False, with the
/// reason on standard error, if that fails.
bool HBTakeScreenshot(HBEditorWindow* window, const HBScreenshotOptions& options);
