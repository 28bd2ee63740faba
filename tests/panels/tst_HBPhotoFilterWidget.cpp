// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorDialogUser.h"
#include "HBTestMain.h"

#include <HBIterativePhotoFilterTransformation.h>
#include <HBPhotoFilterWidget.h>

#include <QComboBox>
#include <QSlider>
#include <QSpinBox>

#include <limits>

namespace {

constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

struct Fixture : HBPanelFixture<HBPhotoFilterWidget> {
    using HBPanelFixture::HBPanelFixture;
    HBPhotoFilterWidget::Params Value() const { return panel.GetValue(); }

    QPushButton* color = Find<QPushButton>("m_pColor");
    QSlider* slider = Find<QSlider>("horizontalSlider");
    QSpinBox* density = Find<QSpinBox>("m_pDensity");
    QComboBox* presets = Find<QComboBox>("m_pPresetList");
};

/// The list; the fourth name is misspelt on purpose.
const struct {
    const char* name;
    const char* color;
} Presets[] = {
    {"Custom", "#00000000"},
    {"Warming Filter (85)", "#EC8A00"},
    {"Warming Filter (LBA)", "#FA9600"},
    {"Warming Filter (81)", "#EBB113"},
    {"Coolling Filter (80)", "#006DFF"},
    {"Cooling Filter (LBB)", "#005DFF"},
    {"Cooling Filter (82)", "#00B5FF"},
    {"Red", "#EA1A1A"},
    {"Orange", "#F38417"},
    {"Yellow", "#F9E31C"},
    {"Green", "#19C919"},
    {"Cyan", "#1DCBEA"},
    {"Blue", "#1D35EA"},
    {"Violet", "#9B1DEA"},
    {"Magenta", "#E318E3"},
    {"Sepia", "#AC7A33"},
    {"Deep Red", "#FF0000"},
    {"Deep Blue", "#0022CD"},
    {"Deep Emerald", "#008C00"},
    {"Deep Yellow", "#FFD500"},
    {"Underwater", "#00C1B1"},
};
constexpr int PresetCount = int(std::size(Presets));

} // namespace

class tst_HBPhotoFilterWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void presets();
    void density();
    void dialog_data();
    void dialog();
    void lostDialog();
    void result_data();
    void result();
};

void tst_HBPhotoFilterWidget::presets() {
    Fixture f;
    for (int i = 1; i < PresetCount; ++i) {
        const QColor color(Presets[i].color);
        QCOMPARE(f.presets->itemText(i), QString(Presets[i].name));
        f.panel.SetValue({QColor("#123456"), 50});
        QCOMPARE(f.presets->currentIndex(), 0);
        f.presets->setCurrentIndex(i);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        QCOMPARE(f.Value().color, color);
        QCOMPARE(HBShownColor(f.color), color);
        // "Custom" changes nothing, nor does the preset that is current already.
        f.presets->setCurrentIndex(0);
        QCOMPARE(f.Value().color, color);
        f.presets->setCurrentIndex(i);
        f.presets->setCurrentIndex(-1);
        QCOMPARE(f.Value().color, color);
        QCOMPARE(f.recorder.Take(), QStringList());

        f.panel.SetValue({color, 50});
        QCOMPARE(f.presets->currentIndex(), i);
        f.panel.SetValue({color.toHsv(), 50}); // the same colour, otherwise written
        QCOMPARE(f.presets->currentIndex(), 0);
        QCOMPARE(f.recorder.Take(), QStringList());
    }
    // An item of the host's: what is no colour is applied as it is.
    f.presets->addItem("host", QVariant("zzz"));
    f.presets->addItem("host", QVariant("#00ff00"));
    f.presets->setCurrentIndex(PresetCount);
    QVERIFY(!f.Value().color.isValid());
    f.presets->setCurrentIndex(PresetCount + 1);
    QCOMPARE(f.Value().color, QColor("#00ff00"));
}

void tst_HBPhotoFilterWidget::density() {
    Fixture f;
    const struct {
        QWidget* control;
        int value;
        int density;
        int changes;
    } moves[] = {{f.slider, 70, 70, 1}, {f.density, 70, 70, 0}, {f.density, 999, 100, 1}, {f.slider, -5, 0, 1}};
    for (const auto& move : moves) {
        QVERIFY(move.control->setProperty("value", move.value));
        QCOMPARE(f.Value().density, move.density);
        QCOMPARE(f.slider->value(), move.density);
        QCOMPARE(f.density->value(), move.density);
        QCOMPARE(f.recorder.Take(), HBClosingCalls(move.changes));
    }
    f.presets->setCurrentIndex(7);
    f.recorder.Take();
    f.panel.OnReset();
    f.panel.OnReset();
    QCOMPARE(f.recorder.Take(), HBClosingCalls(2)); // also when nothing changes
    QCOMPARE(f.presets->currentIndex(), 3);
    QCOMPARE(f.density->value(), 50);
}

