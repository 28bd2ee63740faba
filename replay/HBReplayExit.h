// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

/// What the program ends with; part of its interface.
enum HBReplayExit {
    HBAllDone = 0,
    HBFileFailed = 1, ///< also: recipes differ
    HBBadUsage = 2,   ///< or a bad recipe
    HBNothingMatched = 3,
    HBWasInterrupted = 130,
};
