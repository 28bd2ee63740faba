// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLogCapture.h"
#include "HBSignalRecorder.h"
#include "HBTestImages.h"
#include "HBTestMain.h"

#include <HBBrightnessContrastWidget.h>
#include <HBIterativeBrightnessContrastTransformation.h>

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>

namespace {

using Panel = HBBrightnessContrastWidget;

const QStringList ClosingCalls = {"AboutUserParamsChanged()", "ValueChanged()", "DataChanged()"};

/// The panel and its controls.
struct Fixture {
    explicit Fixture(bool dialog = true) : panel(dialog, nullptr, {}) {}

    template <class Control>
    Control* Find(const char* name) {
        return panel.findChild<Control*>(name);
    }
    QPoint Record() const { return {panel.GetValue().brightness, panel.GetValue().contrast}; }
    QPoint Spins() const { return {brightness->value(), contrast->value()}; }
    QPoint Sliders() const { return {brightnessSlider->value(), contrastSlider->value()}; }

    Panel panel;
    HBSignalRecorder recorder{&panel};
    QSlider* brightnessSlider = Find<QSlider>("m_pBrightnessSlider");
    QSlider* contrastSlider = Find<QSlider>("m_pContrastSlider");
    QSpinBox* brightness = Find<QSpinBox>("m_pBrightnessSpin");
    QSpinBox* contrast = Find<QSpinBox>("m_pContrastSpin");
};

/// The job's meaning: the transformation's scalar form, pixel by pixel.
HBImage<> Expected(const HBImage<>& photo, int brightness, int contrast, const HBImage<>& mask = {},
                   const QPoint& offset = {}, const QRect& bounds = {}) {
    HBIterativeBrightnessContrastTransformation transformation(brightness, contrast);
    HBRGBA32i buffer;
    transformation.SetProcessingBuffer(&buffer);
    auto operation = [&](HBRGBA32i pixel) {
        buffer = pixel;
        transformation(0);
        return buffer;
    };
    return HBPlainLoop(photo, operation, mask, offset, bounds);
}

} // namespace

class tst_HBBrightnessContrastWidget : public QObject {
    Q_OBJECT
private slots:
    void form_data();
    void form();
    void controls();
    void setValue_data();
    void setValue();
    void reset();
    void result_data();
    void result();
    void recordOutOfRange();
    void tabOrder();
    void deletedAtOnce();
};

void tst_HBBrightnessContrastWidget::form_data() {
    QTest::addColumn<bool>("dialog");
    QTest::newRow("dialog") << true;
    QTest::newRow("embedded") << false;
}

