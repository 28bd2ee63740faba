// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAngleSlider.h"

#include "HBMixedColor.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QtMath>
#include <QWheelEvent>

#include <cmath>

namespace
{

constexpr int SnapStep = 15;
constexpr int PageStep = 15;
constexpr int PreferredSize = 36;
// In parts of the dial's radius.
constexpr qreal KnobDistance = 0.66;
constexpr qreal KnobRadius = 0.17;

QPointF PointAt(int degrees, qreal distance)
{
    const qreal radians = qDegreesToRadians(qreal(degrees));
    return {distance * std::cos(radians), -distance * std::sin(radians)};
}

} // namespace

HBAngleSlider::HBAngleSlider(QWidget* parent) : QAbstractSlider(parent)
{
    setRange(Minimum, Maximum);
    setSingleStep(1);
    setPageStep(PageStep);
    setFocusPolicy(Qt::StrongFocus); // not by the wheel
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

int HBAngleSlider::Wrapped(int degrees)
{
    const int turned = degrees % 360; // -359..359
    return turned > Maximum ? turned - 360 : turned < Minimum ? turned + 360 : turned;
}

int HBAngleSlider::AngleAt(const QPointF& fromCentre, int current)
{
    if (fromCentre.isNull())
        return current;
    return Wrapped(qRound(qRadiansToDegrees(std::atan2(-fromCentre.y(), fromCentre.x()))));
}

QSize HBAngleSlider::sizeHint() const
{
    return {PreferredSize, PreferredSize};
}

QSize HBAngleSlider::minimumSizeHint() const
{
    return {PreferredSize / 2, PreferredSize / 2};
}

// ---- Mouse, wheel, keys ----

void HBAngleSlider::Follow(const QMouseEvent* event)
{
    int angle = AngleAt(event->localPos() - QRectF(rect()).center(), value());
    if (event->modifiers() & Qt::ShiftModifier)
        angle = Wrapped(qRound(qreal(angle) / SnapStep) * SnapStep);
    setValue(angle);
}

void HBAngleSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    setSliderDown(true);
    Follow(event);
}

void HBAngleSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        Follow(event);
}

void HBAngleSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setSliderDown(false);
}

void HBAngleSlider::wheelEvent(QWheelEvent* event)
{
    // Without the focus the wheel scrolls the panel, as over its combo boxes.
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    m_WheelRest += event->angleDelta().y();
    const int notches = m_WheelRest / QWheelEvent::DefaultDeltasPerStep;
    m_WheelRest -= notches * QWheelEvent::DefaultDeltasPerStep;
    setValue(Wrapped(value() + notches * singleStep()));
    event->accept();
}

void HBAngleSlider::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Right:
        setValue(Wrapped(value() + singleStep()));
        break;
    case Qt::Key_Down:
    case Qt::Key_Left:
        setValue(Wrapped(value() - singleStep()));
        break;
    case Qt::Key_PageUp:
        setValue(Wrapped(value() + pageStep()));
        break;
    case Qt::Key_PageDown:
        setValue(Wrapped(value() - pageStep()));
        break;
    case Qt::Key_Home:
        setValue(0);
        break;
    case Qt::Key_End:
        setValue(Maximum);
        break;
    default:
        event->ignore();
    }
}

bool HBAngleSlider::event(QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave)
        update();
    return QAbstractSlider::event(event);
}

// ---- Look ----

void HBAngleSlider::paintEvent(QPaintEvent*)
{
    const QPalette& colors = palette();
    const QColor base = colors.color(QPalette::Base);
    const QColor text = colors.color(QPalette::Text);
    const QColor accent = colors.color(isEnabled() ? QPalette::Highlight : QPalette::Mid);
    const bool hot = isEnabled() && (underMouse() || isSliderDown());

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    // A ring for the focus around the dial, so that both stay clear of the widget's edge.
    const qreal radius = qMin(width(), height()) / 2.0 - 3;
    if (hasFocus()) {
        painter.setPen(QPen(accent, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QPointF(), radius + 2, radius + 2);
    }
    painter.setPen(QPen(HBMixedColor(base, text, hot ? 0.6 : 0.4), 1));
    painter.setBrush(base);
    painter.drawEllipse(QPointF(), radius, radius);

    painter.setPen(QPen(HBMixedColor(base, text, 0.35), 1));
    for (int quarter = 0; quarter < 360; quarter += 90)
        painter.drawLine(PointAt(quarter, radius - 3), PointAt(quarter, radius - 1));

    painter.setPen(QPen(accent, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(), PointAt(value(), radius * KnobDistance));
    painter.setPen(Qt::NoPen);
    painter.setBrush(accent);
    painter.drawEllipse(PointAt(value(), radius * KnobDistance), radius * KnobRadius, radius * KnobRadius);
}
