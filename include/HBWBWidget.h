// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBPictureCorrection.h>

namespace Ui
{
class WBWidget;
}

/// Picture correction: automatic white balance, or an over- or underexposed picture made right, each with a
/// strength of its own; and a shift of the colour temperature. Reacts to the user from the first SetValue on, not
/// before.
class HB_PANELS_EXPORT HBWBWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    using Params = HBPictureCorrectionParams;

    HBWBWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBWBWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnWBStrengthChanged(int strength);
    void OnTemperature(int temperature) { Store(this, m_Params.temperature, temperature); }
    void OnTemperatureStrength(int strength) { Store(this, m_Params.temperatureStrength, strength); }
    void OnOverexposure(bool checked) { SetMode(checked, Params::Overexposure); }
    void OnUnderexposure(bool checked) { SetMode(checked, Params::Underexposure); }
    void OnAuto(bool checked) { SetMode(checked, Params::Auto); }
    void OnEnchanced(bool checked) { Store(this, m_Params.enchanced, checked); }
    void OnUseTemperature(bool checked) { Store(this, m_Params.useTemperature, checked); }

private:
    struct WBData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(WBData job);
    void SetMode(bool checked, int mode);

    std::unique_ptr<Ui::WBWidget> m_pUI;
    Params m_Params;
};

HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBWBWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBWBWidget::Params& params);
