// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTileWalk.h"

#include "HBBlend.h"
#include "HBParallel.h"
#include "HBRestoreOutside.h"
#include "HBSelectionArea.h"
#include "HBSelectionBlender.h"

#include <algorithm>
#include <atomic>
#include <mutex>

namespace
{

// For less, machines with fast short copies read the memory that they fill; more would leave the nearest cache.
constexpr int CopyPixels = 1024;
// As many lines as a core waits for at a time, roughly: what is asked for beyond them keeps the work waiting.
constexpr int FetchPixels = 256;

/// Has the memory bring pixels that are read next, while others are worked on.
void Fetch(const HBRGBA32i* pixels)
{
    for (int i = 0; i < FetchPixels; i += 64 / int(sizeof(HBRGBA32i)))
        __builtin_prefetch(pixels + i);
}

/// Pieces of work (tiles or rows), handed out in order to whichever lane asks, and counted as they are done.
class Claims
{
public:
    /// \param progressBase progress value before the first piece is done
    Claims(HBJobControl* control, int count, int progressBase)
        : m_pControl(control)
        , m_Count(count)
        , m_Done(progressBase)
    {
    }

    /// The next piece, or -1 if there is none or the result is no longer wanted.
    int Next()
    {
        if (HBIsCancelled(m_pControl))
            m_Cancelled = true;
        if (m_Cancelled || m_Failed)
            return -1;
        const int piece = m_Next.fetch_add(1);
        return piece < m_Count ? piece : -1;
    }
    void Done()
    {
        if (!m_pControl)
            return;
        // One lane at a time, so that the values that reach the receiver never go backwards.
        const std::lock_guard<std::mutex> lock(m_ProgressMutex);
        m_pControl->SetProgress(++m_Done);
    }
    void Fail() { m_Failed = true; }
    bool IsCancelled() const { return m_Cancelled; }

private:
    HBJobControl* m_pControl;
    const int m_Count;
    std::atomic<int> m_Next{0};
    std::atomic<bool> m_Cancelled{false};
    std::atomic<bool> m_Failed{false};
    std::mutex m_ProgressMutex;
    int m_Done;
};

/// Runs `lane` on as many lanes as `pieces` are worth; keeps the first exception of the work in the outcome.
void Spread(int pieces, Claims& claims, HBOutcome& outcome, const std::function<void()>& lane)
{
    try {
        HBRunLanes(HBLaneCount(pieces), [&] {
            try {
                lane();
            } catch (...) {
                claims.Fail(); // the other lanes stop at their next claim
                throw;
            }
        });
    } catch (...) {
        if (!outcome.exception)
            outcome.exception = std::current_exception();
    }
}

/// The tiles to transform, in their order: all, or those under a selection.
class TileList
{
public:
    TileList(const HBImage<>& image, const HBSelectionArea* area) : m_Columns(image.Columns())
    {
        if (area && area->TileCount() > 0)
            m_Tiles = area->tiles;
        else if (!area && !image.IsEmpty())
            m_Tiles = QRect(0, 0, image.Columns(), image.Rows());
    }

    int Count() const { return m_Tiles.isEmpty() ? 0 : m_Tiles.width() * m_Tiles.height(); }
    /// The tile's index in the image.
    int operator[](int piece) const
    {
        return (m_Tiles.top() + piece / m_Tiles.width()) * m_Columns + m_Tiles.left() + piece % m_Tiles.width();
    }

private:
    int m_Columns;
    QRect m_Tiles; ///< in columns and rows
};

/// A transformed tile has changed outside the selection too. A tile that cannot be restored for want of memory is
/// the source's again and makes the work a failure.
void RestoreOutside(const HBImage<>& source, const TileList& tiles, const QRect& keep, HBOutcome& outcome)
{
    std::atomic<int> next{0};
    Claims unwatched(nullptr, 0, 0);
    Spread(tiles.Count(), unwatched, outcome, [&] {
        std::exception_ptr failure;
        for (int piece; (piece = next.fetch_add(1)) < tiles.Count();) {
            const int index = tiles[piece];
            try {
                HBRestoreOutside(outcome.image, source, index, keep);
            } catch (...) {
                outcome.image.ShareTile(index, source.Tile(index));
                failure = std::current_exception();
            }
        }
        if (failure)
            std::rethrow_exception(failure);
    });
}

} // namespace

