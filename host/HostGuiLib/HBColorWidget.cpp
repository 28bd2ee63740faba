// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorWidget.h"

#include <QPainter>

namespace
{

constexpr int CheckSide = 4;

/// Fixed greys: what lies under a translucent colour must not change with the palette.
void FillChecks(QPainter& painter, const QRect& area)
{
    painter.fillRect(area, Qt::white);
    for (int y = area.top(); y <= area.bottom(); y += CheckSide)
        for (int x = area.left() + (y / CheckSide % 2) * CheckSide; x <= area.right(); x += 2 * CheckSide)
            painter.fillRect(QRect(x, y, CheckSide, CheckSide) & area, QColor(204, 204, 204));
}

/// The brush with a gradient's 0..1 laid over the area.
QBrush Stretched(const QBrush& brush, const QRect& area)
{
    const QGradient* gradient = brush.gradient();
    if (!gradient || gradient->coordinateMode() == QGradient::LogicalMode)
        return brush;
    QGradient logical = *gradient;
    logical.setCoordinateMode(QGradient::LogicalMode);
    QBrush stretched(logical);
    stretched.setTransform(brush.transform() * QTransform::fromScale(area.width(), area.height()));
    return stretched;
}

} // namespace

HBColorWidget::HBColorWidget(QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags) {}

void HBColorWidget::SetBackgroundBrush(const QBrush& brush)
{
    m_Brush = brush;
    update();
}

QSize HBColorWidget::sizeHint() const
{
    return {64, 16};
}

QSize HBColorWidget::minimumSizeHint() const
{
    return {8, 8};
}

void HBColorWidget::paintEvent(QPaintEvent*)
{
    if (m_Brush.style() == Qt::NoBrush)
        return;
    QPainter painter(this);
    if (!m_Brush.isOpaque())
        FillChecks(painter, rect());
    painter.fillRect(rect(), Stretched(m_Brush, rect()));
}
