// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSrgb.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace HBSrgb
{

using ByteTable = std::array<std::uint8_t, 256>;

/// A LevelTable as the four bytes of its floats, the lowest first.
struct LevelBytes
{
    ByteTable byte[4];

    explicit LevelBytes(const LevelTable& table)
    {
        for (std::size_t level = 0; level < 256; ++level) {
            std::uint32_t bits;
            std::memcpy(&bits, &table.light[level], sizeof bits);
            for (int b = 0; b < 4; ++b)
                byte[b][level] = std::uint8_t(bits >> (8 * b));
        }
    }
};

/// A ShadeTable whose levels are rounded, halves upwards, in tables of 256 bytes. A bin is 32 steps; from the
/// level of its first step on, a straight line tells the level of a step or the one below, and the step where the
/// next level begins tells which.
struct ShadeBytes
{
    static constexpr int BinBits = 5;

    ByteTable first;      ///< the level of a bin's first step
    ByteTable slope;      ///< of its line, in 1/256 level a step
    ByteTable lastLow{};  ///< the last step of a level, ...
    ByteTable lastHigh{}; ///< ... its upper byte; 65535 if the level has no end

    explicit ShadeBytes(const ShadeTable& table)
    {
        const auto levelOf = [&](int step) { return int(table.level[std::size_t(step)] + 0.5f); };
        const int steps = int(table.level.size());
        for (int bin = 0; bin < 256; ++bin) {
            const int begin = bin << BinBits;
            const int count = begin < steps ? std::min(1 << BinBits, steps - begin) : 0;
            const auto fits = [&](int tried) {
                for (int i = 0; i < count; ++i) {
                    const int missing = levelOf(begin + i) - levelOf(begin) - (tried * i >> 8);
                    if (missing < 0 || missing > 1)
                        return false;
                }
                return true;
            };
            int tried = 0;
            while (tried < 255 && !fits(tried))
                ++tried;
            isExact = isExact && fits(tried);
            first[std::size_t(bin)] = std::uint8_t(count > 0 ? levelOf(begin) : 0);
            slope[std::size_t(bin)] = std::uint8_t(tried);
        }
        std::array<int, 256> last;
        last.fill(65535);
        for (int step = 1; step < steps; ++step) {
            for (int level = levelOf(step - 1); level < levelOf(step); ++level)
                last[std::size_t(level)] = step - 1;
        }
        for (std::size_t level = 0; level < 256; ++level) {
            lastLow[level] = std::uint8_t(last[level]);
            lastHigh[level] = std::uint8_t(last[level] >> 8);
        }
    }

    bool isExact = true; ///< there is such a line for every bin; else the tables are of no use
};

} // namespace HBSrgb
