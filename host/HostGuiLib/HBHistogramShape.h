// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiLibExport.h"

#include <QtGlobal>

#include <array>
#include <vector>

/// The outline of one channel's histogram: what is drawn, without a widget.
struct HB_HOSTGUILIB_EXPORT HBHistogramShape
{
    using Levels = std::array<quint64, 256>;

    std::array<double, 256> heights{}; ///< 0..1
    std::array<bool, 256> cut{};       ///< higher than the ceiling, shown as 1

    /// The count that is drawn at full height. A few levels that tower above all others (a white background,
    /// clipped shadows) do not count, or they would press the rest into the base line. At least 1.
    static double Ceiling(const Levels& counts);
    /// The counts over a ceiling, each mixed with its neighbours so that a stretched picture's gaps do not
    /// flicker.
    static HBHistogramShape Of(const Levels& counts, double ceiling);

    /// One level for each run of levels that are cut: the one to mark.
    std::vector<int> CutPeaks(const Levels& counts) const;
};
