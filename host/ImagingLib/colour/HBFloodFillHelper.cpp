// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFloodFillHelper.h"

#include "HBFloodRegion.h"
#include "HBParallel.h"
#include "KMFillTransformation.h"

#include <atomic>
#include <memory>
#include <utility>

namespace
{

void FillTile(HBTileAccess& tile, const HBTileBits& mask, const KMFillTransformation& fill)
{
    HBRGBA32i* row = tile.Pixels();
    for (const HBBitRow bits : mask) {
        HBForEachRun(bits, [&](int first, int count) { fill(row + first, count); });
        row += HBImage<>::TileSide;
    }
}

bool HasPixel(const HBImage<>& image, QPoint at)
{
    return !image.IsEmpty() && QRect(0, 0, image.Width(), image.Height()).contains(at);
}

HBRGBA32i Shifted(HBRGBA32i pixel, HBRGBA32i by, int sign)
{
    const auto level = [=](int value, int distance) {
        return std::uint8_t(qBound(0, value + sign * distance, 255));
    };
    return {level(pixel.red, by.red), level(pixel.green, by.green), level(pixel.blue, by.blue),
            level(pixel.alpha, by.alpha)};
}

} // namespace

HBTileFunction HBFloodFillHelper::Prepare(const HBImage<>& image, QPoint seed, HBRGBA32i tolerance,
                                          HBRGBA32i replacement, const HBJobControl* control, QRect* filled)
{
    if (filled)
        *filled = QRect();
    if (!HasPixel(image, seed) || (replacement.alpha == 0 && !filled))
        return {};
    const HBRGBA32i like = image.PixelAt(seed.x(), seed.y());
    HBTileMasks region =
        HBFloodRegion(image, seed, Shifted(like, tolerance, -1), Shifted(like, tolerance, 1), control);
    if (filled)
        *filled = HBBounds(region, image);
    if (replacement.alpha == 0)
        return {};
    KMFillTransformation fill;
    fill.SetData(replacement);
    return [masks = std::make_shared<const HBTileMasks>(std::move(region)), fill](HBTileAccess& tile) {
        if (const auto& mask = (*masks)[std::size_t(tile.Index())])
            FillTile(tile, *mask, fill);
    };
}

bool HBFloodFillHelper::FloodFill(HBImage<>& image, QPoint seed, HBRGBA32i tolerance, HBRGBA32i replacement,
                                  QRect* filled)
{
    const HBTileFunction fill = Prepare(image, seed, tolerance, replacement, nullptr, filled);
    if (!fill)
        return HasPixel(image, seed);
    image.DetachList();
    const int tiles = image.Tiles().size();
    std::atomic<int> next{0};
    HBRunLanes(HBLaneCount(tiles), [&] {
        for (int index; (index = next.fetch_add(1)) < tiles;) {
            HBTileAccess tile(image, index);
            fill(tile);
        }
    });
    return true;
}
