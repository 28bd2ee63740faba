// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostUtilsLibExport.h"

/// How many pixels of the photo one unit of the document view's scene has.
class HB_HOSTUTILSLIB_EXPORT KMPixelRatioRound
{
public:
    /// What the host has set; else the device pixel ratio of the primary screen, 1.0 without an application or a
    /// screen. GUI thread only.
    static double GetPixelRatio();
    /// For a host whose scene does not count in logical pixels of the screen; 0 takes it back.
    static void SetPixelRatio(double ratio);

    /// The device pixel ratio of the primary screen.
    static double GetScreenRatio();
};
