// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBParallel.h"

#include <QtConcurrent>
#include <QThreadPool>
#include <QVector>

#include <exception>
#include <mutex>

int HBLaneCount(int items)
{
    return qBound(1, qMin(items, QThreadPool::globalInstance()->maxThreadCount()), 64);
}

void HBRunLanes(int lanes, const std::function<void()>& lane)
{
    // The mutex also orders the caller before each lane and each lane before the return. Qt does that too, but where
    // the thread sanitizer, which has not built Qt, cannot see it.
    std::mutex mutex;
    std::exception_ptr first;
    auto synchronize = [&](const std::exception_ptr& thrown) {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!first)
            first = thrown;
    };
    // The exception is kept here, not left to the map: that would replace it by an unknown one of its own.
    auto guarded = [&](int) {
        synchronize(nullptr);
        try {
            lane();
            synchronize(nullptr);
        } catch (...) {
            synchronize(std::current_exception());
        }
    };
    synchronize(nullptr);
    QVector<int> indices(lanes);
    // startBlocking() makes the calling thread one of the workers; blockingMap() would only wait.
    QtConcurrent::startMap(indices.begin(), indices.end(), QtPrivate::createFunctionWrapper(guarded))
        .startBlocking();
    synchronize(nullptr);
    if (first)
        std::rethrow_exception(first);
}
