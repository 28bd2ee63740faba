// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
// Gamma, exposure and posterize: the panels whose spin boxes are all their state.
#include "HBPanelFixture.h"
#include "HBTestMain.h"

#include <HBAdjustment.h>
#include <HBExposure.h>
#include <HBExposureWidget.h>
#include <HBGammaCorrection.h>
#include <HBGammaCorrectionWidget.h>
#include <HBIterativeExposureTransformation.h>
#include <HBIterativeGammaCorrectionTransformation.h>
#include <HBIterativePosterizeTransformation.h>
#include <HBPosterize.h>
#include <HBPosterizeWidget.h>

#include <QDoubleSpinBox>
#include <QSlider>
#include <QSpinBox>

#include <limits>

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

/// One value of a panel: its controls, its accessors and its signal.
struct Value {
    const char* name;
    const char* signal;
    QDoubleSpinBox* spin;
    QSlider* slider;
    std::function<void(double)> set;
    std::function<double()> get;

    /// What is compared: which value was given, and what spin box and slider make of it.
    QString Text(double given, double shown, int position) const {
        return QString("%1 %2: %3 %4").arg(name).arg(given).arg(shown).arg(position);
    }
    QString State(double given) const { return Text(given, get(), slider->value()); }
};

struct Gamma : HBPanelFixture<HBGammaCorrectionWidget> {
    using HBPanelFixture::HBPanelFixture;
    Value gamma{"gamma",
                "GammaChanged()",
                Find<QDoubleSpinBox>("m_pGammaSpin"),
                Find<QSlider>("m_pGammaSlider"),
                [this](double v) { panel.SetGamma(v); },
                [this] { return panel.GetGamma(); }};
};

struct Exposure : HBPanelFixture<HBExposureWidget> {
    using HBPanelFixture::HBPanelFixture;
    Value exposure{"exposure",
                   "ExposureChanged()",
                   Find<QDoubleSpinBox>("m_pExposureSpin"),
                   Find<QSlider>("m_pExposureSlider"),
                   [this](double v) { panel.SetExposure(v); },
                   [this] { return panel.GetExposure(); }};
    Value offset{"offset",
                 "OffsetChanged()",
                 Find<QDoubleSpinBox>("m_pOffsetSpin"),
                 Find<QSlider>("m_pOffsetSlider"),
                 [this](double v) { panel.SetOffset(v); },
                 [this] { return panel.GetOffset(); }};
};

struct Posterize : HBPanelFixture<HBPosterizeWidget> {
    using HBPanelFixture::HBPanelFixture;
    QSpinBox* spin = Find<QSpinBox>("m_pPosterizeSpin");
    QSlider* slider = Find<QSlider>("m_pPosterizeSlider");
};

/// Sets the image and compares the job's result, without and with a selection.
template <class Fixture, class Transformation>
void CheckResult(Fixture& f, const Transformation& transformation) {
    const HBImage<> photo = HBTestRamp(257, 130);
    const HBImage<> mask = HBTestMask(150, 90);
    for (const QRect& bounds : {QRect(), QRect(20, 10, 120, 70)}) {
        f.panel.SetImage(photo, bounds.isValid() ? mask : HBImage<>(), QPoint(30, 40), bounds);
        QVERIFY(f.Finish());
        QCOMPARE(f.panel.AdjustedImage().ToQImage(),
                 HBTransformed(photo, transformation, mask, QPoint(30, 40), bounds).ToQImage());
    }
}

template <class Panel>
void DeleteAtOnce() {
    for (const bool running : {false, true}) {
        HBPanelFixture<Panel> f;
        f.panel.SetImage(HBTestRamp(1500, 1500), {}, {}, {});
        if (running) f.recorder.WaitFor("ProgressValueChanged");
    }
}

} // namespace

class tst_HBSingleValuePanels : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void spinBoxes();
    void sliders();
    void setters();
    void setExposure();
    void moreDigitsThanTheBox();
    void returnKey();
    void reset();
    void posterize();
    void results();
    void deletedAtOnce();
};

