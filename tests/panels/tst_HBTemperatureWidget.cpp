// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelChecks.h"
#include "HBTestMain.h"

#include <HBIterativeAdjustmentTransformation.h>
#include <HBTemperatureCorrection.h>
#include <HBTemperatureWidget.h>

namespace {

using Values = QVector<int>; // temperature, tint, strength

struct Fixture : HBPanelFixture<HBTemperatureWidget> {
    using HBPanelFixture::HBPanelFixture;

    Values Record() const {
        const auto params = panel.GetValue();
        return {params.temperature, params.tint, params.strength};
    }
    Values Shown() const { return {temperature->value(), tint->value(), strength->value()}; }
    Values Sliders() const { return {temperatureSlider->value(), tintSlider->value(), strengthSlider->value()}; }

    QSlider* temperatureSlider = Find<QSlider>("ColorTemperatureSlider");
    QSlider* tintSlider = Find<QSlider>("TintSlider");
    QSlider* strengthSlider = Find<QSlider>("m_pStrengthSldr");
    QSpinBox* temperature = Find<QSpinBox>("m_pTemperature");
    QSpinBox* tint = Find<QSpinBox>("m_pTint");
    QSpinBox* strength = Find<QSpinBox>("m_pStrength");
};

HBImage<> Corrected(const HBImage<>& photo, int kelvin, int tint, int strength) {
    HBTemperatureCorrection correction;
    correction.SetData(kelvin, strength, tint);
    return HBTransformed(photo, HBIterativeAdjustmentTransformation(correction));
}

} // namespace

class tst_HBTemperatureWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void controls();
    void strengthIsNotShown();
    void result();
};

void tst_HBTemperatureWidget::controls() {
    Fixture f;
    const struct {
        QObject* control;
        int value;
        Values record;
        int changes;
    } moves[] = {{f.temperatureSlider, 3000, {3000, 0, 50}, 1}, {f.temperature, 3000, {3000, 0, 50}, 0},
                 {f.temperature, 500, {1000, 0, 50}, 1},        {f.temperatureSlider, 99999, {40000, 0, 50}, 1},
                 {f.tint, -101, {40000, -100, 50}, 1},          {f.tintSlider, 30, {40000, 30, 50}, 1},
                 {f.strength, 101, {40000, 30, 100}, 1},        {f.strengthSlider, -1, {40000, 30, 0}, 1}};
    for (const auto& move : moves) {
        Values seen;
        f.recorder.Once("ValueChanged()", [&] { seen = f.Record(); });
        QVERIFY(move.control->setProperty("value", move.value));
        QCOMPARE(f.Record(), move.record);
        QCOMPARE(f.Shown(), move.record);
        QCOMPARE(f.Sliders(), move.record);
        QCOMPARE(f.recorder.Take(), HBClosingCalls(move.changes));
        if (move.changes) QCOMPARE(seen, move.record);
    }
    for (const QSlider* slider : {f.temperatureSlider, f.tintSlider, f.strengthSlider})
        QCOMPARE(slider->styleSheet(), QString()); // no coloured grooves here

    f.temperature->selectAll(); // typed, and left: the nearest bound, not what was there before
    QTest::keyClicks(f.temperature, "500");
    QTest::keyClick(f.temperature, Qt::Key_Return);
    QCOMPARE(f.Record(), Values({1000, 30, 0}));
    QCOMPARE(f.recorder.Take(), HBClosingCalls());

    f.panel.OnReset(); // each control that changes says so
    QCOMPARE(f.Record(), Values({6500, 0, 50}));
    QCOMPARE(f.Shown(), f.Record());
    QCOMPARE(f.recorder.Take(), HBClosingCalls(3));
    f.panel.OnReset();
    QCOMPARE(f.recorder.Take(), QStringList());
}

/// On purpose: the strength of a loaded record counts, but its control keeps what it showed.
void tst_HBTemperatureWidget::strengthIsNotShown() {
    const HBImage<> photo = HBTestColourCube(51);
    Fixture f;
    f.panel.SetImage(photo, {}, {}, {});
    QVERIFY(f.Finish());
    f.recorder.Take();

    f.panel.SetValue({3000, 10, 80});
    f.tint->setValue(11);
    QVERIFY(f.recorder.WaitFor("ImageReady"));
    QCOMPARE(f.panel.AdjustedImage().ToQImage(), Corrected(photo, 3000, 11, 80).ToQImage());
    QVERIFY(f.Finish());
    f.recorder.Take();

    f.panel.OnReset(); // the strength's control has nothing to say
    QCOMPARE(f.recorder.Take(), HBClosingCalls(2));
    QVERIFY(f.Finish());
    f.recorder.Take();
    f.panel.SetValue({6500, 0, 80});
    f.panel.OnReset();
    QCOMPARE(f.Record(), Values({6500, 0, 50}));
    QCOMPARE(f.recorder.Take(), QStringList());
    QVERIFY(HBIsIdle(f.panel));
}

void tst_HBTemperatureWidget::result() {
    const HBImage<> photo = HBTestRamp(300, 260);
    // From the record, whatever it holds.
    for (const Values& v : {Values{6500, 0, 100},
                            {3000, 20, 80},
                            {20000, -60, 30},
                            {LeastInt, LeastInt, MostInt},
                            {MostInt, MostInt, MostInt},
                            {0, 0, 100}}) {
        Fixture f(false);
        f.panel.SetValue({v[0], v[1], v[2]});
        f.panel.SetImage(photo, {}, {}, {});
        QVERIFY(f.Finish());
        const HBImage<> expected =
            Corrected(photo, qBound(1000, v[0], 40000), qBound(-100, v[1], 100), qBound(0, v[2], 100));
        QCOMPARE(f.panel.AdjustedImage().ToQImage(), expected.ToQImage());
        if (v[0] == 6500) QCOMPARE(expected.ToQImage(), photo.ToQImage());
    }
}

HB_TEST_MAIN(tst_HBTemperatureWidget)
#include "tst_HBTemperatureWidget.moc"
