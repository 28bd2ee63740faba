// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTemperatureWidget.h"

#include "HBConnectionSet.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "ui_TemperatureWidget.h"

#include <HBIterativeAdjustmentTransformation.h>
#include <HBTemperatureCorrection.h>

namespace
{

constexpr char Tag[] = "KMTemperature 1.00000";
constexpr char SourceName[] = "src\\HBTemperatureWidget";

} // namespace

// ---- Record ----

bool HBTemperatureWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> temperature >> tint >> strength;
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian: the 21 bytes of the tag, 00 00 19 64, 00 00 00 00, 00 00 00 32.
bool HBTemperatureWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << temperature << tint << strength;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBTemperatureWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write temperature data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBTemperatureWidget::Params& params)
{
    if (!params.Read(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read temperature data error.");
    return stream;
}

// ---- Construction ----

HBTemperatureWidget::HBTemperatureWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::TemperatureWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    m_pConnections->Add(m_pUI->m_pTemperature, SIGNAL(valueChanged(int)), SLOT(OnTemperatureChanged(int)));
    m_pConnections->Add(m_pUI->m_pTint, SIGNAL(valueChanged(int)), SLOT(OnTintChanged(int)));
    m_pConnections->Add(m_pUI->m_pStrength, SIGNAL(valueChanged(int)), SLOT(OnStrengthChanged(int)));
    Reset();
    Connect();
}

HBTemperatureWidget::~HBTemperatureWidget()
{
    FinishJob();
    Disconnect();
}

void HBTemperatureWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBTemperatureWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBTemperatureWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    m_pUI->m_pTemperature->setValue(m_Params.temperature);
    m_pUI->m_pTint->setValue(m_Params.tint);
    // m_pStrength is not loaded, on purpose: it shows its old value until the user moves it.
    Connect();
}

void HBTemperatureWidget::Reset()
{
    m_Params = Params();
    m_pUI->m_pTemperature->setValue(m_Params.temperature);
    m_pUI->m_pTint->setValue(m_Params.tint);
    m_pUI->m_pStrength->setValue(m_Params.strength);
}

void HBTemperatureWidget::OnTemperatureChanged(int temperature)
{
    m_Params.temperature = temperature;
    NotifyChanged(&HBTemperatureWidget::ValueChanged);
}

void HBTemperatureWidget::OnTintChanged(int tint)
{
    m_Params.tint = tint;
    NotifyChanged(&HBTemperatureWidget::ValueChanged);
}

void HBTemperatureWidget::OnStrengthChanged(int strength)
{
    m_Params.strength = strength;
    NotifyChanged(&HBTemperatureWidget::ValueChanged);
}

// ---- Job ----

struct HBTemperatureWidget::TData : HBJobData
{
    Params params;
};

void HBTemperatureWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const TData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBTemperatureWidget::Process, job);
}

HBImage<> HBTemperatureWidget::Process(TData job)
{
    HBTemperatureCorrection correction;
    correction.SetData(job.params.temperature, job.params.strength, job.params.tint); // not the record's order
    return RunTransformation(job, HBIterativeAdjustmentTransformation(correction));
}
