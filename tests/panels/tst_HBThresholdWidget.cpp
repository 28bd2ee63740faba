// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelFixture.h"
#include "HBTestMain.h"

#include <HBThresholdWidget.h>
#include <MavuCustomSlider.h>

#include <QSpinBox>

namespace {

struct Fixture : HBPanelFixture<HBThresholdWidget> {
    using HBPanelFixture::HBPanelFixture;
    /// Record, spin box and slider.
    QVector<int> State() const { return {panel.GetValue().level, spin->value(), slider->Value(0)}; }

    QSpinBox* spin = Find<QSpinBox>("m_pThresholdLevel");
    MavuCustomSlider* slider = Find<MavuCustomSlider>("m_pSlider");
};

} // namespace

class tst_HBThresholdWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// The slider has a level more than the box, and follows it back, once.
    void leastLevel() {
        Fixture f;
        f.slider->SetValue(0, 0);
        QCOMPARE(f.State(), QVector<int>({1, 1, 1}));
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        f.slider->SetValue(0, 0); // the box does not change, so nothing pulls it back
        QCOMPARE(f.State(), QVector<int>({1, 1, 0}));
        QCOMPARE(f.recorder.Take(), QStringList());
        f.panel.SetValue({-5}); // kept; the slider shows what it can, and the box follows it
        QCOMPARE(f.State(), QVector<int>({-5, 1, 0}));
    }

    /// A host that sets a value from within the signal has the last word.
    void hostSetsMeanwhile() {
        Fixture f;
        f.recorder.Once("ValueChanged()", [&] { f.panel.SetValue({77}); });
        f.slider->SetValue(0, 30);
        QCOMPARE(f.State(), QVector<int>({77, 77, 77}));
    }
};

HB_TEST_MAIN(tst_HBThresholdWidget)
#include "tst_HBThresholdWidget.moc"
