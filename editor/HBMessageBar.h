// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

class QLabel;

/// A line over the upper edge of the photo that tells of an error or a warning until it is closed or the next one
/// comes: nothing that stops the user, and the photo stays where it is.
class HBMessageBar : public QFrame
{
    Q_OBJECT
public:
    explicit HBMessageBar(QWidget* parent = nullptr);
    /// Where it lies: along the upper edge of that widget.
    void LieOver(QWidget* area);

    void ShowError(const QString& text) { ShowText(text, true); }
    void ShowNote(const QString& text) { ShowText(text, false); }
    /// Empty if none is shown.
    QString Text() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowText(const QString& text, bool error);
    void Place();

    QLabel* m_pIcon;
    QLabel* m_pText;
};
