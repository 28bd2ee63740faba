// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayPipeline.h"

#include "HBInterrupt.h"

#include <KMTileManager64.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFutureWatcher>
#include <QtConcurrent>
#include <QThread>
#include <QTimer>

#include <new>

namespace
{

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(PanelReplay)
};

/// What a photo takes while it is read or written: as tiles and as Qt's picture.
qint64 BytesOf(const QSize& size)
{
    return size.isValid() ? qint64(size.width()) * size.height() * 8 : 0;
}

/// False: an interrupt came first.
template <class Result>
bool WaitFor(const QFuture<Result>& future)
{
    if (future.isFinished())
        return !HBIsInterrupted();
    constexpr int glance = 50; // ms; a signal handler cannot wake the event loop
    QEventLoop loop;
    QFutureWatcher<Result> watcher;
    QTimer timer;
    QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, &QEventLoop::quit);
    QObject::connect(&timer, &QTimer::timeout, &loop, [&loop] {
        if (HBIsInterrupted())
            loop.quit();
    });
    watcher.setFuture(future);
    timer.start(glance);
    while (!future.isFinished() && !HBIsInterrupted())
        loop.exec();
    return !HBIsInterrupted();
}

} // namespace

HBReplayPipeline::HBReplayPipeline(const QVector<HBReplayTask>& tasks, const HBRecipe& recipe,
                                   const HBPhotoOptions& options)
    : m_Tasks(tasks)
    , m_Recipe(recipe)
    , m_Options(options)
    , m_Log(tasks.size())
    , m_Ahead(qBound(2, QThread::idealThreadCount(), 8))
{
    m_Pool.setMaxThreadCount(m_Ahead);
}

int HBReplayPipeline::Run()
{
    for (ReadAhead(); !m_Reads.empty() && !HBIsInterrupted(); ReadAhead()) {
        TakeRead();
        while (!HBIsInterrupted() && !m_Writes.empty() && (int(m_Writes.size()) > m_Ahead || !HasRoomFor(0)))
            FinishWrite();
    }
    while (!m_Writes.empty() && !HBIsInterrupted())
        FinishWrite();
    if (HBIsInterrupted()) {
        FinishInterrupted();
        m_Log.Message(Text::tr("interrupted; %1 of %2 photos were written").arg(m_Good).arg(m_Tasks.size()));
    }
    return m_Tasks.size() - m_Good;
}

bool HBReplayPipeline::HasRoomFor(qint64 bytes) const
{
    return m_Bytes + bytes <= KMTileManager64::Instance().MemoryBudget() / 2;
}

void HBReplayPipeline::ReadAhead()
{
    while (m_Next < m_Tasks.size() && int(m_Reads.size()) < m_Ahead) {
        const HBReplayTask task = m_Tasks[m_Next];
        const qint64 bytes = task.problem.isEmpty() ? BytesOf(HBPhotoSize(task.input)) : 0;
        if (!m_Reads.empty() && !HasRoomFor(bytes))
            return;
        ++m_Next;
        m_Bytes += bytes;
        const auto future = QtConcurrent::run(&m_Pool, [task, bytes] {
            Read read{task, {}, {}, bytes};
            if (HBIsInterrupted())
                return read; // nobody wants it any more
            if (task.problem.isEmpty())
                HBReadPhoto(task.input, &read.photo, &read.error);
            else
                read.error = task.input + ": " + task.problem;
            return read;
        });
        m_Reads.push_back({future, bytes});
    }
}

void HBReplayPipeline::TakeRead()
{
    const Work<Read> work = m_Reads.front();
    if (!WaitFor(work.future))
        return;
    m_Reads.pop_front();
    m_Bytes -= work.bytes;
    Adjust(work.future.result());
}

void HBReplayPipeline::Adjust(const Read& read)
{
    QString error = read.error;
    HBImage<> adjusted;
    if (error.isEmpty()) {
        try {
            adjusted = HBApplyRecipe(read.photo.image, m_Recipe, &error, [](int) { return !HBIsInterrupted(); });
        } catch (const std::bad_alloc&) {
            error = Text::tr("there is not enough memory");
        }
        if (!error.isEmpty())
            error = read.task.input + ": " + error;
    }
    if (!error.isEmpty()) {
        Finish(read.task.input, error, {});
        return;
    }
    if (adjusted.IsEmpty())
        return; // given up
    const auto saving = std::make_shared<std::atomic<bool>>(false);
    HBPhotoOptions options = m_Options;
    options.mayWrite = [saving] {
        *saving = true; // before the question: FinishInterrupted() looks in the other order
        return !HBIsInterrupted();
    };
    const auto future =
        QtConcurrent::run(&m_Pool, [task = read.task, adjusted, options, told = read.photo.warnings] {
            Written written{task.input, {}, told};
            if (!HBIsInterrupted())
                HBWritePhoto(task.output, adjusted, options, &written.error, &written.warnings);
            return written;
        });
    m_Writes.push_back({future, read.bytes, saving});
    m_Bytes += read.bytes;
}

void HBReplayPipeline::FinishWrite()
{
    if (!WaitFor(m_Writes.front().future))
        return;
    const Written written = m_Writes.front().future.result();
    m_Bytes -= m_Writes.front().bytes;
    m_Writes.pop_front();
    Finish(written.input, written.error, written.warnings);
}

void HBReplayPipeline::FinishInterrupted()
{
    for (const Work<Written>& work : m_Writes) {
        if (!*work.saving)
            continue;
        const Written written = work.future.result(); // soon
        if (written.error.isEmpty())
            Finish(written.input, {}, written.warnings);
    }
}

void HBReplayPipeline::Finish(const QString& input, const QString& error, const QStringList& warnings)
{
    m_Log.FileDone(input);
    for (const QString& warning : warnings)
        m_Log.Message(input + ": " + warning);
    if (error.isEmpty())
        ++m_Good;
    else
        m_Log.Message(error);
}
