// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImage.h"
#include "HBImagingLibExport.h"
#include "HBJobControl.h"

#include <array>
#include <optional>

/// A low and a high level for each of HBHistogrammCalculator's channels.
using HBChannelTails = std::array<std::array<int, 2>, 4>;

/// What HBHistogrammCalculator::Threshold says of the picture's histogram, in a third of the time: a sample of
/// rows tells about where the two levels are, and then only the pixels up to levels nearby are counted, all of
/// them. Where that does not find them, or the picture is small, the whole histogram is counted. Nothing if
/// cancelled. Any thread.
/// \throws std::bad_alloc
HB_IMAGINGLIB_EXPORT std::optional<HBChannelTails> HBTailLevels(const HBImage<>& picture,
                                                                const HBJobControl* control = nullptr);
