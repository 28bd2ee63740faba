// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

#include <QVector>

#include <functional>

// Generated test pictures: every value is known, nothing is random.

/// Each pixel of its place.
HBImage<> HBTestPicture(int width, int height, const std::function<QRgb(int, int)>& color);

/// All channels vary, alpha included, differently along x and y, so that a displaced or repeated tile shows.
HBImage<> HBTestRamp(int width, int height);

/// Every colour whose channels are 0, step, 2 × step … and 255, opaque, in one square picture.
HBImage<> HBTestColorCube(int step);

/// A selection image: coverages 0..255, among them long runs of the extremes, in all four bytes.
HBImage<> HBTestMask(int width, int height);
/// The same coverage everywhere.
HBImage<> HBTestMask(int width, int height, int coverage);

/// Sizes around the 128 pixels of a tile, single pixels and strips.
QVector<QSize> HBAwkwardSizes();

/// What a job must return, computed pixel by pixel without tiles: `operation` on every pixel, weighted by the mask
/// inside the bounds if these are valid.
HBImage<> HBPlainLoop(const HBImage<>& source, const std::function<HBRGBA32i(HBRGBA32i)>& operation,
                      const HBImage<>& mask = {}, const QPoint& offset = {}, const QRect& bounds = {});

/// What a job must return: the transformation's scalar form, pixel by pixel.
template <class Transformation>
HBImage<> HBTransformed(const HBImage<>& photo, Transformation transformation, const HBImage<>& mask = {},
                        const QPoint& offset = {}, const QRect& bounds = {}) {
    HBRGBA32i buffer;
    transformation.SetProcessingBuffer(&buffer);
    auto operation = [&](HBRGBA32i pixel) {
        buffer = pixel;
        transformation(0);
        return buffer;
    };
    return HBPlainLoop(photo, operation, mask, offset, bounds);
}
