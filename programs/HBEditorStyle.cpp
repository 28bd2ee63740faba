// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEditorStyle.h"

#include <HBIsDark.h>

#include <QPainter>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

int HBEditorStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    if (metric == PM_SmallIconSize && widget && widget->property(LargeIcons).toBool())
        return LargeIconSide;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int HBEditorStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* data) const
{
    if (hint == SH_Slider_AbsoluteSetButtons)
        return Qt::LeftButton;
    if (hint == SH_Slider_PageSetButtons)
        return Qt::MiddleButton;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

void HBEditorStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const
{
    const auto* box = qstyleoption_cast<const QStyleOptionButton*>(option);
    if ((element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton) && box &&
        HBIsDark(box->palette.color(QPalette::Window))) {
        QStyleOptionButton lit = *box; // the frame is drawn in the window's colour, darkened
        lit.palette.setColor(QPalette::Window, QColor(0xd0, 0xd0, 0xd0));
        QProxyStyle::drawPrimitive(element, &lit, painter, widget);
        return;
    }
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (element == PE_PanelLineEdit && frame && (frame->state & State_ReadOnly)) {
        QStyleOptionFrame flat = *frame;
        flat.palette.setBrush(QPalette::Base, flat.palette.window());
        QProxyStyle::drawPrimitive(element, &flat, painter, widget);
        return;
    }
    const auto* focus = qstyleoption_cast<const QStyleOptionFocusRect*>(option);
    if (element == PE_FrameFocusRect && focus) {
        QStyleOptionFocusRect shown = *focus;
        shown.state |= State_KeyboardFocusChange;
        QProxyStyle::drawPrimitive(element, &shown, painter, widget);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void HBEditorStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const
{
    const auto* given = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_Slider || !given) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QStyleOptionSlider slider = *given;
    if (!(slider.state & State_Enabled))
        slider.palette.setBrush(QPalette::Highlight, slider.palette.brush(QPalette::Disabled, QPalette::Mid));
    const bool twoSided = slider.minimum < 0 && slider.maximum > 0 && slider.orientation == Qt::Horizontal;
    // Where other styles draw the fill is theirs to know.
    if (twoSided && baseStyle()->inherits("QFusionStyle"))
        DrawTwoSided(slider, painter, widget);
    else
        QProxyStyle::drawComplexControl(control, &slider, painter, widget);
}

void HBEditorStyle::DrawTwoSided(const QStyleOptionSlider& slider, QPainter* painter, const QWidget* widget) const
{
    const auto centreOf = [&](int value) {
        QStyleOptionSlider there = slider;
        there.sliderPosition = value;
        return subControlRect(CC_Slider, &there, SC_SliderHandle, widget).center().x();
    };
    QStyleOptionSlider part = slider;
    part.subControls = SC_SliderGroove;
    part.sliderPosition = slider.upsideDown ? slider.maximum : slider.minimum; // no fill
    QProxyStyle::drawComplexControl(CC_Slider, &part, painter, widget);

    const int zero = centreOf(0);
    const int here = centreOf(slider.sliderPosition);
    QRect fill = subControlRect(CC_Slider, &slider, SC_SliderGroove, widget).adjusted(0, 1, 0, -1);
    fill.setLeft(std::min(zero, here));
    fill.setRight(std::max(zero, here));
    if (zero != here)
        painter->fillRect(fill, slider.palette.highlight());
    part = slider;
    part.subControls &= ~SC_SliderGroove;
    QProxyStyle::drawComplexControl(CC_Slider, &part, painter, widget);
}
