// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayPipeline.h"

#include "HBInterrupt.h"

#include <KMTileManager64.h>

#include <QCoreApplication>
#include <QtConcurrent>
#include <QThread>

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
        while (int(m_Writes.size()) > m_Ahead)
            FinishWrite();
    }
    while (!m_Writes.empty())
        FinishWrite();
    if (HBIsInterrupted()) {
        m_Log.Message(QCoreApplication::translate("PanelReplay", "interrupted; %1 of %2 photos were written")
                          .arg(m_Good)
                          .arg(m_Tasks.size()));
    }
    return m_Tasks.size() - m_Good;
}

void HBReplayPipeline::ReadAhead()
{
    const KMTileManager64& tiles = KMTileManager64::Instance();
    while (m_Next < m_Tasks.size() && int(m_Reads.size()) < m_Ahead) {
        if (!m_Reads.empty() && tiles.CurrentUsage().resident > tiles.MemoryBudget() / 2)
            return;
        const HBReplayTask task = m_Tasks[m_Next++];
        m_Reads.push_back(QtConcurrent::run(&m_Pool, [task] {
            Read read{task, {}, {}};
            if (task.problem.isEmpty())
                HBReadPhoto(task.input, &read.photo, &read.error);
            else
                read.error = task.input + ": " + task.problem;
            return read;
        }));
    }
}

HBReplayPipeline::Read HBReplayPipeline::TakeRead()
{
    const QFuture<Read> future = m_Reads.front();
    m_Reads.pop_front();
    return future.result();
}

void HBReplayPipeline::Adjust(const Read& read)
{
    QString error = read.error;
    HBImage<> adjusted;
    if (error.isEmpty()) {
        adjusted = HBApplyRecipe(read.photo.image, m_Recipe, &error);
        if (!error.isEmpty())
            error = read.task.input + ": " + error;
    }
    if (!error.isEmpty()) {
        Finish(read.task.input, error, {});
        return;
    }
    m_Writes.push_back(
        QtConcurrent::run(&m_Pool, [task = read.task, adjusted, options = m_Options, told = read.photo.warnings] {
            Written written{task.input, {}, told};
            HBWritePhoto(task.output, adjusted, options, &written.error, &written.warnings);
            return written;
        }));
}

void HBReplayPipeline::FinishWrite()
{
    const Written written = m_Writes.front().result();
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
