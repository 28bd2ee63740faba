// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPosterizeWidget.h"

#include "HBPanelJob.h"
#include "ui_PosterizeParamWidget.h"

#include <HBPosterize.h>

HBPosterizeWidget::HBPosterizeWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::PosterizeParamWidget>())
{
    m_pUI->setupUi(GetUIContent());
    // After the form's link, so that slider and spin box agree inside the signal.
    Listen(m_pUI->m_pPosterizeSpin, SIGNAL(valueChanged(int)), SLOT(OnPosterizeChanged(int)));
}

HBPosterizeWidget::~HBPosterizeWidget() = default;

int HBPosterizeWidget::GetPosterize() const
{
    return m_pUI->m_pPosterizeSpin->value();
}

void HBPosterizeWidget::SetPosterize(int levels)
{
    const Mute mute(this);
    m_pUI->m_pPosterizeSpin->setValue(levels);
}

void HBPosterizeWidget::Reset()
{
    m_pUI->m_pPosterizeSpin->setValue(HBPosterizeParams().levels);
}

struct HBPosterizeWidget::PosterizeData : HBJobData
{
    HBPosterizeParams params;
};

void HBPosterizeWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, PosterizeData{JobData(), {GetPosterize()}});
}

HBImage<> HBPosterizeWidget::Process(PosterizeData job)
{
    return HBRunJob(job, job.params);
}
