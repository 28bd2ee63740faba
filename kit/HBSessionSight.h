// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSightJob.h"

#include <functional>

/// What a session shows of the part of the picture that is in sight, before the whole is adjusted: when that is
/// due, and when it is over. GUI thread only; destroying it waits for the end of a tile.
class HBSessionSight : public QObject
{
    Q_OBJECT
public:
    /// \param record the present values
    /// \param isWanted whether the preview of the whole still lacks something
    HBSessionSight(const HBAdjustment& adjustment, std::function<std::any()> record,
                   std::function<bool()> isWanted, QObject* parent);

    void SetTarget(const HBTarget& target);
    /// As HBRecipeStep::amount; before the first record.
    void SetAmount(int amount) { m_Job.SetAmount(amount); }
    /// As HBPanelSession::SetSight. False if that is nothing new.
    bool SetSight(const QRect& area, double zoom);
    /// The values have changed.
    void SetOutdated() { m_Outdated = true; }

    /// Has the present values worked in, unless that was asked for already. Whether they can be, of what is in
    /// sight alone; if not, it is over.
    bool Follow();
    /// What Follow has said last.
    bool IsFollowing() const { return m_Following; }
    /// What was asked for is no longer wanted.
    void GiveUp() { m_Job.GiveUp(); }
    /// The same, and what is shown is over.
    void End();

Q_SIGNALS:
    /// See HBTileImageItem::ShowSight.
    void Ready(const HBImage<>& sight, const QRect& area, int level);
    /// After Ready: the preview of the whole is right again.
    void Over();

private:
    void OnReady(const HBImage<>& sight, const QRect& area, int level);

    HBSightJob m_Job;
    const std::function<std::any()> m_Record;
    const std::function<bool()> m_IsWanted;
    QRect m_Area;
    double m_Zoom = 1;
    bool m_Outdated = true;   ///< the job does not know the last change
    bool m_Following = false; ///< the present record can be made of what is in sight alone
    bool m_Shown = false;
};
