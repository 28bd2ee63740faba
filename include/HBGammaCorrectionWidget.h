// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

namespace Ui
{
class GammaParamWidget;
}

/// Gamma correction: one value, kept by its spin box. Has no stored record.
class HB_PANELS_EXPORT HBGammaCorrectionWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    HBGammaCorrectionWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBGammaCorrectionWidget() override;

    /// 0.01..5.0 in steps of 0.01; 1 does nothing, more brightens.
    double GetGamma() const;
    /// Rounded and clamped by the controls; NaN is ignored. Emits nothing and starts no job.
    void SetGamma(double gamma);

Q_SIGNALS:
    void GammaChanged();

public Q_SLOTS:
    void OnGammaChanged(double gamma);
    void OnGammaSlider(int position);

private:
    struct GammaData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(GammaData job);

    std::unique_ptr<Ui::GammaParamWidget> m_pUI;
};
