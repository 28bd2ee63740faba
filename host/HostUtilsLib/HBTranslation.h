// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostUtilsLibExport.h"

#include <QStringList>

class QLocale;

/// Our texts in that language from here on; what is shown already stays. Translations are looked for beside the
/// program and where they were installed with this library. False if there are none for that language; the texts
/// are English then. Main thread; needs a QCoreApplication.
/// \param first folders to look in before those
HB_HOSTUTILSLIB_EXPORT bool HBTranslatePanels(const QLocale& language, const QStringList& first = {});
