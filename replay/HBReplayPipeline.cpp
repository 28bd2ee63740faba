// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayPipeline.h"

#include "HBInterrupt.h"

#include <KMTileManager64.h>

#include <QCoreApplication>
#include <QRunnable>
#include <QThread>

#include <chrono>
#include <functional>
#include <new>
#include <utility>

namespace
{

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(PanelReplay)
};

/// A signal handler cannot wake a thread.
constexpr std::chrono::milliseconds glance{50};

/// What a photo takes at most: before a pass, after it and as the source; or as tiles and as Qt's picture.
qint64 BytesOf(const QSize& size)
{
    return size.isValid() ? qint64(size.width()) * size.height() * 12 : 0;
}

} // namespace

HBReplayPipeline::HBReplayPipeline(const QVector<HBReplayTask>& tasks, const HBRecipe& recipe,
                                   const HBPhotoOptions& options)
    : m_Tasks(tasks)
    , m_Recipe(recipe)
    , m_Options(options)
    , m_Log(tasks.size())
    , m_AtOnce(qBound(2, QThread::idealThreadCount() + 1, 8)) // one may wait for the disk
{
    m_Pool.setMaxThreadCount(m_AtOnce);
}

int HBReplayPipeline::Run()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    while (!HBIsInterrupted() && (m_Next < m_Tasks.size() || !m_Works.empty())) {
        lock.unlock();
        Start();
        lock.lock();
        if (!m_Works.empty() && m_Works.front()->done) {
            Tell(*m_Works.front());
            m_Works.pop_front();
        } else {
            m_Changed.wait_for(lock, glance);
        }
    }
    lock.unlock();
    if (HBIsInterrupted()) {
        FinishInterrupted();
        m_Log.Message(Text::tr("interrupted; %1 of %2 photos were written").arg(m_Good).arg(m_Tasks.size()));
    }
    return m_Tasks.size() - m_Good;
}

/// As many photos as there is room for.
void HBReplayPipeline::Start()
{
    while (m_Next < m_Tasks.size()) {
        const HBReplayTask& task = m_Tasks[m_Next];
        if (m_NextBytes < 0)
            m_NextBytes = task.problem.isEmpty() ? BytesOf(HBPhotoSize(task.input)) : 0;
        {
            const std::lock_guard<std::mutex> lock(m_Mutex);
            if (m_Running >= m_AtOnce || !HasRoomFor(m_NextBytes))
                return;
            ++m_Running;
            m_Bytes += m_NextBytes;
        }
        ++m_Next;
        const qint64 bytes = std::exchange(m_NextBytes, -1);
        m_Works.push_back(std::make_shared<Work>(Work{task, bytes, {}, {}}));
        m_Pool.start(QRunnable::create([this, work = m_Works.back()] {
            Do(*work);
            const std::lock_guard<std::mutex> lock(m_Mutex);
            work->done = true;
            --m_Running;
            m_Bytes -= work->bytes;
            m_Changed.notify_all();
        }));
    }
}

bool HBReplayPipeline::HasRoomFor(qint64 bytes) const
{
    return m_Running == 0 || m_Bytes + bytes <= KMTileManager64::Instance().MemoryBudget() / 2;
}

/// On a thread of its own.
void HBReplayPipeline::Do(Work& work)
{
    if (HBIsInterrupted())
        return; // nobody wants it any more
    const HBReplayTask& task = work.task;
    if (!task.problem.isEmpty()) {
        work.error = task.input + ": " + task.problem;
        return;
    }
    HBPhoto photo;
    if (!HBReadPhoto(task.input, &photo, &work.error))
        return;
    work.warnings = photo.warnings;
    QString error;
    try {
        const HBImage<> source = std::exchange(photo.image, {});
        photo.image = HBApplyRecipe(source, m_Recipe, &error, [](int) { return !HBIsInterrupted(); });
    } catch (const std::bad_alloc&) {
        error = Text::tr("there is not enough memory");
    }
    if (!error.isEmpty()) {
        work.error = task.input + ": " + error;
        work.warnings.clear();
    } else if (!photo.image.IsEmpty()) { // else given up
        HBPhotoOptions options = m_Options;
        options.mayWrite = [this, &work] { return MaySave(work); };
        HBWritePhoto(task.output, photo.image, options, &work.error, &work.warnings);
    }
}

bool HBReplayPipeline::MaySave(Work& work)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    work.saving = true; // before the question: FinishInterrupted() looks in the other order
    return !HBIsInterrupted();
}

void HBReplayPipeline::FinishInterrupted()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    for (const std::shared_ptr<Work>& work : m_Works) {
        m_Changed.wait(lock, [&] { return work->done || !work->saving; }); // soon
        if (work->done && work->saving && work->error.isEmpty())
            Tell(*work);
    }
}

void HBReplayPipeline::Tell(const Work& work)
{
    m_Log.FileDone(work.task.input);
    for (const QString& warning : work.warnings)
        m_Log.Message(work.task.input + ": " + warning);
    if (work.error.isEmpty())
        ++m_Good;
    else
        m_Log.Message(work.error);
}
