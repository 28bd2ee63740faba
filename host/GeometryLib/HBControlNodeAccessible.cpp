// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBControlNodeAccessible.h"

#include <QGraphicsScene>
#include <QGraphicsView>

namespace
{

QAccessibleInterface* MakeInterface(const QString& key, QObject* object)
{
    if (key != QLatin1String("ControlNode"))
        return nullptr;
    auto* node = qobject_cast<ControlNode*>(object);
    return node ? new HBControlNodeAccessible(node) : nullptr;
}

} // namespace

void HBControlNodeAccessible::Install()
{
    static const bool installed = (QAccessible::installFactory(MakeInterface), true);
    Q_UNUSED(installed)
}

QGraphicsView* HBControlNodeAccessible::View() const
{
    if (!isValid() || !Node()->scene() || Node()->scene()->views().isEmpty())
        return nullptr;
    return Node()->scene()->views().first();
}

QAccessibleInterface* HBControlNodeAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(View());
}

QString HBControlNodeAccessible::text(QAccessible::Text text) const
{
    return isValid() && text == QAccessible::Name ? Node()->AccessibleName() : QString();
}

QRect HBControlNodeAccessible::rect() const
{
    const QGraphicsView* view = View();
    if (!view)
        return {};
    const QRect local =
        view->mapFromScene(Node()->sceneTransform().mapRect(Node()->shape().boundingRect())).boundingRect();
    return {view->viewport()->mapToGlobal(local.topLeft()), local.size()};
}

QAccessible::State HBControlNodeAccessible::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (isValid()) {
        state.focusable = Node()->flags().testFlag(QGraphicsItem::ItemIsFocusable);
        state.focused = Node()->hasFocus();
        state.selected = Node()->isSunken();
        state.invisible = !Node()->isVisible();
        state.disabled = !Node()->isEnabled();
    }
    return state;
}
