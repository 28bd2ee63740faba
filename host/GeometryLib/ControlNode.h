// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBGeometryLibExport.h"

#include <QGraphicsObject>

/// A point that the user takes hold of in a scene. It does not move by itself: whoever owns it listens to its
/// signals and to the scene.
///
/// It can be hit inside HitSize × HitSize scene units around its position, however the view is scaled, and looks
/// the same size in every view. It takes every press, so that no drag mode of the view starts on it. Slots may
/// delete it.
///
/// Its symbols bear a tag: without it, a program's own class ControlNode, no rare name, would take the place of
/// this one inside the panels.
class HB_GEOMETRYLIB_EXPORT ADJUSTMENT_PANELS_OWN_NAME ControlNode : public QGraphicsObject
{
    Q_OBJECT
public:
    static constexpr qreal HitSize = 8;

    explicit ControlNode(QGraphicsItem* parent = nullptr);

    /// The look of the selected node.
    void setSunken(bool sunken);
    bool isSunken() const { return m_Sunken; }

    /// What assistive technology calls the node; "Control point" at first.
    void SetAccessibleName(const QString& name);
    QString AccessibleName() const { return m_AccessibleName; }

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

Q_SIGNALS:
    void mousePressed(ControlNode*, Qt::MouseButton);
    void mouseReleased(ControlNode*, Qt::MouseButton);

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    QString m_AccessibleName;
    bool m_Sunken = false;
    bool m_Hovered = false;
};
