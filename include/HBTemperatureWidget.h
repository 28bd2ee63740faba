// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBTemperature.h>

namespace Ui
{
class TemperatureWidget;
}

/// Colour temperature: the picture as lit by light of that temperature, with a tint between green and magenta.
class HB_PANELS_EXPORT HBTemperatureWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    using Params = HBTemperatureParams;

    HBTemperatureWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBTemperatureWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. The control of the strength keeps showing what it showed.
    /// Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnTemperatureChanged(int kelvin) { Store(this, m_Params.temperature, kelvin); }
    void OnTintChanged(int tint) { Store(this, m_Params.tint, tint); }
    void OnStrengthChanged(int strength) { Store(this, m_Params.strength, strength); }

private:
    struct TData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(TData job);

    std::unique_ptr<Ui::TemperatureWidget> m_pUI;
    Params m_Params;
};

HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBTemperatureWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBTemperatureWidget::Params& params);
