// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGammaCorrectionWidget.h"

#include "HBPanelJob.h"
#include "HBScaledSlider.h"
#include "ui_GammaParamWidget.h"

#include <HBIterativeGammaCorrectionTransformation.h>

namespace
{

constexpr double Scale = 100.0;

}

// ---- Construction ----

HBGammaCorrectionWidget::HBGammaCorrectionWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::GammaParamWidget>())
{
    m_pUI->setupUi(GetUIContent());
    connect(m_pUI->m_pGammaSpin, SIGNAL(valueChanged(double)), SLOT(OnGammaChanged(double)));
    connect(m_pUI->m_pGammaSlider, SIGNAL(valueChanged(int)), SLOT(OnGammaSlider(int)));
}

HBGammaCorrectionWidget::~HBGammaCorrectionWidget()
{
    FinishJob();
    m_pUI->m_pGammaSpin->disconnect(this);
    m_pUI->m_pGammaSlider->disconnect(this);
}

// ---- Values ----

double HBGammaCorrectionWidget::GetGamma() const
{
    return m_pUI->m_pGammaSpin->value();
}

void HBGammaCorrectionWidget::SetGamma(double gamma)
{
    if (qIsNaN(gamma))
        return;
    disconnect(m_pUI->m_pGammaSpin, SIGNAL(valueChanged(double)), this, SLOT(OnGammaChanged(double)));
    m_pUI->m_pGammaSpin->setValue(gamma);
    // The slider stays connected, on purpose, and writes its own position back: 1.239 becomes 1.24, then 1.23.
    m_pUI->m_pGammaSlider->setValue(HBSliderPosition(gamma, Scale));
    connect(m_pUI->m_pGammaSpin, SIGNAL(valueChanged(double)), SLOT(OnGammaChanged(double)));
}

void HBGammaCorrectionWidget::Reset()
{
    m_pUI->m_pGammaSpin->setValue(1.0);
}

void HBGammaCorrectionWidget::OnGammaChanged(double gamma)
{
    disconnect(m_pUI->m_pGammaSlider, SIGNAL(valueChanged(int)), this, SLOT(OnGammaSlider(int)));
    m_pUI->m_pGammaSlider->setValue(HBSliderPosition(gamma, Scale));
    connect(m_pUI->m_pGammaSlider, SIGNAL(valueChanged(int)), SLOT(OnGammaSlider(int)));
    NotifyChanged(&HBGammaCorrectionWidget::GammaChanged);
}

void HBGammaCorrectionWidget::OnGammaSlider(int position)
{
    m_pUI->m_pGammaSpin->setValue(position / Scale);
}

// ---- Job ----

struct HBGammaCorrectionWidget::GammaData : HBJobData
{
    double gamma;
};

void HBGammaCorrectionWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const GammaData job{JobData(), m_pUI->m_pGammaSpin->value()};
    HBStartJob(watcher, this, &HBGammaCorrectionWidget::Process, job);
}

HBImage<> HBGammaCorrectionWidget::Process(GammaData job)
{
    return RunTransformation(job, HBIterativeGammaCorrectionTransformation(job.gamma));
}
