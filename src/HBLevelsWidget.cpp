// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLevelsWidget.h"

#include "HBAutoStretch.h"
#include "HBConnectionSet.h"
#include "HBHistogramFeed.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "ui_LevelsWidget.h"

#include <HBIterativeLevelsTransformation.h>

#include <limits>

namespace
{

constexpr char Tag[] = "KMLevels 1.00000";
constexpr char SourceName[] = "src\\HBLevelsWidget";

/// Handles of the two sliders, in the order they are added.
enum InputHandle : uint { Black, Gamma, White };
enum OutputHandle : uint { OutputBlack, OutputWhite };

/// A record may hold any int; the controls, and the arithmetic of their limits, stay inside the levels.
int Shown(int level)
{
    return qBound(0, level, 255);
}

int ToInt(qint64 value)
{
    return int(qBound<qint64>(std::numeric_limits<int>::min(), value, std::numeric_limits<int>::max()));
}

} // namespace

// ---- Record ----

bool HBLevelsWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> channel;
    for (int c = 0; c < 4; ++c) // see Write; the later of two ints for one field wins
        stream >> input[c][0] >> input[c][1] >> (c < 3 ? input[c + 1][0] : middle[0]);
    for (auto& points : output)
        stream >> points[0] >> points[1];
    for (int c = 0; c < 4; ++c) {
        stream >> gamma[c];
        middle[c] = MiddleValue(input[c][0], input[c][1], gamma[c]); // a stored middle is never trusted
    }
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian: the 16 bytes of the tag; 0; (0, 255, 0), (0, 255, 0), (0, 255, 0), (0, 255, 128); four
// times (0, 255); four times the double 1.0. The third int of each input triple is the low point of the next channel
// once more, and for the last channel middle[0], on purpose: the layout is fixed by records that exist.
bool HBLevelsWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << channel;
    for (int c = 0; c < 4; ++c)
        stream << input[c][0] << input[c][1] << (c < 3 ? input[c + 1][0] : middle[0]);
    for (const auto& points : output)
        stream << points[0] << points[1];
    for (const double value : gamma)
        stream << value;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBLevelsWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write levels data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBLevelsWidget::Params& params)
{
    if (!params.Read(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read levels data error.");
    return stream;
}

// ---- Construction ----

HBLevelsWidget::HBLevelsWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::LevelsWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
    , m_pInputLink(std::make_unique<HBConnectionSet>())
    , m_pOutputLink(std::make_unique<HBConnectionSet>())
    , m_pFeed(std::make_unique<HBHistogramFeed>())
{
    m_pUI->setupUi(GetUIContent());
    m_pUI->m_pInputSlider->SetRange(0, 255);
    m_pUI->m_pInputSlider->AddControl(0, 0, 255, QBrush(Qt::black));
    m_pUI->m_pInputSlider->AddControl(128, 0, 255, QBrush(Qt::gray));
    m_pUI->m_pInputSlider->AddControl(255, 0, 255, QBrush(Qt::white));
    m_pUI->m_pOutputSlider->SetRange(0, 255);
    m_pUI->m_pOutputSlider->AddControl(0, 0, 255, QBrush(Qt::black));
    m_pUI->m_pOutputSlider->AddControl(255, 0, 255, QBrush(Qt::white));
    m_pUI->m_pInputSlider->SetControlName(Black, tr("Black point"));
    m_pUI->m_pInputSlider->SetControlName(Gamma, tr("Gamma"));
    m_pUI->m_pInputSlider->SetControlName(White, tr("White point"));
    m_pUI->m_pOutputSlider->SetControlName(OutputBlack, tr("Output black point"));
    m_pUI->m_pOutputSlider->SetControlName(OutputWhite, tr("Output white point"));

    QLinearGradient gradient(0, 0, 1, 0);
    gradient.setColorAt(0.0, Qt::black);
    gradient.setColorAt(1.0, Qt::white);
    gradient.setCoordinateMode(QGradient::StretchToDeviceMode);
    m_pUI->m_pInputLabel->SetBackgroundBrush(gradient);
    m_pUI->m_pOutputLabel->SetBackgroundBrush(gradient);

    connect(this, SIGNAL(SourceChanged()), SLOT(OnSourceChanged()));
    connect(m_pUI->m_pHistogramm, SIGNAL(HistogrammComplete()), SLOT(OnHistogrammComplete()));
    connect(m_pUI->m_pAutoBtn, SIGNAL(clicked()), SLOT(OnAutoAdjust()));

    m_pConnections->Add(m_pUI->m_pChannel, SIGNAL(currentIndexChanged(int)), SLOT(OnChannelChanged(int)));
    for (HBConnectionSet* set : {m_pConnections.get(), m_pInputLink.get()})
        set->Add(m_pUI->m_pInputSlider, SIGNAL(ValueChanged(uint,int)), SLOT(OnInputChanged(uint,int)));
    for (HBConnectionSet* set : {m_pConnections.get(), m_pOutputLink.get()})
        set->Add(m_pUI->m_pOutputSlider, SIGNAL(ValueChanged(uint,int)), SLOT(OnOutputChanged(uint,int)));
    m_pConnections->Add(m_pUI->m_pLowInput, SIGNAL(valueChanged(int)), SLOT(OnLowInputChanged(int)));
    m_pConnections->Add(m_pUI->m_pMiddleInput, SIGNAL(valueChanged(double)), SLOT(OnMiddleInputChanged(double)));
    m_pConnections->Add(m_pUI->m_pHighInput, SIGNAL(valueChanged(int)), SLOT(OnHighInputChanged(int)));
    m_pConnections->Add(m_pUI->m_pLowOutput, SIGNAL(valueChanged(int)), SLOT(OnLowOutputChanged(int)));
    m_pConnections->Add(m_pUI->m_pHighOutput, SIGNAL(valueChanged(int)), SLOT(OnHighOutputChanged(int)));

    SetChannel(m_Params.channel);
    Connect();
}

HBLevelsWidget::~HBLevelsWidget()
{
    FinishJob();
    Disconnect();
    m_pUI->m_pHistogramm->disconnect(this);
}

void HBLevelsWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBLevelsWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBLevelsWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    SetChannel(m_Params.channel);
    Connect();
}

void HBLevelsWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBLevelsWidget::ValueChanged);
}

