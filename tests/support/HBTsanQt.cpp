// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// Tells the thread sanitizer what Qt, which was built without it, orders between threads: its read/write lock, and
// the handing over of work to the pool and of a job's result to the future. Linked into a test program,
// these functions stand before Qt's own, which they call; so no race of our own has to be suppressed with Qt's.
#include <QFutureInterface>
#include <QReadWriteLock>
#include <QRunnable>
#include <QtConcurrent/qtconcurrentthreadengine.h>
#include <QThreadPool>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

char jobStart;
char jobEnd;

/// Qt's own function of that (mangled) name.
template <class Result, class... Arguments>
Result CallQt(const char* name, Arguments... arguments) {
    const auto function = reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, name));
    return function(arguments...);
}

} // namespace

void QReadWriteLock::lockForRead() {
    CallQt<void>("_ZN14QReadWriteLock11lockForReadEv", this);
    __tsan_acquire(this);
}

void QReadWriteLock::lockForWrite() {
    CallQt<void>("_ZN14QReadWriteLock12lockForWriteEv", this);
    __tsan_acquire(this);
}

void QReadWriteLock::unlock() {
    __tsan_release(this);
    CallQt<void>("_ZN14QReadWriteLock6unlockEv", this);
}

/// The threads of a parallel map.
bool QThreadPool::tryStart(QRunnable* runnable) {
    __tsan_release(runnable);
    return CallQt<bool>("_ZN11QThreadPool8tryStartEP9QRunnable", this, runnable);
}

void QtConcurrent::ThreadEngineBase::run() {
    __tsan_acquire(static_cast<QRunnable*>(this));
    CallQt<void>("_ZN12QtConcurrent16ThreadEngineBase3runEv", this);
}

namespace {

/// What a pool is given, with the order between its threads: the first that runs there is not looked at.
class Ordered : public QRunnable {
public:
    explicit Ordered(QRunnable* runnable) : m_pRunnable(runnable) {}
    __attribute__((no_sanitize("thread"))) void run() override {
        __tsan_acquire(m_pRunnable);
        const bool mine = m_pRunnable->autoDelete();
        m_pRunnable->run();
        if (mine) delete m_pRunnable;
    }

private:
    QRunnable* const m_pRunnable;
};

} // namespace

/// Jobs, lanes, and further threads of a map.
void QThreadPool::start(QRunnable* runnable, int priority) {
    __tsan_release(runnable);
    __tsan_release(&jobStart);
    // A future finds its job in the pool's queue by the pointer, to run it itself.
    if (!dynamic_cast<QFutureInterfaceBase*>(runnable)) runnable = new Ordered(runnable);
    CallQt<void>("_ZN11QThreadPool5startEP9QRunnablei", this, runnable, priority);
}

/// The first thing that a job asks.
bool QFutureInterfaceBase::isCanceled() const {
    __tsan_acquire(&jobStart);
    return CallQt<bool>("_ZNK20QFutureInterfaceBase10isCanceledEv", this);
}

void QFutureInterfaceBase::reportResultsReady(int begin, int end) {
    __tsan_release(&jobEnd);
    CallQt<void>("_ZN20QFutureInterfaceBase18reportResultsReadyEii", this, begin, end);
}

void QFutureInterfaceBase::reportFinished() {
    __tsan_release(&jobEnd);
    CallQt<void>("_ZN20QFutureInterfaceBase14reportFinishedEv", this);
}

void QFutureInterfaceBase::waitForFinished() {
    CallQt<void>("_ZN20QFutureInterfaceBase15waitForFinishedEv", this);
    __tsan_acquire(&jobEnd);
}

QtPrivate::ResultStoreBase& QFutureInterfaceBase::resultStoreBase() {
    __tsan_acquire(&jobEnd);
    return CallQt<QtPrivate::ResultStoreBase&>("_ZN20QFutureInterfaceBase15resultStoreBaseEv", this);
}

const QtPrivate::ResultStoreBase& QFutureInterfaceBase::resultStoreBase() const {
    __tsan_acquire(&jobEnd);
    return CallQt<const QtPrivate::ResultStoreBase&>("_ZNK20QFutureInterfaceBase15resultStoreBaseEv", this);
}
