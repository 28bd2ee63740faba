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
    std::mutex mutex;
    std::exception_ptr first;
    // The exception is kept here, not left to the map: that would replace it by an unknown one of its own.
    auto guarded = [&](int) {
        try {
            lane();
        } catch (...) {
            const std::lock_guard<std::mutex> lock(mutex);
            if (!first)
                first = std::current_exception();
        }
    };
    QVector<int> indices(lanes);
    // startBlocking() makes the calling thread one of the workers; blockingMap() would only wait.
    QtConcurrent::startMap(indices.begin(), indices.end(), QtPrivate::createFunctionWrapper(guarded))
        .startBlocking();
    if (first)
        std::rethrow_exception(first);
}
