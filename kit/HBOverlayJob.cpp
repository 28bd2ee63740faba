// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayJob.h"

#include <HBPoolJob.h>
#include <HBStepManner.h>

#include <QPointer>

HBOverlayJob::HBOverlayJob(const HBAdjustment& adjustment, std::function<std::any()> record, QObject* parent)
    : QObject(parent)
    , m_Adjustment(adjustment)
    , m_Record(std::move(record))
{
    connect(&m_Watcher, &QFutureWatcherBase::finished, this, &HBOverlayJob::Finish);
}

HBOverlayJob::~HBOverlayJob()
{
    GiveUp();
    m_Watcher.disconnect(this);
    m_Watcher.waitForFinished();
}

void HBOverlayJob::SetImage(const HBImage<>& source)
{
    m_Source = source;
    m_NewSource = true;
    ProcessNow();
}

bool HBOverlayJob::HasPendingChange() const
{
    return !m_Source.IsEmpty() && (!m_Done || m_NewSource || m_Begun != Stored());
}

void HBOverlayJob::ProcessNow()
{
    const bool known = m_pControl && !m_NewSource && m_Begun == Stored();
    if (m_Cancel || known || (!m_pControl && !HasPendingChange()))
        return;
    m_Restart = m_pControl != nullptr;
    if (m_Restart)
        GiveUp();
    else
        Start();
}

void HBOverlayJob::SetCancelProcessing(bool cancel)
{
    m_Cancel = cancel;
    if (cancel)
        GiveUp();
}

void HBOverlayJob::GiveUp()
{
    if (!m_pControl)
        return;
    const QWriteLocker guard(&m_pControl->guard);
    m_pControl->newData = true;
}

void HBOverlayJob::Start()
{
    m_Begun = Stored();
    m_NewSource = false;
    m_Done = false;
    m_pControl = std::make_shared<HBPanelJobControl>();
    connect(m_pControl.get(), &HBPanelJobControl::ProgressTold, this, &HBOverlayJob::TellProgress,
            Qt::QueuedConnection);
    const HBTarget whole{m_Source}; // not in the job, which must not throw: a copy of the source may
    HBWatchInPool(&m_Watcher, [target = whole, stages = m_Adjustment.stages, record = m_Record(),
                               control = m_pControl, amount = m_Amount] {
        HBOutcome outcome = HBRunStages(
            target, [&] { return stages(record, false); }, control.get());
        return HBBlendAmount(target.source, amount, std::move(outcome), control.get());
    });
}

void HBOverlayJob::TellProgress()
{
    const QPointer<HBOverlayJob> self(this); // a slot may destroy the job
    do {
        while (const auto progress = self && m_pControl ? m_pControl->TakeProgress() : std::nullopt) {
            if (progress->isRange)
                Q_EMIT RangeChanged(progress->first, progress->maximum);
            else
                Q_EMIT ProgressChanged(progress->first);
        }
    } while (self && m_pControl && !m_pControl->WaitForProgress());
}

void HBOverlayJob::Finish()
{
    const HBOutcome outcome = m_Watcher.result();
    const bool wanted = !m_pControl->IsCancelled();
    m_pControl.reset();
    const QPointer<HBOverlayJob> self(this);
    if (wanted && outcome.status != HBOutcome::Cancelled) {
        m_FailureReason = HBFailureReason(outcome);
        if (outcome.IsWhole()) {
            m_Adjusted = outcome.image;
            m_Done = true;
        }
        Q_EMIT ImageReady();
    }
    if (self && m_Restart && !m_pControl) {
        m_Restart = false;
        ProcessNow();
    }
    if (self)
        Q_EMIT Ended();
}
