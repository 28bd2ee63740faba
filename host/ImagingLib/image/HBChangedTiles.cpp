// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBChangedTiles.h"

QRegion HBChangedTiles(const HBImage<>& before, const HBImage<>& after)
{
    if (after.IsEmpty())
        return {};
    const QRect whole(0, 0, after.Width(), after.Height());
    if (before.IsEmpty() || before.Width() != after.Width() || before.Height() != after.Height())
        return whole;
    if (before.IsSameAs(after))
        return {};
    // Sorted rows of rectangles that do not touch, as a region takes them over at once; adding one by one takes
    // the square of their number.
    QVector<QRect> runs;
    for (int row = 0; row < after.Rows(); ++row) {
        bool inRun = false;
        for (int column = 0; column < after.Columns(); ++column) {
            const int index = row * after.Columns() + column;
            const bool differs = before.Tile(index) != after.Tile(index);
            if (differs && inRun)
                runs.last().setRight(after.TileRect(index).right());
            else if (differs)
                runs.append(after.TileRect(index));
            inRun = differs;
        }
    }
    QRegion region;
    region.setRects(runs.constData(), runs.size());
    return region;
}
