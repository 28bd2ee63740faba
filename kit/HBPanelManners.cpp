// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelManners.h"

#include <HBAdjustmentWidget.h>
#include <HBWheelPolicy.h>
#include <MavuCustomSlider.h>

#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionSlider>

namespace
{

constexpr int KelvinStep = 50;
constexpr int KelvinPage = 500;
constexpr int LeastSlider = 60; ///< pixels: in a narrow dock layouts take a slider down to its handle

QRect HandleOf(const QSlider* slider)
{
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.subControls = QStyle::SC_All;
    option.orientation = slider->orientation();
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();
    option.sliderPosition = slider->sliderPosition();
    option.sliderValue = slider->value();
    option.upsideDown = slider->orientation() == Qt::Horizontal
                            ? slider->invertedAppearance() != (option.direction == Qt::RightToLeft)
                            : !slider->invertedAppearance();
    option.direction = Qt::LeftToRight; // horizontal sliders have turned already
    if (slider->orientation() == Qt::Horizontal)
        option.state |= QStyle::State_Horizontal;
    return slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider);
}

/// Which of the slider's handles is there, or -1.
int HandleAt(const QWidget* widget, const QPoint& position)
{
    if (const auto* slider = qobject_cast<const QSlider*>(widget))
        return HandleOf(slider).contains(position) ? 0 : -1;
    const auto* several = qobject_cast<const MavuCustomSlider*>(widget);
    for (uint i = 0; several && i < several->ControlCount(); ++i) {
        if (several->ControlRect(i).contains(position))
            return int(i);
    }
    return -1;
}

/// The steps of whatever shows a temperature, which its range tells.
void SetKelvinSteps(const HBPanelEntry& entry, QWidget* panel)
{
    for (const HBFieldInfo& field : entry.adjustment->fields) {
        if (field.type != HBFieldInfo::Number || field.range.unit != HBUnit::Kelvin)
            continue;
        for (QSpinBox* box : panel->findChildren<QSpinBox*>()) {
            if (box->minimum() == int(field.range.minimum) && box->maximum() == int(field.range.maximum))
                box->setSingleStep(KelvinStep);
        }
        for (QSlider* slider : panel->findChildren<QSlider*>()) {
            if (slider->minimum() == int(field.range.minimum) && slider->maximum() == int(field.range.maximum)) {
                slider->setSingleStep(KelvinStep);
                slider->setPageStep(KelvinPage);
            }
        }
    }
}

} // namespace

HBPanelManners::HBPanelManners(const HBPanelEntry& entry, HBAdjustmentWidget* panel)
    : QObject(panel)
    , m_Entry(entry)
    , m_pPanel(panel)
{
    HBWheelPolicy::Apply(panel);
    SetKelvinSteps(entry, panel);
    for (QWidget* widget : panel->findChildren<QWidget*>()) {
        const auto* slider = qobject_cast<QSlider*>(widget);
        if (slider && slider->orientation() == Qt::Horizontal && slider->minimumWidth() < LeastSlider)
            widget->setMinimumWidth(LeastSlider);
        if (qobject_cast<QLabel*>(widget) || qobject_cast<QSlider*>(widget) ||
            qobject_cast<MavuCustomSlider*>(widget) || qobject_cast<QLineEdit*>(widget))
            widget->installEventFilter(this);
    }
}

HBPanelManners::~HBPanelManners() = default;

bool HBPanelManners::eventFilter(QObject* watched, QEvent* event)
{
    auto* const widget = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::MouseButtonPress) {
        m_pPressed = widget;
        m_PressedHandle = HandleAt(widget, static_cast<QMouseEvent*>(event)->pos());
    }
    if (event->type() == QEvent::MouseButtonDblClick)
        return TakeDoubleClick(widget, *static_cast<QMouseEvent*>(event));
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* edit = qobject_cast<QLineEdit*>(widget);
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool types = !key->text().isEmpty() && key->text().at(0).isPrint() &&
                           !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
        // Otherwise a window's one-letter shortcuts answer to what someone tries to type here.
        if (edit && edit->isReadOnly() && (types || key->matches(QKeySequence::SelectAll))) {
            event->accept();
            return true;
        }
    }
    return false;
}

bool HBPanelManners::TakeDoubleClick(QWidget* widget, const QMouseEvent& mouse)
{
    if (mouse.button() != Qt::LeftButton)
        return false;
    if (const auto* label = qobject_cast<QLabel*>(widget)) {
        QWidget* const control = ControlOf(label);
        return control && SetDefault(control);
    }
    // Not a second click on the groove, to where the first one has brought the handle.
    const int handle = HandleAt(widget, mouse.pos());
    if (handle < 0 || m_pPressed != widget || m_PressedHandle != handle)
        return false;
    if (auto* several = qobject_cast<MavuCustomSlider*>(widget))
        several->SetCurrentControl(uint(handle));
    return SetDefault(widget);
}

/// Its buddy, or else what stands right of it, or below.
QWidget* HBPanelManners::ControlOf(const QLabel* label) const
{
    if (label->buddy())
        return label->buddy();
    const QRect from(label->mapTo(m_pPanel, QPoint()), label->size());
    QWidget* nearest = nullptr;
    int least = INT_MAX;
    for (QWidget* widget : m_pPanel->findChildren<QWidget*>()) {
        const bool hasValue = qobject_cast<QSlider*>(widget) || qobject_cast<QSpinBox*>(widget) ||
                              qobject_cast<QDoubleSpinBox*>(widget);
        if (!hasValue || !widget->isVisibleTo(m_pPanel))
            continue;
        const QRect there(widget->mapTo(m_pPanel, QPoint()), widget->size());
        const bool sameRow = qAbs(there.center().y() - from.center().y()) < qMax(from.height(), there.height());
        const int right = there.left() - from.right();
        if (sameRow && right >= -2 && right < least) {
            least = right;
            nearest = widget;
        }
    }
    return nearest;
}

bool HBPanelManners::SetDefault(QWidget* control)
{
    if (control->objectName().isEmpty() || !control->isEnabled())
        return false;
    if (!m_pFresh) {
        m_pFresh.reset(m_Entry.create(true, nullptr));
        m_pFresh->OnReset();
    }
    const auto* fresh = m_pFresh->findChild<QWidget*>(control->objectName());
    if (auto* slider = qobject_cast<QSlider*>(control)) {
        if (const auto* other = qobject_cast<const QSlider*>(fresh))
            return slider->setValue(other->value()), true;
    } else if (auto* whole = qobject_cast<QSpinBox*>(control)) {
        if (const auto* other = qobject_cast<const QSpinBox*>(fresh))
            return whole->setValue(other->value()), true;
    } else if (auto* real = qobject_cast<QDoubleSpinBox*>(control)) {
        if (const auto* other = qobject_cast<const QDoubleSpinBox*>(fresh))
            return real->setValue(other->value()), true;
    } else if (auto* several = qobject_cast<MavuCustomSlider*>(control)) {
        const uint handle = several->CurrentControl();
        if (const auto* other = qobject_cast<const MavuCustomSlider*>(fresh)) {
            several->SetValue(handle, other->Value(handle));
            Q_EMIT several->NodeReleased();
            return true;
        }
    }
    return false;
}
