// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBTileWalk.h"

/// Fills a region of like colour.
class HB_IMAGINGLIB_EXPORT HBFloodFillHelper
{
public:
    /// Lays the replacement (see HBBlend::HBSourceOver) over the pixels that are like the seed, each channel,
    /// alpha included, within the tolerance's channel of the seed's, and connected to it through such pixels side
    /// by side, not corner to corner (Smith, "Tint fill", SIGGRAPH 1979). Which pixels these are is settled before
    /// the first one changes, so that the replacement may itself be within the tolerance.
    ///
    /// Works on a tile at a time, whatever the size of the picture, and detaches only the tiles that it writes:
    /// none, if the replacement is fully transparent. Any thread may call it.
    /// \param filled if not null, is set to the smallest rectangle that holds the pixels, an empty one if none
    /// \returns whether there were any: false for an empty image or a seed outside it
    /// \throws std::bad_alloc; the image may then be filled in part
    static bool FloodFill(HBImage<>& image, QPoint seed, HBRGBA32i tolerance, HBRGBA32i replacement,
                          QRect* filled = nullptr);

    /// The first half of it: finds the pixels, and returns the function that fills those of one tile, in `image`
    /// or a copy of it; tiles without any stay shared. Null, if there is nothing to fill; anything, if `control`,
    /// which is asked before each tile, says cancelled.
    /// \throws std::bad_alloc
    static HBTileFunction Prepare(const HBImage<>& image, QPoint seed, HBRGBA32i tolerance, HBRGBA32i replacement,
                                  const HBJobControl* control = nullptr, QRect* filled = nullptr);
};
