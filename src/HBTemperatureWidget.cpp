// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTemperatureWidget.h"

#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "ui_TemperatureWidget.h"

HB_PANEL_STREAM(HBTemperatureWidget, "temperature data")

HBTemperatureWidget::HBTemperatureWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::TemperatureWidget>())
{
    m_pUI->setupUi(GetUIContent());
    Reset();
    Listen(m_pUI->m_pTemperature, SIGNAL(valueChanged(int)), SLOT(OnTemperatureChanged(int)));
    Listen(m_pUI->m_pTint, SIGNAL(valueChanged(int)), SLOT(OnTintChanged(int)));
    Listen(m_pUI->m_pStrength, SIGNAL(valueChanged(int)), SLOT(OnStrengthChanged(int)));
}

HBTemperatureWidget::~HBTemperatureWidget() = default;

void HBTemperatureWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    m_pUI->m_pTemperature->setValue(m_Params.temperature);
    m_pUI->m_pTint->setValue(m_Params.tint);
    // m_pStrength is not loaded, on purpose: it shows its old value until the user moves it.
}

void HBTemperatureWidget::Reset()
{
    m_Params = Params();
    m_pUI->m_pTemperature->setValue(m_Params.temperature);
    m_pUI->m_pTint->setValue(m_Params.tint);
    m_pUI->m_pStrength->setValue(m_Params.strength);
}

struct HBTemperatureWidget::TData : HBJobData
{
    Params params;
};

void HBTemperatureWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, TData{JobData(), m_Params});
}

HBImage<> HBTemperatureWidget::Process(TData job)
{
    return HBRunJob(job, job.params);
}
