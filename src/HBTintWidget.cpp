// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTintWidget.h"

#include "HBColorPick.h"
#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "ui_TintWidget.h"

HB_PANEL_STREAM(HBTintWidget, "tint data")

HBTintWidget::HBTintWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::TintWidget>())
{
    m_pUI->setupUi(GetUIContent());
    // Before the connections: filling the list fires its signal.
    FillTintTypes();
    Listen(m_pUI->m_pBlackTone, SIGNAL(clicked()), SLOT(OnBlackTone()));
    Listen(m_pUI->m_pWhiteTone, SIGNAL(clicked()), SLOT(OnWhiteTone()));
    Listen(m_pUI->m_pAmount, SIGNAL(valueChanged(int)), SLOT(OnAmountChanged(int)));
    Listen(m_pUI->m_pType, SIGNAL(currentIndexChanged(int)), SLOT(OnTypeChanged(int)));
    SetValue(Params());
}

HBTintWidget::~HBTintWidget() = default;

void HBTintWidget::FillTintTypes()
{
    m_pUI->m_pType->clear();
    m_pUI->m_pType->addItem(tr("Average"), Average);
    m_pUI->m_pType->addItem(tr("NTSC"), NTSC);
    m_pUI->m_pType->addItem(tr("LUMA"), LUMA);
    m_pUI->m_pType->addItem(tr("RGB"), RGB);
}

int HBTintWidget::IndexByType(Type type)
{
    return type; // the rows stand in the order of the types
}

void HBTintWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    SetBlackTone(m_Params.blackTone);
    SetWhiteTone(m_Params.whiteTone);
    m_pUI->m_pType->setCurrentIndex(IndexByType(m_Params.type));
    m_pUI->m_pAmount->setValue(m_Params.amount);
}

void HBTintWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBTintWidget::ValueChanged);
}

void HBTintWidget::SetBlackTone(const QColor& tone)
{
    m_Params.blackTone = tone;
    HBShowColor(m_pUI->m_pBlackTone, tone);
}

void HBTintWidget::SetWhiteTone(const QColor& tone)
{
    m_Params.whiteTone = tone;
    HBShowColor(m_pUI->m_pWhiteTone, tone);
}

void HBTintWidget::OnBlackTone()
{
    const QColor before = m_Params.blackTone;
    QColor chosen;
    const HBPick pick = HBRunColorDialog(this, tr("Select a black tone"), before,
                                         SLOT(OnCurrentBlackToneChanged(QColor)), &chosen);
    if (pick != HBPick::Gone)
        OnCurrentBlackToneChanged(pick == HBPick::Accepted ? chosen : before);
}

void HBTintWidget::OnWhiteTone()
{
    const QColor before = m_Params.whiteTone;
    QColor chosen;
    const HBPick pick = HBRunColorDialog(this, tr("Select a white tone"), before,
                                         SLOT(OnCurrentWhiteToneChanged(QColor)), &chosen);
    if (pick != HBPick::Gone)
        OnCurrentWhiteToneChanged(pick == HBPick::Accepted ? chosen : before);
}

void HBTintWidget::OnCurrentBlackToneChanged(const QColor& tone)
{
    if (tone == m_Params.blackTone)
        return;
    SetBlackTone(tone);
    NotifyChanged(&HBTintWidget::ValueChanged);
}

void HBTintWidget::OnCurrentWhiteToneChanged(const QColor& tone)
{
    if (tone == m_Params.whiteTone)
        return;
    SetWhiteTone(tone);
    NotifyChanged(&HBTintWidget::ValueChanged);
}

struct HBTintWidget::TintData : HBJobData
{
    Params params;
};

void HBTintWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, TintData{JobData(), m_Params});
}

HBImage<> HBTintWidget::Process(TintData job)
{
    return HBRunJob(job, job.params);
}