/// Shows a channel. Limits before positions: those of the channel shown so far would clamp them.
void HBLevelsWidget::SetChannel(int channel)
{
    const int c = channel >= 0 && channel <= 3 ? channel : 0;
    m_Params.channel = c;
    m_pUI->m_pHistogramm->SetChannel(IndexToHistogrammChannel(c));

    const int low = Shown(m_Params.input[c][0]);
    const int high = Shown(m_Params.input[c][1]);
    m_pUI->m_pInputSlider->SetMaximum(Black, high - 2);
    m_pUI->m_pInputSlider->SetMinimum(White, low + 2);
    m_pUI->m_pInputSlider->SetMinimum(Gamma, low);
    m_pUI->m_pInputSlider->SetMaximum(Gamma, high);
    m_pUI->m_pLowInput->setRange(0, high - 2);
    m_pUI->m_pHighInput->setRange(low + 2, 255);
    m_pUI->m_pInputSlider->SetValue(Black, low);
    m_pUI->m_pInputSlider->SetValue(Gamma, Shown(m_Params.middle[c]));
    m_pUI->m_pInputSlider->SetValue(White, high);
    m_pUI->m_pLowInput->setValue(low);
    const double gamma = m_Params.gamma[c];
    m_pUI->m_pMiddleInput->setValue(qIsNaN(gamma) ? 1.0 : gamma); // the box would show its maximum
    m_pUI->m_pHighInput->setValue(high);

    m_pUI->m_pOutputSlider->SetValue(OutputBlack, Shown(m_Params.output[c][0]));
    m_pUI->m_pOutputSlider->SetValue(OutputWhite, Shown(m_Params.output[c][1]));
    m_pUI->m_pLowOutput->setValue(m_Params.output[c][0]);
    m_pUI->m_pHighOutput->setValue(m_Params.output[c][1]);
    m_pUI->m_pChannel->setCurrentIndex(c);
}

void HBLevelsWidget::OnChannelChanged(int channel)
{
    if (channel < 0)
        return;
    Disconnect();
    SetChannel(channel);
    Connect();
    // Without DataChanged(): another channel is shown, the image stays as it is.
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
}

void HBLevelsWidget::OnInputChanged(uint control, int value)
{
    if (control == Black)
        m_pUI->m_pLowInput->setValue(value);
    else if (control == White)
        m_pUI->m_pHighInput->setValue(value);
    else if (control == Gamma)
        m_pUI->m_pMiddleInput->setValue(
            ToneValue(m_pUI->m_pLowInput->value(), m_pUI->m_pHighInput->value(), value));
}

void HBLevelsWidget::OnLowInputChanged(int value)
{
    const int c = m_Params.channel;
    m_Params.input[c][0] = value;
    m_Params.middle[c] = MiddleValue(value, m_pUI->m_pHighInput->value(), m_pUI->m_pMiddleInput->value());
    {
        // The spin boxes' ranges stay until the channel changes, on purpose.
        const HBMute mute(*m_pInputLink, this);
        m_pUI->m_pInputSlider->SetMinimum(White, value + 2);
        m_pUI->m_pInputSlider->SetValue(Black, value);
        m_pUI->m_pInputSlider->SetMinimum(Gamma, value);
        m_pUI->m_pInputSlider->SetValue(Gamma, m_Params.middle[c]);
    }
    NotifyChanged(&HBLevelsWidget::ValueChanged);
}

void HBLevelsWidget::OnHighInputChanged(int value)
{
    const int c = m_Params.channel;
    m_Params.input[c][1] = value;
    m_Params.middle[c] = MiddleValue(m_pUI->m_pLowInput->value(), value, m_pUI->m_pMiddleInput->value());
    {
        const HBMute mute(*m_pInputLink, this);
        m_pUI->m_pInputSlider->SetMaximum(Black, value - 2);
        m_pUI->m_pInputSlider->SetMaximum(Gamma, value);
        m_pUI->m_pInputSlider->SetValue(White, value);
        m_pUI->m_pInputSlider->SetValue(Gamma, m_Params.middle[c]);
    }
    NotifyChanged(&HBLevelsWidget::ValueChanged);
}

