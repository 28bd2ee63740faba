// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "MavuSliderAccessible.h"

#include "MavuCustomSlider.h"

#include <QWindow>

namespace
{

QAccessibleInterface* MakeInterface(const QString& key, QObject* object)
{
    if (key != QLatin1String("MavuCustomSlider"))
        return nullptr;
    auto* slider = qobject_cast<MavuCustomSlider*>(object);
    return slider ? new MavuSliderAccessible(slider) : nullptr;
}

QAccessibleInterface* HandleOf(MavuCustomSlider* slider, int control)
{
    QAccessibleInterface* group = QAccessible::queryAccessibleInterface(slider);
    return group ? group->child(control) : nullptr;
}

} // namespace

MavuSliderAccessible::MavuSliderAccessible(MavuCustomSlider* slider)
    : QAccessibleWidget(slider, QAccessible::Grouping)
{
}

MavuSliderAccessible::~MavuSliderAccessible()
{
    // Interfaces without an object are not removed with one.
    for (const QAccessible::Id id : qAsConst(m_Handles))
        if (id)
            QAccessible::deleteAccessibleInterface(id);
}

void MavuSliderAccessible::Install()
{
    static const bool installed = (QAccessible::installFactory(MakeInterface), true);
    Q_UNUSED(installed)
}

void MavuSliderAccessible::NotifyValue(MavuCustomSlider* slider, int control)
{
    if (!QAccessible::isActive())
        return;
    if (QAccessibleInterface* handle = HandleOf(slider, control)) {
        QAccessibleValueChangeEvent event(handle, slider->Value(uint(control)));
        QAccessible::updateAccessibility(&event);
    }
}

void MavuSliderAccessible::NotifyFocus(MavuCustomSlider* slider, int control)
{
    if (!QAccessible::isActive())
        return;
    if (QAccessibleInterface* handle = HandleOf(slider, control)) {
        QAccessibleEvent event(handle, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

MavuCustomSlider* MavuSliderAccessible::Slider() const
{
    return static_cast<MavuCustomSlider*>(object());
}

int MavuSliderAccessible::childCount() const
{
    return isValid() ? int(Slider()->ControlCount()) : 0;
}

QAccessibleInterface* MavuSliderAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    if (m_Handles.size() < childCount())
        m_Handles.resize(childCount());
    if (!m_Handles.at(index))
        m_Handles[index] = QAccessible::registerAccessibleInterface(new MavuHandleAccessible(Slider(), index));
    return QAccessible::accessibleInterface(m_Handles.at(index));
}

int MavuSliderAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    for (int i = 0; i < m_Handles.size(); ++i)
        if (m_Handles.at(i) && QAccessible::accessibleInterface(m_Handles.at(i)) == child)
            return i;
    return -1;
}

QAccessibleInterface* MavuSliderAccessible::childAt(int x, int y) const
{
    for (int i = childCount() - 1; i >= 0; --i)
        if (child(i)->rect().contains(x, y))
            return child(i);
    return nullptr;
}

QAccessibleInterface* MavuSliderAccessible::focusChild() const
{
    return isValid() && Slider()->hasFocus() ? child(int(Slider()->CurrentControl())) : nullptr;
}

bool MavuHandleAccessible::isValid() const
{
    return m_pSlider && m_Control < m_pSlider->ControlCount();
}

QWindow* MavuHandleAccessible::window() const
{
    return m_pSlider ? m_pSlider->window()->windowHandle() : nullptr;
}

QAccessibleInterface* MavuHandleAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(m_pSlider);
}

QString MavuHandleAccessible::text(QAccessible::Text text) const
{
    if (!isValid())
        return {};
    switch (text) {
    case QAccessible::Name:
        return m_pSlider->ControlName(m_Control);
    case QAccessible::Value:
        return QString::number(m_pSlider->Value(m_Control));
    case QAccessible::Description:
        return m_pSlider->toolTip();
    default:
        return {};
    }
}

QRect MavuHandleAccessible::rect() const
{
    if (!isValid())
        return {};
    const QRect local = m_pSlider->ControlRect(m_Control);
    return {m_pSlider->mapToGlobal(local.topLeft()), local.size()};
}

QAccessible::State MavuHandleAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.disabled = !m_pSlider->isEnabled();
    state.invisible = !m_pSlider->isVisible();
    state.focusable = m_pSlider->isEnabled();
    state.focused = m_pSlider->hasFocus() && m_pSlider->CurrentControl() == m_Control;
    return state;
}

void* MavuHandleAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QVariant MavuHandleAccessible::currentValue() const
{
    return isValid() ? m_pSlider->Value(m_Control) : QVariant();
}

void MavuHandleAccessible::setCurrentValue(const QVariant& value)
{
    if (isValid() && m_pSlider->isEnabled())
        m_pSlider->SetValue(m_Control, value.toInt());
}

QVariant MavuHandleAccessible::maximumValue() const
{
    return isValid() ? m_pSlider->HighestValue(m_Control) : QVariant();
}

QVariant MavuHandleAccessible::minimumValue() const
{
    return isValid() ? m_pSlider->LowestValue(m_Control) : QVariant();
}

QStringList MavuHandleAccessible::actionNames() const
{
    return {setFocusAction(), increaseAction(), decreaseAction()};
}

void MavuHandleAccessible::doAction(const QString& action)
{
    if (!isValid() || !m_pSlider->isEnabled())
        return;
    if (action == setFocusAction()) {
        m_pSlider->SetCurrentControl(m_Control);
        m_pSlider->setFocus();
    } else if (action == increaseAction()) {
        setCurrentValue(qMin(qint64(m_pSlider->Value(m_Control)) + 1, qint64(m_pSlider->HighestValue(m_Control))));
    } else if (action == decreaseAction()) {
        setCurrentValue(qMax(qint64(m_pSlider->Value(m_Control)) - 1, qint64(m_pSlider->LowestValue(m_Control))));
    }
}