void tst_HBPhotoFilterWidget::dialog_data() {
    QTest::addColumn<QColor>("before");
    QTest::addColumn<QVector<QColor>>("picks");
    QTest::addColumn<QColor>("last");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QColor>("after");
    QTest::addColumn<int>("preset");
    QTest::addColumn<int>("changes");
    using Colors = QVector<QColor>;
    const QColor warm("#EBB113"), ones("#111111"), twos("#222222"), mixed("#123456"), red("#FF0000"), none;
    // The list goes back to the preset from before the dialog, also when another colour is accepted, on purpose.
    QTest::newRow("accept what was not tried: stale preset")
        << warm << Colors() << mixed << true << mixed << 3 << 1;
    QTest::newRow("accept another than was tried: the preset wins")
        << warm << Colors{ones} << twos << true << warm << 3 << 3;
    QTest::newRow("accept what was tried") << warm << Colors{ones} << none << true << ones << 0 << 1;
    QTest::newRow("own colour, preset tried, another accepted")
        << mixed << Colors{red} << twos << true << twos << 0 << 2;

    QTest::newRow("accept at once") << warm << Colors() << none << true << warm << 3 << 0;
    QTest::newRow("cancel at once") << warm << Colors() << none << false << warm << 3 << 0;
    QTest::newRow("a preset tried and accepted") << warm << Colors{red} << none << true << red << 16 << 1;
    QTest::newRow("cancel") << warm << Colors{ones, red, twos} << none << false << warm << 3 << 4;
    QTest::newRow("cancel, back to an own colour") << mixed << Colors{red} << none << false << mixed << 0 << 2;
    QTest::newRow("back by hand, then cancel") << warm << Colors{red, warm} << none << false << warm << 3 << 2;
    const QColor hsv = QColor::fromHsv(0, 255, 255);
    QTest::newRow("another colour model") << hsv << Colors() << none << true << hsv << 0 << 0;
    QTest::newRow("cancel another colour model") << hsv << Colors{ones} << none << false << hsv << 0 << 2;
}

void tst_HBPhotoFilterWidget::dialog() {
    QFETCH(QColor, before);
    QFETCH(QVector<QColor>, picks);
    QFETCH(QColor, last);
    QFETCH(bool, accepted);
    QFETCH(QColor, after);
    QFETCH(int, preset);
    QFETCH(int, changes);
    Fixture f;
    HBCheckColorVisits(
        f, f.color, "Select a filter color", {{"", before, picks, last, accepted, after, changes}},
        [&] { return f.Value().color; },
        [&](const QColor& color) {
            f.panel.SetValue({color, 50});
        });
    QCOMPARE(f.presets->currentIndex(), preset);
}

void tst_HBPhotoFilterWidget::lostDialog() { HBCheckLostDialog<HBPhotoFilterWidget>("m_pColor"); }

void tst_HBPhotoFilterWidget::result_data() {
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("density");
    for (const int density : {0, 1, 50, 100, 101, -1, Most, Least})
        QTest::addRow("%d %%", density) << QColor("#EBB113") << density;
    QTest::newRow("black") << QColor(Qt::black) << 80;
    QTest::newRow("transparent") << QColor(Qt::transparent) << 80;
    QTest::newRow("not valid") << QColor() << 80;
    QTest::newRow("HSV") << QColor::fromHsv(200, 100, 100, 7) << 80;
    QTest::newRow("CMYK") << QColor::fromCmyk(1, 200, 30, 9) << 80;
    QTest::newRow("extended") << QColor::fromRgbF(7.5, -3, 0.5) << 80;
}

/// Takes the record as it is, through no control.
void tst_HBPhotoFilterWidget::result() {
    QFETCH(QColor, color);
    QFETCH(int, density);
    const HBIterativePhotoFilterTransformation transformation(HBRGBA32i::FromRgba(color.rgba()),
                                                              qBound(0, density, 100));
    Fixture f;
    f.panel.SetValue({color, density});
    const HBImage<> mask = HBTestMask(150, 90);
    for (const HBImage<>& photo : {HBTestRamp(257, 130), HBTestRamp(1, 1), HBImage<>()}) {
        for (const QRect& bounds : {QRect(), QRect(20, 10, 120, 70)}) {
            f.panel.SetImage(photo, bounds.isValid() ? mask : HBImage<>(), QPoint(30, 40), bounds);
            QVERIFY(f.Finish());
            QCOMPARE(f.recorder.Count("ImageReady"), 1);
            const QImage expected = HBTransformed(photo, transformation, mask, QPoint(30, 40), bounds).ToQImage();
            QCOMPARE(f.panel.AdjustedImage().ToQImage(), expected);
            if (density <= 0) QCOMPARE(expected, photo.ToQImage());
            f.recorder.Take();
        }
    }
}

HB_TEST_MAIN(tst_HBPhotoFilterWidget)
#include "tst_HBPhotoFilterWidget.moc"
