// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBWBWidget.h"

#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "ui_WBWidget.h"

#include <QButtonGroup>

HB_PANEL_STREAM(HBWBWidget, "WB data")

HBWBWidget::HBWBWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::WBWidget>())
{
    m_pUI->setupUi(GetUIContent());
    // A group of their own: auto-exclusive buttons would also uncheck the host's beside an embedded panel.
    auto* modes = new QButtonGroup(this);
    for (QRadioButton* radio : {m_pUI->m_pAuto, m_pUI->m_pOverexposure, m_pUI->m_pUnderexposure})
        modes->addButton(radio);

    // Loaded and connected by the first SetValue, on purpose.
    ListenLater(m_pUI->m_pWBStrength, SIGNAL(valueChanged(int)), SLOT(OnWBStrengthChanged(int)));
    ListenLater(m_pUI->m_pAuto, SIGNAL(toggled(bool)), SLOT(OnAuto(bool)));
    ListenLater(m_pUI->m_pEnchanced, SIGNAL(toggled(bool)), SLOT(OnEnchanced(bool)));
    ListenLater(m_pUI->m_pOverexposure, SIGNAL(toggled(bool)), SLOT(OnOverexposure(bool)));
    ListenLater(m_pUI->m_pUnderexposure, SIGNAL(toggled(bool)), SLOT(OnUnderexposure(bool)));
    ListenLater(m_pUI->m_pTemperatureContent, SIGNAL(toggled(bool)), SLOT(OnUseTemperature(bool)));
    ListenLater(m_pUI->m_pTemperature, SIGNAL(valueChanged(int)), SLOT(OnTemperature(int)));
    ListenLater(m_pUI->m_pTempStrength, SIGNAL(valueChanged(int)), SLOT(OnTemperatureStrength(int)));
}

HBWBWidget::~HBWBWidget() = default;

void HBWBWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    m_pUI->m_pTemperature->setValue(m_Params.temperature);
    m_pUI->m_pTempStrength->setValue(m_Params.temperatureStrength);
    if (const qint32* strength = m_Params.ModeStrength()) {
        QRadioButton* const radios[] = {m_pUI->m_pAuto, m_pUI->m_pOverexposure, m_pUI->m_pUnderexposure};
        radios[m_Params.mode]->setChecked(true);
        m_pUI->m_pWBStrength->setValue(*strength);
    }
    m_pUI->m_pEnchanced->setChecked(m_Params.enchanced);
    m_pUI->m_pTemperatureContent->setChecked(m_Params.useTemperature);
}

void HBWBWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBWBWidget::ValueChanged);
}

/// Of a button that was checked. Each mode keeps its strength; the one slider shows that of the mode.
void HBWBWidget::SetMode(bool checked, int mode)
{
    if (!checked)
        return;
    m_Params.mode = mode;
    {
        const Mute mute(this, m_pUI->m_pWBStrength);
        m_pUI->m_pWBStrength->setValue(*m_Params.ModeStrength());
    }
    NotifyChanged(&HBWBWidget::ValueChanged);
}

void HBWBWidget::OnWBStrengthChanged(int strength)
{
    if (qint32* stored = m_Params.ModeStrength())
        *stored = strength;
    NotifyChanged(&HBWBWidget::ValueChanged);
}

struct HBWBWidget::WBData : HBJobData
{
    Params params;
};

void HBWBWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, WBData{JobData(), m_Params});
}

HBImage<> HBWBWidget::Process(WBData job)
{
    return HBRunJob(job, job.params);
}
