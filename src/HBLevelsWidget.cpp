// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLevelsWidget.h"

#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "ui_LevelsWidget.h"

namespace
{

/// Handles of the two sliders, in the order they are added; those of the output count as its record does.
enum InputHandle : uint { InputBlack, InputGamma, InputWhite };
enum OutputHandle : uint { OutputBlack, OutputWhite };

/// A record may hold any int; the controls, and the arithmetic of their limits, stay inside the levels.
int Shown(int level)
{
    return qBound(0, level, 255);
}

} // namespace

HB_PANEL_STREAM(HBLevelsWidget, "levels data")

HBLevelsWidget::HBLevelsWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::LevelsWidget>())
{
    m_pUI->setupUi(GetUIContent());
    m_pUI->m_pInputSlider->SetRange(0, 255);
    m_pUI->m_pInputSlider->AddControl(0, 0, 255, QBrush(Qt::black));
    m_pUI->m_pInputSlider->AddControl(128, 0, 255, QBrush(Qt::gray));
    m_pUI->m_pInputSlider->AddControl(255, 0, 255, QBrush(Qt::white));
    m_pUI->m_pOutputSlider->SetRange(0, 255);
    m_pUI->m_pOutputSlider->AddControl(0, 0, 255, QBrush(Qt::black));
    m_pUI->m_pOutputSlider->AddControl(255, 0, 255, QBrush(Qt::white));
    m_pUI->m_pInputSlider->SetControlName(InputBlack, tr("Black point"));
    m_pUI->m_pInputSlider->SetControlName(InputGamma, tr("Gamma"));
    m_pUI->m_pInputSlider->SetControlName(InputWhite, tr("White point"));
    m_pUI->m_pOutputSlider->SetControlName(OutputBlack, tr("Output black point"));
    m_pUI->m_pOutputSlider->SetControlName(OutputWhite, tr("Output white point"));

    m_pUI->m_pInputLabel->SetBackgroundBrush(LevelStrip(Qt::Horizontal));
    m_pUI->m_pOutputLabel->SetBackgroundBrush(LevelStrip(Qt::Horizontal));
    SetHistogram(m_pUI->m_pHistogramm);
    connect(this, SIGNAL(SourceChanged()), SLOT(OnSourceChanged()));
    connect(m_pUI->m_pHistogramm, SIGNAL(HistogrammComplete()), SLOT(OnHistogrammComplete()));
    connect(m_pUI->m_pAutoBtn, SIGNAL(clicked()), SLOT(OnAutoAdjust()));

    SetChannel(m_Params.channel);
    Listen(m_pUI->m_pChannel, SIGNAL(currentIndexChanged(int)), SLOT(OnChannelChanged(int)));
    Listen(m_pUI->m_pInputSlider, SIGNAL(ValueChanged(uint,int)), SLOT(OnInputChanged(uint,int)));
    Listen(m_pUI->m_pOutputSlider, SIGNAL(ValueChanged(uint,int)), SLOT(OnOutputChanged(uint,int)));
    Listen(m_pUI->m_pLowInput, SIGNAL(valueChanged(int)), SLOT(OnLowInputChanged(int)));
    Listen(m_pUI->m_pMiddleInput, SIGNAL(valueChanged(double)), SLOT(OnMiddleInputChanged(double)));
    Listen(m_pUI->m_pHighInput, SIGNAL(valueChanged(int)), SLOT(OnHighInputChanged(int)));
    Listen(m_pUI->m_pLowOutput, SIGNAL(valueChanged(int)), SLOT(OnLowOutputChanged(int)));
    Listen(m_pUI->m_pHighOutput, SIGNAL(valueChanged(int)), SLOT(OnHighOutputChanged(int)));
}

HBLevelsWidget::~HBLevelsWidget() = default;

void HBLevelsWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    SetChannel(m_Params.channel);
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
    m_pUI->m_pInputSlider->SetMaximum(InputBlack, high - 2);
    m_pUI->m_pInputSlider->SetMinimum(InputWhite, low + 2);
    m_pUI->m_pInputSlider->SetMinimum(InputGamma, low);
    m_pUI->m_pInputSlider->SetMaximum(InputGamma, high);
    m_pUI->m_pLowInput->setRange(0, high - 2);
    m_pUI->m_pHighInput->setRange(low + 2, 255);
    m_pUI->m_pInputSlider->SetValue(InputBlack, low);
    m_pUI->m_pInputSlider->SetValue(InputGamma, Shown(m_Params.middle[c]));
    m_pUI->m_pInputSlider->SetValue(InputWhite, high);
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
    {
        const Mute mute(this, nullptr, Mute::ShowsOthers);
        SetChannel(channel);
    }
    // Without DataChanged(): another channel is shown, the image stays as it is.
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
}

