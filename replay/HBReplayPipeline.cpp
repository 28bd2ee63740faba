// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayPipeline.h"

#include "HBInterrupt.h"
#include "HBReplayJournal.h"
#include "HBReplayWords.h"

#include <HBParallel.h>
#include <KMTileManager64.h>

#include <QFile>
#include <QRunnable>

#include <chrono>
#include <fcntl.h>
#include <functional>
#include <new>
#include <unistd.h>
#include <utility>

namespace
{

/// A signal handler cannot wake a thread.
constexpr std::chrono::milliseconds glance{50};
/// Photos that wait to be told, because one before them takes long.
constexpr std::size_t mostWaiting = 10000;
constexpr int mostRefused = 256;

/// What a photo takes at most: before a pass, after it and as the source; or as tiles and as Qt's picture.
qint64 BytesOf(const QSize& size)
{
    return size.isValid() ? qint64(size.width()) * size.height() * 12 : 0;
}

bool HasBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() == bytes.size() && file.readAll() == bytes;
}

/// The system begins to read the file, so that nobody has to wait for the disk when its turn comes. Only a hint.
void ReadAhead(const QString& path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file >= 0) {
        ::posix_fadvise(file, 0, 0, POSIX_FADV_WILLNEED);
        ::close(file);
    }
}

double Seconds(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e9;
}

} // namespace

HBReplayPipeline::HBReplayPipeline(const QVector<HBReplayTask>& tasks, const HBReplayWork& work,
                                   HBReplayReport* report)
    : m_Tasks(tasks)
    , m_Job(work)
    , m_pReport(report)
    , m_Log(tasks.size())
{
    m_Pool.setMaxThreadCount(2 * m_Job.jobs); // as many again may wait for the disk
}

void HBReplayPipeline::Run()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    const auto hasMore = [this] { return m_Next < m_Tasks.size() && !(m_Job.failFast && m_HasFailure); };
    while (!HBIsInterrupted() && (hasMore() || !m_Works.empty())) {
        const bool more = hasMore();
        lock.unlock();
        if (more)
            Start();
        lock.lock();
        if (!m_Works.empty() && m_Works.front()->done) {
            Tell(*m_Works.front());
            m_Works.pop_front();
        } else {
            m_Changed.wait_for(lock, glance);
            GiveUpWhatTakesTooLong();
        }
    }
    lock.unlock();
    if (HBIsInterrupted())
        FinishInterrupted();
}

bool HBReplayPipeline::HasThreadsLeft()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Running + m_Saving > 0;
}

/// As many photos as there is room for.
void HBReplayPipeline::Start()
{
    // Now and then it must end also in a long row of those that are refused, so that they are told.
    for (int refused = 0; m_Next < m_Tasks.size() && m_Works.size() < mostWaiting && refused < mostRefused;) {
        if (!m_pNext) {
            m_pNext = std::make_shared<Work>(m_Tasks[m_Next]);
            m_pNext->done = IsRefused(*m_pNext);
        }
        const bool runs = !m_pNext->done;
        {
            const std::lock_guard<std::mutex> lock(m_Mutex);
            if (runs && (m_Running >= m_Job.jobs || m_Saving >= m_Job.jobs || !HasRoomFor(m_pNext->bytes)))
                return;
            m_HasFailure |= !runs && m_pNext->result.status == HBReplayResult::Failed;
            m_Running += runs;
            m_Bytes += m_pNext->bytes;
            m_Works.push_back(m_pNext);
        }
        ++m_Next;
        const std::shared_ptr<Work> work = std::exchange(m_pNext, nullptr);
        if (runs)
            StartThread(work);
        else
            ++refused;
    }
}

void HBReplayPipeline::StartThread(const std::shared_ptr<Work>& work)
{
    work->since.start();
    const auto run = [this, work] {
        const HBReplayResult result = Do(*work);
        const std::lock_guard<std::mutex> lock(m_Mutex);
        --(work->saving ? m_Saving : m_Running);
        m_Bytes -= work->bytes;
        if (!work->givenUp) {
            work->isCutShort = HBIsInterrupted() && result.status == HBReplayResult::Failed;
            work->result = result;
            work->done = true;
            m_HasFailure |= result.status == HBReplayResult::Failed;
        }
        m_Changed.notify_all();
    };
    // Where the system starts no more threads, this one does the work.
    if (!HBTryStart(m_Pool, [&] { m_Pool.start(QRunnable::create(run)); }))
        run();
}

/// What needs no thread to be told, because nothing is to be done.
bool HBReplayPipeline::IsRefused(Work& work)
{
    const HBReplayTask& task = work.task;
    QString reason = task.reason;
    if (task.kind == HBReplayTask::Do) {
        const QSize size = HBPhotoSize(task.input);
        work.bytes = BytesOf(size);
        reason = m_Job.bounds.Problem(size, HBStateOf(task.input).size, m_Job.cost, m_Job.jobs);
        if (reason.isEmpty()) {
            if (size.isValid()) // not of a pipe or the like
                ReadAhead(task.input);
            return false;
        }
        work.bytes = 0;
    }
    Refuse(work, reason);
    return true;
}