HBRGBA32i* HBTileAccess::Pixels()
{
    if (!m_Pin) {
        m_Image.Detach(m_Index);
        m_Pin.emplace(m_Image.Tile(m_Index), true);
    }
    return m_Pin->Pixels();
}

void HBTileAccess::ChangeByRuns(const std::function<void(HBRGBA32i* pixels, int first, int count)>& change)
{
    const KMTileRef& tile = m_Image.Tile(m_Index);
    if (m_Pin || !tile.IsShared() || !KMTileManager64::IsInMemory(tile.Get())) {
        change(Pixels(), 0, HBImage<>::TilePixels);
        return;
    }
    const KMTileRef source = tile;
    const KMTilePin<HBRGBA32i> from(source, false);
    const KMTileRef copy(KMTileManager64::Instance().MakeUnwrittenTile());
    KMTilePin<HBRGBA32i> to(copy, true);
    for (int first = 0; first < HBImage<>::TilePixels; first += FetchPixels) {
        if (first % CopyPixels == 0)
            std::copy_n(from.Pixels() + first, CopyPixels, to.Pixels() + first);
        if (first + CopyPixels < HBImage<>::TilePixels)
            Fetch(from.Pixels() + first + CopyPixels);
        change(to.Pixels(), first, FetchPixels);
    }
    m_Image.ShareTile(m_Index, copy);
    m_Pin.emplace(std::move(to));
}

HBOutcome HBWalkTiles(HBTarget&& target, const HBTileFunction& transform, HBJobControl* control)
{
    const bool selected = target.bounds.isValid();
    const HBSelectionArea area(target.source, target.selection, target.offset, target.bounds);
    const TileList tiles(target.source, selected ? &area : nullptr);
    HBOutcome outcome;
    HBImage<>& result = outcome.image;
    try {
        result = selected ? target.source : std::exchange(target.source, {});
        result.DetachList();
    } catch (const std::bad_alloc&) {
        outcome.status = HBOutcome::Failed;
        outcome.exception = std::current_exception();
        return outcome;
    }

    const int rows = selected ? area.RowCount() : 0;
    if (control)
        control->SetRange(0, tiles.Count() + rows);

    Claims tileClaims(control, tiles.Count(), 0);
    Spread(tiles.Count(), tileClaims, outcome, [&] {
        const HBTileFunction own = transform;
        for (int piece; (piece = tileClaims.Next()) >= 0;) {
            {
                HBTileAccess tile(result, tiles[piece]);
                own(tile);
            }
            tileClaims.Done();
        }
    });
    Claims rowClaims(control, rows, tiles.Count());
    if (selected && !tileClaims.IsCancelled()) {
        RestoreOutside(target.source, tiles, area.blended, outcome);
        const HBSelectionBlender<HBBlend::HBSourceBySelection> blender(result, target.source, target.selection,
                                                                       target.offset, area.blended);
        Spread(rows, rowClaims, outcome, [&] {
            for (int row; (row = rowClaims.Next()) >= 0;) {
                blender.BlendRow(row);
                rowClaims.Done();
            }
        });
    }
    if (outcome.exception)
        outcome.status = HBOutcome::Failed;
    else if (tileClaims.IsCancelled() || rowClaims.IsCancelled())
        outcome.status = HBOutcome::Cancelled;
    return outcome;
}

HBOutcome HBWalkTiles(const HBTarget& target, const HBTileFunction& transform, HBJobControl* control)
{
    return HBWorkOnCopy(target, [&](HBTarget&& copy) { return HBWalkTiles(std::move(copy), transform, control); });
}
