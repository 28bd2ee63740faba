// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBImageMixing.h"

#include "HBBlend.h"

HBImage<> HBImageMixing::Process(const HBImage<>& below, const HBImage<>& above, int opacity,
                                 const HBImage<>& selection, const QPoint& offset, const QRect& bounds)
{
    return Run({below, selection, offset, bounds}, [&above, opacity](HBTileAccess& tile) {
        const KMTilePin<HBRGBA32i> pin(above.Tile(tile.Index()), false);
        HBRGBA32i* const pixels = tile.Pixels();
        const HBBlend::HBSourceOver over;
        for (int i = 0; i < HBImage<>::TilePixels; ++i)
            over(pin.Pixels()[i], pixels[i], opacity);
    });
}
