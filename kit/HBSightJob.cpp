// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSightJob.h"

#include <HBPoolJob.h>
#include <HBStepManner.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;

QRect TilesUnder(const QRect& area)
{
    if (area.isEmpty())
        return {};
    return {QPoint(area.left() / TileSide, area.top() / TileSide),
            QPoint(area.right() / TileSide, area.bottom() / TileSide)};
}

QRect AreaOf(const QRect& tiles, const HBImage<>& image)
{
    return QRect(tiles.topLeft() * TileSide, tiles.size() * TileSide) & QRect(0, 0, image.Width(), image.Height());
}

/// The tiles as an image of their own, which shares them.
HBImage<> Crop(const HBImage<>& image, const QRect& tiles)
{
    const QRect area = AreaOf(tiles, image);
    HBImage<> part(area.width(), area.height());
    for (int row = 0; row < part.Rows(); ++row) {
        for (int column = 0; column < part.Columns(); ++column)
            part.ShareTile(row * part.Columns() + column,
                           image.Tile((tiles.top() + row) * image.Columns() + tiles.left() + column));
    }
    return part;
}

int Shrunken(int length, int level)
{
    return (length + (1 << level) - 1) >> level;
}

/// Their means. Empty if it was given up.
HBImage<> Shrink(HBTileMips* mips, const HBImage<>& image, const QRect& tiles, int level,
                 const HBJobControl& control)
{
    constexpr int MillisecondsBetweenLooks = 10;
    mips->SetImage(image);
    while (!mips->Prepare(tiles, level, MillisecondsBetweenLooks)) {
        if (control.IsCancelled())
            return {};
    }
    const QRect area = AreaOf(tiles, image);
    const QImage small = mips->Assemble(tiles, level);
    if (small.isNull())
        throw std::bad_alloc();
    return HBImage<>::FromQImage(small.copy(0, 0, Shrunken(area.width(), level), Shrunken(area.height(), level)));
}

/// The selection of a part. Where it is shrunken it may lie half a pixel of the screen off.
void Select(const HBTarget& whole, const QRect& area, int level, const HBJobControl& control, HBTarget* part)
{
    part->offset = whole.offset - area.topLeft();
    part->bounds = whole.bounds;
    part->selection = whole.selection;
    if (level == 0 || !whole.bounds.isValid() || whole.selection.IsEmpty())
        return;
    const QRect seen = whole.bounds & QRect(0, 0, whole.selection.Width(), whole.selection.Height()) &
                       area.translated(-whole.offset);
    part->selection = {};
    if (seen.isEmpty())
        return;
    const QRect tiles = TilesUnder(seen);
    HBTileMips mips;
    part->selection = Shrink(&mips, whole.selection, tiles, level, control);
    const double scale = 1 << level;
    const QPointF offset = QPointF(part->offset + tiles.topLeft() * TileSide) / scale;
    part->offset = QPoint(qRound(offset.x()), qRound(offset.y()));
    const QRectF bounds(QPointF(seen.topLeft() - tiles.topLeft() * TileSide) / scale, QSizeF(seen.size()) / scale);
    part->bounds = bounds.toAlignedRect();
}

bool NeedsNoLook(const HBStages& stages)
{
    return std::all_of(stages.begin(), stages.end(), [](const HBStage& stage) { return stage.isPixelByPixel; });
}

} // namespace

HBSightJob::HBSightJob(const HBAdjustment& adjustment, QObject* parent) : QObject(parent), m_Adjustment(adjustment)
{
    m_Pool.setMaxThreadCount(1);
    connect(&m_Watcher, &QFutureWatcherBase::finished, this, &HBSightJob::Finish);
}

HBSightJob::~HBSightJob()
{
    GiveUp();
    m_Watcher.disconnect(this);
    m_Watcher.waitForFinished();
}

void HBSightJob::SetTarget(const HBTarget& target)
{
    m_Place.target = target;
    m_Place.tiles = {};
}

