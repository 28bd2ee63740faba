// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "MavuCustomSlider.h"

#include "HBMixedColor.h"
#include "MavuSliderAccessible.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>

namespace
{

/// From either side of the widget to the ends of the groove; QGraphicsView::fitInView keeps the same distance, so
/// that handles stand below the points of a curve above them.
constexpr int Inset = 2;
constexpr double HandleWidth = 10;
constexpr int HandleHeight = 12;
constexpr double TipHeight = 5;
constexpr int WheelStep = 120; ///< eighths of a degree of one notch

} // namespace

MavuCustomSlider::MavuCustomSlider(QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags)
{
    MavuSliderAccessible::Install();
    // Not WheelFocus: a wheel that scrolls a list of panels must not change what happens to lie below it.
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
}

// ---- Values ----

void MavuCustomSlider::SetRange(int minimum, int maximum)
{
    m_Minimum = minimum;
    m_Maximum = qMax(minimum, maximum);
    update();
    const QPointer<MavuCustomSlider> alive(this);
    for (int i = 0; alive && i < m_Controls.size(); ++i)
        Clamp(i);
}

uint MavuCustomSlider::AddControl(int value, int minimum, int maximum, const QBrush& brush)
{
    const uint index = ControlCount();
    m_Controls.append({value, minimum, maximum, brush, tr("Handle %1").arg(index + 1)});
    m_Controls.last().value = qBound(LowestValue(index), value, HighestValue(index));
    update();
    return index;
}

void MavuCustomSlider::SetMinimum(uint control, int minimum)
{
    if (!Has(control))
        return;
    m_Controls[int(control)].minimum = minimum;
    Clamp(int(control));
}

void MavuCustomSlider::SetMaximum(uint control, int maximum)
{
    if (!Has(control))
        return;
    m_Controls[int(control)].maximum = maximum;
    Clamp(int(control));
}

void MavuCustomSlider::SetValue(uint control, int value)
{
    if (Has(control))
        Store(int(control), value);
}

void MavuCustomSlider::Clamp(int control)
{
    Store(control, m_Controls.at(control).value);
}

void MavuCustomSlider::Store(int control, int value)
{
    const int bounded = qBound(LowestValue(uint(control)), value, HighestValue(uint(control)));
    if (bounded == m_Controls.at(control).value)
        return;
    m_Controls[control].value = bounded;
    update();
    MavuSliderAccessible::NotifyValue(this, control);
    // Nothing may follow: a slot may have set another value, or deleted the slider.
    Q_EMIT ValueChanged(uint(control), bounded);
}

int MavuCustomSlider::Value(uint control) const
{
    return Has(control) ? m_Controls.at(int(control)).value : 0;
}

int MavuCustomSlider::Minimum(uint control) const
{
    return Has(control) ? m_Controls.at(int(control)).minimum : 0;
}

int MavuCustomSlider::Maximum(uint control) const
{
    return Has(control) ? m_Controls.at(int(control)).maximum : 0;
}

int MavuCustomSlider::LowestValue(uint control) const
{
    return Has(control) ? qBound(m_Minimum, m_Controls.at(int(control)).minimum, m_Maximum) : 0;
}

int MavuCustomSlider::HighestValue(uint control) const
{
    return Has(control) ? qMax(LowestValue(control), qMin(m_Controls.at(int(control)).maximum, m_Maximum)) : 0;
}

QBrush MavuCustomSlider::Brush(uint control) const
{
    return Has(control) ? m_Controls.at(int(control)).brush : QBrush();
}

void MavuCustomSlider::SetControlName(uint control, const QString& name)
{
    if (Has(control))
        m_Controls[int(control)].name = name;
}

QString MavuCustomSlider::ControlName(uint control) const
{
    return Has(control) ? m_Controls.at(int(control)).name : QString();
}

void MavuCustomSlider::SetCurrentControl(uint control)
{
    if (!Has(control) || int(control) == m_Current)
        return;
    m_Current = int(control);
    m_WheelRest = 0;
    update();
    if (hasFocus())
        MavuSliderAccessible::NotifyFocus(this, m_Current);
}

// ---- Geometry ----

QSize MavuCustomSlider::sizeHint() const
{
    return {256, HandleHeight + 2};
}

QSize MavuCustomSlider::minimumSizeHint() const
{
    return {32, 10};
}

