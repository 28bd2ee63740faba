// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorEnhancerWidget.h"

#include "HBConnectionSet.h"
#include "HBJobLog.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "ui_ColorEnhancer.h"

#include <HBColorEnhancerTransformation.h>
#include <HBHistogrammCalculator.h>
#include <HBIterativeAdjustmentTransformation.h>
#include <HBLevelsTransformation.h>

#include <mutex>
#include <vector>

namespace
{

constexpr char Tag[] = "KMColorEnhancer 1.00000";
constexpr char SourceName[] = "src\\HBColorEnhancerWidget";

} // namespace

// ---- Record ----

bool HBColorEnhancerWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> amount >> affected;
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian: the 23 bytes of the tag, 00 00 00 64, 00 00 00 64.
bool HBColorEnhancerWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << amount << affected;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBColorEnhancerWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write color enhancer data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBColorEnhancerWidget::Params& params)
{
    if (!params.Read(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read color enhancer data error.");
    return stream;
}

// ---- Thresholds of the source ----

/// The low and high level of red, green, blue and of what they have in common; empty before they are known.
struct HBColorEnhancerWidget::Thresholds
{
    std::vector<int> levels[4];

    bool IsEmpty() const { return levels[0].empty(); }

    /// The mean of a channel's own level and the common one, weighted by `affected` percent.
    int Mix(int channel, int end, int affected) const
    {
        const int common = levels[3][end];
        return ((levels[channel][end] - common) * affected + common * 100) / 100;
    }
};

/// Kept from job to job while the source stays. Filled on a job's thread, emptied on the GUI thread. A new source's job
/// starts before the cache is emptied and an old one's may end after that, so that both must ask whose it is.
struct HBColorEnhancerWidget::Cache
{
    std::mutex mutex;
    HBImage<> source; ///< what the thresholds are of, or will be
    Thresholds thresholds;
};

HBColorEnhancerWidget::Thresholds HBColorEnhancerWidget::SourceThresholds(const HBImage<>& source)
{
    {
        const std::lock_guard<std::mutex> lock(m_pCache->mutex);
        if (!m_pCache->thresholds.IsEmpty() && m_pCache->source.IsSameAs(source))
            return m_pCache->thresholds;
    }
    int counts[4][256] = {};
    HBHistogrammCalculator calculator;
    calculator.SetOutput(counts[0], counts[1], counts[2], counts[3]);
    // The whole image, whatever is selected.
    calculator.Accumulate(source, QRect(0, 0, source.Width(), source.Height()));
    Thresholds thresholds;
    for (int h = 0; h < 4; ++h)
        thresholds.levels[h] = HBHistogrammCalculator::Threshold(counts[h]);

    const std::lock_guard<std::mutex> lock(m_pCache->mutex);
    if (m_pCache->source.IsSameAs(source))
        m_pCache->thresholds = thresholds;
    return thresholds;
}

void HBColorEnhancerWidget::OnSourceChanged()
{
    const std::lock_guard<std::mutex> lock(m_pCache->mutex);
    m_pCache->source = SourceImage();
    m_pCache->thresholds = Thresholds();
}

// ---- Construction ----

HBColorEnhancerWidget::HBColorEnhancerWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ColorEnhancer>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
    , m_pCache(std::make_unique<Cache>())
{
    m_pUI->setupUi(GetUIContent());
    connect(this, SIGNAL(SourceChanged()), SLOT(OnSourceChanged()));
    m_pConnections->Add(m_pUI->m_pAmount, SIGNAL(valueChanged(int)), SLOT(OnAmountChanged(int)));
    m_pConnections->Add(m_pUI->m_pAffected, SIGNAL(valueChanged(int)), SLOT(OnAffectedChanged(int)));
    Connect();
    Reset();
}

HBColorEnhancerWidget::~HBColorEnhancerWidget()
{
    FinishJob();
    Disconnect();
}

void HBColorEnhancerWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBColorEnhancerWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBColorEnhancerWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    m_pUI->m_pAffected->setValue(m_Params.affected);
    m_pUI->m_pAmount->setValue(m_Params.amount);
    Connect();
}

void HBColorEnhancerWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBColorEnhancerWidget::ValueChanged);
}

void HBColorEnhancerWidget::OnAmountChanged(int amount)
{
    m_Params.amount = amount;
    NotifyChanged(&HBColorEnhancerWidget::ValueChanged);
}

void HBColorEnhancerWidget::OnAffectedChanged(int affected)
{
    m_Params.affected = affected;
    NotifyChanged(&HBColorEnhancerWidget::ValueChanged);
}

// ---- Job ----

struct HBColorEnhancerWidget::EnhancerData : HBJobData
{
    Params params;
};

void HBColorEnhancerWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const EnhancerData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBColorEnhancerWidget::Process, job);
}

HBImage<> HBColorEnhancerWidget::Process(EnhancerData job)
{
    Thresholds thresholds;
    try {
        thresholds = SourceThresholds(job.source);
    } catch (...) {
        HB_LOG_JOB_EXCEPTION(std::current_exception());
        throw;
    }
    const int affected = qBound(0, job.params.affected, 100);
    int input[4][2] = {{0, 255}};
    for (int c = 0; c < 3; ++c) {
        for (int end = 0; end < 2; ++end)
            input[c + 1][end] = thresholds.Mix(c, end, affected);
    }
    int output[4][2] = {{0, 255}, {0, 255}, {0, 255}, {0, 255}};
    double gamma[4] = {1.0, 1.0, 1.0, 1.0};

    HBColorEnhancerTransformation enhancer;
    enhancer.SetLevels(HBLevelsTransformation(input, output, gamma, 100));
    enhancer.SetAmountData(qBound(0, job.params.amount, 100));
    std::exception_ptr exception;
    const HBImage<> result = RunTransformation(job, HBIterativeAdjustmentTransformation(enhancer), &exception);
    HB_LOG_JOB_EXCEPTION(exception);
    return result;
}
