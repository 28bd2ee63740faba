// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

/// Lets the program speak the user's language as far as there are translations: ours, just built or installed, and
/// Qt's own. Once, before the first text is shown. Main thread; needs a QCoreApplication.
void HBInstallTranslations();
