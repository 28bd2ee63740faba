// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "hostutilslib_export.h"

/// Lets a program of this tree speak the user's language as far as there are translations: those beside the
/// program, installed or just built, and Qt's own. Once, before the first text is shown; needs a QCoreApplication.
HOSTUTILSLIB_EXPORT void HBInstallTranslations();
