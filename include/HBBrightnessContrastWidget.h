// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBBrightnessContrast.h>

namespace Ui
{
class BrightnessContrastParamWidget;
}

/// Brightness and contrast. The simplest complete panel: every other one is built like it.
class HB_PANELS_EXPORT HBBrightnessContrastWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    using Params = HBBrightnessContrastParams;

    HBBrightnessContrastWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBBrightnessContrastWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range, where the controls show and the job uses the nearest value they allow.
    /// Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnBrightnessChanged(int value) { Store(this, m_Params.brightness, value); }
    void OnContrastChanged(int value) { Store(this, m_Params.contrast, value); }

private:
    struct BCData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(BCData job);
    void ShowValue();

    std::unique_ptr<Ui::BrightnessContrastParamWidget> m_pUI;
    Params m_Params;
};

HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBBrightnessContrastWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBBrightnessContrastWidget::Params& params);
