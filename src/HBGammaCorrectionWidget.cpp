// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGammaCorrectionWidget.h"

#include "HBPanelJob.h"
#include "HBSliderPosition.h"
#include "ui_GammaParamWidget.h"

#include <HBGammaCorrection.h>

namespace
{

constexpr double GammaScale = 100.0;

}

HBGammaCorrectionWidget::HBGammaCorrectionWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::GammaParamWidget>())
{
    m_pUI->setupUi(GetUIContent());
    Listen(m_pUI->m_pGammaSpin, SIGNAL(valueChanged(double)), SLOT(OnGammaChanged(double)));
    Listen(m_pUI->m_pGammaSlider, SIGNAL(valueChanged(int)), SLOT(OnGammaSlider(int)));
}

HBGammaCorrectionWidget::~HBGammaCorrectionWidget() = default;

double HBGammaCorrectionWidget::GetGamma() const
{
    return m_pUI->m_pGammaSpin->value();
}

void HBGammaCorrectionWidget::SetGamma(double gamma)
{
    if (qIsNaN(gamma))
        return;
    const Mute mute(this, m_pUI->m_pGammaSpin);
    m_pUI->m_pGammaSpin->setValue(gamma);
    // The slider is still heard, on purpose, and writes its own position back: 1.239 becomes 1.24, then 1.23.
    m_pUI->m_pGammaSlider->setValue(HBSliderPosition(gamma, GammaScale));
}

void HBGammaCorrectionWidget::Reset()
{
    m_pUI->m_pGammaSpin->setValue(HBGammaCorrectionParams().gamma);
}

void HBGammaCorrectionWidget::OnGammaChanged(double gamma)
{
    {
        const Mute mute(this, m_pUI->m_pGammaSlider);
        m_pUI->m_pGammaSlider->setValue(HBSliderPosition(gamma, GammaScale));
    }
    NotifyChanged(&HBGammaCorrectionWidget::GammaChanged);
}

void HBGammaCorrectionWidget::OnGammaSlider(int position)
{
    m_pUI->m_pGammaSpin->setValue(position / GammaScale);
}

struct HBGammaCorrectionWidget::GammaData : HBJobData
{
    HBGammaCorrectionParams params;
};

void HBGammaCorrectionWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, GammaData{JobData(), {GetGamma()}});
}

HBImage<> HBGammaCorrectionWidget::Process(GammaData job)
{
    return HBRunJob(job, job.params);
}
