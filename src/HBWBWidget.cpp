// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBWBWidget.h"

#include "HBStretchRange.h"
#include "HBConnectionSet.h"
#include "HBLevelsWidget.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "ui_WBWidget.h"

#include <HBAdjustmentProcessingTemplate.h>
#include <HBHistogrammCalculator.h>
#include <HBImageMixing.h>
#include <HBIterativeAdjustmentTransformation.h>
#include <HBIterativeLevelsTransformation.h>
#include <HBIterativePhotoFilterTransformation.h>
#include <HBTemperatureCorrection.h>
#include <KMIterativeWBTransformation.h>

#include <QButtonGroup>

namespace
{

constexpr char Tag[] = "KMWhiteBalance 1.00000";
constexpr char SourceName[] = "src\\HBWBWidget";

enum Mode { Auto, Overexposure, Underexposure };

/// The strength that belongs to the record's mode; null for a mode that does not exist. For const and other records.
template <class Params>
auto* ModeStrength(Params& params)
{
    switch (params.mode) {
    case Auto:
        return &params.autoStrength;
    case Overexposure:
        return &params.overexposureStrength;
    case Underexposure:
        return &params.underexposureStrength;
    default:
        return static_cast<decltype(&params.autoStrength)>(nullptr);
    }
}

int Percent(int value)
{
    return qBound(0, value, 100);
}

/// 9000 K at -100, 6500 K at 0, 2000 K at 100; the two branches do not mirror each other, on purpose.
int Kelvin(int temperature)
{
    const int t = qBound(-100, temperature, 100);
    return t > 0 ? 6500 - 45 * t : (260 - t) * 25;
}

} // namespace

// ---- Record ----

bool HBWBWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> enchanced >> autoStrength >> overexposureStrength >> underexposureStrength >> mode >>
        useTemperature >> temperature >> temperatureStrength;
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian: the 22 bytes of the tag; 00; 50, 100, 100, 0 as four bytes each; 00; 0, 50.
bool HBWBWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << enchanced << autoStrength << overexposureStrength << underexposureStrength << mode << useTemperature
           << temperature << temperatureStrength;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBWBWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write WB data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBWBWidget::Params& params)
{
    if (!params.Read(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read WB data error.");
    return stream;
}

// ---- Construction ----

HBWBWidget::HBWBWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::WBWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
    , m_pStrengthLink(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    // A group of their own: auto-exclusive buttons would also uncheck the host's beside an embedded panel.
    auto* modes = new QButtonGroup(this);
    for (QRadioButton* radio : {m_pUI->m_pAuto, m_pUI->m_pOverexposure, m_pUI->m_pUnderexposure})
        modes->addButton(radio);

    // Loaded and connected by the first SetValue, on purpose.
    for (HBConnectionSet* set : {m_pConnections.get(), m_pStrengthLink.get()})
        set->Add(m_pUI->m_pWBStrength, SIGNAL(valueChanged(int)), SLOT(OnWBStrengthChanged(int)));
    m_pConnections->Add(m_pUI->m_pAuto, SIGNAL(toggled(bool)), SLOT(OnAuto(bool)));
    m_pConnections->Add(m_pUI->m_pEnchanced, SIGNAL(toggled(bool)), SLOT(OnEnchanced(bool)));
    m_pConnections->Add(m_pUI->m_pOverexposure, SIGNAL(toggled(bool)), SLOT(OnOverexposure(bool)));
    m_pConnections->Add(m_pUI->m_pUnderexposure, SIGNAL(toggled(bool)), SLOT(OnUnderexposure(bool)));
    m_pConnections->Add(m_pUI->m_pTemperatureContent, SIGNAL(toggled(bool)), SLOT(OnUseTemperature(bool)));
    m_pConnections->Add(m_pUI->m_pTemperature, SIGNAL(valueChanged(int)), SLOT(OnTemperature(int)));
    m_pConnections->Add(m_pUI->m_pTempStrength, SIGNAL(valueChanged(int)), SLOT(OnTemperatureStrength(int)));
}

HBWBWidget::~HBWBWidget()
{
    FinishJob();
    Disconnect();
}

void HBWBWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBWBWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBWBWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    m_pUI->m_pTemperature->setValue(m_Params.temperature);
    m_pUI->m_pTempStrength->setValue(m_Params.temperatureStrength);
    if (const qint32* strength = ModeStrength(m_Params)) {
        QRadioButton* const radios[] = {m_pUI->m_pAuto, m_pUI->m_pOverexposure, m_pUI->m_pUnderexposure};
        radios[m_Params.mode]->setChecked(true);
        m_pUI->m_pWBStrength->setValue(*strength);
    }
    m_pUI->m_pEnchanced->setChecked(m_Params.enchanced);
    m_pUI->m_pTemperatureContent->setChecked(m_Params.useTemperature);
    Connect();
}

void HBWBWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBWBWidget::ValueChanged);
}

