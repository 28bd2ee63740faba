// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEditorIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace
{

// All shapes lie in a square of 16.

QPainterPath Polyline(const QVector<QPointF>& points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(points));
    return path;
}

/// An arrow that turns back to the left.
QPainterPath BackArrow()
{
    QPainterPath path = Polyline({{6, 2}, {2.5, 5.5}, {6, 9}});
    path.moveTo(2.5, 5.5);
    path.lineTo(10, 5.5);
    path.arcTo(QRectF(6.5, 5.5, 7, 7), 90, -180);
    path.lineTo(6, 12.5);
    return path;
}

QPainterPath Corners()
{
    QPainterPath path;
    for (const QPointF d : {QPointF(-1, -1), QPointF(1, -1), QPointF(1, 1), QPointF(-1, 1)}) {
        const QPointF corner = QPointF(8, 8) + 5.5 * d;
        path.addPath(Polyline({corner - QPointF(4 * d.x(), 0), corner, corner - QPointF(0, 4 * d.y())}));
    }
    path.addRect(5.5, 6, 5, 4);
    return path;
}

QPainterPath Square(double at)
{
    QPainterPath path;
    path.addRect(at, at, 8, 8);
    return path;
}

/// What the modes of selections leave of two squares.
QPainterPath Filled(HBEditorIcon icon)
{
    switch (icon) {
    case HBEditorIcon::NewSelection:
        return Square(4);
    case HBEditorIcon::Add:
        return Square(2).united(Square(6));
    case HBEditorIcon::Subtract:
        return Square(2).subtracted(Square(6));
    case HBEditorIcon::Intersect:
        return Square(2).intersected(Square(6));
    default:
        return {};
    }
}

QPainterPath Shape(HBEditorIcon icon)
{
    QPainterPath path;
    switch (icon) {
    case HBEditorIcon::Open:
        return Polyline({{2, 12.5},
                         {2, 3.5},
                         {6, 3.5},
                         {7.5, 5.5},
                         {12.5, 5.5},
                         {12.5, 7.5},
                         {4.5, 7.5},
                         {2, 12.5},
                         {12, 12.5},
                         {14.5, 7.5},
                         {12.5, 7.5}});
    case HBEditorIcon::Save:
        path = Polyline({{8, 2}, {8, 9.5}});
        path.addPath(Polyline({{4.5, 6.5}, {8, 10}, {11.5, 6.5}}));
        path.addPath(Polyline({{2.5, 10}, {2.5, 13.5}, {13.5, 13.5}, {13.5, 10}}));
        return path;
    case HBEditorIcon::Undo:
        return BackArrow();
    case HBEditorIcon::Redo:
        return QTransform(-1, 0, 0, 1, 16, 0).map(BackArrow());
    case HBEditorIcon::Hand:
        return Polyline(
            {{4, 2}, {4, 13}, {6.8, 10.2}, {8.6, 14.2}, {10.4, 13.4}, {8.6, 9.5}, {12.4, 9.4}, {4, 2}});
    case HBEditorIcon::Rectangle:
        path.addRect(2.5, 3.5, 11, 9);
        return path;
    case HBEditorIcon::Ellipse:
        path.addEllipse(QRectF(1.8, 3, 12.4, 10));
        return path;
    case HBEditorIcon::Lasso:
        path.addEllipse(QRectF(1.8, 1.8, 12.4, 8.4));
        path.moveTo(5, 9.8);
        path.cubicTo(2.5, 11, 6.5, 12, 4.5, 14.5);
        return path;
    case HBEditorIcon::Gradient:
        path.addRect(2.5, 2.5, 11, 11);
        for (const double y : {4.2, 5.6, 7.4, 9.8})
            path.addPath(Polyline({{4.2, y}, {11.8, y}}));
        return path;
    case HBEditorIcon::Color: // a wand
        path = Polyline({{2.5, 13.5}, {9, 7}});
        for (const QPointF d : {QPointF(1, 0), QPointF(0, 1), QPointF(0.7, 0.7), QPointF(0.7, -0.7)}) {
            path.addPath(Polyline({QPointF(10.5, 5.5) - 4 * d, QPointF(10.5, 5.5) - 1.8 * d}));
            path.addPath(Polyline({QPointF(10.5, 5.5) + 4 * d, QPointF(10.5, 5.5) + 1.8 * d}));
        }
        return path;
    case HBEditorIcon::Move:
        path = Polyline({{8, 1.5}, {8, 14.5}});
        path.addPath(Polyline({{1.5, 8}, {14.5, 8}}));
        for (const double d : {-1.0, 1.0}) {
            path.addPath(Polyline({{6, 8 + 4.5 * d}, {8, 8 + 6.5 * d}, {10, 8 + 4.5 * d}}));
            path.addPath(Polyline({{8 + 4.5 * d, 6}, {8 + 6.5 * d, 8}, {8 + 4.5 * d, 10}}));
        }
        return path;
    case HBEditorIcon::NewSelection:
        return Square(4);
    case HBEditorIcon::Add:
    case HBEditorIcon::Subtract:
    case HBEditorIcon::Intersect:
        path = Square(2);
        path.addPath(Square(6));
        return path;
    case HBEditorIcon::Split:
        path.addRect(2, 3, 12, 10);
        path.moveTo(8, 1);
        path.lineTo(8, 15);
        return path;
    case HBEditorIcon::Before:
        path.moveTo(1.5, 8);
        path.quadTo(8, 0.5, 14.5, 8);
        path.quadTo(8, 15.5, 1.5, 8);
        path.addEllipse(QPointF(8, 8), 2.2, 2.2);
        return path;
    case HBEditorIcon::Fit:
        return Corners();
    case HBEditorIcon::Actual:
        path = Polyline({{2.5, 5}, {4.5, 3.5}, {4.5, 12.5}});
        path.addPath(Polyline({{10.5, 5}, {12.5, 3.5}, {12.5, 12.5}}));
        path.addEllipse(QPointF(8.2, 6), 0.4, 0.4);
        path.addEllipse(QPointF(8.2, 10), 0.4, 0.4);
        return path;
    }
    return path;
}

class IconEngine : public QIconEngine
{
public:
    explicit IconEngine(HBEditorIcon icon) : m_Icon(icon) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const bool disabled = mode == QIcon::Disabled;
        const QColor color = QGuiApplication::palette().color(disabled ? QPalette::Disabled : QPalette::Active,
                                                              QPalette::WindowText);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        QPen pen(color, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        if (m_Icon == HBEditorIcon::Rectangle || m_Icon == HBEditorIcon::Ellipse || m_Icon == HBEditorIcon::Lasso)
            pen.setDashPattern({2, 1.8});
        painter->fillPath(Filled(m_Icon), QColor(color.red(), color.green(), color.blue(), 130));
        painter->setPen(pen);
        painter->drawPath(Shape(m_Icon));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new IconEngine(m_Icon); }

private:
    const HBEditorIcon m_Icon;
};

} // namespace

QIcon HBMakeIcon(HBEditorIcon icon)
{
    return QIcon(new IconEngine(icon));
}
