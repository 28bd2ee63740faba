// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiLibExport.h"

#include <QDialog>

class QLabel;
class QProgressBar;

/// Modal progress of an operation that the user may cancel: result 0 by Cancel, Escape or closing, 1 when the
/// position reaches the maximum while the dialog runs. The values set before it runs close nothing.
class HB_HOSTGUILIB_EXPORT HBOperationProgressDlg : public QDialog
{
    Q_OBJECT
public:
    explicit HBOperationProgressDlg(QWidget* parent = nullptr);

    void SetLabel(const QString& text);
    QString Label() const;

public Q_SLOTS:
    void SetProgressRange(int minimum, int maximum);
    void SetProgressPos(int position);

private:
    QLabel* m_pLabel;
    QProgressBar* m_pProgress;
};
