// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOperationProgressDlg.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

HBOperationProgressDlg::HBOperationProgressDlg(QWidget* parent)
    : QDialog(parent)
    , m_pLabel(new QLabel(this))
    , m_pProgress(new QProgressBar(this))
{
    setModal(true);
    setWindowTitle(tr("Please wait"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_pLabel);
    layout->addWidget(m_pProgress);
    layout->addWidget(buttons);
    setMinimumWidth(320);
}

void HBOperationProgressDlg::SetLabel(const QString& text)
{
    m_pLabel->setText(text);
}

QString HBOperationProgressDlg::Label() const
{
    return m_pLabel->text();
}

void HBOperationProgressDlg::SetProgressRange(int minimum, int maximum)
{
    m_pProgress->setRange(minimum, maximum);
}

void HBOperationProgressDlg::SetProgressPos(int position)
{
    m_pProgress->setValue(position);
    // Only while it runs: accept() before exec() is forgotten, and the dialog would then never close.
    if (isVisible() && position >= m_pProgress->maximum())
        accept();
}
