// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplaceColorWidget.h"

#include "HBColorPick.h"
#include "HBPanelStream.h"
#include "ui_ReplaceColor.h"

// The words are the sign panel's, on purpose.
HB_PANEL_STREAM_LINES(HBReplaceColorWidget, "sign data", 397, 410, HBAfterFailure::Reset)

HBReplaceColorWidget::HBReplaceColorWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ReplaceColor>())
{
    m_pUI->setupUi(GetUIContent());
    FillSourcePositions();
    // The sliders only: a spin box arrives through the form's link, so a change is heard once.
    ListenLater(m_pUI->m_pSourceTolerance, SIGNAL(valueChanged(int)), SLOT(OnSourceToleranceChanged(int)));
    ListenLater(m_pUI->m_pPositionType, SIGNAL(currentIndexChanged(int)), SLOT(OnSourcePosTypeChanged(int)));
    ListenLater(m_pUI->m_pSelectDestinationColor, SIGNAL(clicked()), SLOT(OnDestinationColor()));
    ListenLater(m_pUI->m_pDestinationOpacity, SIGNAL(valueChanged(int)), SLOT(OnDestinationOpacityChanged(int)));
    Reset();
}

HBReplaceColorWidget::~HBReplaceColorWidget() = default;

void HBReplaceColorWidget::FillSourcePositions()
{
    m_pUI->m_pPositionType->clear();
    m_pUI->m_pPositionType->addItem(tr("Left top"), LeftTop);
    m_pUI->m_pPositionType->addItem(tr("Right top"), RightTop);
    m_pUI->m_pPositionType->addItem(tr("Left bottom"), LeftBottom);
    m_pUI->m_pPositionType->addItem(tr("Right bottom"), RightBottom);
}

/// The row of a position; -1 for one that does not exist.
int HBReplaceColorWidget::GetPositionIndex(PositionType position) const
{
    return m_pUI->m_pPositionType->findData(int(position));
}

HBReplaceColorWidget::PositionType HBReplaceColorWidget::GetPositionType(int index) const
{
    return index == -1 ? LeftTop : PositionType(m_pUI->m_pPositionType->itemData(index).toInt());
}

void HBReplaceColorWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    m_pUI->m_pSourceTolerance->setValue(m_Params.tolerance);
    m_pUI->m_pPositionType->setCurrentIndex(GetPositionIndex(m_Params.position));
    SetDestinationColor(m_Params.color);
    m_pUI->m_pDestinationOpacity->setValue(m_Params.opacity);
}

void HBReplaceColorWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBReplaceColorWidget::ValueChanged);
}

void HBReplaceColorWidget::SetDestinationColor(const QColor& color)
{
    m_Params.color = color;
    HBShowColor(m_pUI->m_pSelectDestinationColor, color);
}

void HBReplaceColorWidget::OnDestinationColor()
{
    const QColor before = m_Params.color;
    QColor chosen;
    const HBPick pick = HBRunColorDialog(this, tr("Select replacement color"), before,
                                         SLOT(OnCurrentColorChanged(QColor)), &chosen);
    if (pick == HBPick::Rejected)
        OnCurrentColorChanged(before);
    if (pick != HBPick::Accepted)
        return;
    // Without comparing, on purpose: each accepted dialog is heard.
    SetDestinationColor(chosen);
    NotifyChanged(&HBReplaceColorWidget::ValueChanged);
}

void HBReplaceColorWidget::OnCurrentColorChanged(const QColor& color)
{
    if (color == m_Params.color)
        return;
    SetDestinationColor(color);
    NotifyChanged(&HBReplaceColorWidget::ValueChanged);
}

void HBReplaceColorWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const HBJobData target = JobData();
    const QSize size(target.source.Width(), target.source.Height());
    HBStartJob(watcher, &Process, RCData{target, HBReplacementOf(m_Params, size)});
}

HBImage<> HBReplaceColorWidget::Process(RCData job)
{
    return HBRunJob(job, static_cast<const HBColorReplacement&>(job));
}
