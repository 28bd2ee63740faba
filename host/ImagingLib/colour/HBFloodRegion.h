// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBJobControl.h"
#include "HBTileBits.h"

#include <QPoint>

#include <memory>
#include <vector>

/// Pixels of an image, by tile; null for a tile that has none of them.
using HBTileMasks = std::vector<std::unique_ptr<HBTileBits>>;

/// The pixels that can be reached from the seed, side by side, over pixels whose channels are all within the
/// limits. Works on all lanes (HBParallel.h); if it is cancelled, a part of them. Any thread.
/// \param seed a pixel of the image
HBTileMasks HBFloodRegion(const HBImage<>& image, QPoint seed, HBRGBA32i lowest, HBRGBA32i highest,
                          const HBJobControl* control);

/// The smallest rectangle that holds them all; empty if there are none.
QRect HBBounds(const HBTileMasks& masks, const HBImage<>& image);
