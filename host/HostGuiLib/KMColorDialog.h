// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiLibExport.h"

#include <QColorDialog>

/// The host's colour dialog: Qt's own one, never the platform's, so that it looks and reports the same everywhere.
/// GUI thread only.
class HB_HOSTGUILIB_EXPORT KMColorDialog : public QColorDialog
{
    Q_OBJECT
public:
    explicit KMColorDialog(QWidget* parent = nullptr);

    /// Emits nothing.
    void SetColor(const QColor& color);
    /// The very colour that SetColor was given, in its own colour model and at its full depth, until the user
    /// picks another one. The dialog itself knows 8 bits per channel.
    QColor GetColor() const { return m_Color; }
    /// Runs the dialog modally: 1 if the user accepted, 0 if not or if the dialog, or its parent, died meanwhile.
    int Exec();

Q_SIGNALS:
    /// The user picks; also while the mouse moves.
    void ColorChanged(const QColor& color);

private:
    QColor m_Color;
    bool m_Setting = false;
};
