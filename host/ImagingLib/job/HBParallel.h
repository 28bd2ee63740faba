// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "imaginglib_export.h"

#include <functional>

/// How many lanes share work of `items` independent pieces: one per thread of the global pool, at most one per
/// piece, at least one.
IMAGINGLIB_EXPORT int HBLaneCount(int items);

/// Runs `lane` `lanes` times, on the calling thread and on threads of the global pool, and returns when all have
/// ended. The caller takes part, so this is safe on a pool thread and with a full pool, where a plain blocking map
/// waits for ever for a thread that never comes. Every parallel step of a job goes through here.
///
/// If lanes throw, the others still run to their end; then the first exception is rethrown as it was thrown.
IMAGINGLIB_EXPORT void HBRunLanes(int lanes, const std::function<void()>& lane);
