// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

/// The editor's icons, drawn in the window's own text colour and sharp at any size.
enum class HBEditorIcon {
    Open,
    Save,
    Undo,
    Redo,
    Hand,
    Rectangle,
    Ellipse,
    Lasso,
    Gradient,
    Color,
    Move,
    NewSelection,
    Add,
    Subtract,
    Intersect,
    Split,
    Before,
    Fit,
    Actual
};

QIcon HBMakeIcon(HBEditorIcon icon);
