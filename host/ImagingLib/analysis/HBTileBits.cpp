// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTileBits.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBTileBits.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR

bool IsWithin(HBRGBA32i pixel, HBRGBA32i lowest, HBRGBA32i highest)
{
    return pixel.red >= lowest.red && pixel.red <= highest.red && pixel.green >= lowest.green &&
           pixel.green <= highest.green && pixel.blue >= lowest.blue && pixel.blue <= highest.blue &&
           pixel.alpha >= lowest.alpha && pixel.alpha <= highest.alpha;
}

std::uint64_t Match64(const HBRGBA32i* pixels, HBRGBA32i lowest, HBRGBA32i highest)
{
    std::uint64_t matching = 0;
    for (int i = 0; i < 64; ++i)
        matching |= std::uint64_t(IsWithin(pixels[i], lowest, highest)) << i;
    return matching;
}

#else

std::uint64_t Match64(const HBRGBA32i* pixels, HBRGBA32i lowest, HBRGBA32i highest)
{
    const hn::CappedTag<std::uint32_t, 16> d;
    const hn::Repartition<std::uint8_t, decltype(d)> bytes;
    const auto low = hn::BitCast(bytes, hn::Set(d, lowest.ToRgba()));
    const auto high = hn::BitCast(bytes, hn::Set(d, highest.ToRgba()));
    const auto* words = reinterpret_cast<const std::uint32_t*>(pixels);
    std::uint64_t matching = 0;
    for (int i = 0; i < 64; i += int(hn::Lanes(d))) {
        const auto levels = hn::BitCast(bytes, hn::LoadU(d, words + i));
        const auto outside = hn::Or(hn::SaturatedSub(levels, high), hn::SaturatedSub(low, levels));
        std::uint8_t part[8] = {};
        hn::StoreMaskBits(d, hn::BitCast(d, outside) == hn::Zero(d), part);
        matching |= std::uint64_t(part[0] | (part[1] << 8)) << i;
    }
    return matching;
}

#endif

/// The rows of a whole tile.
void MatchRows(const HBRGBA32i* pixels, int rows, HBRGBA32i lowest, HBRGBA32i highest, HBTileBits& mask)
{
    for (int y = 0; y < rows; ++y, pixels += HBImage<>::TileSide) {
        const std::uint64_t left = Match64(pixels, lowest, highest);
        mask[std::size_t(y)] = HBBitRow(Match64(pixels + 64, lowest, highest)) << 64 | left;
    }
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(MatchRows);

constexpr int TileSide = HBImage<>::TileSide;
constexpr HBBitRow Full = ~HBBitRow(0);

/// The runs of `open` that hold a bit of `seeds`, which is a part of it.
HBBitRow SpreadInRow(HBBitRow open, HBBitRow seeds)
{
    if (open == Full)
        return Full;
    // To the right: the carry of the lowest seed of a run clears the bits from there to the run's end.
    HBBitRow row = (open & ~(open + seeds)) | seeds;
    // To the left, by 1, 2, 4 … pixels; `path`: so many open pixels lie in line.
    HBBitRow path = open;
    for (int step = 1; step < TileSide; step *= 2) {
        row |= path & (row >> step);
        path &= path >> step;
    }
    return row;
}

} // namespace

HBTileBits HBMatchTile(const HBRGBA32i* pixels, HBRGBA32i lowest, HBRGBA32i highest, const QSize& size)
{
    HBTileBits mask{};
    HWY_DYNAMIC_DISPATCH(MatchRows)(pixels, size.height(), lowest, highest, mask);
    for (HBBitRow& row : mask)
        row &= HBLowBits(size.width());
    return mask;
}

void HBSpreadInTile(const HBTileBits& open, const HBTileBits& seeds, HBTileBits& filled)
{
    HBTileBits waiting = seeds; // seeds of rows that are yet to be looked at
    HBBitRow rows = 0;          // which rows have any
    for (int y = 0; y < TileSide; ++y) {
        if (waiting[std::size_t(y)])
            rows |= HBBitRow(1) << y;
    }
    const auto pass = [&](int y, HBBitRow fresh) {
        if (y >= 0 && y < TileSide && fresh) {
            waiting[std::size_t(y)] |= fresh;
            rows |= HBBitRow(1) << y;
        }
    };
    // Down through the rows and again from the top while any wait.
    for (int y = 0; rows; ++y) {
        const HBBitRow further = y < TileSide ? rows >> y : 0;
        y = further ? y + HBTrailingZeros(further) : HBTrailingZeros(rows);
        const auto row = std::size_t(y);
        rows &= ~(HBBitRow(1) << y);
        const HBBitRow start = waiting[row] & open[row] & ~filled[row];
        waiting[row] = 0;
        if (!start)
            continue;
        const HBBitRow fresh = SpreadInRow(open[row], start) & ~filled[row];
        filled[row] |= fresh;
        pass(y - 1, fresh);
        pass(y + 1, fresh);
    }
}

QRect HBBounds(const HBTileBits& mask)
{
    HBBitRow columns = 0;
    int top = TileSide;
    int bottom = -1;
    for (int y = 0; y < TileSide; ++y) {
        columns |= mask[std::size_t(y)];
        if (mask[std::size_t(y)]) {
            top = qMin(top, y);
            bottom = y;
        }
    }
    if (!columns)
        return {};
    int right = TileSide - 1;
    while (!(columns >> right & 1))
        --right;
    return {QPoint(HBTrailingZeros(columns), top), QPoint(right, bottom)};
}

#endif
