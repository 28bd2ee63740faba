// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelsExport.h"

#include <HBAdjustment.h>

#include <QFutureWatcher>
#include <QObject>
#include <QReadWriteLock>

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

/// What a panel and its job share while the job runs: nothing else that a job uses is the panel's. The panel sets
/// `newData`, the job tells its progress. That waits here until the panel takes it: an event for each of thousands
/// of tiles would keep a core busy.
class HB_PANELS_EXPORT HBPanelJobControl : public QObject, public HBJobControl
{
    Q_OBJECT
public:
    bool IsCancelled() const override;
    void SetRange(int minimum, int maximum) override;
    void SetProgress(int value) override;

    mutable QReadWriteLock guard;
    bool newData = false;            ///< under the guard; true: the result is no longer wanted
    std::atomic<bool> failed{false}; ///< the job's picture is not whole

    /// A step of the progress: a new range, or a value of the last one.
    struct Progress
    {
        bool isRange;
        int first; ///< the value, or the minimum
        int maximum;
    };
    /// The oldest progress that nobody has taken. Any thread.
    std::optional<Progress> TakeProgress();
    /// The next progress is told by a signal again. False, without effect, if there is some to take.
    bool WaitForProgress();

Q_SIGNALS:
    /// There is progress to take, the first since WaitForProgress. From the job's threads: connect it queued.
    void ProgressTold();

private:
    void Tell(const Progress& progress);

    std::mutex m_Mutex;
    std::deque<Progress> m_Told;
    bool m_Waiting = true; ///< for the first one
};

/// The head of every panel's job record: what to adjust, and where. A job owns copies of all it touches.
struct HBJobData : HBTarget
{
    std::shared_ptr<HBPanelJobControl> control; ///< null: nobody listens
};

/// Runs a job on the pool (HBThreadPool), or at once where the system starts no more threads, and hands its future
/// to the watcher.
HB_PANELS_EXPORT void HBStartInPool(QFutureWatcher<HBImage<>>* watcher, const std::function<HBImage<>()>& job);

/// Runs process(job) for the watcher. What it throws ends here, with the image unchanged: from a future it would
/// come out in the GUI thread.
template <class Data>
void HBStartJob(QFutureWatcher<HBImage<>>* watcher, HBImage<> (*process)(Data), const Data& job)
{
    HBStartInPool(watcher, [process, job = Data(job)]() mutable -> HBImage<> {
        try {
            return process(job);
        } catch (...) {
            if (job.control)
                job.control->failed = true;
            return std::move(job.source); // a copy may throw again
        }
    });
}

/// What a job returns: the image, and the panel is told if it is not whole.
HB_PANELS_EXPORT HBImage<> HBTakeOutcome(const HBOutcome& outcome, const HBJobData& job);

/// The meaning of a record, over the job's image: what Process of a panel does.
/// \param outcome receives what became of it, for a panel that logs it
template <class Record>
HBImage<> HBRunJob(const HBJobData& job, const Record& record, HBOutcome* outcome = nullptr)
{
    const HBOutcome adjusted = HBAdjust(record, job, job.control.get());
    if (outcome)
        *outcome = adjusted;
    return HBTakeOutcome(adjusted, job);
}

/// The same for a transformation of the panel's own; see HBOperationOf.
template <class Transformation>
HBImage<> HBRunTransformation(const HBJobData& job, const Transformation& transformation)
{
    return HBTakeOutcome(HBRunStages(
                             job, [&] { return HBStages{HBStageOf(transformation)}; }, job.control.get()),
                         job);
}
