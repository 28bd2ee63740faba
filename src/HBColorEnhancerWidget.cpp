// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorEnhancerWidget.h"

#include "HBJobLog.h"
#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "ui_ColorEnhancer.h"

HB_PANEL_STREAM(HBColorEnhancerWidget, "color enhancer data")

HBColorEnhancerWidget::HBColorEnhancerWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ColorEnhancer>())
    , m_pCache(std::make_shared<HBColorThresholdCache>())
{
    m_pUI->setupUi(GetUIContent());
    connect(this, SIGNAL(SourceChanged()), SLOT(OnSourceChanged()));
    Listen(m_pUI->m_pAmount, SIGNAL(valueChanged(int)), SLOT(OnAmountChanged(int)));
    Listen(m_pUI->m_pAffected, SIGNAL(valueChanged(int)), SLOT(OnAffectedChanged(int)));
    Reset();
}

HBColorEnhancerWidget::~HBColorEnhancerWidget() = default;

void HBColorEnhancerWidget::OnSourceChanged()
{
    m_pCache->SetPicture(SourceImage());
}

void HBColorEnhancerWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    m_pUI->m_pAffected->setValue(m_Params.affected);
    m_pUI->m_pAmount->setValue(m_Params.amount);
}

void HBColorEnhancerWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBColorEnhancerWidget::ValueChanged);
}

struct HBColorEnhancerWidget::EnhancerData : HBJobData
{
    Params params;
    std::shared_ptr<HBColorThresholdCache> cache;
};

void HBColorEnhancerWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, EnhancerData{JobData(), m_Params, m_pCache});
}

HBImage<> HBColorEnhancerWidget::Process(EnhancerData job)
{
    const HBOutcome outcome = HBRunStages(
        job, [&] { return HBStagesOf(job.params, job.source, job.cache); }, job.control.get());
    HB_LOG_JOB_EXCEPTION(outcome.exception);
    return HBTakeOutcome(outcome, job);
}
