// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBColorPercentWidget.h"

#include <HBFillColor.h>

/// Fill colour: the picture, or the selection, filled with one colour.
class HB_PANELS_EXPORT KMFillColorWidget
    : public HBColorPercentWidget<KMFillColorWidget, HBFillColorParams, &HBFillColorParams::opacity>
{
    Q_OBJECT
public:
    KMFillColorWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~KMFillColorWidget() override;

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnColor() { PickColor(tr("Select a color")); }
    void OnCurrentColorChanged(const QColor& color) { StoreColor(color); }
    void OnOpacityChanged(int opacity) { StorePercent(opacity); }
};

/// A failed read leaves the defaults.
HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const KMFillColorWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, KMFillColorWidget::Params& params);
