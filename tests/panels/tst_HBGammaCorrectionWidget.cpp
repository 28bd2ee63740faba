// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelFixture.h"
#include "HBTestMain.h"

#include <HBGammaCorrectionWidget.h>

#include <QDoubleSpinBox>
#include <QSlider>

#include <limits>

class tst_HBGammaCorrectionWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void setGamma() {
        constexpr double Infinity = std::numeric_limits<double>::infinity();
        HBPanelFixture<HBGammaCorrectionWidget> f;
        auto* spin = f.Find<QDoubleSpinBox>("m_pGammaSpin");
        auto* slider = f.Find<QSlider>("m_pGammaSlider");
        const struct {
            double set, shown;
            int slider;
        } rows[] = {{1.5, 1.5, 150},    {qQNaN(), 1.5, 150},
                    {9, 5, 500},        {1.239, 1.23, 123}, // the slider, truncated, writes back
                    {1e9, 5, 500},      {-1e300, 0.01, 1},
                    {Infinity, 5, 500}, {-Infinity, 0.01, 1}};
        for (const auto& row : rows) {
            f.panel.SetGamma(row.set);
            QCOMPARE(f.panel.GetGamma(), row.shown);
            QCOMPARE(slider->value(), row.slider);
            QCOMPARE(f.recorder.Take(), QStringList());
        }
        spin->setValue(0.29); // still connected, once
        QCOMPARE(f.recorder.Take(), HBClosingCalls(1, "GammaChanged()"));
        QCOMPARE(slider->value(), 29); // 28.999… without the addend
    }
};

HB_TEST_MAIN(tst_HBGammaCorrectionWidget)
#include "tst_HBGammaCorrectionWidget.moc"
