// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayTiles.h"

#include <HBParallel.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <vector>

namespace
{

constexpr int Side = 128;
static_assert(Side % HBComposition::Step == 0);
using TilePixels = std::array<QRgb, HBImage<>::TilePixels>;

bool IsTransparent(const TilePixels& layer)
{
    for (size_t row = 0; row < layer.size(); row += Side) {
        QRgb any = 0;
        for (size_t i = row; i < row + Side; ++i)
            any |= layer[i];
        if (qAlpha(any) != 0)
            return false;
    }
    return true;
}

/// The tiles that any area touches, in their order.
QVector<int> TouchedTiles(const HBImage<>& picture, const QVector<QRect>& areas)
{
    std::vector<bool> touched(size_t(picture.Tiles().size()));
    for (const QRect& area : areas) {
        const QRect inside = area & QRect(0, 0, picture.Width(), picture.Height());
        if (inside.isEmpty())
            continue;
        for (int row = inside.top() / Side; row <= inside.bottom() / Side; ++row) {
            for (int column = inside.left() / Side; column <= inside.right() / Side; ++column)
                touched[size_t(row * picture.Columns() + column)] = true;
        }
    }
    QVector<int> tiles;
    for (int i = 0; i < picture.Tiles().size(); ++i) {
        if (touched[size_t(i)])
            tiles.append(i);
    }
    return tiles;
}

/// `layer` is the memory of the lane. What reaches beyond the picture stays transparent there, so that whole rows of the
/// tile can be composed.
void ComposeTile(HBImage<>& result, int index, TilePixels& layer, const HBComposition& composition,
                 const HBOverlayRenderer& render)
{
    const QRect tile = result.TileRect(index);
    layer.fill(0);
    QImage view(reinterpret_cast<uchar*>(layer.data()), tile.width(), tile.height(), Side * int(sizeof(QRgb)),
                QImage::Format_ARGB32);
    render(tile, view);
    if (IsTransparent(layer))
        return;
    result.Detach(index);
    const KMTilePin<QRgb> pin(result.Tile(index), true);
    composition.Run(pin.Pixels(), layer.data(), tile.height() * Side);
}

} // namespace

HBImage<> HBComposeTiles(const HBImage<>& picture, const QVector<QRect>& areas, const HBComposition& composition,
                         const HBOverlayRenderer& render)
{
    HBImage<> result = picture;
    if (picture.IsEmpty() || composition.opacity <= 0)
        return result;
    const QVector<int> tiles = TouchedTiles(picture, areas);
    std::atomic<int> next{0};
    // Lanes replace different entries of one list.
    result.DetachList();
    HBRunLanes(HBLaneCount(tiles.size()), [&] {
        const auto layer = std::make_unique<TilePixels>();
        for (int i; (i = next++) < tiles.size();)
            ComposeTile(result, tiles.at(i), *layer, composition, render);
    });
    return result;
}
