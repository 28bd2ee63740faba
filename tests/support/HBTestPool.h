// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBParallel.h>

#include <QRunnable>
#include <QSemaphore>
#include <QThreadPool>

/// The size of the jobs' pool for the time of a test.
class HBPoolSize {
public:
    explicit HBPoolSize(int threads) { HBThreadPool().setMaxThreadCount(threads); }
    ~HBPoolSize() { HBThreadPool().setMaxThreadCount(m_Before); }
    Q_DISABLE_COPY(HBPoolSize)

private:
    const int m_Before = HBThreadPool().maxThreadCount();
};

/// Keeps the pool, of one thread meanwhile, busy until it is released or dies: jobs wait in their order.
class HBPoolBlock {
public:
    HBPoolBlock() {
        HBThreadPool().start(QRunnable::create([this] { m_Gate.acquire(); }));
    }
    ~HBPoolBlock() { Release(); }
    /// Lets all of them run and waits for their end.
    void Release() {
        m_Gate.release();
        HBThreadPool().waitForDone();
    }

private:
    const HBPoolSize m_One{1};
    QSemaphore m_Gate;
};
