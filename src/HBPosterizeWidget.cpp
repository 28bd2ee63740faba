// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPosterizeWidget.h"

#include "HBPanelJob.h"
#include "ui_PosterizeParamWidget.h"

#include <HBIterativePosterizeTransformation.h>

// ---- Construction ----

HBPosterizeWidget::HBPosterizeWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::PosterizeParamWidget>())
{
    m_pUI->setupUi(GetUIContent());
    // After the form's link, so that slider and spin box agree inside the signal.
    connect(m_pUI->m_pPosterizeSpin, SIGNAL(valueChanged(int)), SLOT(OnPosterizeChanged(int)));
}

HBPosterizeWidget::~HBPosterizeWidget()
{
    FinishJob();
    m_pUI->m_pPosterizeSpin->disconnect(this);
}

// ---- Values ----

int HBPosterizeWidget::GetPosterize() const
{
    return m_pUI->m_pPosterizeSpin->value();
}

void HBPosterizeWidget::SetPosterize(int levels)
{
    disconnect(m_pUI->m_pPosterizeSpin, SIGNAL(valueChanged(int)), this, SLOT(OnPosterizeChanged(int)));
    m_pUI->m_pPosterizeSpin->setValue(levels);
    connect(m_pUI->m_pPosterizeSpin, SIGNAL(valueChanged(int)), SLOT(OnPosterizeChanged(int)));
}

void HBPosterizeWidget::Reset()
{
    m_pUI->m_pPosterizeSpin->setValue(4);
}

void HBPosterizeWidget::OnPosterizeChanged(int)
{
    NotifyChanged(&HBPosterizeWidget::PosterizeChanged);
}

// ---- Job ----

struct HBPosterizeWidget::PosterizeData : HBJobData
{
    int levels;
};

void HBPosterizeWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const PosterizeData job{JobData(), m_pUI->m_pPosterizeSpin->value()};
    HBStartJob(watcher, this, &HBPosterizeWidget::Process, job);
}

HBImage<> HBPosterizeWidget::Process(PosterizeData job)
{
    return RunTransformation(job, HBIterativePosterizeTransformation(job.levels));
}
