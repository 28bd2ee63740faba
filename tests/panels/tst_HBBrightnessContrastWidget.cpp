// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLogCapture.h"
#include "HBPanelChecks.h"
#include "HBTestMain.h"

#include <HBBrightnessContrastWidget.h>
#include <HBIterativeBrightnessContrastTransformation.h>

#include <QLineEdit>

namespace {

struct Fixture : HBPanelFixture<HBBrightnessContrastWidget> {
    QPoint Record() const { return {panel.GetValue().brightness, panel.GetValue().contrast}; }
    QPoint Spins() const { return {brightness->value(), contrast->value()}; }
    QPoint Sliders() const { return {brightnessSlider->value(), contrastSlider->value()}; }

    QSlider* brightnessSlider = Find<QSlider>("m_pBrightnessSlider");
    QSlider* contrastSlider = Find<QSlider>("m_pContrastSlider");
    QSpinBox* brightness = Find<QSpinBox>("m_pBrightnessSpin");
    QSpinBox* contrast = Find<QSpinBox>("m_pContrastSpin");
};

HBIterativeBrightnessContrastTransformation Transformation(const QPoint& value) {
    return HBIterativeBrightnessContrastTransformation(value.x(), value.y());
}

} // namespace

class tst_HBBrightnessContrastWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void controls();
    void reset();
    void result_data();
    void result();
    void recordOutOfRange();
    void tabOrder();
};

void tst_HBBrightnessContrastWidget::controls() {
    Fixture f;
    const struct {
        QObject* control;
        int value;
        QPoint record;
        int changes;
    } moves[] = {{f.brightnessSlider, 50, {50, 0}, 1}, {f.brightnessSlider, 50, {50, 0}, 0},
                 {f.contrast, -20, {50, -20}, 1},      {f.brightness, 200, {127, -20}, 1},
                 {f.brightness, 127, {127, -20}, 0},   {f.contrastSlider, -999, {127, -127}, 1},
                 {f.brightness, -127, {-127, -127}, 1}};
    for (const auto& move : moves) {
        QPoint seen;
        f.recorder.Once("ValueChanged()", [&] { seen = f.Record(); });
        QVERIFY(move.control->setProperty("value", move.value));
        QCOMPARE(f.Record(), move.record);
        QCOMPARE(f.Spins(), move.record);
        QCOMPARE(f.Sliders(), move.record);
        QCOMPARE(f.recorder.Take(), HBClosingCalls(move.changes));
        if (move.changes) QCOMPARE(seen, move.record); // stored before it is told
    }
}

void tst_HBBrightnessContrastWidget::reset() {
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

void tst_HBBrightnessContrastWidget::result_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("value");
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<QPoint>("offset");
    for (const QSize& size : HBAwkwardSizes())
        QTest::addRow("%d x %d", size.width(), size.height()) << size << QPoint(30, -50) << QRect() << QPoint();
    QTest::newRow("neutral") << QSize(200, 200) << QPoint(0, 0) << QRect() << QPoint();
    QTest::newRow("extremes") << QSize(200, 200) << QPoint(-127, 127) << QRect() << QPoint();

    const QSize photo(300, 260);
    const QPoint value(20, 40);
    QTest::newRow("selection inside a tile") << photo << value << QRect(10, 10, 5, 5) << QPoint();
    QTest::newRow("across tile borders") << photo << value << QRect(100, 120, 60, 20) << QPoint(0, 0);
    QTest::newRow("moved") << photo << value << QRect(0, 0, 150, 130) << QPoint(37, 91);
    QTest::newRow("over the left and top") << photo << value << QRect(0, 0, 150, 130) << QPoint(-60, -129);
    QTest::newRow("over the right and bottom") << photo << value << QRect(0, 0, 150, 130) << QPoint(290, 255);
    QTest::newRow("larger than its mask") << photo << value << QRect(-50, -50, 900, 900) << QPoint(60, 60);
    QTest::newRow("beside the photo") << photo << value << QRect(0, 0, 10, 10) << QPoint(1000, 0);
}

void tst_HBBrightnessContrastWidget::result() {
    QFETCH(QSize, size);
    QFETCH(QPoint, value);
    QFETCH(QRect, bounds);
    QFETCH(QPoint, offset);
    const HBImage<> photo = HBTestRamp(size.width(), size.height());
    const HBImage<> mask = bounds.isValid() ? HBTestMask(200, 180) : HBImage<>();
    Fixture f;
    f.panel.SetValue({value.x(), value.y()});
    f.panel.SetImage(photo, mask, offset, bounds);
    HBSettle();
    QCOMPARE(f.recorder.Count("ImageReady"), 1);
    QCOMPARE(f.panel.AdjustedImage().ToQImage(),
             HBTransformed(photo, Transformation(value), mask, offset, bounds).ToQImage());
    QCOMPARE(f.panel.SourceImage().ToQImage(), HBTestRamp(size.width(), size.height()).ToQImage());
}

void tst_HBBrightnessContrastWidget::recordOutOfRange() {
    const HBImage<> photo = HBTestColourCube(17);
    Fixture f;
    f.panel.SetImage(photo, {}, {}, {});
    HBSettle();
    QCOMPARE(f.panel.AdjustedImage().ToQImage(), photo.ToQImage());
    f.panel.SetValue({300, -20}); // shown as 127
    f.contrast->setValue(-21);
    QVERIFY(f.recorder.WaitFor("ImageReady", 2));
    QCOMPARE(f.panel.AdjustedImage().ToQImage(), HBTransformed(photo, Transformation({127, -21})).ToQImage());
    QCOMPARE(f.Record(), QPoint(300, -21));
}

/// Tab reaches the controls first and the frame's buttons last.
void tst_HBBrightnessContrastWidget::tabOrder() {
    const HBShowsWindows showsWindows;
    HBBrightnessContrastWidget panel(true, nullptr, {});
    panel.show();
    QStringList kinds;
    for (QWidget* widget = panel.nextInFocusChain(); widget != &panel; widget = widget->nextInFocusChain()) {
        if (widget->focusPolicy() & Qt::TabFocus && !qobject_cast<QLineEdit*>(widget))
            kinds.append(widget->metaObject()->className());
    }
    QCOMPARE(kinds.join(' '), "QSlider QSpinBox QSlider QSpinBox QPushButton QPushButton QPushButton");
}

HB_TEST_MAIN(tst_HBBrightnessContrastWidget)
#include "tst_HBBrightnessContrastWidget.moc"
