// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBThresholdWidget.h"

#include "HBHistogramFeed.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "HBThresholdRGB32.h"
#include "ui_ThresholdWidget.h"

#include <HBIterativeAdjustmentTransformation.h>

namespace
{

constexpr char Tag[] = "KMThreshold 1.00000";
constexpr char SourceName[] = "src\\HBThresholdWidget";

using Threshold = HBThresholdRGB32<30, 59, 11>;

} // namespace

// ---- Record ----

bool HBThresholdWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> level;
    return stream.status() == QDataStream::Ok;
}

// 128, big endian: the 19 bytes of the tag, 00 00 00 80.
bool HBThresholdWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << level;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBThresholdWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write threshold data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBThresholdWidget::Params& params)
{
    if (!params.Read(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read threshold data error.");
    return stream;
}

// ---- Construction ----

HBThresholdWidget::HBThresholdWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ThresholdWidget>())
    , m_pFeed(std::make_unique<HBHistogramFeed>())
{
    m_pUI->setupUi(GetUIContent());
    m_pUI->m_pSlider->SetRange(0, 255);
    m_pUI->m_pSlider->AddControl(0, 0, 255, QBrush(Qt::black));
    m_pUI->m_pSlider->SetControlName(0, tr("Threshold level"));

    connect(this, SIGNAL(SourceChanged()), SLOT(OnSourceChanged()));
    connect(m_pUI->m_pSlider, SIGNAL(ValueChanged(uint,int)), SLOT(OnLevelChanged(uint,int)));
    Connect();
    m_pUI->m_pHistogramm->SetChannel(0);
    Reset();
}

HBThresholdWidget::~HBThresholdWidget()
{
    FinishJob();
    Disconnect();
    m_pUI->m_pSlider->disconnect(this);
}

void HBThresholdWidget::Connect()
{
    connect(m_pUI->m_pThresholdLevel, SIGNAL(valueChanged(int)), SLOT(OnLevelChanged(int)), Qt::UniqueConnection);
}

void HBThresholdWidget::Disconnect()
{
    disconnect(m_pUI->m_pThresholdLevel, SIGNAL(valueChanged(int)), this, SLOT(OnLevelChanged(int)));
}

// ---- Values ----

void HBThresholdWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    // The slider stays connected and moves the spin box, which clamps to 1..255 what it shows.
    m_pUI->m_pSlider->SetValue(0, m_Params.level);
    Connect();
}

void HBThresholdWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBThresholdWidget::ValueChanged);
}

void HBThresholdWidget::OnLevelChanged(int level)
{
    m_Params.level = level;
    m_pUI->m_pSlider->SetValue(0, level);
    NotifyChanged(&HBThresholdWidget::ValueChanged);
}

void HBThresholdWidget::OnLevelChanged(uint, int level)
{
    // The spin box's least is 1: a slider dragged to 0 comes back through its signal, on purpose.
    m_pUI->m_pThresholdLevel->setValue(level);
}

// ---- Histogram ----

void HBThresholdWidget::AttachQImage(HBSharedImage<QImage>* image)
{
    m_pUI->m_pHistogramm->SetImage(image);
}

void HBThresholdWidget::AttachRGB32iImage(HBSharedImage<HBImage<>>* image)
{
    m_pUI->m_pHistogramm->SetImage(image);
}

void HBThresholdWidget::UpdateHistogramm()
{
    m_pUI->m_pHistogramm->RebuildHistogramm();
}

void HBThresholdWidget::OnSourceChanged()
{
    m_pFeed->Update(SourceImage(), m_pUI->m_pHistogramm);
}

// ---- Job ----

struct HBThresholdWidget::ThresholdData : HBJobData
{
    Params params;
};

void HBThresholdWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const ThresholdData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBThresholdWidget::Process, job);
}

HBImage<> HBThresholdWidget::Process(ThresholdData job)
{
    // From the record, which may be out of the controls' range.
    return RunTransformation(job, HBIterativeAdjustmentTransformation<Threshold>(Threshold{job.params.level}));
}
