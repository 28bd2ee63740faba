// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentProcessing.h"

#include <type_traits>
#include <utility>

/// The transformation as a function of a tile. Each lane copies the function, and with it the transformation and
/// its buffer.
template <class Transformation>
HBTileFunction HBTileFunctionOf(Transformation transformation)
{
    if constexpr (std::is_invocable_v<const Transformation&, int, int>) {
        return [transformation = std::move(transformation)](HBTileAccess& tile) mutable {
            tile.ChangeByRuns([&](HBRGBA32i* pixels, int first, int count) {
                if (first == 0)
                    transformation.SetProcessingBuffer(pixels);
                transformation(first, count);
            });
        };
    } else {
        return [transformation = std::move(transformation)](HBTileAccess& tile) mutable {
            transformation.SetProcessingBuffer(tile.Pixels());
            for (int index = 0; index < HBImage<>::TilePixels; ++index)
                transformation(index);
        };
    }
}

/// The job for one kind of transformation: copyable, with `SetProcessingBuffer(HBRGBA32i*)`, `operator()(int)
/// const` for one pixel of the buffer and, optionally, `operator()(int first, int count) const` for a run, which
/// must touch no others: they may not be there yet.
template <class Transformation>
class HBAdjustmentProcessingTemplate : public HBAdjustmentProcessing
{
public:
    HBAdjustmentProcessingTemplate(Transformation transformation, QReadWriteLock* dataGuard, const bool* newData)
        : HBAdjustmentProcessing(dataGuard, newData)
        , m_Transformation(std::move(transformation))
    {
    }

    /// See HBAdjustmentProcessing::Run.
    HBImage<> Process(const HBImage<>& source, const HBImage<>& selection, const QPoint& offset,
                      const QRect& bounds)
    {
        return Run({source, selection, offset, bounds}, HBTileFunctionOf(m_Transformation));
    }

private:
    const Transformation m_Transformation;
};
