// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSelectionShape.h"

#include <HBImage.h>

#include <QRect>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>

/// One shape on a photo of one size, not inverted: all is counted in the photo's pixels.
class HBSelectionFigure
{
public:
    /// The coverages of a piece of at most a tile, row by row, TileSide apart.
    using Coverages = std::array<std::uint8_t, HBImage<>::TilePixels>;

    /// \param photo must outlive it; its pixels are looked at for a colour only
    static std::unique_ptr<HBSelectionFigure> Of(const HBShape& shape, const HBImage<>& photo);
    virtual ~HBSelectionFigure() = default;

    virtual void Cover(const QRect& piece, Coverages* coverages) const = 0;
    /// 0 or 255 if that is the coverage all over the piece; -1 if it is not known.
    virtual int Everywhere(const QRect& piece) const = 0;
    /// Outside the coverage is 0.
    virtual QRect Touched() const = 0;

protected:
    static constexpr int TileSide = HBImage<>::TileSide;

    HBSelectionFigure() = default;

    template <class Function>
    static void ForEach(const QRect& piece, Coverages* coverages, const Function& function)
    {
        for (int y = 0; y < piece.height(); ++y) {
            for (int x = 0; x < piece.width(); ++x)
                (*coverages)[std::size_t(y * TileSide + x)] = function(piece.left() + x, piece.top() + y);
        }
    }

    /// 0 up to 0, 1 from 1 on, flat at both ends.
    static double Smooth(double t)
    {
        const double share = std::clamp(t, 0.0, 1.0);
        return share * share * (3 - 2 * share);
    }
    /// From 0 at -feather to 1 at +feather.
    static double Ramp(double distance, int feather) { return Smooth((distance + feather) / (2.0 * feather)); }
    /// Of a point so deep inside the edge, negative outside; without a feather the edge is a pixel wide.
    static std::uint8_t AtDepth(double depth, int feather)
    {
        return Level(feather > 0 ? Ramp(depth, feather) : std::clamp(depth + 0.5, 0.0, 1.0));
    }
    static std::uint8_t Level(double coverage) { return std::uint8_t(std::lround(coverage * 255)); }
};
