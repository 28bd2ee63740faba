// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// The integer slider position of a spin box's value: the value × scale, truncated toward zero. The small addend
/// keeps a decimal like 0.29 × 100 on its step; it does so for positive values only, so that a negative one lands
/// one step nearer zero (-0.5 × 10000 is -4999), on purpose.
inline int HBSliderPosition(double value, double scale)
{
    // Far outside any slider's range, and small enough to be an int.
    return int(qBound(-2e9, value * scale + 0.001, 2e9));
}
