// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionBlender.h"

#include <algorithm>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;

/// A rectangle with inclusive corners that translating and cutting cannot overflow.
struct WideRect
{
    qint64 left, top, right, bottom;

    WideRect(const QRect& rect, const QPoint& offset)
        : left(qint64(rect.left()) + offset.x())
        , top(qint64(rect.top()) + offset.y())
        , right(qint64(rect.right()) + offset.x())
        , bottom(qint64(rect.bottom()) + offset.y())
    {
    }
    bool IsValid() const { return left <= right && top <= bottom; }
    /// Tested before it cuts: QRect would turn an inverted rectangle round.
    QRect CutTo(const QRect& frame) const
    {
        const qint64 l = std::max<qint64>(left, frame.left());
        const qint64 t = std::max<qint64>(top, frame.top());
        const qint64 r = std::min<qint64>(right, frame.right());
        const qint64 b = std::min<qint64>(bottom, frame.bottom());
        if (!IsValid() || !frame.isValid() || l > r || t > b)
            return {};
        return {QPoint(int(l), int(t)), QPoint(int(r), int(b))};
    }
};

QRect Extent(const HBImage<>& image)
{
    return image.IsEmpty() ? QRect() : QRect(0, 0, image.Width(), image.Height());
}

} // namespace

HBSelectionArea::HBSelectionArea(const HBImage<>& image, const HBImage<>& selection, const QPoint& offset,
                                 const QRect& bounds)
    : effective(WideRect(bounds, offset).CutTo(Extent(image)))
{
    if (!effective.isValid())
        return;
    // Inside the image, so every corner is 0 or more and plain division rounds down.
    tiles = QRect(QPoint(effective.left() / TileSide, effective.top() / TileSide),
                  QPoint(effective.right() / TileSide, effective.bottom() / TileSide));
    blended = WideRect(Extent(selection), offset).CutTo(effective);
}

HBSelectionRows::HBSelectionRows(HBImage<>& destination, const HBImage<>& source, const HBImage<>& selection,
                                 const QPoint& offset, const QRect& area)
    : m_Destination(destination)
    , m_Source(source)
    , m_Selection(selection)
    , m_Offset(offset)
    , m_Area(area)
{
}

void HBSelectionRows::ForEachSpan(int row, const std::function<void(const Span&)>& function) const
{
    const int y = m_Area.top() + row;
    const int selectionY = int(qint64(y) - m_Offset.y());
    int x = m_Area.left();
    while (x <= m_Area.right()) {
        const int selectionX = int(qint64(x) - m_Offset.x());
        // To the next tile border of the image or of the selection image, whichever comes first.
        const int count =
            std::min({TileSide - x % TileSide, TileSide - selectionX % TileSide, m_Area.right() + 1 - x});
        const int index = y / TileSide * m_Source.Columns() + x / TileSide;
        const int pixel = y % TileSide * TileSide + x % TileSide;
        const int selectionIndex = selectionY / TileSide * m_Selection.Columns() + selectionX / TileSide;
        const int selectionPixel = selectionY % TileSide * TileSide + selectionX % TileSide;

        x += count;
        if (m_Destination.Tile(index) == m_Source.Tile(index))
            continue; // not adjusted, so there is nothing to take back, and the tile is not ours to write
        const KMTilePin<HBRGBA32i> destination(m_Destination.Tile(index), true);
        const KMTilePin<HBRGBA32i> source(m_Source.Tile(index), false);
        const KMTilePin<HBRGBA32i> selection(m_Selection.Tile(selectionIndex), false);
        function(
            {destination.Pixels() + pixel, source.Pixels() + pixel, selection.Pixels() + selectionPixel, count});
    }
}

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
