// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelJob.h"

#include <HBPoolJob.h>

#include <utility>

bool HBPanelJobControl::IsCancelled() const
{
    const QReadLocker locker(&guard);
    return newData;
}

void HBPanelJobControl::SetRange(int minimum, int maximum)
{
    Tell({true, minimum, maximum});
}

void HBPanelJobControl::SetProgress(int value)
{
    Tell({false, value, 0});
}

void HBPanelJobControl::Tell(const Progress& progress)
{
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Told.push_back(progress);
        if (!std::exchange(m_Waiting, false))
            return;
    }
    Q_EMIT ProgressTold();
}

std::optional<HBPanelJobControl::Progress> HBPanelJobControl::TakeProgress()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    if (m_Told.empty())
        return std::nullopt;
    const Progress oldest = m_Told.front();
    m_Told.pop_front();
    return oldest;
}

bool HBPanelJobControl::WaitForProgress()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Waiting = m_Waiting || m_Told.empty();
    return m_Waiting;
}

void HBStartInPool(QFutureWatcher<HBImage<>>* watcher, const std::function<HBImage<>()>& job)
{
    HBWatchInPool(watcher, job);
}

HBImage<> HBTakeOutcome(const HBOutcome& outcome, const HBJobData& job)
{
    if (job.control && outcome.status == HBOutcome::Failed)
        job.control->failed = true;
    return outcome.image;
}
