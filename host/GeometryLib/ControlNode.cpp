// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "ControlNode.h"

#include "HBControlNodeAccessible.h"

#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QWidget>

namespace
{

/// Half the side of the bounding rectangle, in scene units. Painting reaches beyond the hit area in a view that is
/// scaled down; 16 units hold the whole node down to a third of a pixel per unit.
constexpr qreal PaintReach = 16;
/// In logical pixels of the view.
constexpr qreal Radius = 3.5;
constexpr qreal SunkenRadius = 4.5;

} // namespace

ControlNode::ControlNode(QGraphicsItem* parent) : QGraphicsObject(parent), m_AccessibleName(tr("Control point"))
{
    HBControlNodeAccessible::Install();
    qRegisterMetaType<Qt::MouseButton>("Qt::MouseButton"); // for queued connections and signal spies
    setFlag(ItemIsFocusable);
    setAcceptHoverEvents(true);
    setCursor(Qt::SizeAllCursor);
}

void ControlNode::setSunken(bool sunken)
{
    if (sunken == m_Sunken)
        return;
    m_Sunken = sunken;
    update();
}

void ControlNode::SetAccessibleName(const QString& name)
{
    m_AccessibleName = name;
}

QRectF ControlNode::boundingRect() const
{
    return {-PaintReach, -PaintReach, 2 * PaintReach, 2 * PaintReach};
}

QPainterPath ControlNode::shape() const
{
    QPainterPath path;
    path.addRect(-HitSize / 2, -HitSize / 2, HitSize, HitSize);
    return path;
}

void ControlNode::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    // The view may stretch the scene unevenly: only the place is taken through its transformation. ItemIgnores-
    // Transformations would do the same for the look, but make the hit area pixels as well.
    QPointF centre = painter->worldTransform().map(QPointF());
    painter->save();
    painter->resetTransform();
    painter->setRenderHint(QPainter::Antialiasing);

    const QPalette palette = widget ? widget->palette() : option->palette;
    const qreal radius = m_Sunken || m_Hovered ? SunkenRadius : Radius;
    if (widget) { // the ends of a curve stand on the edge, and are seen whole
        const qreal room = radius + 1.5;
        centre.setX(qBound(room, centre.x(), qMax(room, widget->width() - room)));
        centre.setY(qBound(room, centre.y(), qMax(room, widget->height() - room)));
    }
    // Dark in light in whatever the histogram below is: one of the two rings always stands out.
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(255, 255, 255, 200));
    painter->drawEllipse(centre, radius + 1.5, radius + 1.5);
    painter->setBrush(QColor(24, 24, 24));
    painter->drawEllipse(centre, radius + 0.5, radius + 0.5);
    painter->setBrush(m_Sunken ? palette.color(QPalette::Highlight) : QColor(Qt::white));
    painter->drawEllipse(centre, radius - 0.75, radius - 0.75);
    painter->restore();
}

void ControlNode::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
    // Nothing may follow: a slot may delete the node.
    Q_EMIT mousePressed(this, event->button());
}

void ControlNode::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
    Q_EMIT mouseReleased(this, event->button());
}

void ControlNode::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    m_Hovered = true;
    update();
}

void ControlNode::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    m_Hovered = false;
    update();
}

void ControlNode::focusInEvent(QFocusEvent* event)
{
    QGraphicsObject::focusInEvent(event);
    QAccessibleEvent notice(this, QAccessible::Focus);
    QAccessible::updateAccessibility(&notice);
}
