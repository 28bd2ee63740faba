// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostPluginLibExport.h"

#include <QWidget>

/// What the host knows of an adjustment panel before it knows any panel.
class HB_HOSTPLUGINLIB_EXPORT KMAdjustmentWidget : public QWidget
{
    Q_OBJECT
public:
    explicit KMAdjustmentWidget(QWidget* parent = nullptr, Qt::WindowFlags flags = {});

Q_SIGNALS:
    /// The user has changed a value: what is shown is no longer what was stored. Panels announce it before their
    /// own signals, once per change.
    void AboutUserParamsChanged();
};
