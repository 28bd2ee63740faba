// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelFixture.h"
#include "HBTestMain.h"

#include <HBPosterizeWidget.h>

#include <QSlider>
#include <QSpinBox>

#include <limits>

class tst_HBPosterizeWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void posterize() {
        HBPanelFixture<HBPosterizeWidget> f;
        auto* spin = f.Find<QSpinBox>("m_pPosterizeSpin");
        auto* slider = f.Find<QSlider>("m_pPosterizeSlider");
        for (const auto& [set, shown] :
             {std::pair{1, 2}, {300, 255}, {7, 7}, {std::numeric_limits<int>::min(), 2}}) {
            f.panel.SetPosterize(set);
            QCOMPARE(f.panel.GetPosterize(), shown);
            QCOMPARE(slider->value(), shown);
            QCOMPARE(f.recorder.Take(), QStringList());
        }
        for (QObject* control : QVector<QObject*>{spin, slider}) {
            const int wanted = spin->value() + 10;
            QVector<int> seen;
            f.recorder.Once("PosterizeChanged()", [&] { seen = {spin->value(), slider->value()}; });
            control->setProperty("value", wanted);
            QCOMPARE(seen, QVector<int>({wanted, wanted})); // the form's link comes first
            QCOMPARE(f.recorder.Take(), HBClosingCalls(1, "PosterizeChanged()"));
        }
    }
};

HB_TEST_MAIN(tst_HBPosterizeWidget)
#include "tst_HBPosterizeWidget.moc"
