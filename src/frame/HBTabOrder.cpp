// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTabOrder.h"

#include <QDialogButtonBox>
#include <QWidget>

void HBPutButtonsLastInTabOrder(QWidget* window, const QWidget* controls, QDialogButtonBox* box)
{
    QWidget* last = nullptr;
    QWidgetList buttons;
    for (QWidget* widget = window->nextInFocusChain(); widget != window; widget = widget->nextInFocusChain()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->focusProxy())
            continue; // labels, and the line edits inside spin boxes
        if (controls->isAncestorOf(widget))
            last = widget;
        else if (box->isAncestorOf(widget))
            buttons.append(widget);
    }
    if (!last)
        return;
    // The last button first, each to right behind the controls: Qt takes one that ends the round for one that
    // already stands before the next.
    for (int i = buttons.size() - 1; i >= 0; --i)
        QWidget::setTabOrder(last, buttons.at(i));
    // The box hands the focus on to its first button on the screen. It goes right before that one: from anywhere
    // else the tab key would jump over what lies between.
    QWidget* const first = box->focusProxy();
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    if (first) {
        first->lower(); // Qt itself puts the box before the first of its children
        box->setFocusProxy(nullptr);
        box->setFocusProxy(first);
    }
#else
    box->setFocusProxy(nullptr);       // or Qt would move that button in place of the box,
    box->setFocusPolicy(Qt::TabFocus); // and without this nothing at all
    QWidget::setTabOrder(buttons.value(buttons.indexOf(first) - 1, last), box);
    box->setFocusPolicy(Qt::NoFocus);
    box->setFocusProxy(first);
#endif
}
