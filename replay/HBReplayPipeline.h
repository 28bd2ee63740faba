// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBReplayBounds.h"
#include "HBReplayLog.h"
#include "HBReplayPlan.h"
#include "HBReplayReport.h"

#include <HBPhotoFile.h>
#include <HBRecipe.h>

#include <QElapsedTimer>
#include <QThreadPool>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

class HBReplayJournal;
struct HBFileState;

/// What is done to the photos, and how.
struct HBReplayWork
{
    HBRecipe recipe;
    HBRecipeCost cost;
    HBPhotoOptions photo;
    HBReplayBounds bounds;
    int jobs = 1; ///< cores, and photos that are read, adjusted or encoded at once
    bool failFast = false;
    bool verifies = false;              ///< compares with the results that are there
    HBReplayJournal* journal = nullptr; ///< told of each result before it is written; may be null
};

/// Adjusts many photos, several at once: each is read, adjusted and written on one thread, which shares the
/// adjusting with the pool (HBThreadPool). While one goes to the disk, which takes no core, another one begins. No
/// more photos are in memory at once than fit into half of the tiles' memory budget, but for one.
class HBReplayPipeline
{
public:
    HBReplayPipeline(const QVector<HBReplayTask>& tasks, const HBReplayWork& work, HBReplayReport* report);

    /// Does the tasks; messages and the report come in their order. After an interrupt it ends at once, though
    /// threads may still read, adjust or encode: what has begun to go to the disk is whole, nothing else will go
    /// there. The report tells what is done or known to fail by then.
    void Run();
    /// Whether such threads are left: then the process must end without waiting for them.
    bool HasThreadsLeft();

private:
    /// A photo from when its thread is started until its messages are told.
    struct Work
    {
        explicit Work(const HBReplayTask& photo) : task(photo) { since.start(); }

        const HBReplayTask& task;
        qint64 bytes = 0;
        HBReplayResult result;
        QElapsedTimer since;
        std::atomic<bool> givenUp{false}; ///< took too long: its thread is on its own now
        bool saving = false;              ///< it goes to the disk
        bool done = false;
        bool isCutShort = false; ///< it failed because the run was interrupted
    };

    void Start();
    void StartThread(const std::shared_ptr<Work>& work);
    bool IsRefused(Work& work);
    static void Refuse(Work& work, const QString& reason);
    bool HasRoomFor(qint64 bytes) const;
    HBReplayResult Do(Work& work);
    bool MaySave(Work& work, const HBFileState& photo, const QByteArray& bytes, QString* reason);
    void GiveUpWhatTakesTooLong();
    void FinishInterrupted();
    void Tell(const Work& work);

    const QVector<HBReplayTask>& m_Tasks;
    const HBReplayWork& m_Job;
    HBReplayReport* m_pReport;
    HBReplayLog m_Log;
    int m_Next = 0;                            ///< task to start next
    std::shared_ptr<Work> m_pNext;             ///< its work, while it waits for room
    std::deque<std::shared_ptr<Work>> m_Works; ///< in the order of the tasks

    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    // These, and `result`, `saving`, `done` and `isCutShort` of each work, are guarded by the mutex.
    int m_Running = 0;  ///< photos that take a core
    int m_Saving = 0;   ///< photos that only wait for the disk
    qint64 m_Bytes = 0; ///< what the photos at work take
    bool m_HasFailure = false;

    QThreadPool m_Pool; ///< last, so that its threads end first; not HBThreadPool, which the adjustments need
};
