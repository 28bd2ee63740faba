// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "hostutilslib_export.h"

/// How many device pixels one logical pixel has.
class HOSTUTILSLIB_EXPORT KMPixelRatioRound
{
public:
    /// The device pixel ratio of the primary screen, 1.0 without an application or a screen. GUI thread only.
    static double GetPixelRatio();
};
