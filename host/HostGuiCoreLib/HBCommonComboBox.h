// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiCoreLibExport.h"

#include <QComboBox>

/// The combo box of the host's forms: the wheel scrolls the panel, not the choice, until the box has the focus.
class HB_HOSTGUICORELIB_EXPORT HBCommonComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit HBCommonComboBox(QWidget* parent = nullptr);

protected:
    void wheelEvent(QWheelEvent* event) override;
};
