// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class HBAdjustmentWidget;

/// OK, Cancel and Reset around a panel that has no frame of its own. The panel becomes its child.
class HBOverlayFrame : public QWidget
{
    Q_OBJECT
public:
    explicit HBOverlayFrame(HBAdjustmentWidget* panel);

Q_SIGNALS:
    void Ok();
    void Cancel();
};
