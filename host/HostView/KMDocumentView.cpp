// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMDocumentView.h"

#include "HBTileImageItem.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace
{

// Where the zoom keys stop.
constexpr double zoomSteps[] = {1. / 512, 1. / 256, 1. / 128, 1. / 64, 1. / 32, 1. / 16, 1. / 12, 1. / 8, 1. / 6,
                                1. / 4,   1. / 3,   1. / 2,   2. / 3,  1,       1.5,     2,       3,      4,
                                6,        8,        12,       16,      24,      32,      48,      64};

constexpr double WheelStep = 1.2; // per notch of 120 units

} // namespace

KMDocumentView::KMDocumentView(QWidget* parent) : QGraphicsView(parent), m_pPicture(new HBTileImageItem)
{
    auto* scene = new QGraphicsScene(this);
    // An index of a handful of items, of which one fills the scene, only costs time.
    scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    scene->addItem(m_pPicture);
    setScene(scene);
    setFrameShape(QFrame::NoFrame);
    setTransformationAnchor(NoAnchor);
    setResizeAnchor(AnchorViewCenter);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setAccessibleName(tr("Photo"));
    UseBackground();
}

// ---- Cursor ----

void KMDocumentView::SetOverrideCursor(const QCursor& cursor)
{
    m_Overridden = cursor.shape() != Qt::ArrowCursor;
    m_OverrideCursor = cursor;
    ShowCursor();
    Q_EMIT OverrideCursorChanged();
}

void KMDocumentView::SetToolCursor(const QCursor& cursor)
{
    m_ToolCursor = cursor;
    ShowCursor();
}

void KMDocumentView::ShowCursor()
{
    if (m_Panning)
        viewport()->setCursor(Qt::ClosedHandCursor);
    else if (m_SpaceHeld)
        viewport()->setCursor(Qt::OpenHandCursor);
    else
        viewport()->setCursor(m_Overridden ? m_OverrideCursor : m_ToolCursor);
}

// ---- Picture ----

void KMDocumentView::SetPicture(const HBImage<>& picture)
{
    const bool sameSize = picture.Width() == Picture().Width() && picture.Height() == Picture().Height();
    m_pPicture->SetImage(picture);
    if (sameSize)
        return;
    setSceneRect(m_pPicture->boundingRect());
    m_Fit = Fit::Shrink;
    FitNow();
    TellSight();
    viewport()->update();
}

const HBImage<>& KMDocumentView::Picture() const
{
    return m_pPicture->Image();
}

QRectF KMDocumentView::PictureRect() const
{
    return m_pPicture->boundingRect();
}

void KMDocumentView::SetLook(const HBTileMips::Look& look)
{
    m_pPicture->SetLook(look);
}

void KMDocumentView::ShowSight(const HBImage<>& sight, const QRect& area, int level)
{
    m_pPicture->ShowSight(sight, area, level);
}

void KMDocumentView::EndSight()
{
    m_pPicture->EndSight();
}

QRect KMDocumentView::SightArea() const
{
    const QRectF seen = viewportTransform().inverted().mapRect(QRectF(viewport()->rect()));
    return (seen & PictureRect()).toAlignedRect();
}

void KMDocumentView::TellSight()
{
    const QRect area = SightArea();
    if (area == m_ToldArea && m_Zoom == m_ToldZoom)
        return;
    m_ToldArea = area;
    m_ToldZoom = m_Zoom;
    Q_EMIT SightChanged(area, m_Zoom);
}

void KMDocumentView::scrollContentsBy(int dx, int dy)
{
    QGraphicsView::scrollContentsBy(dx, dy);
    TellSight();
}

void KMDocumentView::SetPlaceholder(const QString& text)
{
    m_Placeholder = text;
    viewport()->update();
}

QPoint KMDocumentView::PixelAt(const QPoint& viewportPosition) const
{
    const QPointF scenePosition = viewportTransform().inverted().map(QPointF(viewportPosition));
    const QPoint pixel(int(std::floor(scenePosition.x())), int(std::floor(scenePosition.y())));
    return PictureRect().toRect().contains(pixel) ? pixel : QPoint(-1, -1);
}

// ---- Zoom ----

void KMDocumentView::SetZoom(double zoom, const QPointF& anchor)
{
    m_Fit = Fit::No;
    ApplyZoom(zoom, anchor);
}

void KMDocumentView::ApplyZoom(double zoom, const QPointF& anchor)
{
    const QPointF point = viewportTransform().inverted().map(anchor);
    const double before = m_Zoom;
    m_Zoom = qBound(MinimumZoom, zoom, MaximumZoom);
    m_Ratio = viewport()->devicePixelRatioF();
    setTransform(QTransform::fromScale(m_Zoom / m_Ratio, m_Zoom / m_Ratio));
    const QPointF moved = viewportTransform().map(point) - anchor;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(moved.x()));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(moved.y()));
    if (m_Zoom != before)
        Q_EMIT ZoomChanged(m_Zoom);
    TellSight();
}

void KMDocumentView::ZoomIn()
{
    const double* step = std::upper_bound(std::begin(zoomSteps), std::end(zoomSteps), m_Zoom * 1.001);
    SetZoom(step == std::end(zoomSteps) ? MaximumZoom : *step);
}

