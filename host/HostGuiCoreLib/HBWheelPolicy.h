// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiCoreLibExport.h"

#include <QObject>

class QWidget;

/// What the wheel may change: a value that merely lies under the mouse must not move when someone scrolls past it.
/// GUI thread only.
class HB_HOSTGUICORELIB_EXPORT HBWheelPolicy : public QObject
{
    Q_OBJECT
public:
    enum Policy {
        Focused,   ///< the control that has the focus, which the wheel does not give; others let it pass, as to a
                   ///< scroll area around them
        UnderMouse ///< as the toolkit has it
    };

    /// Of the whole program; Focused at first. Holds for controls that are put under it from here on.
    static void Set(Policy policy);
    static Policy Get();

    /// Puts spin boxes, sliders and combo boxes in `tree` under the policy, itself included. Calling it again does
    /// no harm.
    static void Apply(QWidget* tree);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static HBWheelPolicy& Instance();
};
