// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QMenuBar;

/// All keys of the menus, read from them, and what the mouse does on the photo and on controls.
class HBShortcutSheet : public QDialog
{
    Q_OBJECT
public:
    explicit HBShortcutSheet(const QMenuBar* menus, QWidget* parent = nullptr);
};
