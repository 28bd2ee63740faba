// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBLightStatistics.h"
#include "KMWBTransformation.h"

// White balance as channel tables, from what was measured in a picture; see KMIterativeWBTransformation for the
// formulas. The strength is in percent, 0..100, clamped; 0 is the exact identity.

/// The correction of the colour cast that the norms tell of.
HB_IMAGINGLIB_EXPORT HBChannelTables HBCorrectCast(const HBChannelNorms& norms, int strength);

/// The correction of too much or too little light; the identity for any other function.
/// \param logAverage luminance of the picture, as HBLogAverageLook measures it
HB_IMAGINGLIB_EXPORT HBChannelTables HBCorrectLight(double logAverage,
                                                    KMWBTransformation::BalanceFunction function, int strength);
