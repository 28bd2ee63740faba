// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBParallel.h"

#include "HBQtImage.h"

#include <QCoreApplication>
#include <QRunnable>
#include <QThreadPool>

#include <atomic>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>

namespace
{

/// What the caller and its helpers share. A helper that the pool never starts, or starts too late, finds it closed
/// and leaves the lane, which has gone by then, alone. The mutex also orders the caller before each lane and each
/// lane before the return.
struct Lanes
{
    std::mutex mutex;
    std::condition_variable ended;
    const std::function<void()>* lane;
    std::exception_ptr first;
    int running = 0;
    bool closed = false;

    bool Begin()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (closed)
            return false;
        ++running;
        return true;
    }
    void Run()
    {
        std::exception_ptr thrown;
        try {
            (*lane)();
        } catch (...) {
            thrown = std::current_exception();
        }
        const std::lock_guard<std::mutex> lock(mutex);
        if (!first)
            first = thrown;
        --running;
        ended.notify_all();
    }
    void WaitForEnd()
    {
        std::unique_lock<std::mutex> lock(mutex);
        closed = true;
        ended.wait(lock, [this] { return running == 0; });
    }
};

std::atomic<QThreadPool*> ownPool{nullptr};

/// Where the program has set none.
QThreadPool& DefaultPool()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return *QThreadPool::globalInstance();
#else
    // Qt 6 itself draws and converts on the global pool, and has the window wait: not behind our jobs. As that
    // one, it is waited for when the application ends. Never deleted: what it would use may be gone by then.
    static QThreadPool* const pool = [] {
        qAddPostRoutine([] { DefaultPool().waitForDone(); });
        return new QThreadPool;
    }();
    return *pool;
#endif
}

class Helper : public QRunnable
{
public:
    explicit Helper(const std::shared_ptr<Lanes>& lanes) : m_pLanes(lanes) {}

    void run() override
    {
        if (m_pLanes->Begin())
            m_pLanes->Run();
    }

private:
    const std::shared_ptr<Lanes> m_pLanes;
};

class Behind : public QRunnable
{
public:
    explicit Behind(const std::function<bool()>& step) : m_Step(step) {}

    void run() override
    {
        QThreadPool& pool = HBThreadPool();
        while (m_Step()) {
            // With a thread to spare nobody waits.
            if (pool.activeThreadCount() >= pool.maxThreadCount() && Start(pool, m_Step))
                return;
        }
    }
    static bool Start(QThreadPool& pool, const std::function<bool()>& step)
    {
        constexpr int lowPriority = -1;
        return HBTryStart(pool, [&] { pool.start(new Behind(step), lowPriority); });
    }

private:
    const std::function<bool()> m_Step;
};

} // namespace

QThreadPool& HBThreadPool()
{
    QThreadPool* pool = ownPool;
    return pool ? *pool : DefaultPool();
}

void HBSetThreadPool(QThreadPool* pool)
{
    ownPool = pool;
}

int HBLaneCount(int items)
{
    return qBound(1, qMin(items, HBThreadPool().maxThreadCount()), 64);
}

void HBRunLanes(int lanes, const std::function<void()>& lane)
{
    const auto shared = std::make_shared<Lanes>();
    shared->lane = &lane;
    shared->Begin();
    QThreadPool& pool = HBThreadPool();
    bool started = true; // fewer lanes do the same work
    for (int helper = 1; helper < lanes && started; ++helper)
        started = HBTryStart(pool, [&] { pool.start(new Helper(shared)); });
    shared->Run();
    shared->WaitForEnd();
    if (shared->first)
        std::rethrow_exception(shared->first);
}

void HBRunBehind(const std::function<bool()>& step)
{
    if (Behind::Start(HBThreadPool(), step))
        return;
    while (step()) {
    }
}

bool HBTryStart(QThreadPool& pool, const std::function<void()>& start)
{
    // The thread tried leaves its stack to the one that the pool makes next. Another start between the two would
    // take it.
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    try {
        if (pool.activeThreadCount() < pool.maxThreadCount()) { // else a thread that exists will come
            HBCheckMemory();                                    // Qt ends the process if its thread gets none
            std::thread([] {}).join();
        }
        start();
    } catch (const std::system_error&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}
