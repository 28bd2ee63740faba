// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSessionSight.h"

#include <utility>

HBSessionSight::HBSessionSight(const HBAdjustment& adjustment, std::function<std::any()> record,
                               std::function<bool()> isWanted, QObject* parent)
    : QObject(parent)
    , m_Job(adjustment)
    , m_Record(std::move(record))
    , m_IsWanted(std::move(isWanted))
{
    connect(&m_Job, &HBSightJob::Ready, this, &HBSessionSight::OnReady);
}

void HBSessionSight::SetTarget(const HBTarget& target)
{
    m_Job.SetTarget(target);
    m_Job.SetSight(m_Area, m_Zoom);
    m_Outdated = true;
}

bool HBSessionSight::SetSight(const QRect& area, double zoom)
{
    if (area == m_Area && zoom == m_Zoom)
        return false;
    m_Area = area;
    m_Zoom = zoom;
    m_Job.SetSight(area, zoom);
    m_Outdated = true;
    return true;
}

bool HBSessionSight::Follow()
{
    if (std::exchange(m_Outdated, false)) {
        m_Following = m_Job.Ask(m_Record());
        if (!m_Following)
            End();
    }
    return m_Following;
}

void HBSessionSight::OnReady(const HBImage<>& sight, const QRect& area, int level)
{
    if (!m_IsWanted())
        return; // the whole was quicker
    m_Shown = true;
    Q_EMIT Ready(sight, area, level);
}

void HBSessionSight::End()
{
    m_Job.GiveUp();
    if (std::exchange(m_Shown, false))
        Q_EMIT Over();
}
