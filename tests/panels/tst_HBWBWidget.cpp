// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelChecks.h"
#include "HBTestMain.h"

#include <HBBlend.h>
#include <HBHistogrammCalculator.h>
#include <HBIterativeLevelsTransformation.h>
#include <HBIterativePhotoFilterTransformation.h>
#include <HBLevels.h>
#include <HBTemperatureCorrection.h>
#include <HBWBWidget.h>
#include <KMIterativeWBTransformation.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>

namespace {

using Params = HBWBWidget::Params;
using Values = QVector<int>;

Values ValuesOf(const Params& p) {
    return {p.enchanced, p.autoStrength,   p.overexposureStrength, p.underexposureStrength,
            p.mode,      p.useTemperature, p.temperature,          p.temperatureStrength};
}

Params WithMode(int mode, int strength = 50, bool enchanced = false) {
    return {enchanced, strength, strength, strength, mode, false, 0, 50};
}

struct Fixture : HBPanelFixture<HBWBWidget> {
    using HBPanelFixture::HBPanelFixture;

    Values Record() const { return ValuesOf(panel.GetValue()); }
    /// Which button is checked, 3 if none is; the strength, on both controls.
    Values Mode() const {
        const int mode = automatic->isChecked() ? 0 : over->isChecked() ? 1 : under->isChecked() ? 2 : 3;
        return {mode, strength->value(), strengthSpin->value()};
    }
    QImage Result(const Params& params, const HBImage<>& photo, const HBImage<>& mask = {},
                  const QPoint& offset = {}, const QRect& bounds = {}) {
        panel.SetValue(params);
        panel.SetImage(photo, mask, offset, bounds);
        return Finish() ? panel.AdjustedImage().ToQImage() : QImage();
    }

    QRadioButton* automatic = Find<QRadioButton>("m_pAuto");
    QRadioButton* over = Find<QRadioButton>("m_pOverexposure");
    QRadioButton* under = Find<QRadioButton>("m_pUnderexposure");
    QCheckBox* enchanced = Find<QCheckBox>("m_pEnchanced");
    QSlider* strength = Find<QSlider>("m_pWBStrength");
    QSpinBox* strengthSpin = Find<QSpinBox>("spinBox");
    QGroupBox* useTemperature = Find<QGroupBox>("m_pTemperatureContent");
    QSpinBox* temperature = Find<QSpinBox>("m_pTemperature");
    QSlider* temperatureStrengthSlider = Find<QSlider>("slider_2");
};

/// A picture with a warm cast, whose channels keep to 10..200, 20..150 and 5..100.
HBImage<> CastPhoto(int width = 257, int height = 130) {
    return HBTestPicture(width, height, [](int x, int y) {
        const int v = (x + 2 * y) % 96;
        return qRgba(10 + 2 * v, 20 + 130 * v / 95, 5 + v, 255 - (x & 63));
    });
}

/// Advanced automatic correction, stage by stage, each weighted by the selection.
QImage Advanced(const HBImage<>& photo, int strength, const HBImage<>& mask = {}, const QPoint& offset = {},
                const QRect& bounds = {}) {
    const KMIterativeWBTransformation balance(photo, KMWBTransformation::AutoBalance, 100);
    const HBImage<> balanced = HBTransformed(photo, balance, mask, offset, bounds);
    const HBLevelsSettings levels =
        HBAutomaticLevels(HBHistogrammCalculator::Count(balanced, {0, 0, photo.Width(), photo.Height()}));
    const HBIterativeLevelsTransformation stretch(levels.input, levels.output, levels.gamma, 100);
    const HBImage<> stretched = HBTransformed(balanced, stretch, mask, offset, bounds);
    const QImage below = photo.ToQImage();
    const QImage above = stretched.ToQImage();
    const QImage coverages = mask.ToQImage();
    const QRect selected = bounds.translated(offset) & coverages.rect().translated(offset);
    const int opacity = strength * 256 / 100;
    const auto mixed = [&](int x, int y) {
        QRgb result = 0;
        for (int shift = 0; shift < 32; shift += 8) {
            const int a = (above.pixel(x, y) >> shift) & 255;
            const int b = (below.pixel(x, y) >> shift) & 255;
            result |= QRgb((a * opacity + b * (256 - opacity) + 128) / 256) << shift;
        }
        if (!bounds.isValid()) return result;
        if (!selected.contains(x, y)) return below.pixel(x, y);
        HBRGBA32i pixel = HBRGBA32i::FromRgba(result);
        HBBlend::HBSourceBySelection()(HBRGBA32i::FromRgba(below.pixel(x, y)), pixel,
                                       HBRGBA32i::FromRgba(coverages.pixel(QPoint(x, y) - offset)));
        return pixel.ToRgba();
    };
    return HBTestPicture(photo.Width(), photo.Height(), mixed).ToQImage();
}

} // namespace

