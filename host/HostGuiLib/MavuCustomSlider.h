// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiLibExport.h"
#include "MavuSliderGeometry.h"

#include <QBrush>
#include <QVector>
#include <QWidget>

/// Several handles on one groove, each with its own brush and limits, for use below a histogram or a gradient bar.
///
/// The groove runs over the whole width but for two pixels on either side, as does the curve of a HistogramWidget
/// of the same width, and is not mirrored in right-to-left layouts: a handle stands below the level that it means.
///
/// A handle's value is inside its limits and inside the slider's range; where its limits contradict each other the
/// minimum wins. Every change of a value, whoever makes it, emits ValueChanged; setting a value that is there
/// already, also after clamping, emits nothing. Slots may set any value again (the last one wins), or delete the
/// slider.
///
/// Keyboard, for the handle that has the focus ring: arrows ±1, page up and down ±10, home and end; tab and
/// backtab go through the handles before they leave the slider. The wheel moves that handle only while the slider
/// has the focus. Assistive technology finds each handle as a child with a value of its own.
class HB_HOSTGUILIB_EXPORT MavuCustomSlider : public QWidget
{
    Q_OBJECT
public:
    static constexpr int PageStep = 10;

    explicit MavuCustomSlider(QWidget* parent = nullptr, Qt::WindowFlags flags = {});

    /// Range of the groove; 0..255 at first. A maximum below the minimum is taken as the minimum.
    void SetRange(int minimum, int maximum);

    /// Adds a handle and returns its index. Emits nothing.
    uint AddControl(int value, int minimum, int maximum, const QBrush& brush);
    uint ControlCount() const { return uint(m_Controls.size()); }

    // An index that does not exist changes nothing and reads as 0.

    void SetMinimum(uint control, int minimum);
    void SetMaximum(uint control, int maximum);
    void SetValue(uint control, int value);
    int Value(uint control) const;
    /// The limits as they were set; the slider's range counts besides.
    int Minimum(uint control) const;
    int Maximum(uint control) const;
    QBrush Brush(uint control) const;

    /// What assistive technology calls the handle; "Handle 1" and so on at first.
    void SetControlName(uint control, const QString& name);
    QString ControlName(uint control) const;

    /// The handle that keys and wheel move; 0 at first.
    uint CurrentControl() const { return uint(m_Current); }
    void SetCurrentControl(uint control);

    /// Where the handle is painted, in the widget's coordinates.
    QRect ControlRect(uint control) const;
    /// The smallest and the largest value that the handle can have.
    int LowestValue(uint control) const;
    int HighestValue(uint control) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void ValueChanged(uint, int);
    /// The user has let go of a handle: the mouse button or the key is up again, or the wheel has turned a step.
    void NodeReleased();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    struct Control
    {
        int value;
        int minimum;
        int maximum;
        QBrush brush;
        QString name;
    };
    /// The mouse on its way: the handles it may mean until it moves, then the one it drags.
    struct Drag
    {
        QVector<int> candidates;
        double pressX = 0;
        int pressValue = 0;
        bool active = false;
    };

    bool Has(uint control) const { return control < ControlCount(); }
    MavuSliderGeometry Geometry() const;
    QVector<int> Values() const;
    void Clamp(int control);
    void Store(int control, int value);
    QVector<int> OnSpotOf(int control) const;
    int ChooseByDirection(bool up) const;
    void SetHovered(int control);
    double BodyLeft(int control) const;
    int ControlAt(const QPointF& point) const;
    void EndDrag();
    void ReleaseKey();
    void DrawControl(QPainter& painter, int control) const;

    QVector<Control> m_Controls;
    int m_Minimum = 0;
    int m_Maximum = 255;
    int m_Current = 0;
    int m_Hovered = -1;
    Drag m_Drag;
    int m_MovingKey = 0; ///< the key that moves a handle and is still down, else 0
    int m_WheelRest = 0; ///< eighths of a degree that make no full step yet
};
