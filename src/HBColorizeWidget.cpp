// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorizeWidget.h"

#include "HBPanelStream.h"
#include "ui_ColorizeWidget.h"

HB_PANEL_STREAM_LINES(HBColorizeWidget, "colorize data", 296, 309, HBAfterFailure::Reset)

HBColorizeWidget::HBColorizeWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBColorPercentWidget(dialog, parent, flags)
{
    Ui::ColorizeWidget form;
    form.setupUi(GetUIContent());
    SetControls(form.m_pColor, SLOT(OnColor()), form.m_pAmount, SLOT(OnAmountChanged(int)));
}

HBColorizeWidget::~HBColorizeWidget() = default;
