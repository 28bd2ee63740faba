// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class HBOperationProgressDlg;
class QWidget;

/// The wait of a session for its final image: the wait cursor at once, and a dialog with the job's progress once
/// that takes longer than the application's time-out. GUI thread.
class HBSessionWait : public QObject
{
    Q_OBJECT
public:
    /// \param title of what is waited for
    HBSessionWait(const QString& title, QObject* parent);
    ~HBSessionWait() override;

    /// \param panel whose window is the dialog's parent if the application has set none
    void Begin(QWidget* panel);
    void End();

    // Of the job, also before the wait.
    /// One begins, which tells its own. A dialog that is open shows that of the last one till then.
    void ForgetProgress();
    void SetRange(int minimum, int maximum);
    void SetPosition(int position);
    /// That position in the range, 0 .. 100.
    int PercentAt(int position) const;

Q_SIGNALS:
    /// The user would not wait; it goes on until End.
    void Cancelled();

private:
    void ShowDialog();
    void OnDialogClosed(int result);
    void RestoreCursor();

    const QString m_Title;
    QTimer m_Patience;
    QPointer<QWidget> m_pPanel;
    QPointer<HBOperationProgressDlg> m_pDialog;
    int m_Minimum = 0;
    int m_Maximum = 100;
    int m_Position = 0;
    bool m_HasCursor = false; ///< the override cursor is this one's
};
