// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBrightnessContrastWidget.h"

#include "HBConnectionSet.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "ui_BrightnessContrastParamWidget.h"

#include <HBIterativeBrightnessContrastTransformation.h>

namespace
{

constexpr char Tag[] = "KMBrightnessContrast 1.00000";
constexpr char SourceName[] = "src\\HBBrightnessContrastWidget";

} // namespace

// ---- Record ----

bool HBBrightnessContrastWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> brightness >> contrast;
    return stream.status() == QDataStream::Ok;
}

// (10, -20), big endian: the 28 bytes of the tag, 00 00 00 0A, FF FF FF EC.
bool HBBrightnessContrastWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << brightness << contrast;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBBrightnessContrastWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write brightness and contrast data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBBrightnessContrastWidget::Params& params)
{
    if (!params.Read(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read brightness and contrast data error.");
    return stream;
}

// ---- Construction ----

HBBrightnessContrastWidget::HBBrightnessContrastWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::BrightnessContrastParamWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    m_pUI->m_pBrightnessSpin->setValue(m_Params.brightness);
    m_pUI->m_pContrastSpin->setValue(m_Params.contrast);

    // The sliders only: a spin box arrives through the form's link, so a change is heard once.
    m_pConnections->Add(m_pUI->m_pBrightnessSlider, SIGNAL(valueChanged(int)), SLOT(OnBrightnessChanged(int)));
    m_pConnections->Add(m_pUI->m_pContrastSlider, SIGNAL(valueChanged(int)), SLOT(OnContrastChanged(int)));
    Connect();
}

HBBrightnessContrastWidget::~HBBrightnessContrastWidget()
{
    FinishJob();
    Disconnect();
}

void HBBrightnessContrastWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBBrightnessContrastWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBBrightnessContrastWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    m_pUI->m_pBrightnessSpin->setValue(m_Params.brightness);
    m_pUI->m_pContrastSpin->setValue(m_Params.contrast);
    Connect();
}

void HBBrightnessContrastWidget::Reset()
{
    m_Params = Params();
    m_pUI->m_pBrightnessSpin->setValue(m_Params.brightness);
    m_pUI->m_pContrastSpin->setValue(m_Params.contrast);
}

void HBBrightnessContrastWidget::OnBrightnessChanged(int value)
{
    m_Params.brightness = value;
    NotifyChanged(&HBBrightnessContrastWidget::ValueChanged);
}

void HBBrightnessContrastWidget::OnContrastChanged(int value)
{
    m_Params.contrast = value;
    NotifyChanged(&HBBrightnessContrastWidget::ValueChanged);
}

// ---- Job ----

struct HBBrightnessContrastWidget::BCData : HBJobData
{
    int brightness;
    int contrast;
};

void HBBrightnessContrastWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    // From the spin boxes, not the record, which may be out of range.
    const BCData job{JobData(), m_pUI->m_pBrightnessSpin->value(), m_pUI->m_pContrastSpin->value()};
    HBStartJob(watcher, this, &HBBrightnessContrastWidget::Process, job);
}

HBImage<> HBBrightnessContrastWidget::Process(BCData job)
{
    return RunTransformation(job, HBIterativeBrightnessContrastTransformation(job.brightness, job.contrast));
}
