// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelFixture.h"
#include "HBTestMain.h"

#include <HBThresholdWidget.h>
#include <MavuCustomSlider.h>

#include <QSpinBox>

#include <limits>

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
    void controls();
    void setValue();
    void result_data();
    void result();
};

void tst_HBThresholdWidget::controls() {
    Fixture f;
    const struct {
        bool bySlider;
        int value;
        QVector<int> state;
        int changes;
    } moves[] = {
        {false, 50, {50, 50, 50}, 1},     {false, 50, {50, 50, 50}, 0},
        {true, 200, {200, 200, 200}, 1},  {true, 0, {1, 1, 1}, 1}, // the slider follows back to the least level
        {true, 0, {1, 1, 0}, 0}, // the spin box does not change, so nothing pulls it back
        {false, 300, {255, 255, 255}, 1},
    };
    for (const auto& move : moves) {
        if (move.bySlider)
            f.slider->SetValue(0, move.value);
        else
            f.spin->setValue(move.value);
        QCOMPARE(f.State(), move.state);
        QCOMPARE(f.recorder.Take(), HBClosingCalls(move.changes));
    }
    f.panel.OnReset();
    f.panel.OnReset();
    QCOMPARE(f.State(), QVector<int>({128, 128, 128}));
    QCOMPARE(f.recorder.Take(), HBClosingCalls(2)); // also when nothing changes
}

/// The record is kept as it is; the slider shows what it can, and the spin box follows the slider.
void tst_HBThresholdWidget::setValue() {
    constexpr int Least = std::numeric_limits<int>::min();
    constexpr int Most = std::numeric_limits<int>::max();
    Fixture f;
    const QVector<QVector<int>> states = {{10, 10, 10},     {0, 1, 0},     {300, 255, 255}, {-5, 1, 0},
                                          {Most, 255, 255}, {Least, 1, 0}, {1, 1, 1},       {255, 255, 255}};
    for (const QVector<int>& state : states) {
        f.panel.SetValue({state[0]});
        QCOMPARE(f.State(), state);
        QCOMPARE(f.recorder.Take(), QStringList());
    }
    f.spin->setValue(9);
    QCOMPARE(f.recorder.Take(), HBClosingCalls());

    // A host that sets a value from within the signal has the last word.
    f.recorder.Once("ValueChanged()", [&] { f.panel.SetValue({77}); });
    f.slider->SetValue(0, 30);
    QCOMPARE(f.State(), QVector<int>({77, 77, 77}));
}

void tst_HBThresholdWidget::result_data() {
    QTest::addColumn<int>("level");
    for (const int level : {128, 1, 255, 29, 0, -7, 256, 100000}) // from the record, which no control clamps
        QTest::addRow("level %d", level) << level;
}

void tst_HBThresholdWidget::result() {
    QFETCH(int, level);
    Fixture f;
    f.panel.SetValue({level});
    for (const HBImage<>& photo : {HBTestRamp(257, 130), HBTestColourCube(51)}) {
        const auto rule = [level](HBRGBA32i pixel) {
            const int luminance = (pixel.red * 30 + pixel.green * 59 + pixel.blue * 11) / 100;
            pixel.red = pixel.green = pixel.blue = luminance < level ? 0 : 255;
            return pixel;
        };
        f.panel.SetImage(photo, {}, {}, {});
        QVERIFY(f.Finish());
        QCOMPARE(f.panel.AdjustedImage().ToQImage(), HBPlainLoop(photo, rule).ToQImage());
    }
}

HB_TEST_MAIN(tst_HBThresholdWidget)
#include "tst_HBThresholdWidget.moc"
