// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentProcessing.h"

#include <type_traits>
#include <utility>

/// Transforms `count` pixels of the transformation's buffer from `first` on, as a run where it has that form.
template <class Transformation>
void HBTransformRun(const Transformation& transformation, int first, int count)
{
    if constexpr (std::is_invocable_v<const Transformation&, int, int>) {
        transformation(first, count);
    } else {
        for (int index = first; index < first + count; ++index)
            transformation(index);
    }
}

/// The transformation as a function of a tile. Each lane copies the function, and with it the transformation and
/// its buffer.
template <class Transformation>
HBTileFunction HBTileFunctionOf(Transformation transformation)
{
    return [transformation = std::move(transformation)](HBTileAccess& tile) mutable {
        tile.ChangeByRuns([&](HBRGBA32i* pixels, int first, int count) {
            transformation.SetProcessingBuffer(pixels);
            HBTransformRun(transformation, first, count);
        });
    };
}

/// The job for one kind of transformation: copyable, with `SetProcessingBuffer(HBRGBA32i*)`, `operator()(int)
/// const` for one pixel of the buffer and, optionally, `operator()(int first, int count) const` for a run of them.
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
