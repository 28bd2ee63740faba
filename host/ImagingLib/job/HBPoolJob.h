// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBParallel.h"

#include <QFutureInterface>
#include <QFutureWatcher>
#include <QtConcurrent>
#include <QThreadPool>

/// Runs a job on the pool (HBThreadPool) and hands its future to the watcher; where the system starts no more
/// threads, at once. The job must not throw. The watcher's thread.
template <class Result, class Job>
void HBWatchInPool(QFutureWatcher<Result>* watcher, const Job& job)
{
    QThreadPool& pool = HBThreadPool();
    if (HBTryStart(pool, [&] { watcher->setFuture(QtConcurrent::run(&pool, job)); }))
        return;
    Job own = job;
    QFutureInterface<Result> done;
    done.reportStarted();
    done.reportResult(own());
    done.reportFinished();
    watcher->setFuture(done.future());
}