MavuSliderGeometry MavuCustomSlider::Geometry() const
{
    return {m_Minimum, m_Maximum, Inset, double(width() - 2 * Inset)};
}

QVector<int> MavuCustomSlider::Values() const
{
    QVector<int> values;
    for (const Control& control : m_Controls)
        values.append(control.value);
    return values;
}

QRect MavuCustomSlider::ControlRect(uint control) const
{
    if (!Has(control))
        return {};
    return QRectF(BodyLeft(int(control)), 0, HandleWidth, qMin(height(), HandleHeight)).toAlignedRect();
}

/// At the ends the body of a handle stays inside the widget, only its tip goes all the way.
double MavuCustomSlider::BodyLeft(int control) const
{
    const double tip = Geometry().PositionOf(m_Controls.at(control).value);
    return qBound(0.5, tip - HandleWidth / 2, qMax(0.5, width() - HandleWidth - 0.5));
}

int MavuCustomSlider::ControlAt(const QPointF& point) const
{
    int best = -1;
    const QVector<int> nearest = Geometry().NearestTo(point.x(), Values());
    for (const int control : nearest)
        if (best < 0 || control == m_Current)
            best = control;
    return best >= 0 && ControlRect(uint(best)).contains(point.toPoint()) ? best : -1;
}

// ---- Painting ----

void MavuCustomSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor groove =
        HBMixedColor(palette().color(group, QPalette::Window), palette().color(group, QPalette::WindowText), 0.45);
    painter.fillRect(QRectF(Inset, 0, width() - 2 * Inset, 1), groove);

    for (int i = 0; i < m_Controls.size(); ++i)
        if (i != m_Current)
            DrawControl(painter, i);
    if (Has(CurrentControl()))
        DrawControl(painter, m_Current); // on top of those it shares its place with
}

void MavuCustomSlider::DrawControl(QPainter& painter, int control) const
{
    const double tip = Geometry().PositionOf(m_Controls.at(control).value);
    const double left = BodyLeft(control);
    const double right = left + HandleWidth;
    const double bottom = ControlRect(uint(control)).bottom() + 0.5;
    const QPointF shape[] = {{tip, 1}, {right, TipHeight}, {right, bottom}, {left, bottom}, {left, TipHeight}};

    const bool focused = hasFocus() && control == m_Current;
    const bool lively = isEnabled() && (focused || control == m_Hovered);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor window = palette().color(group, QPalette::Window);
    const QColor text = palette().color(group, QPalette::WindowText);
    const QColor outline = lively ? palette().color(group, QPalette::Highlight) : HBMixedColor(window, text, 0.75);

    // The brush as it is would look alive in a disabled slider.
    painter.setOpacity(isEnabled() ? 1.0 : 0.4);
    painter.setPen(QPen(outline, focused ? 2.0 : 1.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(m_Controls.at(control).brush);
    painter.drawPolygon(shape, 5);
    painter.setOpacity(1.0);
}

void MavuCustomSlider::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        EndDrag();
}

// ---- Mouse ----

bool MavuCustomSlider::event(QEvent* event)
{
    if (event->type() == QEvent::Leave)
        SetHovered(-1);
    return QWidget::event(event);
}

void MavuCustomSlider::SetHovered(int control)
{
    if (control == m_Hovered)
        return;
    m_Hovered = control;
    update();
}

void MavuCustomSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_Controls.isEmpty()) {
        event->ignore();
        return;
    }
    const double x = event->localPos().x();
    m_Drag.active = true;
    m_Drag.pressX = x;
    m_Drag.pressValue = Geometry().ValueAt(x);
    const int hit = ControlAt(event->localPos());
    m_Drag.candidates = OnSpotOf(hit >= 0 ? hit : Geometry().NearestTo(x, Values()).first());
    if (hit >= 0) {
        // Taken hold of beside its middle, a handle must not jump. Which of several it is shows when it moves.
        m_Drag.pressValue = m_Controls.at(hit).value;
        if (!m_Drag.candidates.contains(m_Current))
            SetCurrentControl(uint(hit));
        return;
    }
    const int here = m_Controls.at(m_Drag.candidates.first()).value;
    const int control = ChooseByDirection(m_Drag.pressValue > here);
    m_Drag.candidates = {control};
    SetCurrentControl(uint(control));
    Store(control, m_Drag.pressValue);
}

