// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
// The pickers of HBCurvesWidget: a rectangle dragged on the document view gives a black, gray or white point.
#include "HBConnectionSet.h"
#include "HBCurvesWidgetPicker.h"
#include "ui_CurvesWidget.h"

#include <KMDocumentView.h>
#include <KMPixelRatioRound.h>
#include <KMRGBHistogram.h>
#include <KMStringHelper.h>

#include <QGraphicsSceneMouseEvent>
#include <QtConcurrent>

#include <algorithm>

namespace
{

QPixmap ThemePixmap(const QString& name)
{
    return QPixmap(KMStringHelper::DPIAdjustImageName(name));
}

/// The average of a colour channel: 32-bit sums that wrap above 16.8 million white pixels, on purpose.
std::uint8_t Average(const uint* counts, quint64 pixels)
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

int Channel(const HBRGBA32i& color, int channel)
{
    return channel == 1 ? color.red : channel == 2 ? color.green : color.blue;
}

void SortByInput(QVector<QPoint>& points)
{
    std::sort(points.begin(), points.end(), [](const QPoint& a, const QPoint& b) { return a.x() < b.x(); });
}

} // namespace

// ---- Buttons ----

void HBCurvesWidget::MakePickers()
{
    auto make = [this](QToolButton* button, const char* icon, QRgb fallback) {
        button->setIcon(QIcon(ThemePixmap(icon)));
        auto picker = std::make_unique<Picker>();
        picker->button = button;
        picker->fallback = HBRGBA32i::FromRgba(fallback);
        picker->watcher = new QFutureWatcher<HBRGBA32i>(this);
        return picker;
    };
    m_pBlackPicker = make(m_pUI->m_pBlack, "theme:picker_black.png", qRgb(0, 0, 0));
    m_pGrayPicker = make(m_pUI->m_pGray, "theme:picker_gray.png", qRgb(128, 128, 128));
    m_pWhitePicker = make(m_pUI->m_pWhite, "theme:picker_white.png", qRgb(255, 255, 255));
    connect(m_pUI->m_pBlack, SIGNAL(toggled(bool)), SLOT(OnBlack(bool)));
    connect(m_pUI->m_pGray, SIGNAL(toggled(bool)), SLOT(OnGray(bool)));
    connect(m_pUI->m_pWhite, SIGNAL(toggled(bool)), SLOT(OnWhite(bool)));
    connect(m_pBlackPicker->watcher, SIGNAL(finished()), SLOT(OnBlackFinished()));
    connect(m_pGrayPicker->watcher, SIGNAL(finished()), SLOT(OnGrayFinished()));
    connect(m_pWhitePicker->watcher, SIGNAL(finished()), SLOT(OnWhiteFinished()));
}

/// For the destructor: no pick may outlive the panel, nor its cursor, drag mode and filter stay with the document.
void HBCurvesWidget::FinishPickers()
{
    if (m_pView && IsPicking())
        m_pView->SetOverrideCursor(QCursor());
    EndDrag();
    InstallFilter(false);
    for (Picker* picker : {m_pBlackPicker.get(), m_pGrayPicker.get(), m_pWhitePicker.get()}) {
        picker->button->disconnect(this);
        picker->watcher->disconnect(this);
        picker->watcher->waitForFinished();
    }
}

/// Running picks will change nothing.
void HBCurvesWidget::CancelPicks()
{
    for (Picker* picker : {m_pBlackPicker.get(), m_pGrayPicker.get(), m_pWhitePicker.get()}) {
        if (picker->running) {
            picker->pending = false;
            picker->watcher->cancel();
        }
    }
}

bool HBCurvesWidget::IsPicking() const
{
    return m_pUI->m_pBlack->isChecked() || m_pUI->m_pGray->isChecked() || m_pUI->m_pWhite->isChecked();
}

void HBCurvesWidget::InstallFilter(bool install)
{
    if (!m_pView || !m_pView->scene())
        return;
    if (install)
        m_pView->scene()->installEventFilter(this);
    else
        m_pView->scene()->removeEventFilter(this);
}

void HBCurvesWidget::TogglePicker(const Picker& picker, bool checked)
{
    QList<QToolButton*> others = {m_pUI->m_pBlack, m_pUI->m_pGray, m_pUI->m_pWhite};
    others.removeOne(picker.button);
    const bool otherChecked = others.at(0)->isChecked() || others.at(1)->isChecked();
    if (checked) {
        // The cursor last: unchecking another button takes it away.
        if (!otherChecked)
            InstallFilter(true);
        for (QToolButton* other : others)
            other->setChecked(false);
        if (m_pView)
            m_pView->SetOverrideCursor(QCursor(ThemePixmap("theme:picker_cursor.png"), 2, 14));
    } else {
        if (m_pView)
            m_pView->SetOverrideCursor(QCursor());
        if (!otherChecked) {
            InstallFilter(false);
            EndDrag();
        }
    }
}

void HBCurvesWidget::OnBlack(bool checked)
{
    TogglePicker(*m_pBlackPicker, checked);
}

void HBCurvesWidget::OnGray(bool checked)
{
    TogglePicker(*m_pGrayPicker, checked);
}

void HBCurvesWidget::OnWhite(bool checked)
{
    TogglePicker(*m_pWhitePicker, checked);
}

