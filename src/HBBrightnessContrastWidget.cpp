// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBrightnessContrastWidget.h"

#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "ui_BrightnessContrastParamWidget.h"

HB_PANEL_STREAM(HBBrightnessContrastWidget, "brightness and contrast data")

HBBrightnessContrastWidget::HBBrightnessContrastWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::BrightnessContrastParamWidget>())
{
    m_pUI->setupUi(GetUIContent());
    ShowValue();
    // The sliders only: a spin box arrives through the form's link, so a change is heard once.
    Listen(m_pUI->m_pBrightnessSlider, SIGNAL(valueChanged(int)), SLOT(OnBrightnessChanged(int)));
    Listen(m_pUI->m_pContrastSlider, SIGNAL(valueChanged(int)), SLOT(OnContrastChanged(int)));
}

HBBrightnessContrastWidget::~HBBrightnessContrastWidget() = default;

void HBBrightnessContrastWidget::ShowValue()
{
    m_pUI->m_pBrightnessSpin->setValue(m_Params.brightness);
    m_pUI->m_pContrastSpin->setValue(m_Params.contrast);
}

void HBBrightnessContrastWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    ShowValue();
}

void HBBrightnessContrastWidget::Reset()
{
    m_Params = Params();
    ShowValue();
}

struct HBBrightnessContrastWidget::BCData : HBJobData
{
    Params params; ///< from the spin boxes, not the record, which may be out of range
};

void HBBrightnessContrastWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const Params shown{m_pUI->m_pBrightnessSpin->value(), m_pUI->m_pContrastSpin->value()};
    HBStartJob(watcher, &Process, BCData{JobData(), shown});
}

HBImage<> HBBrightnessContrastWidget::Process(BCData job)
{
    return HBRunJob(job, job.params);
}