/// A value in the spin box puts the slider on the truncated step: a negative one lands one nearer zero.
void tst_HBSingleValuePanels::spinBoxes() {
    Gamma g;
    Exposure e;
    const struct {
        const Value& value;
        HBSignalRecorder& recorder;
        double entered;
        double shown;
        int slider;
    } rows[] = {
        {g.gamma, g.recorder, 1.5, 1.5, 150},
        {g.gamma, g.recorder, 0.29, 0.29, 29}, // 28.999… without the addend
        {g.gamma, g.recorder, 9, 5, 500},
        {g.gamma, g.recorder, 0, 0.01, 1},
        {e.exposure, e.recorder, 20, 20, 200000},
        {e.exposure, e.recorder, -20, -20, -199999},
        {e.exposure, e.recorder, -0.0001, -0.0001, 0},
        {e.exposure, e.recorder, 1.2345, 1.2345, 12345},
        {e.offset, e.recorder, -0.5, -0.5, -4999},
        {e.offset, e.recorder, 0.5, 0.5, 5000},
        {e.offset, e.recorder, 0.00004, 0, 0},
    };
    for (const auto& row : rows) {
        row.value.spin->setValue(row.entered);
        QCOMPARE(row.value.State(row.entered), row.value.Text(row.entered, row.shown, row.slider));
        QCOMPARE(row.recorder.Take(), HBClosingCalls(1, row.value.signal));
    }
}

void tst_HBSingleValuePanels::sliders() {
    Gamma g;
    Exposure e;
    const struct {
        const Value& value;
        HBSignalRecorder& recorder;
        int dragged;
        double spin;
        int slider; ///< after the spin box has answered
        int changes;
    } rows[] = {
        {g.gamma, g.recorder, 37, 0.37, 37, 1},          {g.gamma, g.recorder, 37, 0.37, 37, 0},
        {e.exposure, e.recorder, 200000, 20, 200000, 1}, {e.exposure, e.recorder, 15000, 1.5, 15000, 1},
        {e.offset, e.recorder, -2500, -0.25, -2499, 1}, // jumps back
        {e.offset, e.recorder, -2500, -0.25, -2500, 0}, // and stays: the spin box does not change
    };
    for (const auto& row : rows) {
        row.value.slider->setValue(row.dragged);
        QCOMPARE(row.value.get(), row.spin);
        QCOMPARE(row.value.slider->value(), row.slider);
        QCOMPARE(row.recorder.Take(), HBClosingCalls(row.changes, row.value.signal));
    }
}

void tst_HBSingleValuePanels::setters() {
    Gamma g;
    Exposure e;
    const struct {
        const Value& value;
        HBSignalRecorder& recorder;
        double set;
        double shown;
        int slider;
    } rows[] = {
        {g.gamma, g.recorder, 1.5, 1.5, 150},
        {g.gamma, g.recorder, NaN, 1.5, 150},
        {g.gamma, g.recorder, 9, 5, 500},
        {g.gamma, g.recorder, 1.239, 1.23, 123}, // the slider, truncated, writes back
        {g.gamma, g.recorder, 1e9, 5, 500},
        {g.gamma, g.recorder, -1e300, 0.01, 1},
        {g.gamma, g.recorder, Infinity, 5, 500},
        {g.gamma, g.recorder, -Infinity, 0.01, 1},
        {e.offset, e.recorder, -0.25, -0.2499, -2499},
        {e.offset, e.recorder, -0.25, -0.25, -2499}, // the slider stands there already
        {e.offset, e.recorder, -0.5, -0.4999, -4999},
        {e.offset, e.recorder, 0.5, 0.5, 5000},
        {e.offset, e.recorder, NaN, 0.5, 5000},
        {e.offset, e.recorder, -Infinity, -0.5, -5000},
        {e.offset, e.recorder, 1e300, 0.5, 5000},
    };
    for (const auto& row : rows) {
        row.value.set(row.set);
        QCOMPARE(row.value.State(row.set), row.value.Text(row.set, row.shown, row.slider));
        QCOMPARE(row.recorder.Take(), QStringList());
    }
    // Still connected, once.
    g.gamma.spin->setValue(1);
    QCOMPARE(g.recorder.Take(), HBClosingCalls(1, "GammaChanged()"));
    e.offset.slider->setValue(0);
    QCOMPARE(e.recorder.Take(), HBClosingCalls(1, "OffsetChanged()"));
}

