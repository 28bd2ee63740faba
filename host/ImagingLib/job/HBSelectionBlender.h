// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBBlend.h"
#include "HBImage.h"
#include "HBImagingLibExport.h"

#include <QPoint>
#include <QRect>

#include <functional>

/// Where an adjustment with a selection works, computed without overflow for any corners. An invalid rectangle
/// means that the areas do not meet.
struct HB_IMAGINGLIB_EXPORT HBSelectionArea
{
    /// \param offset where the selection image lies on the image
    /// \param bounds the selection's bounding rectangle, in pixels of the selection image
    HBSelectionArea(const HBImage<>& image, const HBImage<>& selection, const QPoint& offset, const QRect& bounds);

    QRect effective; ///< `bounds` moved onto the image and cut to it, in image pixels: its tiles are transformed
    QRect tiles;     ///< those tiles, in columns and rows
    QRect blended;   ///< what the selection image covers of `effective`, in image pixels: its rows are blended

    int TileCount() const { return tiles.isValid() ? tiles.width() * tiles.height() : 0; }
    int RowCount() const { return blended.isValid() ? blended.height() : 0; }
};

/// Walks the same pixels of three images that lie on one another, row by row and tile by tile.
class HB_IMAGINGLIB_EXPORT HBSelectionRows
{
public:
    /// The images must outlive the object. The tiles of `destination` under `area` must be its own (Detach),
    /// except those that it shares with `source`, which are skipped.
    /// \param offset where `selection` lies on the other two, which have the same size
    /// \param area in pixels of destination and source, inside all three images
    HBSelectionRows(HBImage<>& destination, const HBImage<>& source, const HBImage<>& selection,
                    const QPoint& offset, const QRect& area);

    /// `count` pixels of each image that lie on one another.
    struct Span
    {
        HBRGBA32i* destination;
        const HBRGBA32i* source;
        const HBRGBA32i* selection;
        int count;
    };
    /// Calls `function` for the spans of row `row` (0 is the top of the area), left to right. Different rows may
    /// be walked at once on different threads. \throws std::bad_alloc
    void ForEachSpan(int row, const std::function<void(const Span&)>& function) const;

private:
    const HBImage<>& m_Destination;
    const HBImage<>& m_Source;
    const HBImage<>& m_Selection;
    QPoint m_Offset;
    QRect m_Area;
};

/// Blends source and destination by a selection: Blend(source pixel, destination pixel, selection pixel).
template <class Blend>
class HBSelectionBlender : public HBSelectionRows
{
public:
    using HBSelectionRows::HBSelectionRows;

    void BlendRow(int row) const
    {
        ForEachSpan(row, [](const Span& span) {
            const Blend blend;
            for (int i = 0; i < span.count; ++i)
                blend(span.source[i], span.destination[i], span.selection[i]);
        });
    }
};

/// Gives tile `index` of `image` the source's bytes back wherever it lies outside `keep`. The images have the same
/// size; a tile that is wholly outside is shared with the source again. Different tiles may be restored at once on
/// different threads. \throws std::bad_alloc
HB_IMAGINGLIB_EXPORT void HBRestoreOutside(HBImage<>& image, const HBImage<>& source, int index,
                                           const QRect& keep);
