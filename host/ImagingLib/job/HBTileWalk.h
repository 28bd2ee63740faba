// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImage.h"
#include "HBImagingLibExport.h"
#include "HBJobControl.h"

#include <QPoint>
#include <QRect>

#include <exception>
#include <functional>
#include <new>
#include <optional>
#include <utility>

/// A picture to adjust, and where.
struct HBTarget
{
    HBImage<> source;
    HBImage<> selection{}; ///< its alpha is the coverage
    QPoint offset{};       ///< of the selection image on the source
    QRect bounds{};        ///< of the selection, in pixels of the selection image; not valid: all is adjusted
};

/// One tile of an image that is being made. Until it is asked for its pixels the tile stays shared with the
/// source.
class HB_IMAGINGLIB_EXPORT HBTileAccess
{
public:
    /// DetachList() of the image was called before; different tiles may be worked on at once.
    HBTileAccess(HBImage<>& image, int index) : m_Image(image), m_Index(index) {}

    int Index() const { return m_Index; }
    /// What of the picture lies in the tile, in its pixels; rows of the tile are HBImage<>::TileSide pixels apart.
    QRect Area() const { return m_Image.TileRect(m_Index); }
    /// The HBImage<>::TilePixels pixels, to be changed. \throws std::bad_alloc
    HBRGBA32i* Pixels();
    /// The same by runs of them, for what changes each pixel by itself: calls change(pixels, first, count), with
    /// all pixels of the tile, until all are changed. Only those of the run may be touched. Faster than Pixels():
    /// while a run is changed, the memory already brings the source of the next. \throws std::bad_alloc
    void ChangeByRuns(const std::function<void(HBRGBA32i* pixels, int first, int count)>& change);

private:
    HBImage<>& m_Image;
    const int m_Index;
    std::optional<KMTilePin<HBRGBA32i>> m_Pin;
};

/// Changes a tile. Each lane works with a copy of its own.
using HBTileFunction = std::function<void(HBTileAccess& tile)>;

/// What became of a work, and the image it made. Only a whole image is a result: any other has tiles that nobody
/// has worked on.
struct HBOutcome
{
    enum Status { Whole, Cancelled, Failed };

    HBImage<> image;
    Status status = Whole;
    std::exception_ptr exception; ///< what was thrown first; null unless Failed

    bool IsWhole() const { return status == Whole; }
};

/// What `work` makes of a copy of the target; a failure where there is no memory for that, for its metadata.
template <class Work>
HBOutcome HBWorkOnCopy(const HBTarget& target, const Work& work)
{
    std::optional<HBTarget> copy;
    try {
        copy = target;
    } catch (const std::bad_alloc&) {
        return {{}, HBOutcome::Failed, std::current_exception()};
    }
    return work(std::move(*copy));
}

/// Runs `transform` over the tiles of the target, on the calling thread and those of the pool
/// (HBParallel.h), and returns the image, which shares every tile that was not touched with the source. Without
/// a selection, tiles that nobody else holds are changed where they are: move the target in to save their memory,
/// and that of a copy. Any thread.
///
/// Without a selection (bounds not valid) the range of the progress is 0 .. tiles and every tile is transformed.
/// With one, only the tiles under the bounds are, then the rows that the selection image covers are blended, and
/// the range is 0 .. tiles + rows; pixels outside keep their bytes, also when the work fails. Throws nothing but
/// what the control throws.
HB_IMAGINGLIB_EXPORT HBOutcome HBWalkTiles(HBTarget&& target, const HBTileFunction& transform,
                                           HBJobControl* control = nullptr);
/// The same, with a copy of the target.
HB_IMAGINGLIB_EXPORT HBOutcome HBWalkTiles(const HBTarget& target, const HBTileFunction& transform,
                                           HBJobControl* control = nullptr);
