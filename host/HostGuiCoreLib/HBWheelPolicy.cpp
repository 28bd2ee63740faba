// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBWheelPolicy.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>

namespace
{

HBWheelPolicy::Policy present = HBWheelPolicy::Focused;

bool IsControl(const QWidget* widget)
{
    const bool holdsValue = qobject_cast<const QAbstractSpinBox*>(widget) ||
                            qobject_cast<const QAbstractSlider*>(widget) || qobject_cast<const QComboBox*>(widget);
    return holdsValue && !qobject_cast<const QScrollBar*>(widget);
}

} // namespace

HBWheelPolicy& HBWheelPolicy::Instance()
{
    static HBWheelPolicy policy;
    return policy;
}

void HBWheelPolicy::Set(Policy policy)
{
    present = policy;
}

HBWheelPolicy::Policy HBWheelPolicy::Get()
{
    return present;
}

void HBWheelPolicy::Apply(QWidget* tree)
{
    if (present == UnderMouse)
        return;
    QWidgetList widgets = tree->findChildren<QWidget*>();
    widgets.append(tree);
    for (QWidget* widget : qAsConst(widgets)) {
        if (!IsControl(widget))
            continue;
        if (widget->focusPolicy() == Qt::WheelFocus)
            widget->setFocusPolicy(Qt::StrongFocus);
        widget->removeEventFilter(&Instance());
        widget->installEventFilter(&Instance());
    }
}

bool HBWheelPolicy::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
        return false;
    event->ignore(); // goes on to the widget around it
    return true;
}
