// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelChecks.h"
#include "HBTestMain.h"

#include <HBColorWidget.h>
#include <HBHueSaturationTransformation.h>
#include <HBHueSaturationWidget.h>
#include <HBIterativeAdjustmentTransformation.h>

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
    Values Sliders() const { return {hueSlider->value(), saturationSlider->value(), lightnessSlider->value()}; }
    void SetValue(const Values& v) { panel.SetValue({v[0], v[1], v[2], v[3] != 0}); }

    /// The stops of a groove, "stop: 0 rgb(…), …".
    static QString Groove(const QSlider* slider) {
        return slider->styleSheet().section("y2: 0, ", 1).section(");}", 0, 0);
    }
    QStringList Grooves() const { return {Groove(hueSlider), Groove(saturationSlider), Groove(lightnessSlider)}; }
    static QVector<QRgb> Colours(const HBColorWidget* strip) {
        QVector<QRgb> colours;
        const QGradientStops stops = strip->BackgroundBrush().gradient()->stops();
        for (int i = 0; i < stops.size(); ++i)
            colours += qFuzzyCompare(1 + stops[i].first, 1 + i / 6.0) ? stops[i].second.rgba() : 0;
        return colours;
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

QVector<QRgb> Spectrum(int hue, int step, int saturation, int lightness) {
    QVector<QRgb> colours;
    for (int i = 0; i <= 6; ++i) colours += QColor::fromHsl((hue + step * i) % 360, saturation, lightness).rgba();
    return colours;
}

HBIterativeAdjustmentTransformation<HBHueSaturationTransformation> Transformation(int h, int s, int l, bool c) {
    return HBIterativeAdjustmentTransformation(HBHueSaturationTransformation(h, s, l, c));
}

} // namespace

class tst_HBHueSaturationWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void deafBeforeSetValue();
    void controls();
    void hueEndsAt359();
    void grooves();
    void strips();
    void orderInASlot();
    void reset();
    void result();
    void jobTakesTheControls();
};

