// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBReplayOptions.h"

/// The command merge: prints one report of several, the photos sorted by their paths, with what is known of each
/// at last. On standard error it names what failed, what is missing, and what was done twice; this alone is no
/// failure, unless the results differ.
int HBMergeReports(const HBReplayOptions& options);
