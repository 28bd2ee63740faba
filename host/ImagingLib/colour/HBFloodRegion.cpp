// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFloodRegion.h"

#include "HBParallel.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;

/// The outermost pixels of a tile, a bit for each.
struct Borders
{
    HBBitRow top = 0;
    HBBitRow bottom = 0;
    HBBitRow left = 0;
    HBBitRow right = 0;
};
constexpr HBBitRow Borders::*AllBorders[] = {&Borders::top, &Borders::bottom, &Borders::left, &Borders::right};

Borders BordersOf(const HBTileBits& bits, const QSize& size)
{
    Borders borders;
    borders.top = bits.front();
    borders.bottom = bits[std::size_t(size.height() - 1)];
    for (int y = 0; y < size.height(); ++y) {
        borders.left |= (bits[std::size_t(y)] & 1) << y;
        borders.right |= (bits[std::size_t(y)] >> (size.width() - 1) & 1) << y;
    }
    return borders;
}

HBTileBits BitsOf(const Borders& borders, const QSize& size)
{
    HBTileBits bits{};
    bits.front() = borders.top;
    bits[std::size_t(size.height() - 1)] |= borders.bottom;
    for (int y = 0; y < size.height(); ++y)
        bits[std::size_t(y)] |= (borders.left >> y & 1) | (borders.right >> y & 1) << (size.width() - 1);
    return bits;
}

/// Finds the pixels to fill, a tile at a time, on all lanes. A tile hands what it reached at its borders to its
/// neighbours, which then wait in a queue; it may get its turn again when they hand something back. What is found
/// does not depend on the order.
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
        HandOver(index, Grow(index, seeds));
        if (m_Queue.empty())
            return;
        HBRunLanes(HBLaneCount(int(m_Tiles.size())), [&] {
            try {
                TakeTurns(control);
            } catch (...) {
                const std::lock_guard<std::mutex> lock(m_Mutex);
                m_Ended = true; // or the others would wait for this one
                m_Changed.notify_all();
                throw;
            }
        });
    }

    HBTileMasks TakeMasks() { return std::move(m_Masks); }

private:
    struct Tile
    {
        Borders seeds;   ///< that wait
        Borders reached; ///< that are filled
        bool queued = false;
        bool atWork = false; ///< its mask is a lane's own meanwhile
    };

    void TakeTurns(const HBJobControl* control)
    {
        std::unique_lock<std::mutex> lock(m_Mutex);
        for (;;) {
            m_Changed.wait(lock, [this] { return m_Ended || !m_Queue.empty() || m_AtWork == 0; });
            if (m_Ended || m_Queue.empty())
                return;
            const int index = m_Queue.front();
            m_Queue.pop_front();
            Tile& tile = m_Tiles[std::size_t(index)];
            const Borders seeds = std::exchange(tile.seeds, {});
            tile.queued = false;
            tile.atWork = true;
            ++m_AtWork;
            lock.unlock();
            const Borders reached = Grow(index, BitsOf(seeds, m_Image.TileRect(index).size()));
            const bool cancelled = HBIsCancelled(control);
            lock.lock();
            m_Ended = m_Ended || cancelled;
            tile.atWork = false;
            --m_AtWork;
            HandOver(index, reached);
            // This lane takes one of them.
            if (m_Queue.size() > 1 || m_AtWork == 0 || m_Ended)
                m_Changed.notify_all();
        }
    }

    /// Fills what can be reached in the tile. \return its borders
    Borders Grow(int index, const HBTileBits& seeds)
    {
        const QSize size = m_Image.TileRect(index).size();
        std::unique_ptr<HBTileBits>& mask = m_Masks[std::size_t(index)];
        HBTileBits open;
        {
            const KMTilePin<HBRGBA32i> pin(m_Image.Tile(index), false);
            open = HBMatchTile(pin.Pixels(), m_Lowest, m_Highest, size);
        }
        HBTileBits filled = mask ? *mask : HBTileBits{};
        HBSpreadInTile(open, seeds, filled);
        if (mask)
            *mask = filled;
        else if (filled != HBTileBits{})
            mask = std::make_unique<HBTileBits>(filled);
        return BordersOf(filled, size);
    }

    /// Passes what is new at the borders to the neighbours.
    void HandOver(int index, const Borders& now)
    {
        Tile& tile = m_Tiles[std::size_t(index)];
        Borders fresh;
        for (const auto border : AllBorders)
            fresh.*border = now.*border & ~(tile.reached.*border);
        tile.reached = now;
        const int columns = m_Image.Columns();
        const int column = index % columns;
        if (column > 0)
            Pass(index - 1, &Borders::right, fresh.left);
        if (column < columns - 1)
            Pass(index + 1, &Borders::left, fresh.right);
        if (index >= columns)
            Pass(index - columns, &Borders::bottom, fresh.top);
        if (index + columns < int(m_Tiles.size()))
            Pass(index + columns, &Borders::top, fresh.bottom);
        // What came while it was at work, most often from where it had gone meanwhile.
        bool more = false;
        for (const auto border : AllBorders)
            more = (tile.seeds.*border &= ~(now.*border)) || more;
        if (more)
            Queue(index);
    }

    void Pass(int index, HBBitRow Borders::*border, HBBitRow seeds)
    {
        Tile& tile = m_Tiles[std::size_t(index)];
        seeds &= ~(tile.reached.*border);
        if (!seeds)
            return; // most often the neighbour had come from there
        tile.seeds.*border |= seeds;
        if (!tile.atWork)
            Queue(index);
    }

    void Queue(int index)
    {
        Tile& tile = m_Tiles[std::size_t(index)];
        if (!tile.queued)
            m_Queue.push_back(index);
        tile.queued = true;
    }

    const HBImage<>& m_Image;
    const HBRGBA32i m_Lowest;
    const HBRGBA32i m_Highest;
    std::mutex m_Mutex; ///< of all below but the masks of tiles at work
    std::condition_variable m_Changed;
    std::vector<Tile> m_Tiles;
    HBTileMasks m_Masks;
    std::deque<int> m_Queue;
    int m_AtWork = 0;
    bool m_Ended = false; ///< nobody wants it any more, or a lane has failed
};

} // namespace

HBTileMasks HBFloodRegion(const HBImage<>& image, QPoint seed, HBRGBA32i lowest, HBRGBA32i highest,
                          const HBJobControl* control)
{
    Region region(image, lowest, highest);
    region.GrowFrom(seed, control);
    return region.TakeMasks();
}

QRect HBBounds(const HBTileMasks& masks, const HBImage<>& image)
{
    QRect bounds;
    for (std::size_t index = 0; index < masks.size(); ++index) {
        if (masks[index])
            bounds |= HBBounds(*masks[index]).translated(image.TileRect(int(index)).topLeft());
    }
    return bounds;
}
