// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostUtilsLibExport.h"

#include <QString>

/// Names of files and resources.
class HB_HOSTUTILSLIB_EXPORT KMStringHelper
{
public:
    /// The name of a picture's high-DPI form, "theme:x.png" → "theme:x@2x.png", from a pixel ratio of 1.5 on and
    /// if that file exists; else the name as it is. Qt gives a picture of such a name its own pixel ratio of 2.
    static QString DPIAdjustImageName(const QString& name);
};
