// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBChannelTables.h"

/// Tints each colour by itself: channel level p becomes the colour p / 255 of the way from the black tone's
/// channel to the white tone's, and is mixed with what it was by amount / 100 (blend mode "normal" of W3C
/// Compositing and Blending 1). Alpha is kept, that of the tones plays no part; amount 0 is the exact identity.
class HB_IMAGINGLIB_EXPORT HBTintRGB32 : public HBChannelTables
{
public:
    /// \param amount percent, 0..100, clamped
    HBTintRGB32(const HBRGBA32i& black, const HBRGBA32i& white, int amount);
};
