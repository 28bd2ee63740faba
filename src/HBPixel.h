// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBRGBA32i.h>

/// The alpha of an opacity in percent; clamped to 0..100, truncated: 50 is 127.
inline std::uint8_t HBOpacityAlpha(int percent)
{
    return std::uint8_t(qBound(0, percent, 100) * 255 / 100);
}