void HBCurvesWidget::SetView(KMDocumentView* view)
{
    // While the old view can still be told: cursor, drag mode and filter are taken from it, and the new one is left alone.
    for (QToolButton* button : {m_pUI->m_pBlack, m_pUI->m_pGray, m_pUI->m_pWhite})
        button->setChecked(false);
    m_pView = view;
}

// ---- The drag on the document ----

void HBCurvesWidget::FilterDocument(QEvent* event)
{
    if (event->type() != QEvent::GraphicsSceneMousePress && event->type() != QEvent::GraphicsSceneMouseRelease)
        return;
    const auto* mouse = static_cast<QGraphicsSceneMouseEvent*>(event);
    if (event->type() == QEvent::GraphicsSceneMousePress)
        MousePressed(PhotoPoint(mouse->scenePos()), mouse->button());
    else
        MouseReleased(PhotoPoint(mouse->scenePos()), mouse->button());
}

void HBCurvesWidget::MousePressed(const QPoint& position, Qt::MouseButton button)
{
    if (m_Picking || button != Qt::LeftButton)
        return;
    m_Picking = true;
    m_PickStart = position;
    m_pView->setDragMode(QGraphicsView::RubberBandDrag);
}

void HBCurvesWidget::MouseReleased(const QPoint& position, Qt::MouseButton button)
{
    if (!m_Picking || button != Qt::LeftButton)
        return;
    const int ratio = int(KMPixelRatioRound::GetPixelRatio());
    const QRect rect = QRect(m_PickStart * ratio, position * ratio).normalized();
    if (m_pUI->m_pGray->isChecked()) {
        m_pGrayPicker->rect = rect;
        StartGrayProcessing();
    } else if (m_pUI->m_pBlack->isChecked()) {
        m_pBlackPicker->rect = rect;
        StartBlackProcessing();
    } else if (m_pUI->m_pWhite->isChecked()) {
        m_pWhitePicker->rect = rect;
        StartWhiteProcessing();
    }
    EndDrag();
}

void HBCurvesWidget::EndDrag()
{
    if (m_Picking && m_pView)
        m_pView->setDragMode(QGraphicsView::NoDrag);
    m_Picking = false;
}

// ---- The average ----

HBRGBA32i HBCurvesWidget::CalcAvgColor(const HBImage<>& image, const QRect& rect, const HBRGBA32i& fallback)
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
    constexpr int TileSize = 128;
    for (int index = 0; index < image.Tiles().size(); ++index) {
        const QRect tile = image.TileRect(index);
        const QRect part = area & tile;
        if (part.isEmpty())
            continue;
        const KMTilePin<HBRGBA32i> pin(image.Tile(index), false);
        for (int y = part.top(); y <= part.bottom(); ++y) {
            const HBRGBA32i* row = pin.Pixels() + (y - tile.top()) * TileSize - tile.left();
            for (int x = part.left(); x <= part.right(); ++x)
                histogram(row[x]);
        }
    }
    const quint64 pixels = quint64(area.width()) * quint64(area.height());
    return {Average(red, pixels), Average(green, pixels), Average(blue, pixels), 255};
}

void HBCurvesWidget::StartPick(Picker& picker)
{
    if (picker.running) {
        picker.pending = true;
        return;
    }
    picker.running = true;
    picker.pending = false;
    auto average = [image = SourceImage(), rect = picker.rect, fallback = picker.fallback] {
        try {
            return CalcAvgColor(image, rect, fallback);
        } catch (const std::bad_alloc&) { // a tile that cannot be brought back
            return fallback;
        }
    };
    picker.watcher->setFuture(QtConcurrent::run(average));
}

void HBCurvesWidget::StartBlackProcessing()
{
    StartPick(*m_pBlackPicker);
}

void HBCurvesWidget::StartGrayProcessing()
{
    StartPick(*m_pGrayPicker);
}

void HBCurvesWidget::StartWhiteProcessing()
{
    StartPick(*m_pWhitePicker);
}

// ---- The result ----

/// Puts a picked colour into the curves of the three colours, unless the pick was cancelled; then the rectangle that
/// was picked meanwhile, if any, has its turn.
void HBCurvesWidget::FinishPick(Picker& picker, void (*apply)(QVector<QPoint>& points, int average))
{
    if (!picker.watcher->isCanceled()) {
        const HBRGBA32i color = picker.watcher->result();
        Params params = m_Params;
        for (int c = 1; c <= 3; ++c) {
            if (params.points[c].size() < 2)
                continue;
            apply(params.points[c], Channel(color, c));
            SortByInput(params.points[c]);
        }
        SetValue(params);
        NotifyChanged(&HBCurvesWidget::ValueChanged);
    }
    picker.running = false;
    if (picker.pending)
        StartPick(picker);
}

void HBCurvesWidget::OnBlackFinished()
{
    FinishPick(*m_pBlackPicker, [](QVector<QPoint>& points, int average) {
        QPoint& lower = points.first().y() <= points.last().y() ? points.first() : points.last();
        lower = QPoint(average, 0);
    });
}

void HBCurvesWidget::OnGrayFinished()
{
    FinishPick(*m_pGrayPicker, [](QVector<QPoint>& points, int average) {
        points = {points.first(), QPoint(average, 128), points.last()};
    });
}

void HBCurvesWidget::OnWhiteFinished()
{
    FinishPick(*m_pWhitePicker, [](QVector<QPoint>& points, int average) {
        QPoint& higher = points.first().y() > points.last().y() ? points.first() : points.last();
        higher = QPoint(average, 255);
    });
}
