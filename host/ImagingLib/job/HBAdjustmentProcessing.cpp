// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustmentProcessing.h"

#include "HBParallel.h"
#include "HBSelectionBlender.h"

#include <atomic>
#include <mutex>

/// Pieces of work (tiles or rows), handed out in order to whichever lane asks, and counted as they are done.
class HBAdjustmentProcessing::Claims
{
public:
    /// \param progressBase progress value before the first piece is done
    Claims(HBAdjustmentProcessing& owner, int count, int progressBase)
        : m_Owner(owner)
        , m_Count(count)
        , m_Done(progressBase)
    {
    }

    /// The next piece, or -1 if there is none or the result is no longer wanted.
    int Next()
    {
        const QReadLocker guard(m_Owner.m_pDataGuard);
        if (*m_Owner.m_pNewData)
            m_Obsolete = true;
        if (m_Obsolete || m_Failed)
            return -1;
        const int piece = m_Next.fetch_add(1);
        return piece < m_Count ? piece : -1;
    }
    void Done()
    {
        // One lane at a time, so that the values that reach the receiver never go backwards.
        const std::lock_guard<std::mutex> lock(m_ProgressMutex);
        m_Owner.SetProgressValue(++m_Done);
    }
    void Fail() { m_Failed = true; }
    bool IsObsolete() const { return m_Obsolete; }

private:
    HBAdjustmentProcessing& m_Owner;
    const int m_Count;
    std::atomic<int> m_Next{0};
    std::atomic<bool> m_Obsolete{false};
    std::atomic<bool> m_Failed{false};
    std::mutex m_ProgressMutex;
    int m_Done;
};

HBAdjustmentProcessing::HBAdjustmentProcessing(QReadWriteLock* dataGuard, const bool* newData)
    : m_pDataGuard(dataGuard)
    , m_pNewData(newData)
{
}

HBAdjustmentProcessing::~HBAdjustmentProcessing() = default;

void HBAdjustmentProcessing::SetRange(int minimum, int maximum)
{
    Q_EMIT RangeChanged(minimum, maximum);
}

void HBAdjustmentProcessing::SetProgressValue(int value)
{
    Q_EMIT ProgressChanged(value);
}

void HBAdjustmentProcessing::Spread(int lanes, Claims& claims, const std::function<void()>& lane)
{
    try {
        HBRunLanes(lanes, [&] {
            try {
                lane();
            } catch (...) {
                claims.Fail(); // the other lanes stop at their next claim
                throw;
            }
        });
    } catch (...) {
        if (!m_Exception)
            m_Exception = std::current_exception();
    }
}

HBImage<> HBAdjustmentProcessing::Run(const HBImage<>& source, const HBImage<>& selection, const QPoint& offset,
                                      const QRect& bounds, const TileFunction& transform)
{
    m_Exception = nullptr;
    HBImage<> result = source;
    result.DetachList();

    const bool selected = bounds.isValid();
    const HBSelectionArea area(source, selection, offset, bounds);
    const int columns = selected ? area.tiles.width() : source.Columns();
    const int tiles = selected ? area.TileCount() : source.IsEmpty() ? 0 : source.Columns() * source.Rows();
    const int rows = selected ? area.RowCount() : 0;
    auto tileIndex = [&](int piece) {
        return selected
                   ? (area.tiles.top() + piece / columns) * source.Columns() + area.tiles.left() + piece % columns
                   : piece;
    };
    SetRange(0, tiles + rows);

    Claims tileClaims(*this, tiles, 0);
    Spread(HBLaneCount(tiles), tileClaims, [&] {
        const TileFunction own = transform;
        for (int piece; (piece = tileClaims.Next()) >= 0;) {
            const int index = tileIndex(piece);
            result.Detach(index);
            {
                const KMTilePin<HBRGBA32i> pin(result.Tile(index), true);
                own(pin.Pixels(), index);
            }
            tileClaims.Done();
        }
    });
    if (!selected || tileClaims.IsObsolete())
        return result;

    // A transformed tile has changed outside the selection too.
    std::atomic<int> next{0};
    std::mutex failure;
    HBRunLanes(HBLaneCount(tiles), [&] {
        for (int piece; (piece = next.fetch_add(1)) < tiles;) {
            const int index = tileIndex(piece);
            try {
                HBRestoreOutside(result, source, index, area.blended);
            } catch (...) {
                result.ShareTile(index, source.Tile(index)); // unadjusted, but nothing outside is touched
                const std::lock_guard<std::mutex> lock(failure);
                if (!m_Exception)
                    m_Exception = std::current_exception();
            }
        }
    });

    Claims rowClaims(*this, rows, tiles);
    const HBSelectionBlender<HBBlend::HBSourceBySelection> blender(result, source, selection, offset,
                                                                   area.blended);
    Spread(HBLaneCount(rows), rowClaims, [&] {
        for (int row; (row = rowClaims.Next()) >= 0;) {
            blender.BlendRow(row);
            rowClaims.Done();
        }
    });
    return result;
}
