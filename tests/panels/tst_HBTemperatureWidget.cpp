// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelFixture.h"
#include "HBTestMain.h"

#include <HBAdjustment.h>

#include <HBTemperatureWidget.h>

#include <QSpinBox>

namespace {

using Values = QVector<int>; // temperature, tint, strength

struct Fixture : HBPanelFixture<HBTemperatureWidget> {
    using HBPanelFixture::HBPanelFixture;

    Values Record() const {
        const auto params = panel.GetValue();
        return {params.temperature, params.tint, params.strength};
    }
    QSpinBox* tint = Find<QSpinBox>("m_pTint");
};

} // namespace

class tst_HBTemperatureWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// On purpose: the strength of a loaded record counts, but its control keeps what it showed.
    void strengthIsNotShown() {
        const HBImage<> photo = HBTestColorCube(51);
        Fixture f;
        f.panel.SetImage(photo, {}, {}, {});
        QVERIFY(f.Finish());
        f.recorder.Take();

        f.panel.SetValue({3000, 10, 80});
        f.tint->setValue(11);
        QVERIFY(f.recorder.WaitFor("ImageReady"));
        QCOMPARE(f.panel.AdjustedImage().ToQImage(),
                 HBAdjust(HBTemperatureParams{3000, 11, 80}, {photo}).image.ToQImage());
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
};

HB_TEST_MAIN(tst_HBTemperatureWidget)
#include "tst_HBTemperatureWidget.moc"