QVector<int> MavuCustomSlider::OnSpotOf(int control) const
{
    QVector<int> same;
    for (int i = 0; i < m_Controls.size(); ++i)
        if (m_Controls.at(i).value == m_Controls.at(control).value)
            same.append(i);
    return same;
}

/// Of handles on one spot the one that is free to go that way: to the right the last, to the left the first, which
/// is how they would lie if they were apart.
int MavuCustomSlider::ChooseByDirection(bool up) const
{
    const QVector<int>& candidates = m_Drag.candidates;
    int chosen = up ? candidates.last() : candidates.first();
    for (int n = 0; n < candidates.size(); ++n) {
        const int control = up ? candidates.at(candidates.size() - 1 - n) : candidates.at(n);
        const int value = m_Controls.at(control).value;
        if (up ? value < HighestValue(uint(control)) : value > LowestValue(uint(control))) {
            chosen = control;
            break;
        }
    }
    return chosen;
}

void MavuCustomSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_Drag.active) {
        SetHovered(ControlAt(event->localPos()));
        event->ignore();
        return;
    }
    if (!(event->buttons() & Qt::LeftButton)) {
        EndDrag(); // the release went to someone else, a popup for one
        return;
    }
    const int value = Geometry().MovedBy(m_Drag.pressValue, event->localPos().x() - m_Drag.pressX);
    if (m_Drag.candidates.size() > 1) {
        if (value == m_Drag.pressValue)
            return;
        m_Drag.candidates = {ChooseByDirection(value > m_Drag.pressValue)};
    }
    const int control = m_Drag.candidates.first();
    SetCurrentControl(uint(control));
    Store(control, value);
}

void MavuCustomSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_Drag.active) {
        event->ignore();
        return;
    }
    EndDrag();
}

void MavuCustomSlider::EndDrag()
{
    if (!m_Drag.active)
        return;
    m_Drag = Drag();
    Q_EMIT NodeReleased();
}

void MavuCustomSlider::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    EndDrag();
}

void MavuCustomSlider::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus() || m_Controls.isEmpty()) {
        event->ignore();
        return;
    }
    event->accept();
    const QPoint delta = event->angleDelta();
    m_WheelRest += delta.y() ? delta.y() : delta.x();
    const int steps = m_WheelRest / WheelStep;
    m_WheelRest %= WheelStep;
    if (steps == 0)
        return;
    const bool page = event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    const QPointer<MavuCustomSlider> alive(this);
    Store(m_Current, m_Controls.at(m_Current).value + steps * (page ? PageStep : 1));
    if (alive)
        Q_EMIT NodeReleased();
}

// ---- Keyboard ----

void MavuCustomSlider::keyPressEvent(QKeyEvent* event)
{
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!plain || !Has(CurrentControl())) {
        QWidget::keyPressEvent(event);
        return;
    }
    qint64 value = Value(CurrentControl());
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        value -= 1;
        break;
    case Qt::Key_Right:
    case Qt::Key_Up:
        value += 1;
        break;
    case Qt::Key_PageDown:
        value -= PageStep;
        break;
    case Qt::Key_PageUp:
        value += PageStep;
        break;
    case Qt::Key_Home:
        value = m_Minimum;
        break;
    case Qt::Key_End:
        value = m_Maximum;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    m_MovingKey = event->key();
    Store(m_Current, int(qBound(qint64(m_Minimum), value, qint64(m_Maximum))));
}

void MavuCustomSlider::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != m_MovingKey) {
        QWidget::keyReleaseEvent(event);
        return;
    }
    if (!event->isAutoRepeat())
        ReleaseKey();
}

void MavuCustomSlider::ReleaseKey()
{
    if (!m_MovingKey)
        return;
    m_MovingKey = 0;
    Q_EMIT NodeReleased();
}

bool MavuCustomSlider::focusNextPrevChild(bool next)
{
    const int target = m_Current + (next ? 1 : -1);
    if (target < 0 || target >= m_Controls.size())
        return QWidget::focusNextPrevChild(next);
    SetCurrentControl(uint(target));
    return true;
}

void MavuCustomSlider::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason)
        m_Current = 0;
    else if (event->reason() == Qt::BacktabFocusReason)
        m_Current = qMax(0, m_Controls.size() - 1);
    update();
    if (Has(CurrentControl()))
        MavuSliderAccessible::NotifyFocus(this, m_Current);
}

void MavuCustomSlider::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    m_WheelRest = 0;
    update();
    ReleaseKey();
}
