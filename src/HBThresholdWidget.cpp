// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBThresholdWidget.h"

#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "ui_ThresholdWidget.h"

HB_PANEL_STREAM(HBThresholdWidget, "threshold data")

HBThresholdWidget::HBThresholdWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ThresholdWidget>())
{
    m_pUI->setupUi(GetUIContent());
    m_pUI->m_pSlider->SetRange(0, 255);
    m_pUI->m_pSlider->AddControl(0, 0, 255, QBrush(Qt::black));
    m_pUI->m_pSlider->SetControlName(0, tr("Threshold level"));
    SetHistogram(m_pUI->m_pHistogramm);

    connect(this, SIGNAL(SourceChanged()), SLOT(OnSourceChanged()));
    Listen(m_pUI->m_pSlider, SIGNAL(ValueChanged(uint,int)), SLOT(OnLevelChanged(uint,int)));
    Listen(m_pUI->m_pThresholdLevel, SIGNAL(valueChanged(int)), SLOT(OnLevelChanged(int)));
    m_pUI->m_pHistogramm->SetChannel(0);
    Reset();
}

HBThresholdWidget::~HBThresholdWidget() = default;

void HBThresholdWidget::SetValue(const Params& params)
{
    const Mute mute(this, m_pUI->m_pThresholdLevel);
    m_Params = params;
    // The slider is still heard and moves the spin box, which clamps to 1..255 what it shows.
    m_pUI->m_pSlider->SetValue(0, m_Params.level);
}

void HBThresholdWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBThresholdWidget::ValueChanged);
}

void HBThresholdWidget::OnLevelChanged(int level)
{
    m_Params.level = level;
    m_pUI->m_pSlider->SetValue(0, level);
    NotifyChanged(&HBThresholdWidget::ValueChanged);
}

void HBThresholdWidget::OnLevelChanged(uint, int level)
{
    // The spin box's least is 1: a slider dragged to 0 comes back through its signal, on purpose.
    m_pUI->m_pThresholdLevel->setValue(level);
}

struct HBThresholdWidget::ThresholdData : HBJobData
{
    Params params; ///< may be out of the controls' range
};

void HBThresholdWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, ThresholdData{JobData(), m_Params});
}

HBImage<> HBThresholdWidget::Process(ThresholdData job)
{
    return HBRunJob(job, job.params);
}
