// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayFrame.h"

#include <HBAdjustmentWidget.h>

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

HBOverlayFrame::HBOverlayFrame(HBAdjustmentWidget* panel)
{
    auto* buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Reset);
    connect(buttons, &QDialogButtonBox::accepted, this, &HBOverlayFrame::Ok);
    connect(buttons, &QDialogButtonBox::rejected, this, &HBOverlayFrame::Cancel);
    connect(buttons->button(QDialogButtonBox::Reset), &QPushButton::clicked, panel, &HBAdjustmentWidget::OnReset);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel);
    // The panel has margins of its own, the buttons have none.
    auto* row = new QHBoxLayout;
    row->addWidget(buttons);
    row->setContentsMargins(9, 0, 9, 9);
    layout->addLayout(row);
    // In the order in which they stand, or the tab key would miss some: the box hands the focus on to the first.
    QWidget* last = nullptr;
    for (int i = 0; i < buttons->layout()->count(); ++i) {
        if (QWidget* button = buttons->layout()->itemAt(i)->widget()) {
            if (last)
                setTabOrder(last, button);
            last = button;
        }
    }
}
