// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLogCapture.h"
#include "HBPanelChecks.h"
#include "HBTestMain.h"

#include <HBColorBalanceWidget.h>

#include <QCheckBox>
#include <QRadioButton>

namespace {

using Params = HBColorBalanceWidget::Params;
using Values = QVector<int>;

/// Every value is another one, so that no two can be mistaken for each other.
Params Sample(int toneRange) { return {{10, 20, 30}, {-1, -2, -3}, {70, 80, 90}, toneRange, false}; }

Values ValuesOf(const Params& params) {
    Values values;
    for (const auto* axis : {params.cyanRed, params.magentaGreen, params.yellowBlue})
        values += {axis[0], axis[1], axis[2]};
    return values + Values{params.toneRange, params.preserveLuminosity};
}

struct Fixture : HBPanelFixture<HBColorBalanceWidget> {
    using HBPanelFixture::HBPanelFixture;

    Values Record() const { return ValuesOf(panel.GetValue()); }
    Values Spins() const { return {red->value(), green->value(), blue->value()}; }
    /// 0 if none, -1 if several are checked.
    int Range() const {
        const int checked = int(shadows->isChecked()) + midtones->isChecked() + highlights->isChecked();
        return checked > 1 ? -1 : shadows->isChecked() ? 1 : midtones->isChecked() ? 2 : checked * 3;
    }
    bool Enabled() const {
        const bool enabled = luminosity->isEnabled();
        for (const QWidget* spin : {red, green, blue}) {
            if (spin->isEnabled() != enabled) QTest::qFail("the values are not enabled alike", __FILE__, __LINE__);
        }
        return enabled;
    }

    QSlider* redSlider = Find<QSlider>("m_pCRSlider");
    QSlider* greenSlider = Find<QSlider>("m_pMGSlider");
    QSlider* blueSlider = Find<QSlider>("m_pYBSlider");
    QSpinBox* red = Find<QSpinBox>("m_pCRSpin");
    QSpinBox* green = Find<QSpinBox>("m_pMGSpin");
    QSpinBox* blue = Find<QSpinBox>("m_pYBSpin");
    QRadioButton* shadows = Find<QRadioButton>("m_pShadows");
    QRadioButton* midtones = Find<QRadioButton>("m_pMidtones");
    QRadioButton* highlights = Find<QRadioButton>("m_pHighlights");
    QCheckBox* luminosity = Find<QCheckBox>("m_pLuminosity");
};

} // namespace

class tst_HBColorBalanceWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// Before the first SetValue no button is checked, but the midtones are what is edited.
    void fresh() {
        Fixture f;
        QCOMPARE(f.Range(), 0);
        QCOMPARE(f.Record(), ValuesOf({}));
        f.red->setValue(40);
        QCOMPARE(f.Record(), Values({0, 40, 0, 0, 0, 0, 0, 0, 0, 2, 1}));
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        f.shadows->setChecked(true);
        QCOMPARE(f.Spins(), Values({0, 0, 0}));
        for (const char* slider : {"m_pCRSlider", "m_pMGSlider", "m_pYBSlider"})
            QVERIFY(HBShowsItsValue(f.Find<QSlider>(slider)));
    }

    void setValue() {
        const struct {
            int toneRange, shown;
            Values spins;
        } rows[] = {{0, 0, {0, 0, 0}},
                    {1, 1, {10, -1, 70}},
                    {2, 2, {20, -2, 80}},
                    {3, 3, {30, -3, 90}},
                    // A range that does not exist checks no button, unchecks none and shows zeros.
                    {7, 3, {0, 0, 0}},
                    {4, 3, {0, 0, 0}},
                    {-1, 3, {0, 0, 0}},
                    {MostInt, 3, {0, 0, 0}},
                    {LeastInt, 3, {0, 0, 0}}};
        for (const auto& row : rows) {
            Fixture f;
            for (int round = 0; round < 2; ++round) {
                f.panel.SetValue(Sample(3)); // before it, the highlights
                f.panel.SetValue(Sample(row.toneRange));
                QCOMPARE(f.Record(), ValuesOf(Sample(row.toneRange)));
                QCOMPARE(f.Range(), row.shown);
                QCOMPARE(f.Spins(), row.spins);
                QCOMPARE(f.Enabled(), row.toneRange != 0);
                QVERIFY(f.redSlider->isEnabled());
                QVERIFY(!f.luminosity->isChecked());
                QCOMPARE(f.recorder.Take(), QStringList());
            }
            f.midtones->click(); // the buttons exclude each other still, and enable the values
            QCOMPARE(f.Range(), 2);
            QVERIFY(f.Enabled());
            QCOMPARE(f.panel.GetValue().toneRange, 2);
        }
    }

    /// The sliders stay enabled: nothing is stored, but the host is told.
    void noRange() {
        for (const int toneRange : {0, 7, LeastInt}) {
            Fixture f;
            f.panel.SetValue(Sample(toneRange));
            f.redSlider->setValue(33);
            f.blue->setValue(-7);
            QCOMPARE(f.recorder.Take(), HBClosingCalls(2));
            QCOMPARE(f.Record(), ValuesOf(Sample(toneRange)));
        }
    }
};

HB_TEST_MAIN(tst_HBColorBalanceWidget)
#include "tst_HBColorBalanceWidget.moc"
