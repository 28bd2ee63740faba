// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBWatermarkWidget.h"

#include "HBColorPick.h"
#include "HBPanelStream.h"
#include "ui_WatermarkWidget.h"

#include <HBFontDialog.h>

// Line numbers in the log: fixed, on purpose, for those who look for them.
HB_PANEL_STREAM_LINES(HBWatermarkWidget, "watermark data", 548, 561, HBAfterFailure::Reset)

HBWatermarkWidget::HBWatermarkWidget(QWidget* parent, Qt::WindowFlags flags)
    : HBOverlayWidget(parent, flags)
    , m_pUI(std::make_unique<Ui::WatermarkWidget>())
{
    m_pUI->setupUi(GetUIContent());
    Listen(m_pUI->m_pSelectFont, SIGNAL(clicked()), SLOT(OnSelectFont()));
    Listen(m_pUI->m_pAngleSpn, SIGNAL(valueChanged(int)), SLOT(OnAnglechanged(int)));
    Listen(m_pUI->m_pText, SIGNAL(textChanged(QString)), SLOT(OnTextChanged(QString)));
    Listen(m_pUI->m_pColor, SIGNAL(clicked()), SLOT(OnSelectColor()));
    Listen(m_pUI->m_pVrtTiles, SIGNAL(valueChanged(int)), SLOT(OnVrtTilesChanged(int)));
    Listen(m_pUI->m_pHrzTiles, SIGNAL(valueChanged(int)), SLOT(OnHrzTilesChanged(int)));
    ListenToOverlay(*m_pUI);
    Reset();
}

HBWatermarkWidget::~HBWatermarkWidget() = default;

void HBWatermarkWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    m_pUI->m_pHrzTiles->setValue(m_Params.horizontalTiles);
    m_pUI->m_pVrtTiles->setValue(m_Params.verticalTiles);
    m_pUI->m_pText->setText(m_Params.text);
    m_pUI->m_pAngleSpn->setValue(m_Params.angle);
    ShowOverlay(*m_pUI, m_Params);
    SetColor(m_Params.color);
}

void HBWatermarkWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::SetColor(const QColor& color)
{
    m_Params.color = color;
    HBShowColor(m_pUI->m_pColor, color);
}

void HBWatermarkWidget::OnSelectColor()
{
    QColor chosen;
    if (HBRunColorDialog(this, tr("Select text color"), m_Params.color, nullptr, &chosen) != HBPick::Accepted)
        return;
    SetColor(chosen);
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnSelectFont()
{
    // Panel and dialog may be destroyed while the dialog is open.
    const QPointer<HBWatermarkWidget> self(this);
    const QPointer<HBFontDialog> dialog(new HBFontDialog(m_Params.font, this));
    dialog->setWindowTitle(tr("Font parameters"));
    const int result = dialog->Exec();
    if (!self || !dialog)
        return;
    const QFont font = dialog->GetSelectedFont();
    delete dialog;
    if (result != 1)
        return;
    Store(this, m_Params.font, font);
}
