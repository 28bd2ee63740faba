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
constexpr int Stride = Side * int(sizeof(QRgb));
using TilePixels = std::array<QRgb, HBImage<>::TilePixels>;

QImage View(QRgb* pixels, const QSize& size, QImage::Format format)
{
    return {reinterpret_cast<uchar*>(pixels), size.width(), size.height(), Stride, format};
}

/// All pixels of the picture in a tile, taken together one by one.
template <class Reduce>
QRgb Reduced(const QRgb* pixels, const QSize& size, QRgb start, Reduce reduce)
{
    for (int y = 0; y < size.height(); ++y) {
        const QRgb* row = pixels + y * Side;
        for (int x = 0; x < size.width(); ++x)
            start = reduce(start, row[x]);
    }
    return start;
}

bool IsOpaque(const QRgb* pixels, const QSize& size)
{
    return qAlpha(Reduced(pixels, size, ~0u, [](QRgb a, QRgb b) { return a & b; })) == 255;
}

bool IsTransparent(const QRgb* layer, const QSize& size)
{
    return Reduced(layer, size, 0u, [](QRgb a, QRgb b) { return a | b; }) == 0;
}

void Compose(QRgb* pixels, const QImage& layer, QImage::Format format, const HBComposition& composition)
{
    QImage view = View(pixels, layer.size(), format);
    QPainter painter(&view);
    painter.setCompositionMode(composition.mode);
    painter.setOpacity(composition.opacity);
    painter.drawImage(0, 0, layer);
}

/// A tile with translucent pixels. QPainter takes them through premultiplied ones, which loses bits, also where nothing
/// is drawn: those are put back.
void ComposeTranslucent(QRgb* pixels, const QRgb* layerPixels, const QImage& layer,
                        const HBComposition& composition)
{
    const auto before = std::make_unique<TilePixels>();
    std::copy_n(pixels, before->size(), before->begin());
    Compose(pixels, layer, QImage::Format_ARGB32, composition);
    for (int y = 0; y < layer.height(); ++y) {
        for (int i = y * Side; i < y * Side + layer.width(); ++i) {
            if (layerPixels[i] == 0)
                pixels[i] = (*before)[size_t(i)];
        }
    }
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

void ComposeTile(HBImage<>& result, int index, TilePixels& layerPixels, const HBComposition& composition,
                 const HBOverlayRenderer& render)
{
    const QRect tile = result.TileRect(index);
    layerPixels.fill(0);
    QImage layer = View(layerPixels.data(), tile.size(), QImage::Format_ARGB32_Premultiplied);
    if (!render(tile, layer) || IsTransparent(layerPixels.data(), tile.size()))
        return;
    result.Detach(index);
    const KMTilePin<QRgb> pin(result.Tile(index), true);
    // Opaque pixels are the same premultiplied and not, and stay opaque in every mode.
    if (IsOpaque(pin.Pixels(), tile.size()))
        Compose(pin.Pixels(), layer, QImage::Format_ARGB32_Premultiplied, composition);
    else
        ComposeTranslucent(pin.Pixels(), layerPixels.data(), layer, composition);
}

} // namespace

HBComposition HBComposition::Of(unsigned mode, int percent)
{
    HBComposition composition;
    if (mode >= QPainter::CompositionMode_Plus && mode <= QPainter::CompositionMode_Exclusion)
        composition.mode = QPainter::CompositionMode(mode);
    composition.opacity = qBound(0, percent, 100) / 100.0;
    return composition;
}

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
