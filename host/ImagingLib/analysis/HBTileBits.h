// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImage.h"

#include <QRect>

#include <array>

/// A bit for each pixel of a row of a tile, the leftmost the lowest.
__extension__ typedef unsigned __int128 HBBitRow;
static_assert(sizeof(HBBitRow) * 8 == HBImage<>::TileSide);

/// A bit for each pixel of a tile, a row after the other.
using HBTileBits = std::array<HBBitRow, HBImage<>::TileSide>;

/// How many zeros come before the first set bit; TileSide if none is set.
inline int HBTrailingZeros(HBBitRow row)
{
    const auto low = std::uint64_t(row);
    const auto high = std::uint64_t(row >> 64);
    return low ? __builtin_ctzll(low) : high ? 64 + __builtin_ctzll(high) : HBImage<>::TileSide;
}

/// The lowest `count` bits; 0 .. TileSide.
inline HBBitRow HBLowBits(int count)
{
    return count >= HBImage<>::TileSide ? ~HBBitRow(0) : (HBBitRow(1) << count) - 1;
}

/// Calls function(first, count) for each run of set bits, from left to right.
template <class Function>
void HBForEachRun(HBBitRow row, Function function)
{
    for (int at = 0; row;) {
        const int gap = HBTrailingZeros(row);
        row >>= gap;
        const int count = HBTrailingZeros(~row);
        function(at + gap, count);
        row = count < HBImage<>::TileSide ? row >> count : 0;
        at += gap + count;
    }
}

/// The pixels of a tile whose channels are all within the limits; those outside `size` are not.
/// \param pixels of a whole tile
HBTileBits HBMatchTile(const HBRGBA32i* pixels, HBRGBA32i lowest, HBRGBA32i highest, const QSize& size);

/// Adds to `filled` what can be reached from `seeds` through `open`, side by side. Seeds outside `open` are
/// ignored.
void HBSpreadInTile(const HBTileBits& open, const HBTileBits& seeds, HBTileBits& filled);

/// The smallest rectangle that holds all set bits; empty if there are none.
QRect HBBounds(const HBTileBits& mask);
