// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFloodFillHelper.h"

#include "HBParallel.h"
#include "HBTileBits.h"
#include "KMFillTransformation.h"

#include <atomic>
#include <deque>
#include <memory>
#include <vector>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;

/// The pixels to fill, by tile; null for a tile that has none.
using Masks = std::vector<std::unique_ptr<HBTileBits>>;

/// Finds the pixels to fill, a tile at a time. A tile hands what it reached at its borders to its neighbours,
/// which then wait in a queue; it may get its turn again when they hand something back.
class Region
{
public:
    Region(const HBImage<>& image, HBRGBA32i lowest, HBRGBA32i highest)
        : m_Image(image)
        , m_Lowest(lowest)
        , m_Highest(highest)
        , m_Tiles(std::size_t(image.Tiles().size()))
        , m_Masks(m_Tiles.size())
    {
    }

    void GrowFrom(QPoint seed, const HBJobControl* control)
    {
        const int index = seed.y() / TileSide * m_Image.Columns() + seed.x() / TileSide;
        HBTileBits seeds{};
        seeds[std::size_t(seed.y() % TileSide)] = HBBitRow(1) << (seed.x() % TileSide);
        Grow(index, seeds);
        while (!m_Queue.empty() && !HBIsCancelled(control)) {
            const int next = m_Queue.front();
            m_Queue.pop_front();
            Grow(next, TakeSeeds(next));
        }
    }

    Masks TakeMasks() { return std::move(m_Masks); }

    QRect Bounds() const
    {
        QRect bounds;
        for (int index = 0; index < int(m_Tiles.size()); ++index) {
            if (const auto& mask = m_Masks[std::size_t(index)])
                bounds |= HBBounds(*mask).translated(m_Image.TileRect(index).topLeft());
        }
        return bounds;
    }

private:
    /// Seeds that wait: a bit for each pixel of a border.
    struct Tile
    {
        HBBitRow top = 0;
        HBBitRow bottom = 0;
        HBBitRow left = 0;
        HBBitRow right = 0;
        bool queued = false;
    };

    HBTileBits TakeSeeds(int index)
    {
        Tile& tile = m_Tiles[std::size_t(index)];
        const QSize size = m_Image.TileRect(index).size();
        HBTileBits seeds{};
        seeds.front() = tile.top;
        seeds[std::size_t(size.height() - 1)] |= tile.bottom;
        for (int y = 0; y < size.height(); ++y) {
            seeds[std::size_t(y)] |= tile.left >> y & 1;
            seeds[std::size_t(y)] |= (tile.right >> y & 1) << (size.width() - 1);
        }
        tile.top = tile.bottom = tile.left = tile.right = 0;
        tile.queued = false;
        return seeds;
    }

    void Grow(int index, const HBTileBits& seeds)
    {
        const QSize size = m_Image.TileRect(index).size();
        std::unique_ptr<HBTileBits>& mask = m_Masks[std::size_t(index)];
        HBTileBits open;
        {
            const KMTilePin<HBRGBA32i> pin(m_Image.Tile(index), false);
            open = HBMatchTile(pin.Pixels(), m_Lowest, m_Highest, size);
        }
        HBTileBits filled = mask ? *mask : HBTileBits{};
        const HBTileBits before = filled;
        HBSpreadInTile(open, seeds, filled);
        if (filled == before)
            return;
        HandOver(index, size, before, filled);
        if (!mask)
            mask = std::make_unique<HBTileBits>();
        *mask = filled;
    }

    /// Passes what is new at the borders to the neighbours.
    void HandOver(int index, const QSize& size, const HBTileBits& before, const HBTileBits& now)
    {
        const auto fresh = [&](int y) { return now[std::size_t(y)] & ~before[std::size_t(y)]; };
        HBBitRow left = 0;
        HBBitRow right = 0;
        for (int y = 0; y < size.height(); ++y) {
            left |= (fresh(y) & 1) << y;
            right |= (fresh(y) >> (size.width() - 1) & 1) << y;
        }
        const int columns = m_Image.Columns();
        const int column = index % columns;
        if (column > 0)
            Pass(index - 1, &Tile::right, left);
        if (column < columns - 1)
            Pass(index + 1, &Tile::left, right);
        if (index >= columns)
            Pass(index - columns, &Tile::bottom, fresh(0));
        if (index + columns < int(m_Tiles.size()))
            Pass(index + columns, &Tile::top, fresh(size.height() - 1));
    }

    void Pass(int index, HBBitRow Tile::*border, HBBitRow seeds)
    {
        Tile& tile = m_Tiles[std::size_t(index)];
        if (!(seeds & ~Reached(index, border)))
            return; // most often the neighbour had come from there
        tile.*border |= seeds;
        if (!tile.queued)
            m_Queue.push_back(index);
        tile.queued = true;
    }

    /// The pixels of a tile's border that are filled already.
    HBBitRow Reached(int index, HBBitRow Tile::*border) const
    {
        const HBTileBits* mask = m_Masks[std::size_t(index)].get();
        if (!mask)
            return 0;
        const QSize size = m_Image.TileRect(index).size();
        if (border == &Tile::top)
            return mask->front();
        if (border == &Tile::bottom)
            return (*mask)[std::size_t(size.height() - 1)];
        const int x = border == &Tile::left ? 0 : size.width() - 1;
        HBBitRow column = 0;
        for (int y = 0; y < size.height(); ++y)
            column |= ((*mask)[std::size_t(y)] >> x & 1) << y;
        return column;
    }

    const HBImage<>& m_Image;
    const HBRGBA32i m_Lowest;
    const HBRGBA32i m_Highest;
    std::vector<Tile> m_Tiles;
    Masks m_Masks;
    std::deque<int> m_Queue;
};

void FillTile(HBTileAccess& tile, const HBTileBits& mask, const KMFillTransformation& fill)
{
    HBRGBA32i* row = tile.Pixels();
    for (const HBBitRow bits : mask) {
        HBForEachRun(bits, [&](int first, int count) { fill(row + first, count); });
        row += TileSide;
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
    Region region(image, Shifted(like, tolerance, -1), Shifted(like, tolerance, 1));
    region.GrowFrom(seed, control);
    if (filled)
        *filled = region.Bounds();
    if (replacement.alpha == 0)
        return {};
    KMFillTransformation fill;
    fill.SetData(replacement);
    return [masks = std::make_shared<const Masks>(region.TakeMasks()), fill](HBTileAccess& tile) {
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
