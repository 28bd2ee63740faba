// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;

/// A line over the upper edge of the photo that tells of an error or a warning: nothing that stops the user, and
/// the photo stays where it is. It goes when it is closed, when the next one comes, and by itself, but not while
/// the mouse is on it.
class HBMessageBar : public QFrame
{
    Q_OBJECT
public:
    static constexpr int NoteMilliseconds = 12000;
    static constexpr int ErrorMilliseconds = 45000;

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

    QTimer m_Time;
    QLabel* m_pIcon;
    QLabel* m_pText;
};
