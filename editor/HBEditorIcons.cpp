// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEditorIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <QStringList>

#include <iterator>

namespace
{

// All shapes lie in a square of 16, and are read as paths of SVG are, with blanks between all words: M moves to a
// point, L draws lines through points, Q and C curves. Besides, by left, top, width and height: R a rectangle, E
// an ellipse, A an arc of one, with the angle it begins at and its length.
constexpr const char* Shapes[] = {
    /* Open */ "M 2 12.5 L 2 3.5 6 3.5 7.5 5.5 12.5 5.5 12.5 7.5 4.5 7.5 2 12.5 12 12.5 14.5 7.5 12.5 7.5",
    /* Save */ "M 8 2 L 8 9.5 M 4.5 6.5 L 8 10 11.5 6.5 M 2.5 10 L 2.5 13.5 13.5 13.5 13.5 10",
    /* Undo */ "M 6 2 L 2.5 5.5 6 9 M 2.5 5.5 L 10 5.5 A 6.5 5.5 7 7 90 -180 L 6 12.5",
    /* Redo */ "M 10 2 L 13.5 5.5 10 9 M 13.5 5.5 L 6 5.5 A 2.5 5.5 7 7 90 180 L 10 12.5",
    /* Hand */ "M 4 2 L 4 13 6.8 10.2 8.6 14.2 10.4 13.4 8.6 9.5 12.4 9.4 4 2",
    /* Rectangle */ "R 2.5 3.5 11 9",
    /* Ellipse */ "E 1.8 3 12.4 10",
    /* Lasso */ "E 1.8 1.8 12.4 8.4 M 5 9.8 C 2.5 11 6.5 12 4.5 14.5",
    /* Gradient */
    "R 2.5 2.5 11 11 M 4.2 4.2 L 11.8 4.2 M 4.2 5.6 L 11.8 5.6 M 4.2 7.4 L 11.8 7.4 M 4.2 9.8 L 11.8 9.8",
    /* Color, a wand */
    ("M 2.5 13.5 L 9 7 M 6.5 5.5 L 8.7 5.5 M 14.5 5.5 L 12.3 5.5 M 10.5 1.5 L 10.5 3.7 M 10.5 9.5 L 10.5 7.3 "
     "M 7.7 2.7 L 9.24 4.24 M 13.3 8.3 L 11.76 6.76 M 7.7 8.3 L 9.24 6.76 M 13.3 2.7 L 11.76 4.24"),
    /* Move */
    ("M 8 1.5 L 8 14.5 M 1.5 8 L 14.5 8 M 6 3.5 L 8 1.5 10 3.5 M 3.5 6 L 1.5 8 3.5 10 M 6 12.5 L 8 14.5 10 12.5 "
     "M 12.5 6 L 14.5 8 12.5 10"),
    /* NewSelection */ "R 4 4 8 8",
    /* Add */ "R 2 2 8 8 R 6 6 8 8",
    /* Subtract */ "R 2 2 8 8 R 6 6 8 8",
    /* Intersect */ "R 2 2 8 8 R 6 6 8 8",
    /* Split */ "R 2 3 12 10 M 8 1 L 8 15",
    /* Before */ "M 1.5 8 Q 8 0.5 14.5 8 Q 8 15.5 1.5 8 E 5.8 5.8 4.4 4.4",
    /* Fit */
    ("M 6.5 2.5 L 2.5 2.5 2.5 6.5 M 9.5 2.5 L 13.5 2.5 13.5 6.5 M 9.5 13.5 L 13.5 13.5 13.5 9.5 "
     "M 6.5 13.5 L 2.5 13.5 2.5 9.5 R 5.5 6 5 4"),
    /* Actual */
    "M 2.5 5 L 4.5 3.5 4.5 12.5 M 10.5 5 L 12.5 3.5 12.5 12.5 E 7.8 5.6 0.8 0.8 E 7.8 9.6 0.8 0.8",
};
static_assert(std::size(Shapes) == std::size_t(HBEditorIcon::Actual) + 1, "one for each icon, in their order");

QPainterPath Shape(HBEditorIcon icon)
{
    const QStringList words = QString::fromLatin1(Shapes[std::size_t(icon)]).split(' ');
    int at = 0;
    const auto number = [&] { return words.at(at++).toDouble(); };
    const auto point = [&] {
        const double x = number();
        return QPointF(x, number());
    };
    const auto rectangle = [&] {
        const QPointF corner = point();
        const QPointF size = point();
        return QRectF(corner, QSizeF(size.x(), size.y()));
    };
    QPainterPath path;
    while (at < words.size()) {
        const char kind = words.at(at++).at(0).toLatin1();
        if (kind == 'M') {
            path.moveTo(point());
        } else if (kind == 'L') {
            while (at < words.size() && !words.at(at).at(0).isUpper())
                path.lineTo(point());
        } else if (kind == 'Q') {
            const QPointF control = point();
            path.quadTo(control, point());
        } else if (kind == 'C') {
            const QPointF first = point();
            const QPointF second = point();
            path.cubicTo(first, second, point());
        } else if (kind == 'R') {
            path.addRect(rectangle());
        } else if (kind == 'E') {
            path.addEllipse(rectangle());
        } else if (kind == 'A') {
            const QRectF area = rectangle();
            const double begin = number();
            path.arcTo(area, begin, number());
        }
    }
    return path;
}

/// What the modes of selections leave of two squares.
QPainterPath Filled(HBEditorIcon icon)
{
    const auto square = [](double at) {
        QPainterPath path;
        path.addRect(at, at, 8, 8);
        return path;
    };
    switch (icon) {
    case HBEditorIcon::NewSelection:
        return square(4);
    case HBEditorIcon::Add:
        return square(2).united(square(6));
    case HBEditorIcon::Subtract:
        return square(2).subtracted(square(6));
    case HBEditorIcon::Intersect:
        return square(2).intersected(square(6));
    default:
        return {};
    }
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