/// On purpose: a host creates the panel, then sets its value.
void tst_HBHueSaturationWidget::deafBeforeSetValue() {
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

void tst_HBHueSaturationWidget::controls() {
    Fixture f;
    f.panel.SetValue({});
    f.panel.SetValue({}); // connects once
    const struct {
        QObject* control;
        const char* property;
        int value;
        Values record;
        int changes;
    } moves[] = {
        {f.hueSlider, "value", 120, {120, 0, 0, 0}, 1},
        {f.hue, "value", 120, {120, 0, 0, 0}, 0},
        {f.hue, "value", -5, {0, 0, 0, 0}, 1},
        {f.saturation, "value", 40, {0, 40, 0, 0}, 1},
        {f.saturationSlider, "value", 500, {0, 100, 0, 0}, 1},
        {f.lightnessSlider, "value", -60, {0, 100, -60, 0}, 1},
        {f.lightness, "value", -101, {0, 100, -100, 0}, 1},
        {f.colorize, "checked", 1, {0, 100, -100, 1}, 1},
        {f.colorize, "checked", 1, {0, 100, -100, 1}, 0},
        {f.colorize, "checked", 0, {0, 100, -100, 0}, 1},
    };
    for (const auto& move : moves) {
        Values seen;
        f.recorder.Once("ValueChanged()", [&] { seen = f.Record(); });
        QVERIFY(move.control->setProperty(move.property, move.value));
        QCOMPARE(f.Record(), move.record);
        QCOMPARE(f.Shown(), move.record);
        QCOMPARE(f.Sliders(), move.record.mid(0, 3));
        QCOMPARE(f.recorder.Take(), HBClosingCalls(move.changes));
        if (move.changes) QCOMPARE(seen, move.record);
    }
}

/// The slider goes to 360, one more than the spin box, on purpose.
void tst_HBHueSaturationWidget::hueEndsAt359() {
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

void tst_HBHueSaturationWidget::grooves() {
    Fixture f;
    const QString blackToWhite = "stop: 0 rgb(0, 0, 0), stop: 1 rgb(255, 255, 255)";
    QStringList grooves = f.Grooves();
    QCOMPARE(grooves[0].count("stop:"), 21);
    QVERIFY(grooves[0].startsWith("stop: 0 rgb(190, 64, 64), stop: 0.05 rgb(190, 102, 64), stop: 0.1 "));
    QVERIFY(grooves[0].endsWith("stop: 0.95 rgb(190, 64, 102), stop: 1 rgb(190, 64, 64)"));
    QCOMPARE(grooves[1], QString("stop: 0 rgb(127, 127, 127), stop: 1 rgb(254, 0, 0)"));
    QCOMPARE(grooves[2], blackToWhite);

    f.panel.SetValue({});
    const struct {
        QObject* control;
        int value;
        bool hue, saturation;
    } moves[] = {{f.hue, 200, false, true},
                 {f.saturation, -100, true, false},
                 {f.lightness, 40, true, true},
                 {f.colorize, 1, false, false}};
    for (const auto& move : moves) {
        QVERIFY(move.control->setProperty(move.control == f.colorize ? "checked" : "value", move.value));
        const QStringList now = f.Grooves();
        QCOMPARE(now[0] != grooves[0], move.hue);
        QCOMPARE(now[1] != grooves[1], move.saturation);
        QCOMPARE(now[2], blackToWhite);
        grooves = now;
    }
    f.SetValue({200, -100, 0, 0});
    QCOMPARE(f.Grooves()[0].count("rgb(127, 127, 127)"), 21); // no saturation: grey throughout
    QCOMPARE(f.Grooves()[1], QString("stop: 0 rgb(127, 127, 127), stop: 1 rgb(0, 169, 254)"));
    f.SetValue({0, 50, -50, 0}); // 50 is level 191, -50 is 63
    QVERIFY(f.Grooves()[0].startsWith(QString("stop: 0 rgb(%1, ").arg(QColor::fromHsl(0, 191, 63).red())));
    Fixture docked(false);
    for (const Fixture* fixture : {&f, &docked}) {
        for (QSlider* slider : {fixture->hueSlider, fixture->saturationSlider, fixture->lightnessSlider})
            QVERIFY(HBShowsItsValue(slider));
    }
}

void tst_HBHueSaturationWidget::strips() {
    Fixture f;
    const QVector<QRgb> reference = Spectrum(0, 60, 255, 127);
    QCOMPARE(Fixture::Colours(f.result), Spectrum(0, 60, 127, 127));
    const struct {
        Values value;
        QVector<QRgb> strip;
    } cases[] = {
        {{200, 0, 0, 0}, Spectrum(200, 60, 127, 127)},    {{200, 0, 0, 1}, Spectrum(200, 0, 127, 127)},
        {{359, 100, 50, 0}, Spectrum(359, 60, 254, 190)}, {{10, -100, -50, 1}, Spectrum(10, 0, 0, 64)},
        {{0, 0, 100, 0}, Spectrum(0, 60, 127, 254)},      {{400, 500, -500, 1}, Spectrum(359, 0, 254, 0)},
    };
    for (const auto& c : cases) {
        f.panel.SetValue({});
        f.SetValue(c.value);
        QCOMPARE(Fixture::Colours(f.result), c.strip);
        // The same by the user's hand.
        f.panel.SetValue({});
        f.hue->setValue(c.value[0]);
        f.saturation->setValue(c.value[1]);
        f.lightness->setValue(c.value[2]);
        f.colorize->setChecked(c.value[3]);
        QCOMPARE(Fixture::Colours(f.result), c.strip);
        QCOMPARE(Fixture::Colours(f.palette), reference);
        for (const HBColorWidget* strip : {f.result, f.palette})
            QCOMPARE(strip->BackgroundBrush().gradient()->coordinateMode(), QGradient::StretchToDeviceMode);
    }
}

/// The preview is brought up to date between the host's signal and the job's.
void tst_HBHueSaturationWidget::orderInASlot() {
    Fixture f;
    f.panel.SetValue({});
    const auto state = [&] { return qMakePair(Fixture::Colours(f.result), f.Grooves()); };
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

void tst_HBHueSaturationWidget::reset() {
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

void tst_HBHueSaturationWidget::result() {
    const HBImage<> photo = HBTestRamp(300, 260);
    for (const Values& v : {Values{0, 0, 0, 0}, {120, 30, -20, 0}, {200, -40, 10, 1}, {359, 100, 100, 0}}) {
        const auto transformation = Transformation(v[0], v[1], v[2], v[3]);
        Fixture f(false);
        f.SetValue(v);
        f.panel.SetImage(photo, {}, {}, {});
        QVERIFY(f.Finish());
        QCOMPARE(f.panel.AdjustedImage().ToQImage(), HBTransformed(photo, transformation).ToQImage());
        const HBImage<> mask = HBTestMask(200, 180);
        f.panel.SetImage(photo, mask, {37, -20}, {0, 0, 150, 130});
        QVERIFY(f.Finish());
        QCOMPARE(f.panel.AdjustedImage().ToQImage(),
                 HBTransformed(photo, transformation, mask, {37, -20}, {0, 0, 150, 130}).ToQImage());
    }
}

void tst_HBHueSaturationWidget::jobTakesTheControls() {
    const HBImage<> photo = HBTestColourCube(51);
    Fixture f;
    f.SetValue({400, 500, -500, 0}); // shown as 359, 100, -100
    f.panel.SetImage(photo, {}, {}, {});
    QVERIFY(f.Finish());
    QCOMPARE(f.panel.AdjustedImage().ToQImage(),
             HBTransformed(photo, Transformation(359, 100, -100, false)).ToQImage());
    f.lightness->setValue(-10);
    QVERIFY(f.recorder.WaitFor("ImageReady", 2));
    QCOMPARE(f.panel.AdjustedImage().ToQImage(),
             HBTransformed(photo, Transformation(359, 100, -10, false)).ToQImage());
    QCOMPARE(f.Record(), Values({400, 500, -10, 0}));
}

HB_TEST_MAIN(tst_HBHueSaturationWidget)
#include "tst_HBHueSaturationWidget.moc"
