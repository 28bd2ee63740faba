// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBeforeAfter.h"

#include <HBTileImageItem.h>
#include <KMDocumentView.h>

#include <QCoreApplication>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

#include <algorithm>

namespace
{

constexpr double GripRadius = 9; // on the screen, like all lengths of the line

}

/// The line between before and after: a scene item as high as the photo and, at any zoom, as wide as its grip.
class HBSplitLine : public QGraphicsItem
{
public:
    HBSplitLine(KMDocumentView* view, HBBeforeAfter* owner) : m_pView(view), m_pOwner(owner)
    {
        setZValue(5);
        setCursor(Qt::SplitHCursor);
        setAcceptedMouseButtons(Qt::LeftButton);
    }

    void Move() { prepareGeometryChange(); }

    QRectF boundingRect() const override
    {
        const double half = GripRadius / m_pView->transform().m11();
        const QRectF photo = m_pView->PictureRect();
        return {m_pOwner->LineAt() - half, photo.top(), 2 * half, photo.height()};
    }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        const QTransform toViewport = m_pView->viewportTransform();
        const QRectF photo = toViewport.mapRect(m_pView->PictureRect());
        const QRectF seen = photo & QRectF(m_pView->viewport()->rect());
        const double x = toViewport.map(QPointF(m_pOwner->LineAt(), 0)).x();
        const QPointF grip(x, seen.center().y());
        painter->resetTransform();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(QColor(0, 0, 0, 160), 3));
        painter->drawLine(QPointF(x, photo.top()), QPointF(x, photo.bottom()));
        painter->setPen(QPen(Qt::white, 1));
        painter->drawLine(QPointF(x, photo.top()), QPointF(x, photo.bottom()));
        painter->setPen(QPen(QColor(0, 0, 0, 160), 1));
        painter->setBrush(Qt::white);
        painter->drawEllipse(grip, GripRadius - 1, GripRadius - 1);
        painter->setPen(Qt::NoPen);
        painter->setBrush(Qt::black);
        const QPointF side(3, 0);
        for (const double d : {-1.0, 1.0}) {
            const QPointF tip = grip + QPointF(6 * d, 0);
            painter->drawPolygon(QPolygonF({tip, tip - side * d + QPointF(0, 3), tip - side * d - QPointF(0, 3)}));
        }
    }

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override { event->accept(); }
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override
    {
        m_pOwner->SetSplitAt(event->scenePos().x() / m_pView->PictureRect().width());
    }

private:
    KMDocumentView* m_pView;
    HBBeforeAfter* m_pOwner;
};

HBBeforeAfter::HBBeforeAfter(KMDocumentView* view, QObject* parent)
    : QObject(parent)
    , m_pView(view)
    , m_pBefore(new HBTileImageItem)
    , m_pLine(new HBSplitLine(view, this))
{
    m_pBefore->setZValue(1);
    view->scene()->addItem(m_pBefore);
    view->scene()->addItem(m_pLine);
    connect(view, &KMDocumentView::SightChanged, this, &HBBeforeAfter::Update);
    Update();
}

void HBBeforeAfter::SetBefore(const HBImage<>& image)
{
    m_pBefore->SetImage(image);
    Update();
}

const HBImage<>& HBBeforeAfter::Before() const
{
    return m_pBefore->Image();
}

double HBBeforeAfter::LineAt() const
{
    const double width = m_pBefore->boundingRect().width();
    const double line = m_SplitAt * width;
    const QRect seen = m_pView->SightArea();
    if (!m_pView->isVisible() || seen.isEmpty() || seen.width() >= width)
        return line;
    const double margin = std::min(2 * GripRadius / m_pView->transform().m11(), seen.width() / 2.0);
    return std::clamp(line, seen.left() + margin, seen.left() + seen.width() - margin);
}

void HBBeforeAfter::SetLook(const HBTileMips::Look& look)
{
    m_pBefore->SetLook(look);
}

void HBBeforeAfter::SetPreviewed(bool previewed)
{
    m_Previewed = previewed;
    Update();
}

void HBBeforeAfter::SetHeld(bool held)
{
    m_Held = held;
    Update();
}

void HBBeforeAfter::SetSplit(bool split)
{
    m_Split = split;
    Update();
}

void HBBeforeAfter::SetSplitAt(double fraction)
{
    m_SplitAt = std::clamp(fraction, 0.0, 1.0);
    Update();
}

void HBBeforeAfter::Update()
{
    const QRectF photo = m_pBefore->boundingRect();
    const bool whole = m_Held || !m_Previewed;
    QRectF clip;
    if (!whole)
        clip = QRectF(0, 0, LineAt(), photo.height());
    m_pBefore->setVisible(whole || (m_Split && !clip.isEmpty()));
    m_pBefore->SetClip(clip);
    m_pLine->setVisible(m_Split && !whole && !photo.isEmpty());
    m_pLine->Move();
    m_pView->viewport()->update();
}
