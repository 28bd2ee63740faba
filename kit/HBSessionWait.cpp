// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSessionWait.h"

#include <HBMdiArea.h>
#include <HBOperationProgressDlg.h>
#include <KMApplication.h>

#include <QApplication>

#include <utility>

HBSessionWait::HBSessionWait(const QString& title, QObject* parent) : QObject(parent), m_Title(title)
{
    m_Patience.setSingleShot(true);
    connect(&m_Patience, &QTimer::timeout, this, &HBSessionWait::ShowDialog);
}

HBSessionWait::~HBSessionWait()
{
    End();
}

void HBSessionWait::Begin(QWidget* panel)
{
    m_pPanel = panel;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_HasCursor = true;
    m_Patience.start(KMApplication::GetProgressTimeout());
}

void HBSessionWait::End()
{
    m_Patience.stop();
    RestoreCursor();
    if (m_pDialog) {
        m_pDialog->disconnect(this);
        m_pDialog->hide();
        m_pDialog->deleteLater();
        m_pDialog = nullptr;
    }
}

void HBSessionWait::ForgetProgress()
{
    m_Minimum = m_Position = 0;
    m_Maximum = 100;
}

void HBSessionWait::SetRange(int minimum, int maximum)
{
    m_Minimum = minimum;
    m_Maximum = maximum;
    if (m_pDialog)
        m_pDialog->SetProgressRange(minimum, maximum);
}

void HBSessionWait::SetPosition(int position)
{
    m_Position = position;
    if (m_pDialog)
        m_pDialog->SetProgressPos(position);
}

int HBSessionWait::PercentAt(int position) const
{
    const int range = m_Maximum - m_Minimum;
    return range > 0 ? int(100LL * (position - m_Minimum) / range) : 100;
}

void HBSessionWait::ShowDialog()
{
    RestoreCursor();
    QWidget* parent = HBMdiArea::MainWindow();
    if (!parent && m_pPanel)
        parent = m_pPanel->window();
    m_pDialog = new HBOperationProgressDlg(parent);
    m_pDialog->SetLabel(m_Title + ':');
    m_pDialog->SetProgressRange(m_Minimum, m_Maximum);
    m_pDialog->SetProgressPos(m_Position);
    connect(m_pDialog, &QDialog::finished, this, &HBSessionWait::OnDialogClosed);
    m_pDialog->show();
}

void HBSessionWait::OnDialogClosed(int result)
{
    m_pDialog->deleteLater();
    m_pDialog = nullptr;
    if (result == QDialog::Accepted)
        m_Patience.start(KMApplication::GetProgressTimeout()); // another job or stage may follow
    else
        Q_EMIT Cancelled();
}

void HBSessionWait::RestoreCursor()
{
    if (std::exchange(m_HasCursor, false))
        QApplication::restoreOverrideCursor();
}