void HBSightJob::SetSight(const QRect& area, double zoom)
{
    const HBImage<>& picture = m_Place.target.source;
    m_Place.tiles = TilesUnder(area & QRect(0, 0, picture.Width(), picture.Height()));
    m_Place.level =
        zoom >= 0.5 || !(zoom > 0) ? 0 : std::clamp(int(std::floor(-std::log2(zoom))), 1, HBTileMips::LastLevel);
}

bool HBSightJob::Ask(const std::any& record)
{
    m_Asked = false;
    if (m_Place.tiles.isEmpty() || !m_Adjustment.stages)
        return false;
    try {
        if (!NeedsNoLook(m_Adjustment.stages(record, m_Place.target.bounds.isValid())))
            return false;
    } catch (const std::exception&) {
        return false; // the job says why
    }
    m_Record = record;
    m_Asked = true;
    if (!m_pControl)
        Start();
    return true;
}

void HBSightJob::GiveUp()
{
    m_Asked = false;
    if (m_pControl)
        m_pControl->Cancel();
}

bool HBSightJob::IsPartOf(const Place& place) const
{
    const HBTarget& is = m_PartPlace.target;
    const HBTarget& asked = place.target;
    return m_pPart && m_PartPlace.level == place.level && m_PartPlace.tiles == place.tiles &&
           is.source.IsSameAs(asked.source) && is.selection.IsSameAs(asked.selection) &&
           is.offset == asked.offset && is.bounds == asked.bounds;
}

std::shared_ptr<const HBSightJob::Part> HBSightJob::Cut(const Place& place, std::shared_ptr<HBTileMips> mips,
                                                        const HBJobControl& control)
{
    auto part = std::make_shared<Part>();
    part->area = AreaOf(place.tiles, place.target.source);
    part->level = place.level;
    if (place.level == 0) {
        part->target.source = Crop(place.target.source, place.tiles);
    } else {
        part->mips = mips ? std::move(mips) : std::make_shared<HBTileMips>();
        part->target.source = Shrink(part->mips.get(), place.target.source, place.tiles, place.level, control);
    }
    Select(place.target, part->area, place.level, control, &part->target);
    return part;
}

void HBSightJob::Start()
{
    m_Asked = false;
    m_BegunPlace = m_Place;
    const auto control = std::make_shared<HBJobControl>();
    const auto work = [adjustment = &m_Adjustment, record = m_Record, amount = m_Amount, place = m_Place, control,
                       known = IsPartOf(m_Place) ? m_pPart : nullptr,
                       mips = m_pPart ? m_pPart->mips : nullptr]() -> Result {
        try {
            Result result{known ? known : Cut(place, mips, *control), {}};
            if (control->IsCancelled())
                return {};
            const HBTarget& target = result.part->target;
            const bool selected = place.target.bounds.isValid();
            if (selected && target.selection.IsEmpty()) {
                result.image = target.source; // nothing of it is in sight
                return result;
            }
            HBOutcome outcome = HBRunStages(
                target, [&] { return adjustment->stages(record, selected); }, control.get());
            outcome = HBBlendAmount(target.source, amount, std::move(outcome), control.get());
            if (outcome.IsWhole())
                result.image = outcome.image;
            return result;
        } catch (const std::exception&) {
            return {}; // no preview before the job's own, which says why
        }
    };
    if (HBTryWatch(m_Pool, &m_Watcher, work))
        m_pControl = control;
}

void HBSightJob::Finish()
{
    const Result result = m_Watcher.result();
    const bool wanted = !m_pControl->IsCancelled();
    m_pControl.reset();
    if (result.part) {
        m_pPart = result.part;
        m_PartPlace = m_BegunPlace;
    }
    if (m_Asked)
        Start();
    // Also if another is asked for already: the picture is to move as the control does.
    if (wanted && !result.image.IsEmpty())
        Q_EMIT Ready(result.image, result.part->area, result.part->level);
}
