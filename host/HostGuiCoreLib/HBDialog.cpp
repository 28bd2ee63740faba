// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBDialog.h"

#include <QDialog>

int HBDialog::Exec(QDialog* dialog)
{
    // QDialog::exec() guards itself against its own deletion and then returns Rejected, which is 0.
    return dialog->exec();
}
