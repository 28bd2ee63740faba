// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"
#include "HBRGBA32i.h"

#include <array>

/// A pixel operation that maps each colour channel by a table and keeps alpha: the common form of every adjustment
/// whose result depends on one channel at a time. Fill the tables before the first pixel.
struct HB_IMAGINGLIB_EXPORT HBChannelTables
{
    using Table = std::array<std::uint8_t, 256>;

    Table blue;
    Table green;
    Table red;

    /// The identity.
    HBChannelTables();
    /// The same table for the three channels.
    explicit HBChannelTables(const Table& all) : blue(all), green(all), red(all) {}

    void operator()(HBRGBA32i& pixel) const
    {
        pixel.blue = blue[pixel.blue];
        pixel.green = green[pixel.green];
        pixel.red = red[pixel.red];
    }
    /// The run form: the same bytes, by vector instructions where the machine has suitable ones.
    void operator()(HBRGBA32i* pixels, int count) const;
};

/// A table of function(level) for the levels 0..255, which must return 0..255 (rounded by the caller's rule).
template <class Function>
HBChannelTables::Table HBMakeTable(Function function)
{
    HBChannelTables::Table table;
    for (int level = 0; level < 256; ++level)
        table[level] = std::uint8_t(function(level));
    return table;
}

/// The tables that do what the first and then the second do, byte for byte.
HB_IMAGINGLIB_EXPORT HBChannelTables HBComposed(const HBChannelTables& first, const HBChannelTables& second);
