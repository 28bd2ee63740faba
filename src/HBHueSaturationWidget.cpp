// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBHueSaturationWidget.h"

#include "HBConnectionSet.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "HBSliderHandle.h"
#include "ui_HueSaturationParamWidget.h"

#include <HBHueSaturationTransformation.h>
#include <HBIterativeAdjustmentTransformation.h>

#include <QLinearGradient>

namespace
{

constexpr char Tag[] = "KMHueSaturation 1.00000";
constexpr char SourceName[] = "src\\HBHueSaturationWidget";

// A record may hold any int; the colours of the grooves and strips are made from the nearest valid one.
int Percent(int value)
{
    return qBound(-100, value, 100);
}

int Degrees(int hue)
{
    return (hue % 360 + 360) % 360;
}

/// A percentage as a level of 8 bits, for the grooves: 0 is 127, 100 is 255.
int Level(int percent)
{
    return (Percent(percent) + 100) * 255 / 200;
}

/// The same for the strips, about the middle: 0 is 127, 100 is 254.
int ClampedLevel(int percent)
{
    return qBound(0, 127 + Percent(percent) * 255 / 200, 255);
}

QBrush Stretched(QLinearGradient gradient)
{
    gradient.setCoordinateMode(QGradient::StretchToDeviceMode);
    return gradient;
}

} // namespace

// ---- Record ----

bool HBHueSaturationWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> hue >> saturation >> lightness;
    colorize = HBReadBool32(stream);
    return stream.status() == QDataStream::Ok;
}

// (200, 10, -20, true), big endian: the 23 bytes of the tag, 00 00 00 C8, 00 00 00 0A, FF FF FF EC, 00 00 00 01.
bool HBHueSaturationWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << hue << saturation << lightness << qint32(colorize);
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBHueSaturationWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write hue and saturation data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBHueSaturationWidget::Params& params)
{
    if (!params.Read(stream)) {
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read hue and saturation data error.");
        params = HBHueSaturationWidget::Params();
    }
    return stream;
}

// ---- Construction ----

HBHueSaturationWidget::HBHueSaturationWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::HueSaturationParamWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    // The slider reaches 360, the spin box 359. From 359 the spin box does not change, so its link cannot push the
    // slider back.
    connect(m_pUI->m_pHueSlider, &QSlider::valueChanged, m_pUI->m_pHueSpin, [this](int hue) {
        if (hue != m_pUI->m_pHueSpin->value())
            m_pUI->m_pHueSlider->setValue(m_pUI->m_pHueSpin->value());
    });
    Reset();
    UpdateColorLabels();

    QLinearGradient lightness(0, 0, 1, 0);
    lightness.setColorAt(0.0, Qt::black);
    lightness.setColorAt(1.0, Qt::white);
    SetGrooveGradient(m_pUI->m_pLightnessSlider, lightness);
    HBStyleHandle(m_pUI->m_pLightnessSlider);
    UpdateHueGroove();
    UpdateSaturationGroove();

    // Connected by the first SetValue, on purpose: until then the controls move and nothing is heard.
    m_pConnections->Add(m_pUI->m_pHueSpin, SIGNAL(valueChanged(int)), SLOT(OnHueChanged(int)));
    m_pConnections->Add(m_pUI->m_pSaturationSpin, SIGNAL(valueChanged(int)), SLOT(OnSaturationChanged(int)));
    m_pConnections->Add(m_pUI->m_pLightnessSpin, SIGNAL(valueChanged(int)), SLOT(OnLightnessChanged(int)));
    m_pConnections->Add(m_pUI->m_pColorizeCheckBox, SIGNAL(toggled(bool)), SLOT(OnColorizeChanged(bool)));
}

HBHueSaturationWidget::~HBHueSaturationWidget()
{
    FinishJob();
    Disconnect();
}

void HBHueSaturationWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBHueSaturationWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBHueSaturationWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    m_pUI->m_pHueSpin->setValue(m_Params.hue);
    m_pUI->m_pSaturationSpin->setValue(m_Params.saturation);
    m_pUI->m_pLightnessSpin->setValue(m_Params.lightness);
    m_pUI->m_pColorizeCheckBox->setChecked(m_Params.colorize);
    Connect();
    UpdateColorLabels();
    UpdateHueGroove();
    UpdateSaturationGroove();
}

void HBHueSaturationWidget::Reset()
{
    m_Params = Params();
    m_pUI->m_pHueSpin->setValue(m_Params.hue);
    m_pUI->m_pSaturationSpin->setValue(m_Params.saturation);
    m_pUI->m_pLightnessSpin->setValue(m_Params.lightness);
    m_pUI->m_pColorizeCheckBox->setChecked(m_Params.colorize);
}

