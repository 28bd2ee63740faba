// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelJob.h"

#include <HBPoolJob.h>

bool HBPanelJobControl::IsCancelled() const
{
    const QReadLocker locker(&guard);
    return newData;
}

void HBPanelJobControl::SetRange(int minimum, int maximum)
{
    Q_EMIT RangeChanged(minimum, maximum);
}

void HBPanelJobControl::SetProgress(int value)
{
    Q_EMIT ProgressChanged(value);
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
