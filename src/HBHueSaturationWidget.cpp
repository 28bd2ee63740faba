// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBHueSaturationWidget.h"

#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "HBSliderHandle.h"
#include "ui_HueSaturationParamWidget.h"

#include <QLinearGradient>

HB_PANEL_STREAM_LINES(HBHueSaturationWidget, "hue and saturation data", __LINE__, __LINE__, HBAfterFailure::Reset)

namespace
{

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

/// QColor::fromHsl() in double precision, as Qt 5 has it: in Qt 6's single precision it is a level off at times.
QColor FromHsl(int hue, int saturation, int lightness)
{
    const double s = saturation / 255.0;
    const double l = lightness / 255.0;
    const double high = l < 0.5 ? l * (1 + s) : l + s - l * s;
    const double low = 2 * l - high;
    const auto channel = [=](double turns) {
        const double t = turns < 0 ? turns + 1 : turns > 1 ? turns - 1 : turns;
        const double value = t * 6 < 1   ? low + (high - low) * (t * 6)
                             : t * 2 < 1 ? high
                             : t * 3 < 2 ? low + (high - low) * (2 / 3.0 - t) * 6
                                         : low;
        return (qRound(value * 65535) + 128) / 257; // by way of the 16 bits that QColor keeps
    };
    const double h = hue / 360.0;
    return QColor(channel(h + 1 / 3.0), channel(h), channel(h - 1 / 3.0));
}

QBrush Stretched(QLinearGradient gradient)
{
    gradient.setCoordinateMode(QGradient::StretchToDeviceMode);
    return gradient;
}

} // namespace

HBHueSaturationWidget::HBHueSaturationWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::HueSaturationParamWidget>())
{
    m_pUI->setupUi(GetUIContent());
    // The slider reaches 360, the spin box 359. From 359 the spin box does not change, so its link cannot push the
    // slider back.
    connect(m_pUI->m_pHueSlider, &QSlider::valueChanged, m_pUI->m_pHueSpin,
            [slider = m_pUI->m_pHueSlider, spin = m_pUI->m_pHueSpin](int hue) {
                if (hue != spin->value())
                    slider->setValue(spin->value());
            });
    ShowValue();
    UpdateColorLabels();

    QLinearGradient lightness(0, 0, 1, 0);
    lightness.setColorAt(0.0, Qt::black);
    lightness.setColorAt(1.0, Qt::white);
    SetGrooveGradient(m_pUI->m_pLightnessSlider, lightness);
    HBStyleHandle(m_pUI->m_pLightnessSlider);
    UpdateHueGroove();
    UpdateSaturationGroove();

    // On purpose: until the first SetValue the controls move and nothing is heard.
    ListenLater(m_pUI->m_pHueSpin, SIGNAL(valueChanged(int)), SLOT(OnHueChanged(int)));
    ListenLater(m_pUI->m_pSaturationSpin, SIGNAL(valueChanged(int)), SLOT(OnSaturationChanged(int)));
    ListenLater(m_pUI->m_pLightnessSpin, SIGNAL(valueChanged(int)), SLOT(OnLightnessChanged(int)));
    ListenLater(m_pUI->m_pColorizeCheckBox, SIGNAL(toggled(bool)), SLOT(OnColorizeChanged(bool)));
}

HBHueSaturationWidget::~HBHueSaturationWidget() = default;

void HBHueSaturationWidget::ShowValue()
{
    m_pUI->m_pHueSpin->setValue(m_Params.hue);
    m_pUI->m_pSaturationSpin->setValue(m_Params.saturation);
    m_pUI->m_pLightnessSpin->setValue(m_Params.lightness);
    m_pUI->m_pColorizeCheckBox->setChecked(m_Params.colorize);
}

void HBHueSaturationWidget::SetValue(const Params& params)
{
    {
        const Mute mute(this);
        m_Params = params;
        ShowValue();
    }
    UpdateColorLabels();
    UpdateHueGroove();
    UpdateSaturationGroove();
}

void HBHueSaturationWidget::Reset()
{
    m_Params = Params();
    ShowValue();
}

/// The three closing calls, with what shows the value brought up to date before the last.
void HBHueSaturationWidget::NotifyShown(std::initializer_list<void (HBHueSaturationWidget::*)()> updateGrooves)
{
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
    UpdateColorLabels();
    for (const auto update : updateGrooves)
        (this->*update)();
    Q_EMIT DataChanged();
}

void HBHueSaturationWidget::OnHueChanged(int hue)
{
    m_Params.hue = hue;
    NotifyShown({&HBHueSaturationWidget::UpdateSaturationGroove});
}

void HBHueSaturationWidget::OnSaturationChanged(int saturation)
{
    m_Params.saturation = saturation;
    NotifyShown({&HBHueSaturationWidget::UpdateHueGroove});
}

void HBHueSaturationWidget::OnLightnessChanged(int lightness)
{
    m_Params.lightness = lightness;
    NotifyShown({&HBHueSaturationWidget::UpdateHueGroove, &HBHueSaturationWidget::UpdateSaturationGroove});
}

void HBHueSaturationWidget::OnColorizeChanged(bool colorize)
{
    m_Params.colorize = colorize;
    NotifyShown({});
}

QLinearGradient HBHueSaturationWidget::GetHue(int saturation, int lightness)
{
    QLinearGradient gradient(0, 0, 1, 0);
    double position = 0.0;
    for (int stop = 0; stop <= 20; ++stop) {
        // Twenty steps of 0.05 add up to a little more than 1, which a gradient refuses.
        gradient.setColorAt(qMin(position, 1.0), FromHsl(18 * stop % 360, Level(saturation), Level(lightness)));
        position += 0.05;
    }
    return gradient;
}

QLinearGradient HBHueSaturationWidget::GetSaturation(int hue, int lightness)
{
    QLinearGradient gradient(0, 0, 1, 0);
    gradient.setColorAt(0.0, FromHsl(Degrees(hue), 0, Level(lightness)));
    gradient.setColorAt(1.0, FromHsl(Degrees(hue), 255, Level(lightness)));
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
        reference.setColorAt(position, FromHsl(60 * stop % 360, 255, 127));
        result.setColorAt(position, FromHsl((hue + step * stop) % 360, saturation, lightness));
    }
    m_pUI->m_pPaletteLabel->SetBackgroundBrush(Stretched(reference));
    m_pUI->m_pColorizeLabel->SetBackgroundBrush(Stretched(result));
}

struct HBHueSaturationWidget::HSData : HBJobData
{
    Params params; ///< from the controls, not the record, which may be out of range
};

void HBHueSaturationWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const Params shown{m_pUI->m_pHueSpin->value(), m_pUI->m_pSaturationSpin->value(),
                       m_pUI->m_pLightnessSpin->value(), m_pUI->m_pColorizeCheckBox->isChecked()};
    HBStartJob(watcher, &Process, HSData{JobData(), shown});
}

HBImage<> HBHueSaturationWidget::Process(HSData job)
{
    return HBRunJob(job, job.params);
}
