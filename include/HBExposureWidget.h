// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

class QSlider;

namespace Ui
{
class ExposureParamWidget;
}

/// Exposure and offset in linear light: two values, kept by their spin boxes. Has no stored record.
class HB_PANELS_EXPORT HBExposureWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    HBExposureWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBExposureWidget() override;

    /// Stops, -20..20, four decimals; 0 does nothing.
    double GetExposure() const;
    /// Added to the linear light, -0.5..0.5, four decimals; 0 does nothing.
    double GetOffset() const;

    /// Clamped by the controls; NaN is ignored. Unlike every other setter it emits, starts a job, and makes each
    /// later change of the exposure emit twice more, on purpose: hosts count those signals.
    void SetExposure(double exposure);
    /// Clamped by the controls; NaN is ignored. Emits nothing and starts no job.
    void SetOffset(double offset);

Q_SIGNALS:
    void ExposureChanged();
    void OffsetChanged();

public Q_SLOTS:
    void OnExposureChanged(double exposure);
    void OnExposureSlider(int position);
    void OnOffsetChanged(double offset);
    void OnOffsetSlider(int position);

private:
    struct ExposureData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(ExposureData job);
    void ShowOnSlider(QSlider* slider, double value);

    std::unique_ptr<Ui::ExposureParamWidget> m_pUI;
};
