// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostUtilsLibExport.h"

class QLocale;

/// Lets a program of this tree speak the user's language as far as there are translations: ours and Qt's own.
/// Once, before the first text is shown; needs a QCoreApplication.
HB_HOSTUTILSLIB_EXPORT void HBInstallTranslations();

/// Our texts in that language from here on; what is shown already stays. Translations are looked for beside the
/// program, just built or installed, and where they were installed with this library. False if there are none
/// for that language; the texts are English then. Main thread; needs a QCoreApplication.
HB_HOSTUTILSLIB_EXPORT bool HBTranslatePanels(const QLocale& language);