void HBLevelsWidget::OnInputChanged(uint control, int value)
{
    if (control == InputBlack)
        m_pUI->m_pLowInput->setValue(value);
    else if (control == InputWhite)
        m_pUI->m_pHighInput->setValue(value);
    else if (control == InputGamma)
        m_pUI->m_pMiddleInput->setValue(
            ToneValue(m_pUI->m_pLowInput->value(), m_pUI->m_pHighInput->value(), value));
}

/// After a change of the two points or gamma; `moveEnd` moves the handle of the point, and limits the others.
void HBLevelsWidget::MoveInputHandles(int low, int high, double gamma, const std::function<void()>& moveEnd)
{
    const int c = m_Params.channel;
    m_Params.middle[c] = MiddleValue(low, high, gamma);
    {
        const Mute mute(this, m_pUI->m_pInputSlider);
        moveEnd();
        m_pUI->m_pInputSlider->SetValue(InputGamma, m_Params.middle[c]);
    }
    NotifyChanged(&HBLevelsWidget::ValueChanged);
}

// The spin boxes' ranges stay until the channel changes, on purpose; the slider's limits follow.
void HBLevelsWidget::OnLowInputChanged(int value)
{
    m_Params.input[m_Params.channel][0] = value;
    MoveInputHandles(value, m_pUI->m_pHighInput->value(), m_pUI->m_pMiddleInput->value(), [&] {
        m_pUI->m_pInputSlider->SetMinimum(InputWhite, value + 2);
        m_pUI->m_pInputSlider->SetValue(InputBlack, value);
        m_pUI->m_pInputSlider->SetMinimum(InputGamma, value);
    });
}

void HBLevelsWidget::OnHighInputChanged(int value)
{
    m_Params.input[m_Params.channel][1] = value;
    MoveInputHandles(m_pUI->m_pLowInput->value(), value, m_pUI->m_pMiddleInput->value(), [&] {
        m_pUI->m_pInputSlider->SetMaximum(InputBlack, value - 2);
        m_pUI->m_pInputSlider->SetMaximum(InputGamma, value);
        m_pUI->m_pInputSlider->SetValue(InputWhite, value);
    });
}

// The spin box keeps two decimals, so a dragged handle settles where the rounded gamma is.
void HBLevelsWidget::OnMiddleInputChanged(double gamma)
{
    m_Params.gamma[m_Params.channel] = gamma;
    MoveInputHandles(m_pUI->m_pLowInput->value(), m_pUI->m_pHighInput->value(), gamma, [] {});
}

void HBLevelsWidget::OnOutputChanged(uint control, int value)
{
    if (control == OutputBlack)
        m_pUI->m_pLowOutput->setValue(value);
    else if (control == OutputWhite)
        m_pUI->m_pHighOutput->setValue(value);
}

void HBLevelsWidget::StoreOutput(uint end, int value)
{
    m_Params.output[m_Params.channel][end] = value;
    {
        const Mute mute(this, m_pUI->m_pOutputSlider);
        m_pUI->m_pOutputSlider->SetValue(end, value);
    }
    NotifyChanged(&HBLevelsWidget::ValueChanged);
}

void HBLevelsWidget::OnHistogrammComplete()
{
    m_pUI->m_pAutoBtn->setEnabled(true);
}

void HBLevelsWidget::OnAutoAdjust()
{
    const HistogramWidget& histogram = *m_pUI->m_pHistogramm;
    HBHistogrammCalculator::Counts counts;
    counts.pixels = quint64(histogram.GetPixelsCount());
    for (int h = 0; h < 3; ++h) {
        for (int level = 0; level < 256; ++level)
            counts.levels[h][level] = histogram.GetCount(h, level);
    }
    const HBLevelsSettings stretch = HBAutomaticLevels(counts);
    Params params;
    for (int c = 1; c < 4; ++c) {
        params.input[c][0] = stretch.input[c][0];
        params.input[c][1] = stretch.input[c][1];
        params.middle[c] = MiddleValue(params.input[c][0], params.input[c][1], params.gamma[c]);
    }
    params.channel = m_Params.channel;
    SetValue(params);
    NotifyChanged(&HBLevelsWidget::ValueChanged);
}

struct HBLevelsWidget::LevelsData : HBJobData
{
    Params params;
};

void HBLevelsWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, LevelsData{JobData(), m_Params});
}

HBImage<> HBLevelsWidget::Process(LevelsData job)
{
    return HBRunJob(job, job.params);
}
