// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;

/// A line over the photo that tells of an error or a warning: nothing that stops the user, or moves the photo. It
/// goes when it is closed, when the next one comes, and by itself, but not while the mouse is on it.
class HBMessageBar : public QFrame
{
    Q_OBJECT
public:
    static constexpr int NoteMilliseconds = 12000;
    static constexpr int ErrorMilliseconds = 45000;

    explicit HBMessageBar(QWidget* parent = nullptr);

    /// Lies at the upper edge of `area` from here on, as wide as that.
    void SetArea(QWidget* area);

    void ShowError(const QString& text) { ShowText(text, true); }
    void ShowNote(const QString& text) { ShowText(text, false); }
    /// Empty if none is shown.
    QString Text() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Place();
    void ShowText(const QString& text, bool error);

    QTimer m_Time;
    QLabel* m_pIcon;
    QLabel* m_pText;
};
