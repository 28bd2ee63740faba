// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayPipeline.h"

#include "HBInterrupt.h"

#include <KMTileManager64.h>

#include <QCoreApplication>
#include <QtConcurrent>
#include <QThread>

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
        Adjust(TakeRead());
        while (!m_Writes.empty() && (int(m_Writes.size()) > m_Ahead || !HasRoomFor(0)))
            FinishWrite();
    }
    while (!m_Writes.empty())
        FinishWrite();
    if (HBIsInterrupted()) {
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
            if (task.problem.isEmpty())
                HBReadPhoto(task.input, &read.photo, &read.error);
            else
                read.error = task.input + ": " + task.problem;
            return read;
        });
        m_Reads.push_back({future, bytes});
    }
}

HBReplayPipeline::Read HBReplayPipeline::TakeRead()
{
    const Work<Read> work = m_Reads.front();
    m_Reads.pop_front();
    m_Bytes -= work.bytes;
    return work.future.result();
}

void HBReplayPipeline::Adjust(const Read& read)
{
    QString error = read.error;
    HBImage<> adjusted;
    if (error.isEmpty()) {
        try {
            adjusted = HBApplyRecipe(read.photo.image, m_Recipe, &error);
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
    const auto future =
        QtConcurrent::run(&m_Pool, [task = read.task, adjusted, options = m_Options, told = read.photo.warnings] {
            Written written{task.input, {}, told};
            HBWritePhoto(task.output, adjusted, options, &written.error, &written.warnings);
            return written;
        });
    m_Writes.push_back({future, read.bytes});
    m_Bytes += read.bytes;
}

void HBReplayPipeline::FinishWrite()
{
    const Written written = m_Writes.front().future.result();
    m_Bytes -= m_Writes.front().bytes;
    m_Writes.pop_front();
    Finish(written.input, written.error, written.warnings);
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
