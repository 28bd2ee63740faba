// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBExposureWidget.h"

#include "HBPanelJob.h"
#include "HBSliderPosition.h"
#include "ui_ExposureParamWidget.h"

#include <HBExposure.h>

namespace
{

constexpr double ExposureScale = 10000.0;

}

HBExposureWidget::HBExposureWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ExposureParamWidget>())
{
    m_pUI->setupUi(GetUIContent());
    Listen(m_pUI->m_pExposureSpin, SIGNAL(valueChanged(double)), SLOT(OnExposureChanged(double)));
    Listen(m_pUI->m_pOffsetSpin, SIGNAL(valueChanged(double)), SLOT(OnOffsetChanged(double)));
    Listen(m_pUI->m_pExposureSlider, SIGNAL(valueChanged(int)), SLOT(OnExposureSlider(int)));
    Listen(m_pUI->m_pOffsetSlider, SIGNAL(valueChanged(int)), SLOT(OnOffsetSlider(int)));
}

HBExposureWidget::~HBExposureWidget() = default;

double HBExposureWidget::GetExposure() const
{
    return m_pUI->m_pExposureSpin->value();
}

double HBExposureWidget::GetOffset() const
{
    return m_pUI->m_pOffsetSpin->value();
}

void HBExposureWidget::SetExposure(double exposure)
{
    if (qIsNaN(exposure))
        return;
    // Connects where the other setters mute, and once more at the end, on purpose: each call leaves two further
    // connections behind, none of them unique.
    connect(m_pUI->m_pExposureSpin, SIGNAL(valueChanged(double)), SLOT(OnExposureChanged(double)));
    m_pUI->m_pExposureSpin->setValue(exposure);
    m_pUI->m_pExposureSlider->setValue(HBSliderPosition(exposure, ExposureScale));
    connect(m_pUI->m_pExposureSpin, SIGNAL(valueChanged(double)), SLOT(OnExposureChanged(double)));
}

void HBExposureWidget::SetOffset(double offset)
{
    if (qIsNaN(offset))
        return;
    const Mute mute(this, m_pUI->m_pOffsetSpin);
    m_pUI->m_pOffsetSpin->setValue(offset);
    // The slider is still heard, on purpose, and writes its own position back: -0.25 becomes -0.2499.
    m_pUI->m_pOffsetSlider->setValue(HBSliderPosition(offset, ExposureScale));
}

void HBExposureWidget::Reset()
{
    const HBExposureParams neutral;
    m_pUI->m_pExposureSpin->setValue(neutral.exposure);
    m_pUI->m_pOffsetSpin->setValue(neutral.offset);
}

void HBExposureWidget::ShowOnSlider(QSlider* slider, double value)
{
    const Mute mute(this, slider);
    slider->setValue(HBSliderPosition(value, ExposureScale));
}

void HBExposureWidget::OnExposureChanged(double exposure)
{
    ShowOnSlider(m_pUI->m_pExposureSlider, exposure);
    NotifyChanged(&HBExposureWidget::ExposureChanged);
}

void HBExposureWidget::OnExposureSlider(int position)
{
    m_pUI->m_pExposureSpin->setValue(position / ExposureScale);
}

void HBExposureWidget::OnOffsetChanged(double offset)
{
    ShowOnSlider(m_pUI->m_pOffsetSlider, offset);
    NotifyChanged(&HBExposureWidget::OffsetChanged);
}

void HBExposureWidget::OnOffsetSlider(int position)
{
    m_pUI->m_pOffsetSpin->setValue(position / ExposureScale);
}

struct HBExposureWidget::ExposureData : HBJobData
{
    HBExposureParams params;
};

void HBExposureWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, ExposureData{JobData(), {GetExposure(), GetOffset()}});
}

HBImage<> HBExposureWidget::Process(ExposureData job)
{
    return HBRunJob(job, job.params);
}
