// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelFixture.h"
#include "HBTestMain.h"

#include <HBExposureWidget.h>

#include <QDoubleSpinBox>
#include <QSlider>

#include <limits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

struct Fixture : HBPanelFixture<HBExposureWidget> {
    QDoubleSpinBox* exposure = Find<QDoubleSpinBox>("m_pExposureSpin");
    QSlider* exposureSlider = Find<QSlider>("m_pExposureSlider");
    QDoubleSpinBox* offset = Find<QDoubleSpinBox>("m_pOffsetSpin");
    QSlider* offsetSlider = Find<QSlider>("m_pOffsetSlider");
};

QStringList Told(int times) { return HBClosingCalls(times, "ExposureChanged()"); }

} // namespace

class tst_HBExposureWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// The slider is put on the truncated step: a negative value lands one nearer zero.
    void steps() {
        Fixture f;
        for (const auto& [entered, step] :
             {std::pair{20.0, 200000}, {-20.0, -199999}, {-0.0001, 0}, {1.2345, 12345}}) {
            f.exposure->setValue(entered);
            QCOMPARE(f.panel.GetExposure(), entered);
            QCOMPARE(f.exposureSlider->value(), step);
            QCOMPARE(f.recorder.Take(), Told(1));
        }
        for (const auto& [step, told] : {std::pair{-2499, 1}, {-2500, 0}}) {
            f.offsetSlider->setValue(-2500); // jumps back, the first time; then the box does not change
            QCOMPARE(f.panel.GetOffset(), -0.25);
            QCOMPARE(f.offsetSlider->value(), step);
            QCOMPARE(f.recorder.Take(), HBClosingCalls(told, "OffsetChanged()"));
        }
    }

    void setOffset() {
        Fixture f;
        const struct {
            double set, shown;
            int slider;
        } rows[] = {{-0.25, -0.2499, -2499},  {-0.25, -0.25, -2499}, // the slider stands there already
                    {-0.5, -0.4999, -4999},   {0.5, 0.5, 5000},      {qQNaN(), 0.5, 5000},
                    {-Infinity, -0.5, -5000}, {1e300, 0.5, 5000}};
        for (const auto& row : rows) {
            f.panel.SetOffset(row.set);
            QCOMPARE(f.panel.GetOffset(), row.shown);
            QCOMPARE(f.offsetSlider->value(), row.slider);
            QCOMPARE(f.recorder.Take(), QStringList());
        }
        f.offsetSlider->setValue(0); // still connected, once
        QCOMPARE(f.recorder.Take(), HBClosingCalls(1, "OffsetChanged()"));
    }

    /// Each call of SetExposure leaves two more connections behind.
    void setExposure() {
        Fixture f;
        f.panel.SetExposure(1.0); // the first connection and the one that the call begins with
        QCOMPARE(f.recorder.Take(), Told(2));
        QCOMPARE(f.exposureSlider->value(), 10000);
        f.exposure->setValue(1.5);
        QCOMPARE(f.recorder.Take(), Told(3));
        f.panel.SetExposure(2.0);
        QCOMPARE(f.recorder.Take(), Told(4));
        f.panel.SetExposure(2.0); // no change, but two more
        QCOMPARE(f.recorder.Take(), QStringList());
        f.exposureSlider->setValue(15000);
        QCOMPARE(f.recorder.Take(), Told(7));
        f.panel.SetExposure(qQNaN());
        QCOMPARE(f.panel.GetExposure(), 1.5);
        f.offset->setValue(0.1);
        QCOMPARE(f.recorder.Take(), HBClosingCalls(1, "OffsetChanged()"));
        f.panel.OnReset();
        QCOMPARE(f.recorder.Take(), Told(7) + HBClosingCalls(1, "OffsetChanged()"));

        for (const double hostile : {1e300, -1e300, Infinity, -Infinity}) {
            Fixture h;
            h.panel.SetExposure(hostile);
            QCOMPARE(h.panel.GetExposure(), hostile > 0 ? 20.0 : -20.0);
        }
        // The box rounds to 1.0001 and tells; the slider truncates to 10000, writes back, and it is told again.
        Fixture g;
        g.panel.SetExposure(1.00009);
        QCOMPARE(g.panel.GetExposure(), 1.0);
        QCOMPARE(g.exposureSlider->value(), 10000);
        QCOMPARE(g.recorder.Take(), Told(4));
    }
};

HB_TEST_MAIN(tst_HBExposureWidget)
#include "tst_HBExposureWidget.moc"
