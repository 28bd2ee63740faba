// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBlackAndWhiteWidget.h"

#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "ui_BlackAndWhiteWidget.h"

#include <QButtonGroup>

HB_PANEL_STREAM(HBBlackAndWhiteWidget, "BlackAndWhite data")

HBBlackAndWhiteWidget::HBBlackAndWhiteWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::BlackAndWhiteWidget>())
{
    m_pUI->setupUi(GetUIContent());
    // A group of their own: auto-exclusive buttons would also uncheck the host's beside an embedded panel.
    auto* types = new QButtonGroup(this);
    for (QRadioButton* radio :
         {m_pUI->m_pAverage, m_pUI->m_pLuminance, m_pUI->m_pD65, m_pUI->m_pNTSC, m_pUI->m_pCIE, m_pUI->m_pCustom})
        types->addButton(radio);
    ShowWeights();

    Listen(m_pUI->m_pRed, SIGNAL(valueChanged(double)), SLOT(OnRedChanged(double)));
    Listen(m_pUI->m_pGreen, SIGNAL(valueChanged(double)), SLOT(OnGreenChanged(double)));
    Listen(m_pUI->m_pBlue, SIGNAL(valueChanged(double)), SLOT(OnBlueChanged(double)));
    Listen(m_pUI->m_pAverage, SIGNAL(toggled(bool)), SLOT(OnAverage(bool)));
    Listen(m_pUI->m_pLuminance, SIGNAL(toggled(bool)), SLOT(OnLuminance(bool)));
    Listen(m_pUI->m_pD65, SIGNAL(toggled(bool)), SLOT(OnD65(bool)));
    Listen(m_pUI->m_pNTSC, SIGNAL(toggled(bool)), SLOT(OnNTSC(bool)));
    Listen(m_pUI->m_pCIE, SIGNAL(toggled(bool)), SLOT(OnCIE(bool)));
    Listen(m_pUI->m_pCustom, SIGNAL(toggled(bool)), SLOT(OnCustom(bool)));
}

HBBlackAndWhiteWidget::~HBBlackAndWhiteWidget() = default;

void HBBlackAndWhiteWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    const int type = m_Params.IsCustom() ? int(Params::Custom) : m_Params.type;
    m_pUI->m_pAverage->group()->buttons().at(type)->setChecked(true);
    ShowWeights();
}

void HBBlackAndWhiteWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBBlackAndWhiteWidget::ValueChanged);
}

void HBBlackAndWhiteWidget::ShowWeights()
{
    m_pUI->m_pRed->setValue(double(m_Params.GetR()));
    m_pUI->m_pGreen->setValue(double(m_Params.GetG()));
    m_pUI->m_pBlue->setValue(double(m_Params.GetB()));
}

void HBBlackAndWhiteWidget::SetType(bool checked, Params::Type type)
{
    if (!checked)
        return;
    m_Params.type = type;
    {
        const Mute mute(this);
        ShowWeights();
    }
    NotifyChanged(&HBBlackAndWhiteWidget::ValueChanged);
}

/// Only the user's own weights are edited; those of a type stay what they are.
void HBBlackAndWhiteWidget::SetWeight(float& weight, double value)
{
    if (m_Params.IsCustom())
        Store(this, weight, float(value));
}

struct HBBlackAndWhiteWidget::BlackAndWhiteData : HBJobData
{
    Params params; ///< the record: its weights have more decimals than the spin boxes
};

void HBBlackAndWhiteWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, BlackAndWhiteData{JobData(), m_Params});
}

HBImage<> HBBlackAndWhiteWidget::Process(BlackAndWhiteData job)
{
    return HBRunJob(job, job.params);
}
