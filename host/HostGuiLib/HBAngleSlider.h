// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiLibExport.h"

#include <QAbstractSlider>

/// A dial for an angle, -179..180 degrees: 0 points to the right, as a level line of text reads, and positive
/// angles go counter-clockwise, as in mathematics.
///
/// setValue() takes values out of range to the nearest end and is silent if nothing changes. By mouse: press or
/// drag around the centre, with Shift in steps of 15°. By wheel, only with the focus, and by keys the angle goes
/// on past 180° to -179°; Home is 0°, End 180°.
class HB_HOSTGUILIB_EXPORT HBAngleSlider : public QAbstractSlider
{
    Q_OBJECT
public:
    static constexpr int Minimum = -179;
    static constexpr int Maximum = 180;

    explicit HBAngleSlider(QWidget* parent = nullptr);

    /// The angle, -179..180, at which a point lies, with y down as in a widget; `current` for the centre itself.
    static int AngleAt(const QPointF& fromCentre, int current);
    /// Any number of degrees as the angle in -179..180 that points the same way.
    static int Wrapped(int degrees);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void Follow(const QMouseEvent* event);

    int m_WheelRest = 0; ///< eighths of a degree of the wheel that did not make a step yet
};
