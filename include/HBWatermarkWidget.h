// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBOverlayWidget.h"

#include <HBWatermark.h>

#include <memory>

namespace Ui
{
class WatermarkWidget;
}

/// Watermark: a text laid over the photo, once or in rows.
class HB_PANELS_EXPORT HBWatermarkWidget : public HBOverlayWidget
{
    Q_OBJECT
public:
    using Params = HBWatermarkParams;

    HBWatermarkWidget(QWidget* parent, Qt::WindowFlags flags);
    ~HBWatermarkWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range. Emits nothing.
    void SetValue(const Params& params);

    void Reset() override;

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    // Spelt so on purpose.
    void OnAnglechanged(int angle) { Store(this, m_Params.angle, angle); }
    void OnTextChanged(const QString& text) { Store(this, m_Params.text, text); }
    void OnLeftMarginChanged(int margin)
    {
        StoreMargin(m_Params.margins, &QRect::setLeft, margin, &HBWatermarkWidget::ValueChanged);
    }
    void OnRightMarginChanged(int margin)
    {
        StoreMargin(m_Params.margins, &QRect::setRight, margin, &HBWatermarkWidget::ValueChanged);
    }
    void OnTopMarginChanged(int margin)
    {
        StoreMargin(m_Params.margins, &QRect::setTop, margin, &HBWatermarkWidget::ValueChanged);
    }
    void OnBottomMarginChanged(int margin)
    {
        StoreMargin(m_Params.margins, &QRect::setBottom, margin, &HBWatermarkWidget::ValueChanged);
    }
    void OnSelectFont();
    void OnOpacityChanged(int opacity) { Store(this, m_Params.opacity, opacity); }
    void OnBlendingModeChanged(int index)
    {
        Store(this, m_Params.blendingMode, qint32(BlendingIndexToMode(index)));
    }
    void OnHrzTilesChanged(int tiles) { Store(this, m_Params.horizontalTiles, tiles); }
    void OnVrtTilesChanged(int tiles) { Store(this, m_Params.verticalTiles, tiles); }
    void OnSelectColor();

private:
    void SetColor(const QColor& color);

    std::unique_ptr<Ui::WatermarkWidget> m_pUI;
    Params m_Params;
};

/// Both log one line on failure and return the stream; a failed read leaves the defaults.
HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBWatermarkWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBWatermarkWidget::Params& params);
