// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelFixture.h"
#include "HBTestMain.h"

#include <HBBrightnessContrastWidget.h>

#include <QSpinBox>

namespace {

struct Fixture : HBPanelFixture<HBBrightnessContrastWidget> {
    QPoint Record() const { return {panel.GetValue().brightness, panel.GetValue().contrast}; }
    QPoint Spins() const { return {brightness->value(), contrast->value()}; }
    QSpinBox* brightness = Find<QSpinBox>("m_pBrightnessSpin");
    QSpinBox* contrast = Find<QSpinBox>("m_pContrastSpin");
};

} // namespace

class tst_HBBrightnessContrastWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void reset() {
        Fixture f;
        f.panel.SetImage(HBTestRamp(5, 5), {}, {}, {});
        HBSettle();
        f.panel.SetValue({10, -20});
        f.recorder.Take();
        QPoint record(1, 1);
        QPoint spins;
        f.recorder.Once("ValueChanged()", [&] {
            record = f.Record();
            spins = f.Spins();
        });
        f.panel.OnReset();
        QCOMPARE(f.recorder.Take(), HBClosingCalls(2));
        QCOMPARE(record, QPoint(0, 0)); // written first: at that moment the contrast still shows its old value
        QCOMPARE(spins, QPoint(0, -20));
        QCOMPARE(f.Spins(), QPoint(0, 0));
        QVERIFY(f.recorder.WaitFor("ImageReady"));
        HBSettle();
        QCOMPARE(f.recorder.Count("ImageReady"), 1); // one job for both
        QVERIFY(HBIsIdle(f.panel));

        f.recorder.Take();
        f.panel.OnReset();
        QCOMPARE(f.recorder.Take(), QStringList());
        f.panel.SetValue({10, 0});
        f.panel.OnReset();
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
    }

    /// What a box cannot show is kept, also when the other value changes.
    void recordOutOfRange() {
        Fixture f;
        f.panel.SetValue({300, -20}); // shown as 127
        f.contrast->setValue(-21);
        QCOMPARE(f.Record(), QPoint(300, -21));
        QCOMPARE(f.Spins(), QPoint(127, -21));
    }
};

HB_TEST_MAIN(tst_HBBrightnessContrastWidget)
#include "tst_HBBrightnessContrastWidget.moc"
