// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBParallel.h"

#include <QByteArray>
#include <QFutureInterface>
#include <QFutureWatcher>
#include <QtConcurrent>
#include <QThreadPool>

#include <memory>

/// Runs a job on the pool (HBThreadPool) and hands its future to the watcher; where the system starts no more
/// threads, at once. The job must not throw. The watcher's thread.
template <class Result, class Job>
void HBWatchInPool(QFutureWatcher<Result>* watcher, const Job& job)
{
    QThreadPool& pool = HBThreadPool();
    const auto start = [&] {
        // A job that has used up the memory leaves some to Qt, which ends the process if it cannot tell the end.
        const auto room = std::make_shared<QByteArray>(1 << 18, Qt::Uninitialized);
        watcher->setFuture(QtConcurrent::run(&pool, [job, room] {
            Result result = job();
            room->clear();
            return result;
        }));
    };
    if (HBTryStart(pool, start))
        return;
    QFutureInterface<Result> done;
    done.reportStarted();
    done.reportResult(job());
    done.reportFinished();
    watcher->setFuture(done.future());
}
