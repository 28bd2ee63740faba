// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBDocumentPick.h"

#include <HBPoolJob.h>
#include <KMDocumentView.h>
#include <KMPixelRatioRound.h>
#include <KMRGBHistogram.h>
#include <KMStringHelper.h>

#include <QAbstractButton>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>

namespace
{

std::uint8_t Mean(const uint* counts, quint64 pixels)
{
    quint32 sum = 0;
    for (quint32 level = 0; level < 256; ++level)
        sum += level * counts[level];
    return std::uint8_t(sum / pixels);
}

/// Far outside any photo's pixels, and small enough to be multiplied by a pixel ratio.
QPoint PhotoPoint(const QPointF& scenePos)
{
    constexpr double Far = 1e8;
    return QPointF(qBound(-Far, scenePos.x(), Far), qBound(-Far, scenePos.y(), Far)).toPoint();
}

} // namespace

HBDocumentPick::HBDocumentPick(const std::function<HBImage<>()>& source, QObject* filter)
    : m_Source(source)
    , m_pFilter(filter ? filter : this)
{
}

HBDocumentPick::~HBDocumentPick()
{
    if (m_pView && Checked())
        m_pView->SetOverrideCursor(QCursor());
    EndDrag();
    InstallFilter(false);
    Cancel();
    for (const auto& pick : m_Picks)
        pick->watcher.waitForFinished();
}

int HBDocumentPick::Add(QAbstractButton* button, const HBRGBA32i& fallback)
{
    m_Picks.push_back(std::make_unique<Pick>());
    m_Picks.back()->button = button;
    m_Picks.back()->fallback = fallback;
    return int(m_Picks.size()) - 1;
}

HBDocumentPick::Pick* HBDocumentPick::Checked() const
{
    for (const auto& pick : m_Picks) {
        if (pick->button->isChecked())
            return pick.get();
    }
    return nullptr;
}

void HBDocumentPick::SetView(KMDocumentView* view)
{
    // While the old view can still be told: cursor, drag mode and filter are taken from it, and the new one is
    // left alone.
    for (const auto& pick : m_Picks)
        pick->button->setChecked(false);
    m_pView = view;
}

void HBDocumentPick::InstallFilter(bool install)
{
    if (!m_pView || !m_pView->scene())
        return;
    if (install)
        m_pView->scene()->installEventFilter(m_pFilter);
    else
        m_pView->scene()->removeEventFilter(m_pFilter);
}

void HBDocumentPick::Toggle(int index, bool checked)
{
    const Pick* toggled = m_Picks.at(std::size_t(index)).get();
    const bool otherChecked = std::any_of(m_Picks.begin(), m_Picks.end(), [toggled](const auto& pick) {
        return pick.get() != toggled && pick->button->isChecked();
    });
    if (checked) {
        // The cursor last: unchecking another button takes it away.
        if (!otherChecked)
            InstallFilter(true);
        for (const auto& pick : m_Picks) {
            if (pick.get() != toggled)
                pick->button->setChecked(false);
        }
        if (m_pView) {
            const QPixmap cursor(KMStringHelper::DPIAdjustImageName("theme:picker_cursor.png"));
            m_pView->SetOverrideCursor(QCursor(cursor, 2, 14));
        }
    } else {
        if (m_pView)
            m_pView->SetOverrideCursor(QCursor());
        if (!otherChecked) {
            InstallFilter(false);
            EndDrag();
        }
    }
}

// ---- The drag on the document ----

bool HBDocumentPick::eventFilter(QObject* watched, QEvent* event)
{
    Filter(watched, event);
    return QObject::eventFilter(watched, event);
}

void HBDocumentPick::Filter(QObject* watched, QEvent* event)
{
    const bool press = event->type() == QEvent::GraphicsSceneMousePress;
    if (!m_pView || watched != m_pView->scene() || !(press || event->type() == QEvent::GraphicsSceneMouseRelease))
        return;
    const auto* mouse = static_cast<QGraphicsSceneMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton || press == m_Dragging)
        return;
    if (press)
        Press(PhotoPoint(mouse->scenePos()));
    else
        Release(PhotoPoint(mouse->scenePos()));
}

void HBDocumentPick::Press(const QPoint& position)
{
    m_Dragging = true;
    m_DragStart = position;
    m_pView->setDragMode(QGraphicsView::RubberBandDrag);
}

void HBDocumentPick::Release(const QPoint& position)
{
    const int ratio = int(KMPixelRatioRound::GetPixelRatio());
    if (Pick* pick = Checked()) {
        pick->rect = QRect(m_DragStart * ratio, position * ratio).normalized();
        Start(*pick);
    }
    EndDrag();
}

void HBDocumentPick::EndDrag()
{
    if (m_Dragging && m_pView)
        m_pView->setDragMode(QGraphicsView::NoDrag);
    m_Dragging = false;
}

// ---- The average ----

HBRGBA32i HBDocumentPick::Average(const HBImage<>& image, const QRect& rect, const HBRGBA32i& fallback,
                                  const HBJobControl* control)
{
    if (!rect.isValid() || image.IsEmpty())
        return fallback;
    const QRect area = rect & QRect(0, 0, image.Width(), image.Height());
    if (area.isEmpty())
        return fallback;

    uint red[256] = {};
    uint green[256] = {};
    uint blue[256] = {};
    KMRGBHistogram histogram(red, green, blue);
    for (int index = 0; index < image.Tiles().size(); ++index) {
        const QRect tile = image.TileRect(index);
        const QRect part = area & tile;
        if (part.isEmpty())
            continue;
        if (HBIsCancelled(control))
            return fallback;
        const KMTilePin<HBRGBA32i> pin(image.Tile(index), false);
        for (int y = part.top(); y <= part.bottom(); ++y) {
            const HBRGBA32i* row = pin.Pixels() + (y - tile.top()) * HBImage<>::TileSide - tile.left();
            for (int x = part.left(); x <= part.right(); ++x)
                histogram(row[x]);
        }
    }
    const quint64 pixels = quint64(area.width()) * quint64(area.height());
    return {Mean(red, pixels), Mean(green, pixels), Mean(blue, pixels), 255};
}

void HBDocumentPick::Start(Pick& pick)
{
    if (pick.running) {
        pick.pending = true;
        return;
    }
    pick.running = true;
    pick.pending = false;
    pick.control = std::make_shared<HBJobControl>();
    const auto average = [image = m_Source(), rect = pick.rect, fallback = pick.fallback, control = pick.control] {
        try {
            return Average(image, rect, fallback, control.get());
        } catch (const std::bad_alloc&) { // a tile that cannot be brought back
            return fallback;
        }
    };
    HBWatchInPool(&pick.watcher, average);
}

std::optional<HBRGBA32i> HBDocumentPick::Result(int index) const
{
    const QFutureWatcher<HBRGBA32i>& watcher = m_Picks.at(std::size_t(index))->watcher;
    if (watcher.isCanceled())
        return std::nullopt;
    return watcher.result();
}

void HBDocumentPick::StartNext(int index)
{
    Pick& pick = *m_Picks.at(std::size_t(index));
    pick.running = false;
    if (pick.pending)
        Start(pick);
}

void HBDocumentPick::Cancel()
{
    for (const auto& pick : m_Picks) {
        if (pick->running) {
            pick->pending = false;
            pick->watcher.cancel();
            pick->control->Cancel();
        }
    }
}
