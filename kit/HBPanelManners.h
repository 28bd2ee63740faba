// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBPanelCatalog.h>

#include <QObject>
#include <QPointer>

#include <memory>

class HBAdjustmentWidget;
class QLabel;
class QMouseEvent;
class QWidget;

/// How a panel's controls behave under the hand, beyond what their widgets do by themselves: the wheel
/// (HBWheelPolicy); a double click on a slider's handle or on a label sets the control's default; read-only fields
/// keep their keys to themselves; sliders stay long enough to drag; temperatures move in steps that can be seen.
/// GUI thread.
class HBPanelManners : public QObject
{
    Q_OBJECT
public:
    /// \param panel owns this
    HBPanelManners(const HBPanelEntry& entry, HBAdjustmentWidget* panel);
    ~HBPanelManners() override;

    /// Gives one control its default: the value that a new panel shows there. False if it has none.
    bool SetDefault(QWidget* control);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool TakeDoubleClick(QWidget* widget, const QMouseEvent& mouse);
    QWidget* ControlOf(const QLabel* label) const;

    const HBPanelEntry m_Entry;
    HBAdjustmentWidget* const m_pPanel;
    std::unique_ptr<HBAdjustmentWidget> m_pFresh; ///< shows the defaults, and nobody sees it
    QPointer<QWidget> m_pPressed;                 ///< the slider whose handle was pressed last
    int m_PressedHandle = -1;                     ///< which of several
};
