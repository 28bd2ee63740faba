// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBJobControl.h>
#include <HBTileWalk.h>

#include <QFutureWatcher>
#include <QObject>

#include <memory>

/// Leaves a part of what an adjustment has done to a picture, in the pool. One at a time: what is asked for while
/// another is at work takes its place. GUI thread only; destroying it waits for the end of a tile.
class HBAmountJob : public QObject
{
    Q_OBJECT
public:
    explicit HBAmountJob(QObject* parent = nullptr);
    ~HBAmountJob() override;

    /// \param amount as HBRecipeStep::amount
    void Ask(const HBImage<>& before, const HBImage<>& after, int amount);
    void GiveUp();
    bool IsWorking() const { return m_pControl != nullptr; }

Q_SIGNALS:
    /// It has ended, and nothing else is asked for: whole, failed, or cancelled by GiveUp.
    void Ended(const HBOutcome& outcome);

private:
    void Start();
    void Finish();

    QFutureWatcher<HBOutcome> m_Watcher;
    std::shared_ptr<HBJobControl> m_pControl; ///< of the one that runs
    HBImage<> m_Before;                       ///< of what is asked for and not begun
    HBImage<> m_After;
    int m_Amount = 0;
};
