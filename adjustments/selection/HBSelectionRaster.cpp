// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// How the shapes of a selection together become coverage.

#include "HBSelectionFigure.h"
#include "HBSelectionShape.h"

#include <HBTileWalk.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;
using Coverages = HBSelectionFigure::Coverages;

/// All shapes of a selection on a photo.
class Raster
{
public:
    Raster(const HBSelectionShape& selection, const HBImage<>& photo)
    {
        const QRect frame(0, 0, photo.Width(), photo.Height());
        for (const HBShape& shape : selection.shapes) {
            m_Parts.push_back({HBSelectionFigure::Of(shape, photo), shape.combination, shape.inverted});
            const QRect touched = m_Parts.back().figure->Touched();
            const QRect covered = shape.inverted ? frame : touched.isEmpty() ? QRect() : touched & frame;
            if (shape.combination == HBShape::Combination::Intersect)
                m_Area = m_Area.isEmpty() || covered.isEmpty() ? QRect() : m_Area & covered;
            else if (shape.combination == HBShape::Combination::Add && !covered.isEmpty())
                m_Area = m_Area | covered;
        }
    }

    /// Outside nothing is selected; empty: anywhere.
    QRect Area() const { return m_Area; }

    int Everywhere(const QRect& piece) const
    {
        int all = 0;
        for (const Part& part : m_Parts) {
            const int one = part.Everywhere(piece);
            if (one < 0)
                return -1;
            all = Combined(part.combination, all, one);
        }
        return all;
    }
    void Cover(const QRect& piece, Coverages* coverages) const
    {
        coverages->fill(0);
        Coverages one;
        for (const Part& part : m_Parts) {
            const int everywhere = part.Everywhere(piece);
            if (everywhere < 0)
                part.figure->Cover(piece, &one);
            else
                one.fill(std::uint8_t(everywhere));
            Combine(part.combination, everywhere < 0 && part.inverted, piece, one, coverages);
        }
    }

private:
    struct Part
    {
        std::unique_ptr<HBSelectionFigure> figure;
        HBShape::Combination combination;
        bool inverted;

        int Everywhere(const QRect& piece) const
        {
            const int coverage = figure->Everywhere(piece);
            return coverage >= 0 && inverted ? 255 - coverage : coverage;
        }
    };

    static int Combined(HBShape::Combination combination, int before, int coverage)
    {
        switch (combination) {
        case HBShape::Combination::Subtract:
            return std::min(before, 255 - coverage);
        case HBShape::Combination::Intersect:
            return std::min(before, coverage);
        default:
            return std::max(before, coverage);
        }
    }
    template <HBShape::Combination combination>
    static void Combine(std::uint8_t flip, const QRect& piece, const Coverages& one, Coverages* all)
    {
        for (int y = 0; y < piece.height(); ++y) {
            const std::uint8_t* const coverage = one.data() + y * TileSide;
            std::uint8_t* const row = all->data() + y * TileSide;
            for (int x = 0; x < piece.width(); ++x)
                row[x] = std::uint8_t(Combined(combination, row[x], coverage[x] ^ flip));
        }
    }
    static void Combine(HBShape::Combination combination, bool inverted, const QRect& piece, const Coverages& one,
                        Coverages* all)
    {
        using C = HBShape::Combination;
        const std::uint8_t flip = inverted ? 255 : 0;
        if (combination == C::Subtract)
            Combine<C::Subtract>(flip, piece, one, all);
        else if (combination == C::Intersect)
            Combine<C::Intersect>(flip, piece, one, all);
        else
            Combine<C::Add>(flip, piece, one, all);
    }

    std::vector<Part> m_Parts;
    QRect m_Area;
};

/// A tile with coverage 255 everywhere, for all to share.
KMTileRef FullTile()
{
    const HBImage<> full(TileSide, TileSide);
    const KMTilePin<HBRGBA32i> pin(full.Tile(0), true);
    std::fill_n(pin.Pixels(), HBImage<>::TilePixels, HBRGBA32i(255, 255, 255, 255));
    return full.Tile(0);
}

/// 0 or 255 if that is what all of it is; else -1.
int EvenLevel(const Coverages& coverages, const QSize& size)
{
    std::uint8_t any = 0;
    std::uint8_t all = 255;
    for (int y = 0; y < size.height(); ++y) {
        const std::uint8_t* const row = coverages.data() + y * TileSide;
        for (int x = 0; x < size.width(); ++x) {
            any |= row[x];
            all &= row[x];
        }
    }
    return any == 0 ? 0 : all == 255 ? 255 : -1;
}

/// 0 or 255 if that is the coverage of all of the tile: then it is left as it is, for one that is shared; else -1.
int FillTile(const Raster& raster, const QPoint& offset, HBTileAccess* tile)
{
    const QRect area = tile->Area();
    Coverages coverages;
    raster.Cover(area.translated(offset), &coverages);
    const int even = EvenLevel(coverages, area.size());
    if (even >= 0)
        return even;
    HBRGBA32i* const pixels = tile->Pixels();
    for (int y = 0; y < area.height(); ++y) {
        const std::uint8_t* const row = coverages.data() + y * TileSide;
        for (int x = 0; x < area.width(); ++x)
            pixels[y * TileSide + x] = HBRGBA32i(row[x], row[x], row[x], row[x]);
    }
    return -1;
}

} // namespace

int HBSelectionShape::CoverageAt(const HBImage<>& photo, int x, int y) const
{
    const Raster raster(*this, photo);
    if (!raster.Area().contains(x, y))
        return 0;
    Coverages coverages;
    raster.Cover(QRect(x, y, 1, 1), &coverages);
    return coverages[0];
}

HBSelection HBSelectionShape::Rasterize(const HBImage<>& photo, HBJobControl* control) const
{
    HBSelection selection;
    if (photo.IsEmpty())
        return selection;
    const Raster raster(*this, photo);
    const QRect area = raster.Area();
    if (area.isEmpty())
        return selection;
    selection.offset = area.topLeft();
    selection.bounds = QRect(QPoint(0, 0), area.size());
    HBTarget mask{HBImage<>(area.width(), area.height())};

    // Tiles that are wholly covered or not at all are not painted pixel by pixel, and share one of each kind: a
    // selection costs what its edge costs, also once it is looked at.
    std::vector<int> levels(std::size_t(mask.source.Tiles().size()), -1);
    HBOutcome outcome = HBWalkTiles(
        std::move(mask),
        [&](HBTileAccess& tile) {
            const int level = raster.Everywhere(tile.Area().translated(selection.offset));
            levels[std::size_t(tile.Index())] = level < 0 ? FillTile(raster, selection.offset, &tile) : level;
        },
        control);
    if (outcome.exception)
        std::rethrow_exception(outcome.exception);
    selection.mask = std::move(outcome.image);
    const KMTileRef full = FullTile();
    const KMTileRef none = HBImage<>(HBImage<>::TileSide, HBImage<>::TileSide).Tile(0);
    for (int index = 0; index < selection.mask.Tiles().size(); ++index) {
        const int level = levels[std::size_t(index)];
        if (level >= 0)
            selection.mask.ShareTile(index, level == 0 ? none : full);
    }
    return selection;
}
