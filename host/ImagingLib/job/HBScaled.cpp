// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBScaled.h"

#include "HBParallel.h"

#include <QRunnable>
#include <QThread>
#include <QThreadPool>

#include <future>
#include <memory>
#include <new>
#include <system_error>

QImage HBScaled(const QImage& image, const QSize& size, Qt::AspectRatioMode mode)
{
    constexpr int largestAlone = 2 * 65536 - 1; // pixels that Qt scales without help
    const auto scale = [=] {
        const QImage scaled = image.scaled(size, mode, Qt::SmoothTransformation);
        if (scaled.isNull() && !image.isNull())
            throw std::bad_alloc();
        return scaled;
    };
    QThreadPool& pool = *QThreadPool::globalInstance();
    // A thread of the pool itself asks nobody for help.
    if (qint64(image.width()) * image.height() <= largestAlone || pool.contains(QThread::currentThread()))
        return scale();
    const auto task = std::make_shared<std::packaged_task<QImage()>>(scale);
    if (!HBTryStart(pool, [&] { pool.start(QRunnable::create([task] { (*task)(); })); }))
        throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
    return task->get_future().get();
}
