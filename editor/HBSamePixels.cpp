// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSamePixels.h"

#include <cstring>

namespace
{

/// A tile at the border reaches beyond the image, with pixels that nobody sees.
bool HaveSamePixels(const KMTileRef& a, const KMTileRef& b, const QSize& seen)
{
    const KMTilePin<HBRGBA32i> pinA(a, false);
    const KMTilePin<HBRGBA32i> pinB(b, false);
    const std::size_t bytes = std::size_t(seen.width()) * sizeof(HBRGBA32i);
    for (int y = 0; y < seen.height(); ++y) {
        if (std::memcmp(pinA.Pixels() + y * HBImage<>::TileSide, pinB.Pixels() + y * HBImage<>::TileSide, bytes) !=
            0)
            return false;
    }
    return true;
}

} // namespace

bool HBHaveSamePixels(const HBImage<>& a, const HBImage<>& b)
{
    if (a.Width() != b.Width() || a.Height() != b.Height() || a.Tiles().size() != b.Tiles().size())
        return false;
    for (int i = 0; i < a.Tiles().size(); ++i) {
        if (a.Tile(i) != b.Tile(i) && !HaveSamePixels(a.Tile(i), b.Tile(i), a.TileRect(i).size()))
            return false;
    }
    return true;
}
