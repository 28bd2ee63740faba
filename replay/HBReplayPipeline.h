// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBReplayLog.h"
#include "HBReplayPlan.h"

#include <HBPhotoFile.h>
#include <HBRecipe.h>

#include <QThreadPool>

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

/// Adjusts many photos, several at once: each is read, adjusted and written on one thread, which shares the adjusting
/// with the global pool. No more photos are in memory at once than there are cores, and one, and no more than fit into
/// half of the tiles' memory budget, but for one.
class HBReplayPipeline
{
public:
    HBReplayPipeline(const QVector<HBReplayTask>& tasks, const HBRecipe& recipe, const HBPhotoOptions& options);

    /// The number of photos that were not written; messages come in the order of the tasks. After an interrupt it ends
    /// at once, though threads may still read, adjust or encode: what has begun to go to the disk is whole, nothing else
    /// will go there.
    int Run();

private:
    /// A photo from when its thread is started until its messages are told.
    struct Work
    {
        HBReplayTask task;
        qint64 bytes;
        QString error;
        QStringList warnings;
        bool saving = false; ///< it goes to the disk
        bool done = false;
    };

    void Start();
    bool HasRoomFor(qint64 bytes) const;
    void Do(Work& work);
    bool MaySave(Work& work);
    void FinishInterrupted();
    void Tell(const Work& work);

    const QVector<HBReplayTask> m_Tasks;
    const HBRecipe m_Recipe;
    const HBPhotoOptions m_Options;
    HBReplayLog m_Log;
    const int m_AtOnce;
    int m_Next = 0;                            ///< task to start next
    qint64 m_NextBytes = -1;                   ///< what it takes; -1: not yet asked
    int m_Good = 0;                            ///< photos written
    std::deque<std::shared_ptr<Work>> m_Works; ///< in the order of the tasks

    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    // These, and `saving` and `done` of each work, are guarded by the mutex.
    int m_Running = 0;
    qint64 m_Bytes = 0; ///< what the photos at work take

    QThreadPool m_Pool; ///< last, so that its threads end first; not the global pool, which the adjustments need
};
