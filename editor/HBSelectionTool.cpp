// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionTool.h"

#include <KMDocumentView.h>

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

/// Black dashes on white: visible on any photo, the same width at any zoom.
class HBSelectionOutline : public QGraphicsItem
{
public:
    HBSelectionOutline()
    {
        setAcceptedMouseButtons(Qt::NoButton);
        setZValue(10);
    }
    void SetPath(const QPainterPath& path)
    {
        prepareGeometryChange();
        m_Path = path;
    }
    QRectF boundingRect() const override { return m_Path.boundingRect(); }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        QPen pen(Qt::white, 1);
        pen.setCosmetic(true);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(pen);
        painter->drawPath(m_Path);
        pen.setColor(Qt::black);
        pen.setDashPattern({4, 4});
        painter->setPen(pen);
        painter->drawPath(m_Path);
    }

private:
    QPainterPath m_Path;
};

HBSelectionTool::HBSelectionTool(KMDocumentView* view, QObject* parent)
    : QObject(parent)
    , m_pView(view)
    , m_pOutline(new HBSelectionOutline)
{
    m_pView->scene()->addItem(m_pOutline);
    m_pView->scene()->installEventFilter(this);
}

HBSelectionTool::~HBSelectionTool() = default;

QSize HBSelectionTool::PhotoSize() const
{
    return {m_pView->Picture().Width(), m_pView->Picture().Height()};
}

void HBSelectionTool::SetTool(Tool tool)
{
    m_Tool = tool;
    m_pView->SetToolCursor(tool == Tool::None ? QCursor() : QCursor(Qt::CrossCursor));
}

void HBSelectionTool::SetFeather(int feather)
{
    m_Feather = std::max(0, feather);
    HBSelectionShape shape = m_Shape;
    shape.SetPixelFeather(m_Feather, PhotoSize());
    if (shape != m_Shape)
        SetShape(shape);
}

void HBSelectionTool::SetShape(const HBSelectionShape& shape)
{
    const bool wasNone = m_Shape.IsNone();
    m_Shape = shape;
    ShowOutline();
    if (!wasNone || !shape.IsNone())
        Q_EMIT Changed();
}

void HBSelectionTool::SelectAll()
{
    if (!PhotoSize().isEmpty())
        SetShape(
            {{HBShape::OfPixels(HBShape::Kind::Rectangle, QRect(QPoint(0, 0), PhotoSize()), 0, PhotoSize())}});
}

void HBSelectionTool::Invert()
{
    if (m_Shape.IsNone()) {
        SelectAll();
        return;
    }
    const HBShape& shape = m_Shape.shapes.first();
    const bool all = m_Shape.shapes.size() == 1 && shape.kind == HBShape::Kind::Rectangle && !shape.inverted &&
                     shape.feather <= 0 && shape.PixelRect(PhotoSize()).contains(QRect(QPoint(0, 0), PhotoSize()));
    SetShape(all ? HBSelectionShape() : m_Shape.Inverted());
}

void HBSelectionTool::ShowOutline()
{
    m_pOutline->SetPath(m_Shape.Outline(PhotoSize()));
    m_pView->viewport()->update(); // the line's width is not part of the item
}

// ---- Mouse ----

/// Not where a panel picks, nor on something that can be dragged itself.
bool HBSelectionTool::MayStart(const QPointF& scenePosition) const
{
    if (m_Tool == Tool::None || PhotoSize().isEmpty() || m_pView->HasOverrideCursor())
        return false;
    const QList<QGraphicsItem*> items = m_pView->scene()->items(scenePosition);
    return std::none_of(items.begin(), items.end(), [](const QGraphicsItem* item) {
        return item->isVisible() && (item->acceptedMouseButtons() & Qt::LeftButton);
    });
}

bool HBSelectionTool::eventFilter(QObject* watched, QEvent* event)
{
    bool used = false;
    if (auto* mouse = dynamic_cast<QGraphicsSceneMouseEvent*>(event))
        used = OnMouse(mouse);
    else if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        used = OnEscape();
    return used || QObject::eventFilter(watched, event);
}

bool HBSelectionTool::OnMouse(QGraphicsSceneMouseEvent* event)
{
    const bool square = event->modifiers() & Qt::ShiftModifier;
    switch (event->type()) {
    case QEvent::GraphicsSceneMousePress:
    case QEvent::GraphicsSceneMouseDoubleClick:
        if (event->button() != Qt::LeftButton || !MayStart(event->scenePos()))
            return false;
        m_Dragging = true;
        m_DragFrom = event->scenePos();
        m_Before = m_Shape;
        event->accept();
        return true;
    case QEvent::GraphicsSceneMouseMove:
        if (m_Dragging)
            Drag(event->scenePos(), square);
        return m_Dragging;
    case QEvent::GraphicsSceneMouseRelease:
        if (!m_Dragging || event->button() != Qt::LeftButton)
            return false;
        Drag(event->scenePos(), square);
        EndDrag();
        return true;
    default:
        return false;
    }
}

bool HBSelectionTool::OnEscape()
{
    if (m_Dragging) {
        m_Dragging = false;
        m_Shape = m_Before;
        ShowOutline();
        return true;
    }
    if (m_Shape.IsNone() || !m_EscapeDeselects)
        return false;
    SelectNothing();
    return true;
}

void HBSelectionTool::Drag(const QPointF& to, bool square)
{
    QPointF span = to - m_DragFrom;
    if (square) {
        const double side = std::max(std::abs(span.x()), std::abs(span.y()));
        span = QPointF(std::copysign(side, span.x()), std::copysign(side, span.y()));
    }
    const QRectF area = QRectF(m_DragFrom, m_DragFrom + span).normalized();
    const QRect pixels(QPoint(qRound(area.left()), qRound(area.top())),
                       QPoint(qRound(area.right()) - 1, qRound(area.bottom()) - 1));
    // Tested before it is cut: QRect turns an empty rectangle round.
    if (pixels.isEmpty()) {
        m_Shape = HBSelectionShape();
    } else {
        // A rectangle ends at the photo's edge; an ellipse cut off there would be another ellipse.
        const auto kind = m_Tool == Tool::Rectangle ? HBShape::Kind::Rectangle : HBShape::Kind::Ellipse;
        const bool cut = kind == HBShape::Kind::Rectangle;
        const QRect rect = cut ? pixels & QRect(QPoint(0, 0), PhotoSize()) : pixels;
        m_Shape = rect.isEmpty() ? HBSelectionShape()
                                 : HBSelectionShape{{HBShape::OfPixels(kind, rect, m_Feather, PhotoSize())}};
    }
    ShowOutline();
}

void HBSelectionTool::EndDrag()
{
    m_Dragging = false;
    const HBSelectionShape drawn = m_Shape;
    m_Shape = m_Before;
    const QRect frame(QPoint(0, 0), PhotoSize());
    const bool isSeen = !drawn.IsNone() && drawn.shapes.first().PixelRect(PhotoSize()).intersects(frame);
    SetShape(isSeen ? drawn : HBSelectionShape());
}
