// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"

#include <functional>

class QThreadPool;

/// "The pool" of all jobs and lanes: the program's, or the default one: Qt 5's global pool, with Qt 6 one of ours.
HB_IMAGINGLIB_EXPORT QThreadPool& HBThreadPool();
/// For a program that fills the global pool with tasks of its own. Null: the default pool. Not owned; it must
/// outlive all work, and is set while none is done.
HB_IMAGINGLIB_EXPORT void HBSetThreadPool(QThreadPool* pool);

/// How many lanes share work of `items` independent pieces: one per thread of the pool, at most one per piece, at
/// least one.
HB_IMAGINGLIB_EXPORT int HBLaneCount(int items);

/// Runs `lane` on the calling thread and on up to `lanes` - 1 threads of the pool at once, and returns when
/// all that began have ended. A lane takes pieces of the work until none is left, so that one alone can do all of
/// it: the caller takes part and never waits for a thread that does not come, be it on a pool thread itself, with
/// a full pool, or where the system starts no more threads. Every parallel step of a job goes through here.
///
/// If lanes throw, the others still run to their end; then the first exception is rethrown as it was thrown.
HB_IMAGINGLIB_EXPORT void HBRunLanes(int lanes, const std::function<void()>& lane);

/// Calls `step` again and again, on a thread of the pool that nothing else wants, until it returns false.
/// After each step whatever waits for a thread goes first, so that a step should be short: a fraction of a
/// millisecond. It must not throw. Where the system starts no more threads, all steps are done before this
/// returns.
HB_IMAGINGLIB_EXPORT void HBRunBehind(const std::function<bool()>& step);

/// Calls `start`, which hands one task to the pool, if the pool will have a thread for it. False, and nothing is
/// handed over, with too little memory, and where the system starts no more threads: Qt's pool would lose the
/// task, and wait for its end for ever when the program ends, or end the process itself. Every task of ours goes
/// through here. Any thread.
HB_IMAGINGLIB_EXPORT bool HBTryStart(QThreadPool& pool, const std::function<void()>& start);