class tst_HBWBWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// On purpose: a new panel neither shows its record nor listens. SetValue, and so OnReset, does both.
    void deafBeforeSetValue() {
        Fixture f;
        QCOMPARE(f.Record(), ValuesOf({}));
        QCOMPARE(f.Mode(), Values({0, 0, 0}));
        QVERIFY(f.useTemperature->isChecked());
        f.strength->setValue(7);
        f.over->click();
        f.temperature->setValue(5);
        f.temperatureStrengthSlider->setValue(5);
        f.useTemperature->setChecked(false);
        QVERIFY(!f.enchanced->isEnabled()); // the form's own link
        QCOMPARE(f.Record(), ValuesOf({}));
        QCOMPARE(f.recorder.Take(), QStringList());

        f.panel.OnReset();
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        QCOMPARE(f.Mode(), Values({0, 50, 50}));
        f.temperature->setValue(6);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
    }

    void threeStrengths() {
        Fixture f;
        f.panel.SetValue({});
        const struct {
            QRadioButton* mode; ///< clicked, or null:
            int strength;       ///< set, or shown after the click
            Values stored;      ///< the three strengths and the mode
        } moves[] = {{f.over, 100, {50, 100, 100, 1}},    {nullptr, 70, {50, 70, 100, 1}},
                     {f.automatic, 50, {50, 70, 100, 0}}, {nullptr, 20, {20, 70, 100, 0}},
                     {f.under, 100, {20, 70, 100, 2}},    {nullptr, 90, {20, 70, 90, 2}},
                     {f.over, 70, {20, 70, 90, 1}},       {f.automatic, 20, {20, 70, 90, 0}}};
        for (const auto& move : moves) {
            if (move.mode)
                move.mode->click();
            else
                f.strengthSpin->setValue(move.strength); // by its link to the slider
            QCOMPARE(f.Record().mid(1, 4), move.stored);
            QCOMPARE(f.Mode(), Values({move.stored[3], move.strength, move.strength}));
            QCOMPARE(f.enchanced->isEnabled(), move.stored[3] == 0);
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
        }
        f.automatic->click(); // is checked already
        QCOMPARE(f.recorder.Take(), QStringList());
    }

    /// A mode that does not exist leaves buttons and strength as they were; its strength is nobody's.
    void foreignMode() {
        const HBImage<> photo = CastPhoto(40, 30);
        for (const int mode : {5, 3, -1, MostInt, LeastInt}) {
            Fixture f;
            f.panel.SetValue({false, 11, 22, 33, 1, false, 0, 50});
            const Params params{true, 44, 55, 66, mode, true, 7, 0};
            f.panel.SetValue(params);
            QCOMPARE(f.Mode(), Values({1, 22, 22}));
            QVERIFY(f.enchanced->isChecked() && f.useTemperature->isChecked());
            QCOMPARE(f.temperature->value(), 7);
            f.strength->setValue(99);
            QCOMPARE(f.Record(), ValuesOf(params));
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
            QCOMPARE(f.Result(params, photo), photo.ToQImage());
        }
    }

    void advanced() {
        Fixture f(false);
        for (const HBImage<>& photo : {CastPhoto(), CastPhoto(130, 1)}) {
            for (const int strength : {0, 1, 50, 99, 100})
                QCOMPARE(f.Result(WithMode(0, strength, true), photo), Advanced(photo, strength));
            QCOMPARE(f.Result(WithMode(0, LeastInt, true), photo), photo.ToQImage());
            QCOMPARE(f.Result(WithMode(0, MostInt, true), photo), Advanced(photo, 100));
        }
    }

    /// The whole picture is measured, what is selected is changed; partly selected pixels are weighted at every
    /// stage.
    void advancedWithSelection() {
        const HBImage<> photo = CastPhoto();
        Fixture f(false);
        for (const QPoint& offset : {QPoint(0, 0), QPoint(37, -20), QPoint(-60, 100)}) {
            const HBImage<> mask = HBTestMask(120, 110);
            const QRect bounds(3, 4, 110, 90);
            QCOMPARE(f.Result(WithMode(0, 80, true), photo, mask, offset, bounds),
                     Advanced(photo, 80, mask, offset, bounds));
        }
    }

    /// The temperature comes after the correction and its mix.
    void advancedWithTemperature() {
        const HBImage<> photo = CastPhoto(150, 20);
        const HBIterativePhotoFilterTransformation filter(HBTemperatureCorrection::GetTemperatureColor(4250), 60);
        Fixture f(false);
        QCOMPARE(f.Result({true, 70, 0, 0, 0, true, 50, 60}, photo),
                 HBTransformed(HBImage<>::FromQImage(Advanced(photo, 70)), filter).ToQImage());
    }

    /// A range for each step, also where one pass does them all.
    void progress() {
        for (const int steps : {1, 2, 3, 4}) {
            for (const int pieces : {6, 76}) { // tiles; with a selection, and rows
                Params params = WithMode(0, 80, steps > 2);
                params.useTemperature = steps % 2 == 0;
                QStringList expected;
                for (int step = 0; step < steps; ++step) {
                    expected += QString("ProgressRangeChanged(0,%1)").arg(pieces);
                    for (int i = 1; i <= pieces; ++i) expected += QString("ProgressValueChanged(%1)").arg(i);
                }
                expected += {"ProgressRangeChanged(0,100)", "ProgressValueChanged(100)"};
                Fixture f(false);
                f.Result(params, CastPhoto(), HBTestMask(120, 110), {17, -20},
                         pieces == 6 ? QRect() : QRect(3, 4, 110, 90));
                QCOMPARE(f.recorder.Take().filter("Progress"), expected);
            }
        }
    }

    void cancelledLook() {
        for (const int mode : {0, 1, 2}) HBVerifyCancelledLook(WithMode(mode));
        HBVerifyCancelledLook(WithMode(0, 50, true));
    }
};

HB_TEST_MAIN(tst_HBWBWidget)
#include "tst_HBWBWidget.moc"
