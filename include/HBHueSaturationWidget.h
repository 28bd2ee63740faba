// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBHueSaturation.h>

#include <initializer_list>

namespace Ui
{
class HueSaturationParamWidget;
}

/// Hue, saturation and lightness, or the picture in one tone ("Colorize"). Reacts to the user from the first
/// SetValue on, not before.
class HB_PANELS_EXPORT HBHueSaturationWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    using Params = HBHueSaturationParams;

    HBHueSaturationWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBHueSaturationWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range, where the controls show and the job uses the nearest value they allow.
    /// Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnHueChanged(int hue);
    void OnSaturationChanged(int saturation);
    void OnLightnessChanged(int lightness);
    void OnColorizeChanged(bool colorize);

private:
    struct HSData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(HSData job);
    void ShowValue();
    void UpdateColorLabels();
    void UpdateHueGroove();
    void UpdateSaturationGroove();
    void NotifyShown(std::initializer_list<void (HBHueSaturationWidget::*)()> updateGrooves);
    static QLinearGradient GetHue(int saturation, int lightness);
    static QLinearGradient GetSaturation(int hue, int lightness);

    std::unique_ptr<Ui::HueSaturationParamWidget> m_pUI;
    Params m_Params;
};

/// A failed read leaves the defaults.
HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBHueSaturationWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBHueSaturationWidget::Params& params);
