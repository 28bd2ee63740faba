// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBRGBA32i.h"

/// Blend operations: small function objects over single pixels.
namespace HBBlend
{

/// a × b / 255, rounded to nearest, for a and b in 0..255; exact without a division.
constexpr int Scale(int a, int b)
{
    const int product = a * b + 128;
    return (product + (product >> 8)) >> 8;
}

/// The source pixel weighted against the destination by a coverage in 0..255.
constexpr std::uint8_t Mix(int source, int destination, int coverage)
{
    const int sum = source * (255 - coverage) + destination * coverage + 128;
    return std::uint8_t((sum + (sum >> 8)) >> 8);
}

/// Porter-Duff source over destination, not premultiplied (Porter & Duff, SIGGRAPH 1984).
struct HBSourceOver
{
    constexpr void operator()(const HBRGBA32i& source, HBRGBA32i& destination) const
    {
        if (source.alpha == 255 || destination.alpha == 0) {
            destination = source;
            return;
        }
        if (source.alpha == 0)
            return;
        // All in 1/255: the destination's share of the result's coverage, then the weighted mean of the colours.
        const int below = destination.alpha * (255 - source.alpha);
        const int above = source.alpha * 255;
        const int total = above + below;
        auto mean = [=](int s, int d) { return std::uint8_t((s * above + d * below + total / 2) / total); };
        destination = {mean(source.red, destination.red), mean(source.green, destination.green),
                       mean(source.blue, destination.blue), std::uint8_t((total + 127) / 255)};
    }

    /// One version of a picture over another: the source covers by `opacity`, 0..256 (clamped), alone, and alpha
    /// is mixed like the colours, so that what is half transparent in both stays so. 256 gives the very bytes of
    /// the source, 0 leaves those of the destination.
    constexpr void operator()(const HBRGBA32i& source, HBRGBA32i& destination, int opacity) const
    {
        const int above = opacity < 0 ? 0 : opacity > 256 ? 256 : opacity;
        auto mean = [=](int s, int d) { return std::uint8_t((s * above + d * (256 - above) + 128) >> 8); };
        destination = {mean(source.red, destination.red), mean(source.green, destination.green),
                       mean(source.blue, destination.blue), mean(source.alpha, destination.alpha)};
    }
};

/// Takes an adjustment back where nothing is selected: destination, which holds the adjusted pixel, becomes the
/// mean of source and destination weighted by the selection's coverage, which is its alpha. Exact at 0 (the
/// source's bytes) and at 255 (the destination's).
struct HBSourceBySelection
{
    constexpr void operator()(const HBRGBA32i& source, HBRGBA32i& destination, const HBRGBA32i& selection) const
    {
        const int coverage = selection.alpha;
        destination = {Mix(source.red, destination.red, coverage), Mix(source.green, destination.green, coverage),
                       Mix(source.blue, destination.blue, coverage),
                       Mix(source.alpha, destination.alpha, coverage)};
    }
};

} // namespace HBBlend
