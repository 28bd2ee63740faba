// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBReplayLog.h"
#include "HBReplayPlan.h"

#include <HBPhotoFile.h>
#include <HBRecipe.h>

#include <QFuture>
#include <QThreadPool>

#include <atomic>
#include <deque>
#include <memory>

/// Adjusts many photos: while one is adjusted on the GUI thread, the next ones are read and the last ones written on
/// threads of their own. No more photos are in memory at once than a few a core, and no more than fit into half of the
/// tiles' memory budget, but for one.
class HBReplayPipeline
{
public:
    HBReplayPipeline(const QVector<HBReplayTask>& tasks, const HBRecipe& recipe, const HBPhotoOptions& options);

    /// The number of photos that were not written. After an interrupt it ends at once, though threads may still read
    /// or encode: what has begun to go to the disk is whole, nothing else will go there. GUI thread, runs an event
    /// loop.
    int Run();

private:
    struct Read
    {
        HBReplayTask task;
        HBPhoto photo;
        QString error;
        qint64 bytes;
    };
    struct Written
    {
        QString input;
        QString error;
        QStringList warnings;
    };

    /// What is under way on another thread, and what it takes meanwhile.
    template <class Result>
    struct Work
    {
        QFuture<Result> future;
        qint64 bytes;
        std::shared_ptr<std::atomic<bool>> saving = {}; ///< of a write: it goes to the disk
    };

    bool HasRoomFor(qint64 bytes) const;
    void ReadAhead();
    void TakeRead();
    void Adjust(const Read& read);
    void FinishWrite();
    void FinishInterrupted();
    void Finish(const QString& input, const QString& error, const QStringList& warnings);

    const QVector<HBReplayTask> m_Tasks;
    const HBRecipe m_Recipe;
    const HBPhotoOptions m_Options;
    HBReplayLog m_Log;
    const int m_Ahead;  ///< photos read ahead, and as many waiting to be written
    int m_Next = 0;     ///< task to read next
    int m_Good = 0;     ///< photos written
    qint64 m_Bytes = 0; ///< what the photos of both queues take
    std::deque<Work<Read>> m_Reads;
    std::deque<Work<Written>> m_Writes;
    QThreadPool m_Pool; ///< last, so that its threads end first; not the global pool, which the jobs need
};
