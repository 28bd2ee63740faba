// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBOverlayWidget.h"

#include <HBSign.h>

#include <QStringList>

#include <memory>

namespace Ui
{
class SignWidget;
}

/// Sign: a picture, a signature or a logo, stamped onto the photo.
class HB_PANELS_EXPORT HBSignWidget : public HBOverlayWidget
{
    Q_OBJECT
public:
    using Params = HBSignParams;

    HBSignWidget(QWidget* parent, Qt::WindowFlags flags);
    ~HBSignWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range. Emits nothing.
    void SetValue(const Params& params);

    void Reset() override;

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnHorizontalAlignmentChanged(int index);
    void OnVerticalAlignmentChanged(int index);
    void OnLeftMarginChanged(int margin)
    {
        StoreMargin(m_Params.margins, &QRect::setLeft, margin, &HBSignWidget::ValueChanged);
    }
    void OnRightMarginChanged(int margin)
    {
        StoreMargin(m_Params.margins, &QRect::setRight, margin, &HBSignWidget::ValueChanged);
    }
    void OnTopMarginChanged(int margin)
    {
        StoreMargin(m_Params.margins, &QRect::setTop, margin, &HBSignWidget::ValueChanged);
    }
    void OnBottomMarginChanged(int margin)
    {
        StoreMargin(m_Params.margins, &QRect::setBottom, margin, &HBSignWidget::ValueChanged);
    }
    void OnSelectFileName();
    void OnOpacityChanged(int opacity) { Store(this, m_Params.opacity, opacity); }
    void OnBlendingModeChanged(int index) { Store(this, m_Params.blendingMode, BlendingIndexToMode(index)); }

private:
    QStringList GetOpenFileNames();
    void SetHorizontalAlignment(Qt::Alignment alignment);
    void SetVerticalAlignment(Qt::Alignment alignment);

    std::unique_ptr<Ui::SignWidget> m_pUI;
    Params m_Params;
};

/// Both log one line on failure and return the stream; a failed read leaves the defaults.
HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBSignWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBSignWidget::Params& params);