void HBHueSaturationWidget::OnHueChanged(int hue)
{
    m_Params.hue = hue;
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
    UpdateColorLabels();
    UpdateSaturationGroove();
    Q_EMIT DataChanged();
}

void HBHueSaturationWidget::OnSaturationChanged(int saturation)
{
    m_Params.saturation = saturation;
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
    UpdateColorLabels();
    UpdateHueGroove();
    Q_EMIT DataChanged();
}

void HBHueSaturationWidget::OnLightnessChanged(int lightness)
{
    m_Params.lightness = lightness;
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
    UpdateColorLabels();
    UpdateHueGroove();
    UpdateSaturationGroove();
    Q_EMIT DataChanged();
}

void HBHueSaturationWidget::OnColorizeChanged(bool colorize)
{
    m_Params.colorize = colorize;
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
    UpdateColorLabels();
    Q_EMIT DataChanged();
}

// ---- Grooves and strips ----

QLinearGradient HBHueSaturationWidget::GetHue(int saturation, int lightness)
{
    QLinearGradient gradient(0, 0, 1, 0);
    double position = 0.0;
    for (int stop = 0; stop <= 20; ++stop) {
        // Twenty steps of 0.05 add up to a little more than 1, which a gradient refuses.
        gradient.setColorAt(qMin(position, 1.0),
                            QColor::fromHsl(18 * stop % 360, Level(saturation), Level(lightness), 255));
        position += 0.05;
    }
    return gradient;
}

QLinearGradient HBHueSaturationWidget::GetSaturation(int hue, int lightness)
{
    QLinearGradient gradient(0, 0, 1, 0);
    gradient.setColorAt(0.0, QColor::fromHsl(Degrees(hue), 0, Level(lightness), 255));
    gradient.setColorAt(1.0, QColor::fromHsl(Degrees(hue), 255, Level(lightness), 255));
    return gradient;
}

void HBHueSaturationWidget::UpdateHueGroove()
{
    SetGrooveGradient(m_pUI->m_pHueSlider, GetHue(m_Params.saturation, m_Params.lightness));
    HBStyleHandle(m_pUI->m_pHueSlider);
}

void HBHueSaturationWidget::UpdateSaturationGroove()
{
    SetGrooveGradient(m_pUI->m_pSaturationSlider, GetSaturation(m_Params.hue, m_Params.lightness));
    HBStyleHandle(m_pUI->m_pSaturationSlider);
}

/// From the controls, not the record: the strips show what the job will use.
void HBHueSaturationWidget::UpdateColorLabels()
{
    constexpr int Last = 6;
    const int hue = m_pUI->m_pHueSpin->value();
    const int saturation = ClampedLevel(m_pUI->m_pSaturationSpin->value());
    const int lightness = ClampedLevel(m_pUI->m_pLightnessSpin->value());
    const int step = m_pUI->m_pColorizeCheckBox->isChecked() ? 0 : 60;
    QLinearGradient reference(0, 0, 1, 0);
    QLinearGradient result(0, 0, 1, 0);
    for (int stop = 0; stop <= Last; ++stop) {
        const double position = stop / double(Last);
        reference.setColorAt(position, QColor::fromHsl(60 * stop % 360, 255, 127, 255));
        result.setColorAt(position, QColor::fromHsl((hue + step * stop) % 360, saturation, lightness, 255));
    }
    m_pUI->m_pPaletteLabel->SetBackgroundBrush(Stretched(reference));
    m_pUI->m_pColorizeLabel->SetBackgroundBrush(Stretched(result));
}

// ---- Job ----

struct HBHueSaturationWidget::HSData : HBJobData
{
    int hue;
    int saturation;
    int lightness;
    bool colorize;
};

void HBHueSaturationWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    // From the controls, not the record, which may be out of range.
    const HSData job{JobData(), m_pUI->m_pHueSpin->value(), m_pUI->m_pSaturationSpin->value(),
                     m_pUI->m_pLightnessSpin->value(), m_pUI->m_pColorizeCheckBox->isChecked()};
    HBStartJob(watcher, this, &HBHueSaturationWidget::Process, job);
}

HBImage<> HBHueSaturationWidget::Process(HSData job)
{
    const HBHueSaturationTransformation transformation(job.hue, job.saturation, job.lightness, job.colorize);
    return RunTransformation(job, HBIterativeAdjustmentTransformation(transformation));
}
