// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelChecks.h"
#include "HBTestMain.h"

#include <HBColorWidget.h>
#include <HBHueSaturationWidget.h>

#include <QCheckBox>

namespace {

using Params = HBHueSaturationWidget::Params;
using Values = QVector<int>;

struct Fixture : HBPanelFixture<HBHueSaturationWidget> {
    using HBPanelFixture::HBPanelFixture;

    Values Record() const {
        const Params params = panel.GetValue();
        return {params.hue, params.saturation, params.lightness, params.colorize};
    }
    Values Shown() const { return {hue->value(), saturation->value(), lightness->value(), colorize->isChecked()}; }
    void SetValue(const Values& v) { panel.SetValue({v[0], v[1], v[2], v[3] != 0}); }

    QStringList Grooves() const {
        return {hueSlider->styleSheet(), saturationSlider->styleSheet(), lightnessSlider->styleSheet()};
    }

    QSlider* hueSlider = Find<QSlider>("m_pHueSlider");
    QSlider* saturationSlider = Find<QSlider>("m_pSaturationSlider");
    QSlider* lightnessSlider = Find<QSlider>("m_pLightnessSlider");
    QSpinBox* hue = Find<QSpinBox>("m_pHueSpin");
    QSpinBox* saturation = Find<QSpinBox>("m_pSaturationSpin");
    QSpinBox* lightness = Find<QSpinBox>("m_pLightnessSpin");
    QCheckBox* colorize = Find<QCheckBox>("m_pColorizeCheckBox");
    HBColorWidget* palette = Find<HBColorWidget>("m_pPaletteLabel");
    HBColorWidget* result = Find<HBColorWidget>("m_pColorizeLabel");
};

} // namespace

class tst_HBHueSaturationWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// On purpose: a host creates the panel, then sets its value.
    void deafBeforeSetValue() {
        Fixture f;
        f.panel.SetImage(HBTestRamp(5, 5), {}, {}, {});
        QVERIFY(f.Finish());
        f.recorder.Take();
        const QStringList before = f.Grooves();
        f.hueSlider->setValue(100);
        f.saturation->setValue(-30);
        f.lightness->setValue(20);
        f.colorize->setChecked(true);
        QCOMPARE(f.Shown(), Values({100, -30, 20, 1}));
        QCOMPARE(f.Record(), Values({0, 0, 0, 0}));
        QCOMPARE(f.Grooves(), before);
        f.panel.OnReset(); // does not connect either
        QCOMPARE(f.Shown(), Values({0, 0, 0, 0}));
        f.hue->setValue(9);
        QCOMPARE(f.recorder.Take(), QStringList());
        QVERIFY(HBIsIdle(f.panel));

        f.panel.SetValue({});
        f.hue->setValue(7);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
    }

    /// The slider goes to 360, one more than the spin box, on purpose.
    void hueEndsAt359() {
        Fixture f;
        f.panel.SetValue({});
        f.hueSlider->setValue(360);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        for (int again = 0; again < 2; ++again) {
            QCOMPARE(f.hueSlider->value(), 359);
            QCOMPARE(f.Shown(), Values({359, 0, 0, 0}));
            QCOMPARE(f.Record(), Values({359, 0, 0, 0}));
            f.hueSlider->setValue(360); // now the spin box does not change
            QCOMPARE(f.recorder.Take(), QStringList());
        }
    }

    /// The preview is brought up to date between the host's signal and the job's.
    void orderInASlot() {
        Fixture f;
        f.panel.SetValue({});
        const auto state = [&] { return qMakePair(f.result->BackgroundBrush(), f.Grooves()); };
        const auto before = state();
        auto atValueChanged = before;
        auto atDataChanged = before;
        f.recorder.Once("ValueChanged()", [&] {
            atValueChanged = state();
            f.recorder.Once("DataChanged()", [&] { atDataChanged = state(); });
        });
        f.lightness->setValue(30);
        QVERIFY(atValueChanged == before);
        QVERIFY(atDataChanged == state() && state() != before);
    }

    void reset() {
        Fixture f;
        f.SetValue({5, 6, 7, 1});
        Values record(4, 9), shown;
        f.recorder.Once("ValueChanged()", [&] {
            record = f.Record();
            shown = f.Shown();
        });
        f.panel.OnReset();
        QCOMPARE(record, Values({0, 0, 0, 0})); // the record first, then one control after the other
        QCOMPARE(shown, Values({0, 6, 7, 1}));
        QCOMPARE(f.recorder.Take(), HBClosingCalls(4));
        f.panel.OnReset();
        QCOMPARE(f.recorder.Take(), QStringList());
        f.SetValue({0, 6, 0, 1});
        f.panel.OnReset();
        QCOMPARE(f.recorder.Take(), HBClosingCalls(2));
    }

    /// What a box cannot show is kept, also when another value changes.
    void recordOutOfRange() {
        Fixture f;
        f.SetValue({400, 500, -500, 0});
        QCOMPARE(f.Shown(), Values({359, 100, -100, 0}));
        f.lightness->setValue(-10);
        QCOMPARE(f.Record(), Values({400, 500, -10, 0}));
    }

    void colors() {
        Fixture f, docked(false);
        for (const HBColorWidget* strip : {f.result, f.palette})
            QCOMPARE(strip->BackgroundBrush().gradient()->coordinateMode(), QGradient::StretchToDeviceMode);
        for (const Fixture* fixture : {&f, &docked}) {
            for (QSlider* slider : {fixture->hueSlider, fixture->saturationSlider, fixture->lightnessSlider})
                QVERIFY(HBShowsItsValue(slider));
        }
    }
};

HB_TEST_MAIN(tst_HBHueSaturationWidget)
#include "tst_HBHueSaturationWidget.moc"
