// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "hostview_export.h"

#include <HBImage.h>

#include <memory>
#include <vector>

/// Shrunken copies of an image's tiles, for showing a picture at less than half its size: level n holds the
/// averages of squares of 2^n pixels, premultiplied. They are made when they are asked for, and kept as long as
/// their tile is part of the image. GUI thread only.
class HOSTVIEW_EXPORT HBTileMips
{
public:
    static constexpr int LastLevel = 7; ///< the whole tile as one pixel
    static_assert(HBImage<>::TileSide >> LastLevel == 1);

    /// Shrunken tiles that the new image shares with the old one stay valid. Those of changed tiles are still
    /// shown until they are made anew.
    void SetImage(const HBImage<>& image);

    /// Makes what is missing at `level` (1..LastLevel) of the tiles in `tiles` (columns and rows of the image),
    /// on all cores. False if the time was up before all were made; each call makes a few.
    bool Prepare(const QRect& tiles, int level, int milliseconds);

    /// The tiles at `level` as one picture of (HBImage<>::TileSide >> level) pixels a tile:
    /// QImage::Format_ARGB32_Premultiplied, or Format_RGB32 if all of them are opaque. Beyond the image the border
    /// pixels are repeated. Transparent where Prepare has not come yet.
    QImage Assemble(const QRect& tiles, int level) const;

    /// How many tiles have been shrunken so far.
    int MadeCount() const { return m_Made; }

private:
    struct Entry
    {
        std::unique_ptr<QRgb[]> pixels; ///< the levels from `level` to LastLevel, one after the other
        int level = 0;                  ///< 0: none
        bool stale = false;             ///< the tile has changed since
        bool opaque = true;
    };

    void Make(int index, int level);
    void Trim(const QRect& wanted);

    HBImage<> m_Image;
    std::vector<Entry> m_Entries;
    int m_Made = 0;
};
