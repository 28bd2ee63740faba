// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImage.h"
#include "HBImagingLibExport.h"

#include <QPoint>
#include <QRect>

#include <functional>

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
