// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <functional>

class QProgressBar;
class QPushButton;

/// Keeps the user from acting while something must be brought to its end; it cannot be closed.
class HBBusyDialog : public QDialog
{
    Q_OBJECT
public:
    HBBusyDialog(const QString& text, QWidget* parent);

    /// 0..1000; without it the bar only moves.
    void SetProgress(int value);
    /// Adds a button; the work is to ask for IsCancelled().
    void AllowCancel();
    bool IsCancelled() const { return m_Cancelled; }
    void reject() override;

    /// Runs `work` on another thread and returns when it is done. The window is painted meanwhile but takes no input;
    /// the dialog comes if it takes long. `work` must not throw.
    static void Run(const QString& text, QWidget* parent, const std::function<void()>& work);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QProgressBar* m_pBar;
    QPushButton* m_pCancel = nullptr;
    bool m_Cancelled = false;
};