/// Each mode keeps its strength; the one slider shows that of the mode.
void HBWBWidget::SetMode(int mode)
{
    m_Params.mode = mode;
    {
        const HBMute mute(*m_pStrengthLink, this);
        m_pUI->m_pWBStrength->setValue(*ModeStrength(m_Params));
    }
    NotifyChanged(&HBWBWidget::ValueChanged);
}

void HBWBWidget::OnAuto(bool checked)
{
    if (checked)
        SetMode(Auto);
}

void HBWBWidget::OnOverexposure(bool checked)
{
    if (checked)
        SetMode(Overexposure);
}

void HBWBWidget::OnUnderexposure(bool checked)
{
    if (checked)
        SetMode(Underexposure);
}

void HBWBWidget::OnWBStrengthChanged(int strength)
{
    if (qint32* stored = ModeStrength(m_Params))
        *stored = strength;
    NotifyChanged(&HBWBWidget::ValueChanged);
}

void HBWBWidget::OnEnchanced(bool checked)
{
    m_Params.enchanced = checked;
    NotifyChanged(&HBWBWidget::ValueChanged);
}

void HBWBWidget::OnUseTemperature(bool checked)
{
    m_Params.useTemperature = checked;
    NotifyChanged(&HBWBWidget::ValueChanged);
}

void HBWBWidget::OnTemperature(int temperature)
{
    m_Params.temperature = temperature;
    NotifyChanged(&HBWBWidget::ValueChanged);
}

void HBWBWidget::OnTemperatureStrength(int strength)
{
    m_Params.temperatureStrength = strength;
    NotifyChanged(&HBWBWidget::ValueChanged);
}

// ---- Job ----

/// Its source is replaced by what each stage has made of it.
struct HBWBWidget::WBData : HBJobData
{
    Params params;
};

void HBWBWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const WBData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBWBWidget::Process, job);
}

/// With a selection each stage blends by it, so that partial coverage weighs repeatedly, on purpose; outside it every
/// stage leaves the source's bytes.
HBImage<> HBWBWidget::Process(WBData job)
{
    ApplyWhiteBalance(job);
    if (job.params.useTemperature && !IsJobObsolete()) {
        const HBRGBA32i color = HBTemperatureCorrection::GetTemperatureColor(Kelvin(job.params.temperature));
        job.source = RunTransformation(
            job, HBIterativePhotoFilterTransformation(color, Percent(job.params.temperatureStrength)));
    }
    return job.source;
}

void HBWBWidget::ApplyWhiteBalance(WBData& job)
{
    const qint32* stored = ModeStrength(job.params);
    const int strength = stored ? Percent(*stored) : 0;
    if (job.params.mode != Auto || !job.params.enchanced) {
        // A mode that does not exist goes to the library as it is, which then changes nothing.
        const auto function = KMWBTransformation::BalanceFunction(job.params.mode);
        job.source = RunTransformation(job, KMIterativeWBTransformation(job.source, function, strength));
        return;
    }

    // Advanced: always the full correction; the strength is its share in the mix with the source.
    const HBImage<> saved = job.source;
    const KMIterativeWBTransformation analysed(saved, KMWBTransformation::BalanceFunction(Auto), 100);
    const KMWBTransformation correction(analysed);
    job.source = RunTransformation(job, HBIterativeAdjustmentTransformation(correction));
    if (IsJobObsolete())
        return;
    job.source = ApplyAutolevels(job);
    if (IsJobObsolete())
        return;
    HBImageMixing mixing(&GetDataGuard(), &GetNewData());
    ConnectProgress(mixing);
    job.source = mixing.Process(saved, job.source, strength * 256 / 100, job.selection, job.offset, job.bounds);
    if (mixing.Exception())
        SetJobFailed();
}

/// Stretches each channel between its own black and white, found in the whole image whatever is selected.
HBImage<> HBWBWidget::ApplyAutolevels(WBData& job)
{
    int counts[4][256] = {};
    HBHistogrammCalculator calculator;
    calculator.SetOutput(counts[0], counts[1], counts[2], counts[3]);
    calculator.Accumulate(job.source, QRect(0, 0, job.source.Width(), job.source.Height()));

    const double total = double(job.source.Width()) * job.source.Height();
    HBLevelsWidget::Params levels;
    for (int c = 0; c < 3; ++c) {
        unsigned channel[256];
        int low = 255;
        int high = 0;
        for (int level = 0; level < 256; ++level) {
            channel[level] = unsigned(counts[c][level]);
            if (channel[level] > 0) {
                low = qMin(low, level);
                high = level;
            }
        }
        if (low > high)
            low = 0; // an empty image
        const auto [black, white] = HBStretchRange(channel, low, high, total);
        levels.input[c + 1][0] = black;
        levels.input[c + 1][1] = white;
    }
    return RunTransformation(job, HBIterativeLevelsTransformation(levels.input, levels.output, levels.gamma, 100));
}
