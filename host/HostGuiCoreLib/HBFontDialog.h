// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiCoreLibExport.h"

#include <QFontDialog>

/// The host's font dialog: Qt's own one, never the platform's. GUI thread only.
class HB_HOSTGUICORELIB_EXPORT HBFontDialog : public QFontDialog
{
    Q_OBJECT
public:
    /// Sizes the dialog shows; a font beyond them, which may come from anybody's file, is shown at the nearest
    /// end.
    static constexpr double MinimumPoints = 1;
    static constexpr double MaximumPoints = 288;

    HBFontDialog(const QFont& font, QWidget* parent);

    /// The very font that the constructor was given, also with a size that cannot be shown, until the user picks
    /// another one.
    QFont GetSelectedFont() const { return m_Font; }
    /// Runs the dialog modally: 1 if the user accepted, 0 if not or if the dialog, or its parent, died meanwhile.
    int Exec();

protected:
    void done(int result) override;

private:
    QFont m_Font;
    bool m_Done = false;
};