void HBLevelsWidget::OnMiddleInputChanged(double gamma)
{
    const int c = m_Params.channel;
    m_Params.middle[c] = MiddleValue(m_pUI->m_pLowInput->value(), m_pUI->m_pHighInput->value(), gamma);
    m_Params.gamma[c] = gamma;
    {
        // The spin box keeps two decimals, so a dragged handle settles where the rounded gamma is.
        const HBMute mute(*m_pInputLink, this);
        m_pUI->m_pInputSlider->SetValue(Gamma, m_Params.middle[c]);
    }
    NotifyChanged(&HBLevelsWidget::ValueChanged);
}

void HBLevelsWidget::OnOutputChanged(uint control, int value)
{
    if (control == OutputBlack)
        m_pUI->m_pLowOutput->setValue(value);
    else if (control == OutputWhite)
        m_pUI->m_pHighOutput->setValue(value);
}

void HBLevelsWidget::OnLowOutputChanged(int value)
{
    m_Params.output[m_Params.channel][0] = value;
    {
        const HBMute mute(*m_pOutputLink, this);
        m_pUI->m_pOutputSlider->SetValue(OutputBlack, value);
    }
    NotifyChanged(&HBLevelsWidget::ValueChanged);
}

void HBLevelsWidget::OnHighOutputChanged(int value)
{
    m_Params.output[m_Params.channel][1] = value;
    {
        const HBMute mute(*m_pOutputLink, this);
        m_pUI->m_pOutputSlider->SetValue(OutputWhite, value);
    }
    NotifyChanged(&HBLevelsWidget::ValueChanged);
}

// ---- Gamma and its handle ----

int HBLevelsWidget::MiddleValue(int low, int high, double gamma)
{
    const qint64 middle = (qint64(low) + high) / 2;
    // Truncated, not rounded, on purpose: 2.01 counts as 2009 thousandths. The bounds keep the cast and the products
    // below inside 64 bits whatever a record holds.
    const qint64 g = qIsNaN(gamma) ? 1000 : qint64(qBound(-2e9, gamma * 1000, 2e9));
    if (g > 1000)
        return ToInt(middle + (low - middle) * (g - 1000) / 8990);
    return ToInt(high + (middle - high) * (g - 10) / 990);
}

double HBLevelsWidget::ToneValue(int low, int high, int position)
{
    const qint64 middle = (qint64(low) + high) / 2;
    const qint64 room = position >= middle ? high - middle : middle - low;
    if (room == 0)
        return 1.0;
    // Whole thousandths, cut off.
    const qint64 thousandths = position >= middle ? (middle - position) * 990 / room + 1000
                                                  : (qint64(low) - position) * 8990 / room + 9990;
    return double(thousandths) / 1000.0;
}

// ---- Histogram ----

int HBLevelsWidget::IndexToHistogrammChannel(int channel)
{
    return HBHistogramMask(channel);
}

void HBLevelsWidget::AttachQImage(HBSharedImage<QImage>* image)
{
    m_pUI->m_pHistogramm->SetImage(image);
}

void HBLevelsWidget::AttachRGB32iImage(HBSharedImage<HBImage<>>* image)
{
    m_pUI->m_pHistogramm->SetImage(image);
}

void HBLevelsWidget::UpdateHistogramm()
{
    m_pUI->m_pHistogramm->RebuildHistogramm();
}

void HBLevelsWidget::OnSourceChanged()
{
    m_pFeed->Update(SourceImage(), m_pUI->m_pHistogramm);
}

void HBLevelsWidget::OnHistogrammComplete()
{
    m_pUI->m_pAutoBtn->setEnabled(true);
}

void HBLevelsWidget::OnAutoAdjust()
{
    const HistogramWidget& histogram = *m_pUI->m_pHistogramm;
    const double total = histogram.GetPixelsCount();
    Params params;
    for (int h = 0; h < 3; ++h) {
        int low = 0;
        int high = 0;
        histogram.GetRange(h, low, high);
        unsigned counts[256];
        for (int level = 0; level < 256; ++level)
            counts[level] = histogram.GetCount(h, level);
        const auto [black, white] = HBStretchRange(counts, low, high, total);
        params.input[h + 1][0] = black;
        params.input[h + 1][1] = white;
        params.middle[h + 1] = (black + white) / 2;
    }
    params.channel = m_Params.channel;
    SetValue(params);
    NotifyChanged(&HBLevelsWidget::ValueChanged);
}

// ---- Job ----

struct HBLevelsWidget::LevelsData : HBJobData
{
    Params params;
};

void HBLevelsWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const LevelsData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBLevelsWidget::Process, job);
}

HBImage<> HBLevelsWidget::Process(LevelsData job)
{
    Params& params = job.params; // the transformation's constructor takes arrays that are not const
    return RunTransformation(job, HBIterativeLevelsTransformation(params.input, params.output, params.gamma, 100));
}
