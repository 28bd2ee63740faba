// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMAdjustmentWidget.h"

KMAdjustmentWidget::KMAdjustmentWidget(QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags) {}