void HBReplayPipeline::Refuse(Work& work, const QString& reason)
{
    const bool skips = work.task.kind == HBReplayTask::Skip;
    work.result.status = skips ? HBReplayResult::Skipped : HBReplayResult::Failed;
    work.result.error = skips ? reason : work.task.input + ": " + reason;
}

bool HBReplayPipeline::HasRoomFor(qint64 bytes) const
{
    return m_Running + m_Saving == 0 || m_Bytes + bytes <= KMTileManager64::Instance().MemoryBudget() / 2;
}

/// On a thread of its own.
HBReplayResult HBReplayPipeline::Do(Work& work)
{
    HBReplayResult result;
    const QString& input = work.task.input;
    const auto isWanted = [&work] { return !HBIsInterrupted() && !work.givenUp; };
    QElapsedTimer timer;
    timer.start();
    const HBFileState state = HBStateOf(input); // as it was before it is read
    HBPhoto photo;
    if (!isWanted() || !HBReadPhoto(input, &photo, &result.error, isWanted))
        return result;
    result.size = {photo.image.Width(), photo.image.Height()};
    result.warnings = photo.warnings;
    result.readSeconds = Seconds(timer);
    timer.start();
    QString error;
    try {
        const HBImage<> source = std::exchange(photo.image, {});
        photo.image = HBApplyRecipe(source, m_Job.recipe, &error, [&](int) { return isWanted(); });
    } catch (const std::bad_alloc&) {
        error = HBReplayWords::tr("there is not enough memory");
    }
    result.adjustSeconds = Seconds(timer);
    if (!error.isEmpty()) {
        result.error = input + ": " + error;
        result.warnings.clear();
        return result;
    }
    if (photo.image.IsEmpty())
        return result; // given up
    timer.start();
    HBPhotoOptions options = m_Job.photo;
    QString refusal; // instead of the writer's own words for that
    bool isSame = false;
    options.mayWrite = [&](const QByteArray& bytes) {
        if (m_Job.verifies || m_pReport->IsJson()) {
            result.bytes = bytes.size();
            result.hash = HBHashOf(bytes);
        }
        if (m_Job.verifies) {
            isSame = HasBytes(work.task.output, bytes);
            refusal = HBReplayWords::tr("%1 is not what the recipe gives").arg(work.task.output);
            return false;
        }
        return MaySave(work, state, bytes, &refusal);
    };
    const bool written = HBWritePhoto(work.task.output, photo.image, options, &result.error, &result.warnings);
    result.writeSeconds = Seconds(timer);
    if (written || isSame) {
        result.status = HBReplayResult::Done;
        result.error.clear();
    } else if (!refusal.isEmpty()) {
        result.error = input + ": " + refusal;
    }
    return result;
}

/// The last moment before the result goes to the disk.
bool HBReplayPipeline::MaySave(Work& work, const HBFileState& photo, const QByteArray& bytes, QString* reason)
{
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        work.saving = true; // before the question: FinishInterrupted() looks in the other order
        --m_Running;
        ++m_Saving;
        if (HBIsInterrupted() || work.givenUp)
            return false;
    }
    m_Changed.notify_all();
    const HBReplayTask& task = work.task;
    if (task.modified != 0 && HBStateOf(task.input).modified != task.modified) {
        *reason = HBReplayWords::tr("it has changed since the run began; perhaps another run has adjusted it");
        return false;
    }
    return !m_Job.journal || m_Job.journal->Note(task.input, photo, task.output, !task.replaces, bytes, reason);
}

/// A thread cannot be stopped while it decodes or encodes: it goes on without being listened to. With the mutex.
void HBReplayPipeline::GiveUpWhatTakesTooLong()
{
    for (const std::shared_ptr<Work>& work : m_Works) {
        if (work->done || work->saving || double(work->since.elapsed()) < 1000 * m_Job.bounds.seconds)
            continue;
        work->givenUp = true;
        work->done = true;
        work->result.error = work->task.input + ": " +
                             HBReplayWords::tr("given up after %1 s; allow it more with --max-seconds-per-file")
                                 .arg(m_Job.bounds.seconds);
        m_HasFailure = true;
    }
}

/// Tells what is known; the rest was not tried.
void HBReplayPipeline::FinishInterrupted()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    for (const std::shared_ptr<Work>& work : m_Works) {
        m_Changed.wait(lock, [&] { return work->done || !work->saving; }); // soon
        if (work->done && !work->isCutShort)
            Tell(*work);
    }
    for (int i = m_Next; i < m_Tasks.size(); ++i) {
        if (m_Tasks[i].kind == HBReplayTask::Do)
            continue;
        Work work(m_Tasks[i]);
        Refuse(work, work.task.reason);
        Tell(work);
    }
}

void HBReplayPipeline::Tell(const Work& work)
{
    const HBReplayResult& result = work.result;
    m_Log.FileDone(work.task.input);
    for (const QString& warning : result.warnings)
        m_Log.Message(work.task.input + ": " + warning);
    if (result.status == HBReplayResult::Failed)
        m_Log.Message(result.error);
    m_pReport->File(work.task, result);
}
