// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class HBDocument;
class QListWidget;
class QSlider;
class QSpinBox;

/// The steps of a document, first to last: each can be switched off, moved by drag or Alt+Up and Alt+Down, given
/// an amount, duplicated, deleted, and opened again.
class HBStepList : public QWidget
{
    Q_OBJECT
public:
    explicit HBStepList(HBDocument* document, QWidget* parent = nullptr);

    /// While a panel is open the steps stay as they are. -1: none is open.
    void SetOpened(bool opened, int step);
    int Current() const;
    void SetCurrent(int step);

Q_SIGNALS:
    /// The user wants to change the step's values.
    void OpenAsked(int step);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show();
    void ShowAmount();
    void OnAmount(int amount);
    void Move(int from, int to);
    void ShowMenu(const QPoint& at);
    bool TakeKey(int key, Qt::KeyboardModifiers modifiers);

    HBDocument* m_pDocument;
    QListWidget* m_pList;
    QWidget* m_pAmountRow;
    QSlider* m_pSlider;
    QSpinBox* m_pSpin;
    bool m_Opened = false;
    int m_OpenedStep = -1;
    bool m_Showing = false; ///< what is heard from the controls is no change
};
