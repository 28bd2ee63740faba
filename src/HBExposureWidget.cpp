// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBExposureWidget.h"

#include "HBPanelJob.h"
#include "HBScaledSlider.h"
#include "ui_ExposureParamWidget.h"

#include <HBIterativeExposureTransformation.h>

namespace
{

constexpr double Scale = 10000.0;

}

// ---- Construction ----

HBExposureWidget::HBExposureWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ExposureParamWidget>())
{
    m_pUI->setupUi(GetUIContent());
    connect(m_pUI->m_pExposureSpin, SIGNAL(valueChanged(double)), SLOT(OnExposureChanged(double)));
    connect(m_pUI->m_pOffsetSpin, SIGNAL(valueChanged(double)), SLOT(OnOffsetChanged(double)));
    connect(m_pUI->m_pExposureSlider, SIGNAL(valueChanged(int)), SLOT(OnExposureSlider(int)));
    connect(m_pUI->m_pOffsetSlider, SIGNAL(valueChanged(int)), SLOT(OnOffsetSlider(int)));
}

HBExposureWidget::~HBExposureWidget()
{
    FinishJob();
    m_pUI->m_pExposureSpin->disconnect(this);
    m_pUI->m_pOffsetSpin->disconnect(this);
    m_pUI->m_pExposureSlider->disconnect(this);
    m_pUI->m_pOffsetSlider->disconnect(this);
}

// ---- Values ----

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
    // Connects where the other setters disconnect, and once more at the end, on purpose: each call leaves two further
    // connections behind, none of them unique.
    connect(m_pUI->m_pExposureSpin, SIGNAL(valueChanged(double)), SLOT(OnExposureChanged(double)));
    m_pUI->m_pExposureSpin->setValue(exposure);
    m_pUI->m_pExposureSlider->setValue(HBSliderPosition(exposure, Scale));
    connect(m_pUI->m_pExposureSpin, SIGNAL(valueChanged(double)), SLOT(OnExposureChanged(double)));
}

void HBExposureWidget::SetOffset(double offset)
{
    if (qIsNaN(offset))
        return;
    disconnect(m_pUI->m_pOffsetSpin, SIGNAL(valueChanged(double)), this, SLOT(OnOffsetChanged(double)));
    m_pUI->m_pOffsetSpin->setValue(offset);
    // The slider stays connected, on purpose, and writes its own position back: -0.25 becomes -0.2499.
    m_pUI->m_pOffsetSlider->setValue(HBSliderPosition(offset, Scale));
    connect(m_pUI->m_pOffsetSpin, SIGNAL(valueChanged(double)), SLOT(OnOffsetChanged(double)));
}

void HBExposureWidget::Reset()
{
    m_pUI->m_pExposureSpin->setValue(0.0);
    m_pUI->m_pOffsetSpin->setValue(0.0);
}

void HBExposureWidget::OnExposureChanged(double exposure)
{
    disconnect(m_pUI->m_pExposureSlider, SIGNAL(valueChanged(int)), this, SLOT(OnExposureSlider(int)));
    m_pUI->m_pExposureSlider->setValue(HBSliderPosition(exposure, Scale));
    connect(m_pUI->m_pExposureSlider, SIGNAL(valueChanged(int)), SLOT(OnExposureSlider(int)));
    NotifyChanged(&HBExposureWidget::ExposureChanged);
}

void HBExposureWidget::OnExposureSlider(int position)
{
    m_pUI->m_pExposureSpin->setValue(position / Scale);
}

void HBExposureWidget::OnOffsetChanged(double offset)
{
    disconnect(m_pUI->m_pOffsetSlider, SIGNAL(valueChanged(int)), this, SLOT(OnOffsetSlider(int)));
    m_pUI->m_pOffsetSlider->setValue(HBSliderPosition(offset, Scale));
    connect(m_pUI->m_pOffsetSlider, SIGNAL(valueChanged(int)), SLOT(OnOffsetSlider(int)));
    NotifyChanged(&HBExposureWidget::OffsetChanged);
}

void HBExposureWidget::OnOffsetSlider(int position)
{
    m_pUI->m_pOffsetSpin->setValue(position / Scale);
}

// ---- Job ----

struct HBExposureWidget::ExposureData : HBJobData
{
    double exposure;
    double offsetValue; ///< not `offset`, which is the selection's
};

void HBExposureWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const ExposureData job{JobData(), m_pUI->m_pExposureSpin->value(), m_pUI->m_pOffsetSpin->value()};
    HBStartJob(watcher, this, &HBExposureWidget::Process, job);
}

HBImage<> HBExposureWidget::Process(ExposureData job)
{
    return RunTransformation(job, HBIterativeExposureTransformation(job.exposure, job.offsetValue));
}
