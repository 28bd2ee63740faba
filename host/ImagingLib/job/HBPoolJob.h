// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBParallel.h"

#include <QByteArray>
#include <QFutureInterface>
#include <QFutureWatcher>
#include <QScopeGuard>
#include <QtConcurrent>
#include <QThreadPool>

#include <memory>

/// Runs a job on that pool and hands its future to the watcher; false if the system starts no thread for it. Some
/// memory is kept back until the job has ended: Qt ends the process if it cannot tell the end, or that a job has
/// thrown, for want of it. The watcher's thread.
template <class Result, class Job>
bool HBTryWatch(QThreadPool& pool, QFutureWatcher<Result>* watcher, const Job& job)
{
    return HBTryStart(pool, [&] {
        const auto room = std::make_shared<QByteArray>(1 << 18, Qt::Uninitialized);
        watcher->setFuture(QtConcurrent::run(&pool, [job, room]() -> Result {
            const auto giveBack = qScopeGuard([&room] { room->clear(); });
            return job();
        }));
    });
}

/// The same on the jobs' pool (HBThreadPool); where the system starts no more threads, at once. The job must not
/// throw. The watcher's thread.
template <class Result, class Job>
void HBWatchInPool(QFutureWatcher<Result>* watcher, const Job& job)
{
    if (HBTryWatch(HBThreadPool(), watcher, job))
        return;
    QFutureInterface<Result> done;
    done.reportStarted();
    done.reportResult(job());
    done.reportFinished();
    watcher->setFuture(done.future());
}
