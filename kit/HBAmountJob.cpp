// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAmountJob.h"

#include <HBPoolJob.h>
#include <HBStepManner.h>

#include <exception>
#include <new>

HBAmountJob::HBAmountJob(QObject* parent) : QObject(parent)
{
    connect(&m_Watcher, &QFutureWatcherBase::finished, this, &HBAmountJob::Finish);
}

HBAmountJob::~HBAmountJob()
{
    GiveUp();
    m_Watcher.disconnect(this);
    m_Watcher.waitForFinished();
}

void HBAmountJob::Ask(const HBImage<>& before, const HBImage<>& after, int amount)
{
    GiveUp();
    m_Before = before;
    m_After = after;
    m_Amount = amount;
    if (!m_pControl)
        Start();
}

void HBAmountJob::GiveUp()
{
    m_Before = m_After = HBImage<>();
    if (m_pControl)
        m_pControl->Cancel();
}

void HBAmountJob::Start()
{
    m_pControl = std::make_shared<HBJobControl>();
    HBWatchInPool(&m_Watcher, [before = std::exchange(m_Before, {}), after = std::exchange(m_After, {}),
                               amount = m_Amount, control = m_pControl] {
        try {
            return HBBlendAmount(before, amount, {after, HBOutcome::Whole, nullptr}, control.get());
        } catch (const std::bad_alloc&) { // of the copy
            return HBOutcome{{}, HBOutcome::Failed, std::current_exception()};
        }
    });
}

void HBAmountJob::Finish()
{
    if (!m_pControl)
        return; // of the empty future below
    HBOutcome outcome = m_Watcher.result();
    m_Watcher.setFuture({}); // its result would keep the tiles
    if (m_pControl->IsCancelled())
        outcome = {{}, HBOutcome::Cancelled, nullptr};
    m_pControl.reset();
    if (m_After.IsEmpty())
        Q_EMIT Ended(outcome);
    else
        Start();
}
