// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBRGBA32i.h>

/// The colour with an opacity for its alpha; its own alpha counts for nothing.
/// \param percent 0..100; truncated: 50 is 127
inline HBRGBA32i HBWithOpacity(const QColor& color, int percent)
{
    HBRGBA32i pixel = HBRGBA32i::FromRgba(color.rgb());
    pixel.alpha = std::uint8_t(percent * 255 / 100);
    return pixel;
}
