// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostViewExport.h"

#include <HBColorTransform.h>
#include <HBImage.h>

#include <memory>
#include <vector>

/// Shrunken copies of an image's tiles, for showing a picture at less than half its size: level n holds the
/// averages of squares of 2^n pixels, premultiplied. They are made when they are asked for, and kept as long as
/// their tile is part of the image. With a look of its own, level 0 holds the pixels as they are shown. One thread
/// at a time.
class HB_HOSTVIEW_EXPORT HBTileMips
{
public:
    /// How pixels are shown, when not as they are.
    struct Look
    {
        std::shared_ptr<const HBColorTransform> colors; ///< of each level's averages; null: as they are
        /// Pixels with a channel at 255 in red, black ones in blue: what a brighter or darker picture would lose.
        bool marksClipping = false;

        bool IsPlain() const { return !colors && !marksClipping; }
        bool operator==(const Look& other) const
        {
            return colors == other.colors && marksClipping == other.marksClipping;
        }
    };

    static constexpr int LastLevel = 7; ///< the whole tile as one pixel
    static_assert(HBImage<>::TileSide >> LastLevel == 1);

    /// Shrunken tiles that the new image shares with the old one stay valid. Those of changed tiles are still
    /// shown until they are made anew.
    void SetImage(const HBImage<>& image);

    /// All is made anew.
    void SetLook(const Look& look);
    const Look& PresentLook() const { return m_Look; }

    /// Makes what is missing at `level` (1..LastLevel, 0 with a look) of the tiles in `tiles` (columns and rows of
    /// the image), on all cores; with a look the calling thread only waits. False if the time was up before all
    /// were made; each call makes a few.
    bool Prepare(const QRect& tiles, int level, int milliseconds);

    /// The tiles at `level` as one picture of (HBImage<>::TileSide >> level) pixels a tile:
    /// QImage::Format_ARGB32_Premultiplied, or Format_RGB32 if all of them are opaque. Beyond the image the border
    /// pixels are repeated. Transparent where Prepare has not come yet.
    QImage Assemble(const QRect& tiles, int level) const;

    /// A tile at level 0, as Assemble gives them and without the padding; null if it is not made. Valid until
    /// the next call.
    QImage TileImage(int index) const;

    /// How many tiles have been shrunken so far.
    int MadeCount() const { return m_Made; }

private:
    struct Entry
    {
        std::unique_ptr<QRgb[]> pixels; ///< the levels from `level` to LastLevel, one after the other
        int level = -1;                 ///< -1: none
        bool stale = false;             ///< the tile has changed since
        bool opaque = true;
    };

    void Make(int index, int level);
    void Convert(QRgb* pixels, int count, bool opaque) const;
    void Trim(const QRect& wanted);

    HBImage<> m_Image;
    Look m_Look;
    std::vector<Entry> m_Entries;
    int m_Made = 0;
};
