// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelChecks.h"
#include "HBTestMain.h"

#include <HBWBWidget.h>

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

/// A picture with a warm cast, whose channels keep to 10..200, 20..150 and 5..100. All its colours are in the
/// first 96 columns of a row.
HBImage<> CastPhoto(int width = 257, int height = 130) {
    return HBTestPicture(width, height, [](int x, int y) {
        const int v = (x + 2 * y) % 96;
        return qRgba(10 + 2 * v, 20 + 130 * v / 95, 5 + v, 255 - (x & 63));
    });
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

    // What advanced correction makes of that picture was worked out elsewhere, from the definitions of its stages.

    void advanced() {
        const int columns[] = {0, 20, 40, 60, 95};
        const struct {
            int strength;
            QRgb colors[5];
        } rows[] = {{0, {0x0a1405, 0x322f19, 0x5a4a2d, 0x826641, 0xc89664}},
                    {LeastInt, {0x0a1405, 0x322f19, 0x5a4a2d, 0x826641, 0xc89664}},
                    {1, {0x0a1405, 0x322f19, 0x5a4a2d, 0x826642, 0xc89765}},
                    {50, {0x050a03, 0x343329, 0x635a4d, 0x928472, 0xe4cbb2}},
                    {99, {0x000000, 0x353638, 0x6c696b, 0xa1a0a1, 0xfefefd}},
                    {100, {0x000000, 0x353638, 0x6c696c, 0xa1a1a2, 0xffffff}},
                    {MostInt, {0x000000, 0x353638, 0x6c696c, 0xa1a1a2, 0xffffff}}};
        Fixture f(false);
        const HBImage<> photo = CastPhoto();
        for (const auto& row : rows) {
            const QImage result = f.Result(WithMode(0, row.strength, true), photo);
            for (int i = 0; i < 5; ++i) {
                const int x = columns[i];
                for (const int y : {0, 96}) // the same colours, in other tiles
                    QCOMPARE(result.pixel(x, y), QRgb(255 - (x & 63)) << 24 | row.colors[i]);
            }
        }
    }

    /// The whole picture is measured, what is selected is changed; partly selected pixels are weighted at every
    /// stage. A selection of everything is none.
    void advancedWithSelection() {
        const HBImage<> photo = CastPhoto();
        const Params params = WithMode(0, 80, true);
        Fixture f(false);
        for (const HBImage<>& whole : {photo, CastPhoto(130, 1)}) {
            const QSize size(whole.Width(), whole.Height());
            QCOMPARE(f.Result(params, whole, HBTestMask(size.width(), size.height(), 255), {}, QRect({}, size)),
                     f.Result(params, whole));
        }
        const QImage before = photo.ToQImage();
        const HBImage<> mask = HBTestMask(120, 110);
        const QImage coverages = mask.ToQImage();
        const QRect bounds(3, 4, 110, 90);
        const struct {
            QPoint offset;
            struct {
                int coverage;
                QPoint at;
                QRgb color;
            } pixels[3];
        } rows[] = {
            {{0, 0}, {{64, {66, 22}, 0x252715}, {200, {43, 49}, 0x62695c}, {255, {84, 30}, 0x658084}}},
            {{37, -20}, {{64, {70, 23}, 0x31301b}, {200, {139, 38}, 0x333b36}, {255, {125, 17}, 0x85a7ad}}},
            {{-60, 100}, {{64, {28, 108}, 0x725e3d}, {128, {12, 124}, 0x93815f}, {255, {33, 128}, 0x02090f}}}};
        for (const auto& row : rows) {
            const QImage after = f.Result(params, photo, mask, row.offset, bounds);
            for (const auto& pixel : row.pixels) {
                QCOMPARE(qAlpha(coverages.pixel(pixel.at - row.offset)), pixel.coverage);
                QCOMPARE(after.pixel(pixel.at) & 0xffffff, pixel.color);
            }
            for (int y = 0; y < before.height(); ++y) {
                for (int x = 0; x < before.width(); ++x) {
                    const QPoint onMask = QPoint(x, y) - row.offset;
                    if (bounds.contains(onMask) && qAlpha(coverages.pixel(onMask)) > 0) continue;
                    QCOMPARE(after.pixel(x, y), before.pixel(x, y));
                }
            }
        }
    }

    /// The temperature comes after the correction and its mix.
    void advancedWithTemperature() {
        const HBImage<> photo = CastPhoto(150, 20);
        Fixture f(false);
        const QImage advanced = f.Result(WithMode(0, 70, true), photo);
        QCOMPARE(f.Result({true, 70, 0, 0, 0, true, 50, 60}, photo),
                 f.Result({false, 0, 0, 0, 0, true, 50, 60}, HBImage<>::FromQImage(advanced)));
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
