// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPickSurface.h"

#include <KMDocumentView.h>

#include <QCoreApplication>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QMouseEvent>
#include <QRubberBand>

HBPickSurface::HBPickSurface(QWidget* canvas, ToPicture toPicture, QObject* parent)
    : QObject(parent)
    , m_pView(std::make_unique<KMDocumentView>())
    , m_pCanvas(canvas)
    , m_ToPicture(std::move(toPicture))
{
    connect(m_pView.get(), &KMDocumentView::OverrideCursorChanged, this, &HBPickSurface::OnCursorChanged);
    canvas->installEventFilter(this);
}

HBPickSurface::HBPickSurface(QGraphicsView* view, QObject* parent)
    : HBPickSurface(
          view->viewport(),
          // The viewport lives no longer than its view.
          [view](const QPoint& position) { return view->viewportTransform().inverted().map(QPointF(position)); },
          parent)
{
}

HBPickSurface::~HBPickSurface()
{
    m_pView->disconnect(this);
    m_pView->SetOverrideCursor(QCursor());
    OnCursorChanged();
}

bool HBPickSurface::IsPicking() const
{
    return m_pView->HasOverrideCursor();
}

void HBPickSurface::OnCursorChanged()
{
    if (!m_pCanvas)
        return;
    if (!IsPicking()) {
        EndDrag();
        if (m_pCanvasCursor)
            ShowCursor(*m_pCanvasCursor);
        if (m_pCanvasCursor && !m_HadCursor)
            m_pCanvas->unsetCursor();
        m_pCanvasCursor.reset();
        return;
    }
    if (!m_pCanvasCursor) {
        m_HadCursor = m_pCanvas->testAttribute(Qt::WA_SetCursor);
        m_pCanvasCursor = std::make_unique<QCursor>(m_pCanvas->cursor());
    }
    ShowCursor(m_pView->viewport()->cursor());
}

void HBPickSurface::ShowCursor(const QCursor& cursor)
{
    m_ShowingCursor = true;
    m_pCanvas->setCursor(cursor);
    m_ShowingCursor = false;
}

bool HBPickSurface::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_pCanvas || !IsPicking())
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        if (TakeMouse(event->type(), *static_cast<QMouseEvent*>(event)))
            return true;
        break;
    case QEvent::CursorChange:
        // A view shows another over each item. It is the one to go back to.
        if (!m_ShowingCursor && m_pCanvasCursor) {
            *m_pCanvasCursor = m_pCanvas->cursor();
            m_HadCursor = m_pCanvas->testAttribute(Qt::WA_SetCursor);
            ShowCursor(m_pView->viewport()->cursor());
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

/// True: it was the picker's.
bool HBPickSurface::TakeMouse(QEvent::Type type, const QMouseEvent& mouse)
{
    if (type == QEvent::MouseMove) {
        if (!m_Dragging)
            return false;
        m_pBand->setGeometry(QRect(m_DragStart, mouse.pos()).normalized());
        m_pBand->show();
        return true;
    }
    if (mouse.button() != Qt::LeftButton)
        return m_Dragging; // others have to wait
    const bool press = type != QEvent::MouseButtonRelease;
    if (press == m_Dragging)
        return true;
    if (press) {
        m_Dragging = true;
        m_DragStart = mouse.pos();
        m_pBand = new QRubberBand(QRubberBand::Rectangle, m_pCanvas);
    }
    QGraphicsSceneMouseEvent event(press ? QEvent::GraphicsSceneMousePress : QEvent::GraphicsSceneMouseRelease);
    event.setButton(Qt::LeftButton);
    event.setScenePos(m_ToPicture(mouse.pos()));
    if (!press)
        EndDrag();
    // Last: at the end of a pick anything may be destroyed.
    QCoreApplication::sendEvent(m_pView->scene(), &event);
    return true;
}

void HBPickSurface::EndDrag()
{
    m_Dragging = false;
    delete m_pBand;
}
