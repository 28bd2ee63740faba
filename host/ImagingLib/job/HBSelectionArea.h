// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImage.h"
#include "HBImagingLibExport.h"

#include <QPoint>
#include <QRect>

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
