// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

#include <QSize>

/// The tiles of a photo, filled by rows as they lie in its file, where the picture may be turned or mirrored. One
/// thread.
class HBUprightTiles
{
public:
    /// So many rows at once are a good piece: few enough for a cache, enough to fill its lines where rows become
    /// columns.
    static constexpr int RowsAtOnce = 16;

    HBUprightTiles() = default;
    /// \param lying the size in the file
    /// \param orientation as EXIF numbers it, 1..8
    /// \throws std::bad_alloc
    HBUprightTiles(const QSize& lying, int orientation);

    QSize Lying() const { return m_Lying; }
    /// Puts the file's rows `first` .. `first` + `count` - 1, which must be there.
    /// \param rows whole rows, not premultiplied, `stride` pixels apart
    /// \throws std::bad_alloc
    void Put(int first, int count, const QRgb* rows, qptrdiff stride);

    /// Whether any rows were put.
    bool HasRows() const { return m_HasRows; }
    const HBImage<>& Image() const { return m_Image; }

private:
    QSize m_Lying;
    bool m_HasRows = false;
    bool m_Swaps = false; ///< rows become columns
    bool m_FlipsX = false;
    bool m_FlipsY = false;
    HBImage<> m_Image;
};
