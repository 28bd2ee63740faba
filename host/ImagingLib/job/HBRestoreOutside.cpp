// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRestoreOutside.h"

#include <algorithm>

void HBRestoreOutside(HBImage<>& image, const HBImage<>& source, int index, const QRect& keep)
{
    const QRect tile = image.TileRect(index);
    const QRect kept = keep & tile;
    if (!keep.isValid() || !kept.isValid()) {
        image.ShareTile(index, source.Tile(index));
        return;
    }
    if (kept == tile)
        return;
    image.Detach(index);
    const KMTilePin<HBRGBA32i> to(image.Tile(index), true);
    const KMTilePin<HBRGBA32i> from(source.Tile(index), false);
    constexpr int TileSide = HBImage<>::TileSide;
    auto restore = [&](int y, int first, int end) {
        const int row = y % TileSide * TileSide;
        std::copy(from.Pixels() + row + first, from.Pixels() + row + end, to.Pixels() + row + first);
    };
    for (int y = tile.top(); y <= tile.bottom(); ++y) {
        if (y < kept.top() || y > kept.bottom()) {
            restore(y, 0, tile.width());
        } else {
            restore(y, 0, kept.left() - tile.left());
            restore(y, kept.right() + 1 - tile.left(), tile.width());
        }
    }
}
