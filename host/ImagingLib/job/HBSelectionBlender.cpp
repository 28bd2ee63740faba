// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionBlender.h"

#include <algorithm>

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
    constexpr int TileSide = HBImage<>::TileSide;
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
