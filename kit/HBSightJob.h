// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBAdjustment.h>
#include <HBTileMips.h>

#include <QFutureWatcher>
#include <QObject>
#include <QThreadPool>

#include <memory>

/// Adjusts what is in sight of a picture alone, as small as it is shown: a preview that costs the same however
/// large the picture is. At half the size and above those are the bytes that the whole gives; below, those of its
/// means. Only for adjustments that need not look at the whole. It has a thread of its own, so that it goes on
/// while a job takes all of the pool. GUI thread only; destroying it waits for the end of a tile.
class HBSightJob : public QObject
{
    Q_OBJECT
public:
    explicit HBSightJob(const HBAdjustment& adjustment, QObject* parent = nullptr);
    ~HBSightJob() override;

    void SetTarget(const HBTarget& target);
    /// As HBRecipeStep::amount; before the first record.
    void SetAmount(int amount) { m_Amount = amount; }
    /// \param area in pixels of the picture
    /// \param zoom device pixels per pixel
    void SetSight(const QRect& area, double zoom);

    /// Begins with that record, or as soon as the running one has ended. False, and whatever was asked for is
    /// forgotten, if there is nothing in sight or the record wants to see the whole picture.
    bool Ask(const std::any& record);
    /// What was asked for is no longer wanted.
    void GiveUp();

Q_SIGNALS:
    /// See HBTileImageItem::ShowSight.
    void Ready(const HBImage<>& sight, const QRect& area, int level);

private:
    /// Which part of which picture.
    struct Place
    {
        HBTarget target;
        QRect tiles; ///< columns and rows of the picture; empty: none
        int level = 0;
    };
    /// That part as a picture of its own, and what it was made from.
    struct Part
    {
        HBTarget target;
        QRect area;
        int level = 0;
        std::shared_ptr<HBTileMips> mips;
    };
    struct Result
    {
        std::shared_ptr<const Part> part;
        HBImage<> image; ///< empty if it was given up or has failed
    };

    static std::shared_ptr<const Part> Cut(const Place& place, std::shared_ptr<HBTileMips> mips,
                                           const HBJobControl& control);
    void Start();
    void Finish();
    bool IsPartOf(const Place& place) const;

    const HBAdjustment& m_Adjustment;
    QThreadPool m_Pool;
    QFutureWatcher<Result> m_Watcher;
    std::shared_ptr<HBJobControl> m_pControl; ///< of the one that runs
    Place m_Place;
    std::shared_ptr<const Part> m_pPart; ///< of the last run
    Place m_PartPlace;                   ///< what it is of
    Place m_BegunPlace;
    std::any m_Record;
    int m_Amount = 100;
    bool m_Asked = false; ///< and not begun
};
