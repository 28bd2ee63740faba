// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMFillColorWidget.h"

#include "HBPanelStream.h"
#include "ui_FillColor.h"

// The words are the colorize panel's, on purpose.
HB_PANEL_STREAM_LINES(KMFillColorWidget, "colorize data", 295, 308, HBAfterFailure::Reset)

KMFillColorWidget::KMFillColorWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBColorPercentWidget(dialog, parent, flags)
{
    Ui::FillColor form;
    form.setupUi(GetUIContent());
    SetControls(form.m_pColor, SLOT(OnColor()), form.m_pOpacity, SLOT(OnOpacityChanged(int)));
}

KMFillColorWidget::~KMFillColorWidget() = default;
