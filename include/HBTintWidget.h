// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBTint.h>

namespace Ui
{
class TintWidget;
}

/// Tint: the brightness of a pixel on a ramp between two colours, mixed with the picture.
class HB_PANELS_EXPORT HBTintWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    using Params = HBTintParams;
    using Type = Params::Type;
    static constexpr Type Average = Params::Average;
    static constexpr Type NTSC = Params::NTSC;
    static constexpr Type LUMA = Params::LUMA;
    static constexpr Type RGB = Params::RGB;

    HBTintWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBTintWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range; a type that does not exist leaves the picture as it is.
    /// Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnBlackTone();
    void OnWhiteTone();
    void OnCurrentBlackToneChanged(const QColor& tone);
    void OnCurrentWhiteToneChanged(const QColor& tone);
    void OnAmountChanged(int amount) { Store(this, m_Params.amount, amount); }
    void OnTypeChanged(int type) { Store(this, m_Params.type, Type(type)); }

private:
    struct TintData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(TintData job);
    void FillTintTypes();
    void SetBlackTone(const QColor& tone);
    void SetWhiteTone(const QColor& tone);
    static int IndexByType(Type type);

    std::unique_ptr<Ui::TintWidget> m_pUI;
    Params m_Params;
};

HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBTintWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBTintWidget::Params& params);