/// Each call of SetExposure leaves two more connections behind.
void tst_HBSingleValuePanels::setExposure() {
    Exposure f;
    const auto told = [](int times) { return HBClosingCalls(times, "ExposureChanged()"); };
    f.panel.SetExposure(1.0); // the first connection and the one that the call begins with
    QCOMPARE(f.recorder.Take(), told(2));
    QCOMPARE(f.exposure.slider->value(), 10000);
    f.exposure.spin->setValue(1.5);
    QCOMPARE(f.recorder.Take(), told(3));
    f.panel.SetExposure(2.0);
    QCOMPARE(f.recorder.Take(), told(4));
    f.panel.SetExposure(2.0); // no change, but two more
    QCOMPARE(f.recorder.Take(), QStringList());
    f.exposure.slider->setValue(15000);
    QCOMPARE(f.recorder.Take(), told(7));
    f.panel.SetExposure(NaN);
    QCOMPARE(f.panel.GetExposure(), 1.5);
    f.offset.spin->setValue(0.1);
    QCOMPARE(f.recorder.Take(), HBClosingCalls(1, "OffsetChanged()"));
    f.panel.OnReset();
    QCOMPARE(f.recorder.Take(), told(7) + HBClosingCalls(1, "OffsetChanged()"));

    for (const double hostile : {1e300, -1e300, Infinity, -Infinity}) {
        Exposure h;
        h.panel.SetExposure(hostile);
        QCOMPARE(h.panel.GetExposure(), hostile > 0 ? 20.0 : -20.0);
    }
}

void tst_HBSingleValuePanels::moreDigitsThanTheBox() {
    Exposure f;
    // The box rounds to 1.0001 and tells; the slider truncates to 10000, writes back, and it is told again.
    f.panel.SetExposure(1.00009);
    QCOMPARE(f.panel.GetExposure(), 1.0);
    QCOMPARE(f.exposure.slider->value(), 10000);
    QCOMPARE(f.recorder.Take(), HBClosingCalls(4, "ExposureChanged()"));
}

/// Return in a spin box tells its value again, changed or not.
void tst_HBSingleValuePanels::returnKey() {
    Exposure f;
    f.exposure.spin->setFocus();
    QTest::keyClick(f.exposure.spin, Qt::Key_Return);
    QCOMPARE(f.recorder.Take(), HBClosingCalls(1, "ExposureChanged()"));
    QCOMPARE(f.panel.GetExposure(), 0.0);
}

void tst_HBSingleValuePanels::reset() {
    Exposure e;
    e.exposure.spin->setValue(1.2);
    e.offset.spin->setValue(0.1);
    e.recorder.Take();
    e.panel.OnReset();
    QCOMPARE(e.recorder.Take(), HBClosingCalls(1, "ExposureChanged()") + HBClosingCalls(1, "OffsetChanged()"));
    QCOMPARE(qMakePair(e.panel.GetExposure(), e.panel.GetOffset()), qMakePair(0.0, 0.0));
    QCOMPARE(qMakePair(e.exposure.slider->value(), e.offset.slider->value()), qMakePair(0, 0));
    e.panel.OnReset();
    QCOMPARE(e.recorder.Take(), QStringList());

    Gamma g;
    g.panel.SetGamma(2);
    g.panel.OnReset();
    QCOMPARE(g.recorder.Take(), HBClosingCalls(1, "GammaChanged()"));
    QCOMPARE(g.panel.GetGamma(), 1.0);
    QCOMPARE(g.gamma.slider->value(), 100);
}

