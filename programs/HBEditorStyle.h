// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

class QStyleOptionSlider;

/// The desktop's style with what the programs need besides: boxes that are not ticked can be seen on a dark
/// window, sliders that are disabled are grey, those that have their zero in the middle are filled from there, a
/// click on a groove goes there, a field that is read-only looks so, and the focus is always shown.
class HBEditorStyle : public QProxyStyle
{
    Q_OBJECT
public:
    /// A menu with this property, true, shows pictures in front of its entries instead of small icons.
    static constexpr char LargeIcons[] = "largeIcons";
    static constexpr int LargeIconSide = 56;

    /// \param base null: the desktop's
    explicit HBEditorStyle(QStyle* base = nullptr) : QProxyStyle(base) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

private:
    void DrawTwoSided(const QStyleOptionSlider& slider, QPainter* painter, const QWidget* widget) const;
};
