// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

class QLabel;

/// A line over the photo that tells of an error or a warning until it is closed or the next one comes: nothing
/// that stops the user.
class HBMessageBar : public QFrame
{
    Q_OBJECT
public:
    explicit HBMessageBar(QWidget* parent = nullptr);

    void ShowError(const QString& text) { ShowText(text, true); }
    void ShowNote(const QString& text) { ShowText(text, false); }
    /// Empty if none is shown.
    QString Text() const;

private:
    void ShowText(const QString& text, bool error);

    QLabel* m_pIcon;
    QLabel* m_pText;
};