void tst_HBBrightnessContrastWidget::form() {
    QFETCH(bool, dialog);
    Fixture f(dialog);
    QWidget* content = dialog ? f.Find<QWidget>("m_pContent") : &f.panel;
    QVERIFY(content);
    QCOMPARE(content->objectName(), QString(dialog ? "m_pContent" : "BrightnessContrastParamWidget"));
    QCOMPARE(content->windowTitle(), QString("Brightness and Contrast"));
    if (dialog)
        QCOMPARE(f.panel.windowTitle(), QString("Form"));
    else
        QCOMPARE(f.panel.size(), QSize(208, 103));

    QCOMPARE(content->layout()->objectName(), QString("gridLayout_2"));
    auto* grid =
        qobject_cast<QGridLayout*>(qobject_cast<QGridLayout*>(content->layout())->itemAtPosition(0, 0)->layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), QString("gridLayout"));
    const struct {
        const char* label;
        const char* text;
        QSlider* slider;
        QSpinBox* spin;
    } rows[] = {{"labelBrightness", "Brightness:", f.brightnessSlider, f.brightness},
                {"labelContrast", "Contrast:", f.contrastSlider, f.contrast}};
    for (int row = 0; row < 2; ++row) {
        auto* label = f.Find<QLabel>(rows[row].label);
        QCOMPARE(grid->itemAtPosition(row, 0)->widget(), label);
        QCOMPARE(label->text(), QString(rows[row].text));
        QCOMPARE(label->alignment() & (Qt::AlignRight | Qt::AlignVCenter), Qt::AlignRight | Qt::AlignVCenter);

        const QSlider* slider = rows[row].slider;
        QCOMPARE(grid->itemAtPosition(row, 1)->widget(), slider);
        QCOMPARE(slider->orientation(), Qt::Horizontal);
        QCOMPARE(qMakePair(slider->minimum(), slider->maximum()), qMakePair(-127, 127));
        QCOMPARE(slider->value(), 0);
        QCOMPARE(slider->toolTip(), QString());

        const QSpinBox* spin = rows[row].spin;
        QCOMPARE(grid->itemAtPosition(row, 2)->widget(), spin);
        QCOMPARE(qMakePair(spin->minimum(), spin->maximum()), qMakePair(-127, 127));
        QCOMPARE(spin->singleStep(), 1);
        QCOMPARE(spin->value(), 0);
        QCOMPARE(spin->toolTip(), QString());
    }
    const QSpacerItem* spacer = grid->itemAtPosition(2, 0)->spacerItem();
    QCOMPARE(grid->itemAtPosition(2, 2)->spacerItem(), spacer);
    QCOMPARE(spacer->sizeHint(), QSize(188, 24));
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(f.Record(), QPoint(0, 0));
}

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
        QCOMPARE(f.recorder.Take(), move.changes ? ClosingCalls : QStringList());
        if (move.changes) QCOMPARE(seen, move.record); // stored before it is told
    }
}

void tst_HBBrightnessContrastWidget::setValue_data() {
    QTest::addColumn<QPoint>("before");
    QTest::addColumn<QPoint>("value");
    QTest::addColumn<QPoint>("shown");
    const int least = std::numeric_limits<int>::min();
    const int most = std::numeric_limits<int>::max();
    QTest::newRow("in range") << QPoint() << QPoint(10, -20) << QPoint(10, -20);
    QTest::newRow("the ends") << QPoint() << QPoint(-127, 127) << QPoint(-127, 127);
    QTest::newRow("beside them") << QPoint() << QPoint(-128, 128) << QPoint(-127, 127);
    QTest::newRow("the type's") << QPoint(1, 1) << QPoint(least, most) << QPoint(-127, 127);
    QTest::newRow("no control moves") << QPoint(300, 0) << QPoint(127, 0) << QPoint(127, 0);
}

void tst_HBBrightnessContrastWidget::setValue() {
    QFETCH(QPoint, before);
    QFETCH(QPoint, value);
    QFETCH(QPoint, shown);
    Fixture f;
    f.panel.SetValue({before.x(), before.y()});
    f.panel.SetValue({value.x(), value.y()});
    QCOMPARE(f.Record(), value); // kept as it is
    QCOMPARE(f.Spins(), shown);
    QCOMPARE(f.Sliders(), shown);
    QCOMPARE(f.recorder.Take(), QStringList());
    // The controls are live again, once each.
    f.brightnessSlider->setValue(5);
    f.contrast->setValue(6);
    QCOMPARE(f.recorder.Take(), ClosingCalls + ClosingCalls);
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
    QCOMPARE(f.recorder.Take(), ClosingCalls + ClosingCalls);
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
    QCOMPARE(f.recorder.Take(), ClosingCalls);
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
             Expected(photo, value.x(), value.y(), mask, offset, bounds).ToQImage());
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
    QCOMPARE(f.panel.AdjustedImage().ToQImage(), Expected(photo, 127, -21).ToQImage());
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

void tst_HBBrightnessContrastWidget::deletedAtOnce() {
    const HBImage<> photo = HBTestRamp(2000, 2000);
    for (int round = 0; round < 5; ++round) {
        Fixture f;
        f.panel.SetImage(photo, {}, {}, {});
        if (round % 2 == 1) f.recorder.WaitFor("ProgressValueChanged");
    }
}

HB_TEST_MAIN(tst_HBBrightnessContrastWidget)
#include "tst_HBBrightnessContrastWidget.moc"
