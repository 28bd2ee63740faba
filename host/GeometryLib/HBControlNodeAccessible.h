// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ControlNode.h"

#include <QAccessibleObject>

class QGraphicsView;

/// The node for assistive technology, which Qt tells nothing about items of a scene.
class HBControlNodeAccessible : public QAccessibleObject
{
public:
    explicit HBControlNodeAccessible(ControlNode* node) : QAccessibleObject(node) {}

    /// Tells Qt how to describe a ControlNode; the first call counts.
    static void Install();

    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text text) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Indicator; }
    QAccessible::State state() const override;

private:
    ControlNode* Node() const { return static_cast<ControlNode*>(object()); }
    QGraphicsView* View() const;
};
