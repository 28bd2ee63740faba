// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBRGBA32i.h"

#include <type_traits>

/// Turns an operation on single pixels into a transformation of a tile: Op is copyable and has
/// `void operator()(HBRGBA32i&) const`, and optionally the same for a run of pixels,
/// `void operator()(HBRGBA32i* pixels, int count) const`, which must give the same bytes.
template <class Op>
class HBIterativeAdjustmentTransformation
{
public:
    explicit HBIterativeAdjustmentTransformation(const Op& op) : m_Op(op) {}

    /// The pixels to work on; they must outlive the calls below.
    void SetProcessingBuffer(HBRGBA32i* pixels) { m_pPixels = pixels; }

    /// Transforms pixel `index` of the buffer. Distinct pixels may be transformed at once on different threads.
    void operator()(int index) const { m_Op(m_pPixels[index]); }

    /// Transforms `count` pixels from `first` on, with the operation's run form.
    template <class O = Op, class = std::enable_if_t<std::is_invocable_v<const O&, HBRGBA32i*, int>>>
    void operator()(int first, int count) const
    {
        m_Op(m_pPixels + first, count);
    }

    const Op& Operation() const { return m_Op; }

private:
    Op m_Op;
    HBRGBA32i* m_pPixels = nullptr;
};
