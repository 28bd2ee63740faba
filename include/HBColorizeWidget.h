// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBColorPercentWidget.h"

#include <HBColorize.h>

/// Colorize: the whole picture towards one colour.
class HB_PANELS_EXPORT HBColorizeWidget
    : public HBColorPercentWidget<HBColorizeWidget, HBColorizeParams, &HBColorizeParams::amount>
{
    Q_OBJECT
public:
    HBColorizeWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBColorizeWidget() override;

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnColor() { PickColor(tr("Select a color")); }
    void OnCurrentColorChanged(const QColor& color) { StoreColor(color); }
    void OnAmountChanged(int amount) { StorePercent(amount); }
};

/// A failed read leaves the defaults.
HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBColorizeWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBColorizeWidget::Params& params);
