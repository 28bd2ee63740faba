// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBJobControl.h>

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

    void reject() override;

    /// Runs `work` on another thread and returns when it is done. The window is painted meanwhile but takes no
    /// input; the dialog comes if it takes long. `work` must not throw.
    static void Run(const QString& text, QWidget* parent, const std::function<void()>& work);

    static constexpr int Patience = 400; ///< milliseconds until Run() shows the dialog

    /// The same for work that can be cancelled, by a button, and may tell how far it is as 0 .. 1000. False if it
    /// was cancelled.
    /// \param patience milliseconds until the dialog comes; before that the window takes no input
    static bool RunCancellable(const QString& text, QWidget* parent,
                               const std::function<void(HBJobControl*)>& work, int patience = 0);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void AllowCancel(HBJobControl* control);

    QProgressBar* m_pBar;
    QPushButton* m_pCancel = nullptr;
    HBJobControl* m_pControl = nullptr;
};
