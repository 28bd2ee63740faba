// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiCoreLibExport.h"

class QDialog;

/// The host's way to run a modal dialog.
class HB_HOSTGUICORELIB_EXPORT HBDialog
{
public:
    /// Runs the dialog modally and returns its result, 0 for "cancelled". A dialog that dies while it is open
    /// counts as cancelled. GUI thread only.
    static int Exec(QDialog* dialog);
};
