// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiLibExport.h"

#include <QBrush>
#include <QWidget>

/// A swatch or a bar: one brush over the whole area, enabled or not, a checkerboard under what is translucent.
/// Without a frame: it shows colours, and beside another one a colour looks different.
class HB_HOSTGUILIB_EXPORT HBColorWidget : public QWidget
{
    Q_OBJECT
public:
    explicit HBColorWidget(QWidget* parent = nullptr, Qt::WindowFlags flags = {});

    /// A gradient in any mode but QGradient::LogicalMode goes from 0 to 1 over the widget, whatever its size.
    void SetBackgroundBrush(const QBrush& brush);
    const QBrush& BackgroundBrush() const { return m_Brush; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QBrush m_Brush;
};