void tst_HBSingleValuePanels::posterize() {
    Posterize f;
    for (const auto& [set, shown] : {std::pair{1, 2}, {300, 255}, {7, 7}, {std::numeric_limits<int>::min(), 2}}) {
        f.panel.SetPosterize(set);
        QCOMPARE(f.panel.GetPosterize(), shown);
        QCOMPARE(f.slider->value(), shown);
        QCOMPARE(f.recorder.Take(), QStringList());
    }
    for (QObject* control : QVector<QObject*>{f.spin, f.slider}) {
        const int wanted = f.spin->value() + 10;
        QVector<int> seen;
        f.recorder.Once("PosterizeChanged()", [&] { seen = {f.spin->value(), f.slider->value()}; });
        control->setProperty("value", wanted);
        QCOMPARE(seen, QVector<int>({wanted, wanted})); // the form's link comes first
        QCOMPARE(f.recorder.Take(), HBClosingCalls(1, "PosterizeChanged()"));
    }
    f.panel.OnReset();
    QCOMPARE(f.panel.GetPosterize(), 4);
    QCOMPARE(f.recorder.Take(), HBClosingCalls(1, "PosterizeChanged()"));
    f.panel.OnReset();
    QCOMPARE(f.recorder.Take(), QStringList());
}

void tst_HBSingleValuePanels::results() {
    const HBImage<> photo = HBTestRamp(200, 200);
    Gamma g;
    g.panel.SetImage(photo, {}, {}, {});
    QVERIFY(g.Finish());
    QCOMPARE(g.panel.AdjustedImage().ToQImage(), photo.ToQImage()); // neutral
    g.panel.SetGamma(2.2);
    CheckResult(g, HBIterativeGammaCorrectionTransformation(2.2));

    Exposure e;
    e.panel.SetImage(photo, {}, {}, {});
    QVERIFY(e.Finish());
    QCOMPARE(e.panel.AdjustedImage().ToQImage(), photo.ToQImage());
    e.panel.SetExposure(-1.5);
    e.panel.SetOffset(0.125);
    QVERIFY(e.Finish());
    CheckResult(e, HBIterativeExposureTransformation(-1.5, 0.125));

    Posterize p;
    CheckResult(p, HBIterativePosterizeTransformation(4));
    p.spin->setValue(9); // by the debounce
    QVERIFY(p.recorder.WaitFor("ImageReady", 3));
    p.panel.SetPosterize(2);
    CheckResult(p, HBIterativePosterizeTransformation(2));

    // A record that no form made counts as what its form would take.
    const auto pixels = [&photo](const auto& params) { return HBAdjust(params, {photo}).image.ToQImage(); };
    const auto of = [&photo](const auto& transformation) {
        return HBTransformed(photo, transformation).ToQImage();
    };
    for (const auto& [given, taken] : {std::pair{1.2351, 1.24}, {0.001, 0.01}, {Infinity, 5.0}, {NaN, 1.0}})
        QCOMPARE(pixels(HBGammaCorrectionParams{given}), of(HBIterativeGammaCorrectionTransformation(taken)));
    QCOMPARE(pixels(HBExposureParams{1.23456, -7}), of(HBIterativeExposureTransformation(1.2346, -0.5)));
    QCOMPARE(pixels(HBPosterizeParams{-1}), of(HBIterativePosterizeTransformation(2)));
}

void tst_HBSingleValuePanels::deletedAtOnce() {
    DeleteAtOnce<HBGammaCorrectionWidget>();
    DeleteAtOnce<HBExposureWidget>();
    DeleteAtOnce<HBPosterizeWidget>();
}

HB_TEST_MAIN(tst_HBSingleValuePanels)
#include "tst_HBSingleValuePanels.moc"