void KMDocumentView::ZoomOut()
{
    const double* step = std::lower_bound(std::begin(zoomSteps), std::end(zoomSteps), m_Zoom * 0.999);
    SetZoom(step == std::begin(zoomSteps) ? MinimumZoom : *(step - 1));
}

void KMDocumentView::ZoomToFit()
{
    m_Fit = Fit::Fill;
    FitNow();
}

void KMDocumentView::FitNow()
{
    const QSizeF picture = PictureRect().size();
    if (m_Fit == Fit::No || picture.isEmpty())
        return;
    // What the viewport is without scroll bars: a fitted photo needs none.
    const QSizeF room = QSizeF(maximumViewportSize()) * viewport()->devicePixelRatioF();
    double zoom = std::min(room.width() / picture.width(), room.height() / picture.height());
    if (m_Fit == Fit::Shrink)
        zoom = std::min(zoom, 1.0);
    ApplyZoom(zoom, QRectF(viewport()->rect()).center());
}

void KMDocumentView::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    FitNow();
    TellSight();
}

void KMDocumentView::wheelEvent(QWheelEvent* event)
{
    const bool plain = event->modifiers() == Qt::NoModifier && event->pixelDelta().isNull();
    if (!(event->modifiers() & Qt::ControlModifier) && !(m_WheelZooms && plain)) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    event->accept();
    if (PictureRect().isEmpty() || event->angleDelta().y() == 0)
        return;
    double zoom = m_Zoom * std::pow(WheelStep, event->angleDelta().y() / 120.0);
    // The wheel stops at 100 %: whoever turns it across means to see the pixels.
    if ((zoom > 1 && m_Zoom < 0.999) || (zoom < 1 && m_Zoom > 1.001))
        zoom = 1;
    SetZoom(zoom, event->position());
}

// ---- Moving the photo ----

bool KMDocumentView::MayDrag(const QMouseEvent& event) const
{
    if (event.button() == Qt::MiddleButton || (event.button() == Qt::LeftButton && m_SpaceHeld))
        return true;
    if (event.button() != Qt::LeftButton || !m_HandDrags || m_Overridden)
        return false;
    const QList<QGraphicsItem*> there = items(event.pos());
    return std::none_of(there.begin(), there.end(), [](const QGraphicsItem* item) {
        return item->isVisible() && (item->acceptedMouseButtons() & Qt::LeftButton);
    });
}

void KMDocumentView::mousePressEvent(QMouseEvent* event)
{
    if (MayDrag(*event)) {
        m_Panning = true;
        m_PanFrom = event->pos();
        ShowCursor();
        return;
    }
    QGraphicsView::mousePressEvent(event);
}

void KMDocumentView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_Panning) {
        const QPoint moved = event->pos() - m_PanFrom;
        m_PanFrom = event->pos();
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
        return;
    }
    Q_EMIT PixelHovered(PixelAt(event->pos()));
    QGraphicsView::mouseMoveEvent(event);
}

void KMDocumentView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_Panning && !(event->buttons() & (Qt::LeftButton | Qt::MiddleButton))) {
        m_Panning = false;
        ShowCursor();
        return;
    }
    QGraphicsView::mouseReleaseEvent(event);
}

void KMDocumentView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space) {
        QGraphicsView::keyPressEvent(event);
        return;
    }
    m_SpaceHeld = true;
    ShowCursor();
}

void KMDocumentView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space) {
        QGraphicsView::keyReleaseEvent(event);
        return;
    }
    if (event->isAutoRepeat())
        return;
    m_SpaceHeld = false;
    ShowCursor();
}

void KMDocumentView::focusOutEvent(QFocusEvent* event)
{
    m_SpaceHeld = false; // its release will go elsewhere
    ShowCursor();
    QGraphicsView::focusOutEvent(event);
}

void KMDocumentView::leaveEvent(QEvent* event)
{
    Q_EMIT PixelHovered(QPoint(-1, -1));
    QGraphicsView::leaveEvent(event);
}

void KMDocumentView::dragEnterEvent(QDragEnterEvent* event)
{
    event->ignore();
}

void KMDocumentView::dragMoveEvent(QDragMoveEvent* event)
{
    event->ignore();
}

void KMDocumentView::dropEvent(QDropEvent* event)
{
    event->ignore();
}

// ---- Painting ----

void KMDocumentView::paintEvent(QPaintEvent* event)
{
    // Moved to a screen of another pixel ratio. Not from inside the paint: it changes what is painted.
    if (viewport()->devicePixelRatioF() != m_Ratio) {
        QTimer::singleShot(0, this, [this] {
            ApplyZoom(m_Zoom, QRectF(viewport()->rect()).center());
            FitNow();
        });
    }
    QGraphicsView::paintEvent(event);
    if (Picture().IsEmpty() && !m_Placeholder.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_Placeholder);
    }
}

void KMDocumentView::changeEvent(QEvent* event)
{
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        UseBackground();
}

/// A grey around the photo that neither tints nor outshines it.
void KMDocumentView::UseBackground()
{
    const int lightness = palette().color(QPalette::Window).lightness();
    const int grey = lightness * 4 / 5;
    setBackgroundBrush(QColor(grey, grey, grey));
}
