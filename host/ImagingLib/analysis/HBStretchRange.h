// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"

#include <utility>

/// The levels between which an automatic adjustment stretches a channel: low is the last level at which the
/// running share of the pixels is still below 0.2 % (lo itself if the first level reaches it), high the first at
/// which it reaches 99.8 %; at least 16 apart and inside 0..255. Without pixels the answer comes from lo and hi
/// alone.
/// \param counts pixels per level, 256 of them
/// \param lo, hi lowest and highest level that occurs, inside 0..255
/// \param total number of pixels
HB_IMAGINGLIB_EXPORT std::pair<int, int> HBStretchRange(const unsigned* counts, int lo, int hi, double total);
