// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostUtilsLibExport.h"

/// The pictures that are named "theme:<file>".
class HB_HOSTUTILSLIB_EXPORT KMTheme
{
public:
    /// Makes the built-in pictures available under "theme:". Call it once QCoreApplication stands and before a
    /// form is built; calling it again does nothing. Folders that the host put under "theme" before come first.
    static void Install();
};
