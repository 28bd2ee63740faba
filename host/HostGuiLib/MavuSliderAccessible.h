// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <QPointer>
#include <QVector>

class MavuCustomSlider;

/// The slider for assistive technology: a group with one child per handle.
class MavuSliderAccessible : public QAccessibleWidget
{
public:
    explicit MavuSliderAccessible(MavuCustomSlider* slider);
    ~MavuSliderAccessible() override;

    /// Tells Qt how to describe a MavuCustomSlider; the first call counts.
    static void Install();
    static void NotifyValue(MavuCustomSlider* slider, int control);
    static void NotifyFocus(MavuCustomSlider* slider, int control);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    MavuCustomSlider* Slider() const;

    mutable QVector<QAccessible::Id> m_Handles; ///< made when first asked for; 0 where none was yet
};

/// One handle: a slider of its own.
class MavuHandleAccessible : public QAccessibleInterface,
                             public QAccessibleValueInterface,
                             public QAccessibleActionInterface
{
public:
    MavuHandleAccessible(MavuCustomSlider* slider, int control) : m_pSlider(slider), m_Control(uint(control)) {}

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text text) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Slider; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override { return 1; }

    QStringList actionNames() const override;
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<MavuCustomSlider> m_pSlider;
    uint m_Control;
};
