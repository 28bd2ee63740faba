// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// How the shapes of a selection together become coverage.

#include "HBSelectionFigure.h"
#include "HBSelectionShape.h"

#include <HBTileWalk.h>

#include <algorithm>
#include <memory>
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
        ForEachPixel(piece, coverages, [](std::size_t) { return std::uint8_t(0); });
        Coverages one;
        for (const Part& part : m_Parts) {
            const int everywhere = part.Everywhere(piece);
            if (everywhere < 0)
                part.figure->Cover(piece, &one);
            ForEachPixel(piece, coverages, [&](std::size_t i) {
                const int coverage = everywhere >= 0 ? everywhere : part.inverted ? 255 - one[i] : one[i];
                return std::uint8_t(Combined(part.combination, (*coverages)[i], coverage));
            });
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

    template <class Function>
    static void ForEachPixel(const QRect& piece, Coverages* coverages, const Function& function)
    {
        for (int y = 0; y < piece.height(); ++y) {
            for (int x = 0; x < piece.width(); ++x) {
                const auto i = std::size_t(y * TileSide + x);
                (*coverages)[i] = function(i);
            }
        }
    }
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

void FillTile(const Raster& raster, const QPoint& offset, HBTileAccess* tile)
{
    const QRect area = tile->Area();
    Coverages coverages;
    raster.Cover(area.translated(offset), &coverages);
    HBRGBA32i* const pixels = tile->Pixels();
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x) {
            const std::uint8_t coverage = coverages[std::size_t(y * TileSide + x)];
            pixels[y * TileSide + x] = HBRGBA32i(coverage, coverage, coverage, coverage);
        }
    }
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

    // Tiles that are wholly covered or not at all are not painted pixel by pixel, and those that are full share
    // one: a selection costs what its edge costs.
    const KMTileRef full = FullTile();
    std::vector<bool> edge(std::size_t(mask.source.Tiles().size()));
    for (int index = 0; index < mask.source.Tiles().size(); ++index) {
        const int coverage = raster.Everywhere(mask.source.TileRect(index).translated(area.topLeft()));
        edge[std::size_t(index)] = coverage < 0;
        if (coverage == 255)
            mask.source.ShareTile(index, full);
    }
    const HBOutcome outcome = HBWalkTiles(
        mask,
        [&](HBTileAccess& tile) {
            if (edge[std::size_t(tile.Index())])
                FillTile(raster, selection.offset, &tile);
        },
        control);
    if (outcome.exception)
        std::rethrow_exception(outcome.exception);
    selection.mask = outcome.image;
    return selection;
}
