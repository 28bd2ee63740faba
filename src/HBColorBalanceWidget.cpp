// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorBalanceWidget.h"

#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "HBSliderHandle.h"
#include "ui_ColorBalanceParamWidget.h"

#include <QButtonGroup>
#include <QLinearGradient>

HB_PANEL_STREAM(HBColorBalanceWidget, "color balance data")

namespace
{

using P = HBColorBalanceParams;

bool IsRange(int toneRange)
{
    return toneRange >= P::Shadows && toneRange <= P::Highlights;
}

QLinearGradient Between(Qt::GlobalColor from, Qt::GlobalColor to)
{
    QLinearGradient gradient(0, 0, 1, 0);
    gradient.setColorAt(0.0, from);
    gradient.setColorAt(0.5, Qt::white);
    gradient.setColorAt(1.0, to);
    return gradient;
}

} // namespace

HBColorBalanceWidget::HBColorBalanceWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ColorBalanceParamWidget>())
{
    m_pUI->setupUi(GetUIContent());
    // A group of their own: auto-exclusive buttons would also uncheck the host's beside an embedded panel.
    auto* ranges = new QButtonGroup(this);
    for (QRadioButton* radio : {m_pUI->m_pShadows, m_pUI->m_pMidtones, m_pUI->m_pHighlights})
        ranges->addButton(radio);
    // Wired and stored, but never shown, on purpose.
    m_pUI->m_pLuminosity->hide();

    Listen(m_pUI->m_pCRSpin, SIGNAL(valueChanged(int)), SLOT(OnCRChanged(int)));
    Listen(m_pUI->m_pMGSpin, SIGNAL(valueChanged(int)), SLOT(OnMGChanged(int)));
    Listen(m_pUI->m_pYBSpin, SIGNAL(valueChanged(int)), SLOT(OnYBChanged(int)));
    Listen(m_pUI->m_pShadows, SIGNAL(toggled(bool)), SLOT(OnShadowChanged(bool)));
    Listen(m_pUI->m_pMidtones, SIGNAL(toggled(bool)), SLOT(OnMidtoneChanged(bool)));
    Listen(m_pUI->m_pHighlights, SIGNAL(toggled(bool)), SLOT(OnHighLightChanged(bool)));
    Listen(m_pUI->m_pLuminosity, SIGNAL(toggled(bool)), SLOT(OnLumChanged(bool)));

    SetGrooveGradient(m_pUI->m_pCRSlider, Between(Qt::cyan, Qt::red));
    SetGrooveGradient(m_pUI->m_pMGSlider, Between(Qt::magenta, Qt::green));
    SetGrooveGradient(m_pUI->m_pYBSlider, Between(Qt::yellow, Qt::blue));
    for (QSlider* slider : {m_pUI->m_pCRSlider, m_pUI->m_pMGSlider, m_pUI->m_pYBSlider})
        HBStyleHandle(slider);
}

HBColorBalanceWidget::~HBColorBalanceWidget() = default;

void HBColorBalanceWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    CheckRange();
    ShowRange();
    m_pUI->m_pLuminosity->setChecked(m_Params.preserveLuminosity);
    EnableValues(m_Params.toneRange != P::NoRange);
}

void HBColorBalanceWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBColorBalanceWidget::ValueChanged);
}

/// Checks the button of the record's range; none for no range; a range that does not exist changes nothing.
void HBColorBalanceWidget::CheckRange()
{
    QButtonGroup* ranges = m_pUI->m_pShadows->group();
    if (IsRange(m_Params.toneRange)) {
        ranges->buttons().at(m_Params.toneRange - 1)->setChecked(true);
    } else if (m_Params.toneRange == P::NoRange) {
        // An exclusive group does not let its checked button go.
        ranges->setExclusive(false);
        for (QAbstractButton* radio : ranges->buttons())
            radio->setChecked(false);
        ranges->setExclusive(true);
    }
}

/// Loads the three axes' values of the record's range, 0 if it is none.
void HBColorBalanceWidget::ShowRange()
{
    const int r = m_Params.toneRange;
    auto value = [r](const qint32(&axis)[3]) { return IsRange(r) ? axis[r - 1] : 0; };
    m_pUI->m_pCRSpin->setValue(value(m_Params.cyanRed));
    m_pUI->m_pMGSpin->setValue(value(m_Params.magentaGreen));
    m_pUI->m_pYBSpin->setValue(value(m_Params.yellowBlue));
}

void HBColorBalanceWidget::EnableValues(bool enable)
{
    m_pUI->m_pCRSpin->setEnabled(enable);
    m_pUI->m_pMGSpin->setEnabled(enable);
    m_pUI->m_pYBSpin->setEnabled(enable);
    m_pUI->m_pLuminosity->setEnabled(enable);
}

/// Of a button that was checked: the range that is shown from now on.
void HBColorBalanceWidget::SetRange(bool checked, int toneRange)
{
    if (!checked)
        return;
    m_Params.toneRange = toneRange;
    {
        const Mute mute(this, nullptr, Mute::ShowsOthers);
        ShowRange();
    }
    EnableValues(true);
    // Without DataChanged(): another range is shown, the image stays as it is.
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
}

void HBColorBalanceWidget::StoreValue(qint32 (&axis)[3], int value)
{
    if (IsRange(m_Params.toneRange))
        axis[m_Params.toneRange - 1] = value;
    NotifyChanged(&HBColorBalanceWidget::ValueChanged);
}

struct HBColorBalanceWidget::CBData : HBJobData
{
    Params params;
};

void HBColorBalanceWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, CBData{JobData(), m_Params});
}

HBImage<> HBColorBalanceWidget::Process(CBData job)
{
    return HBRunJob(job, job.params);
}
