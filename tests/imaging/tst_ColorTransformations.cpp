// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRunFormCheck.h"
#include "HBTestLight.h"
#include "HBTestMain.h"

#include <HBColorEnhancerTransformation.h>
#include <HBHueSaturationTransformation.h>
#include <HBIterativeBlackAndWhiteTransformation.h>
#include <HBIterativeColorBalanceTransformation.h>
#include <HBIterativeColorizeTransformation.h>
#include <HBIterativePhotoFilterTransformation.h>
#include <HBTemperatureCorrection.h>
#include <HBTintRGB32.h>
#include <KMFillTransformation.h>

#include <QPainter>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <functional>
#include <limits>

namespace {

using Operation = std::function<void(HBRGBA32i&)>;
using Triple = std::array<double, 3>; // red, green, blue

Triple TripleOf(HBRGBA32i pixel) { return {double(pixel.red), double(pixel.green), double(pixel.blue)}; }

/// Whether the operation is within `tolerance` levels of a formula over all dense colours, and keeps alpha.
bool IsFormula(const Operation& operation, const std::function<Triple(const Triple&)>& formula, double tolerance) {
    for (const HBRGBA32i color : HBDenseColors()) {
        HBRGBA32i pixel = color;
        operation(pixel);
        const Triple expected = formula(TripleOf(color));
        const Triple found = TripleOf(pixel);
        for (std::size_t i = 0; i < 3; ++i) {
            if (std::abs(found[i] - qBound(0.0, expected[i], 255.0)) <= tolerance && pixel.alpha == color.alpha)
                continue;
            qWarning("(%d %d %d %d) channel %d: %g instead of %g", color.red, color.green, color.blue, color.alpha,
                     int(i), found[i], expected[i]);
            return false;
        }
    }
    return true;
}

/// Of a formula that is rounded to the nearest level in single precision.
constexpr double Rounded = 0.5 + 1e-3;

bool IsIdentity(const Operation& operation) {
    return IsFormula(
        operation, [](const Triple& color) { return color; }, 0.0);
}

bool AreEqual(const Operation& a, const Operation& b) {
    for (HBRGBA32i pixel : HBDenseColors()) {
        HBRGBA32i other = pixel;
        a(pixel);
        b(other);
        if (pixel != other) return false;
    }
    return true;
}

HBRGBA32i Apply(const Operation& operation, int red, int green, int blue) {
    HBRGBA32i pixel(std::uint8_t(red), std::uint8_t(green), std::uint8_t(blue), 77);
    operation(pixel);
    return pixel;
}

// The operations behind the transformations of tiles.

HBColorBalance Balance(std::array<int, 3> red, std::array<int, 3> green, std::array<int, 3> blue) {
    return HBIterativeColorBalanceTransformation(red.data(), green.data(), blue.data()).Operation();
}

HBPhotoFilter Filter(HBRGBA32i color, int density) {
    return HBIterativePhotoFilterTransformation(color, density).Operation();
}

HBColorize Colorize(HBRGBA32i color, int amount) {
    return HBIterativeColorizeTransformation(color, amount).Operation();
}

HBBlackAndWhite BlackAndWhite(bool cie, float red, float green, float blue) {
    return HBIterativeBlackAndWhiteTransformation(cie, red, green, blue).Operation();
}

HBTemperatureCorrection Temperature(int kelvin, int strength, int tint) {
    HBTemperatureCorrection correction;
    correction.SetData(kelvin, strength, tint);
    return correction;
}

KMFillTransformation Fill(HBRGBA32i color) {
    KMFillTransformation fill;
    fill.SetData(color);
    return fill;
}

HBLevelsTransformation EnhancerLevels() {
    return HBLevelsTransformation(HBLevelsSettings{{{0, 255}, {20, 200}, {0, 100}, {50, 255}}});
}

HBColorEnhancerTransformation Enhancer(int amount) {
    HBColorEnhancerTransformation enhancer;
    enhancer.SetLevels(EnhancerLevels());
    enhancer.SetAmountData(amount);
    return enhancer;
}

// Second implementations, one pixel at a time. The non-separable blend modes as W3C Compositing and Blending 1 has
// them, with levels instead of 0..1.

double Lum(const Triple& c) { return 0.3 * c[0] + 0.59 * c[1] + 0.11 * c[2]; }

Triple SetLum(Triple c, double luminosity) {
    const double difference = luminosity - Lum(c);
    for (double& channel : c) channel += difference;
    const double l = Lum(c);
    const double n = *std::min_element(c.begin(), c.end());
    const double x = *std::max_element(c.begin(), c.end());
    for (double& channel : c) {
        if (n < 0.0) channel = l + (channel - l) * l / (l - n);
        if (x > 255.0) channel = l + (channel - l) * (255.0 - l) / (x - l);
    }
    return c;
}

Triple Mix(const Triple& from, const Triple& to, int percent) {
    Triple result;
    for (std::size_t i = 0; i < 3; ++i) result[i] = from[i] + (to[i] - from[i]) * percent / 100.0;
    return result;
}

Triple QtHsl(const Triple& color, int hue, int saturation, int lightness, bool colorize) {
    const auto c = QColor::fromRgb(int(color[0]), int(color[1]), int(color[2]));
    const double turned = qMax(0.0, double(c.hslHueF())) + hue / 360.0;
    const double h = colorize ? hue / 360.0 : turned - std::floor(turned);
    const double s = colorize ? (100 + saturation) / 200.0 : c.hslSaturationF() * (1.0 + saturation / 100.0);
    const double l = c.lightnessF();
    const double moved = lightness > 0 ? l + (1.0 - l) * lightness / 100.0 : l * (1.0 + lightness / 100.0);
    const QColor result = QColor::fromHslF(qMin(h, 1.0), qMin(s, 1.0), moved).toRgb();
    return {255.0 * result.redF(), 255.0 * result.greenF(), 255.0 * result.blueF()};
}

Triple LightOf(HBRGBA32i pixel) { return {HBDecode(pixel.red), HBDecode(pixel.green), HBDecode(pixel.blue)}; }

double Luminance(const Triple& light) { return 0.2126 * light[0] + 0.7152 * light[1] + 0.0722 * light[2]; }

/// A chromaticity of the CIE 1960 diagram as bright as sRGB can show it, in levels.
Triple ShownChromaticity(double u, double v) {
    const double x = 1.5 * u / v;
    const double z = (2.0 - 0.5 * u - 5.0 * v) / v;
    Triple light = {3.2406 * x - 1.5372 - 0.4986 * z, -0.9689 * x + 1.8758 + 0.0415 * z,
                    0.0557 * x - 0.2040 + 1.0570 * z};
    const double brightest = *std::max_element(light.begin(), light.end());
    for (double& channel : light) channel = HBEncode(qMax(0.0, channel / brightest));
    return light;
}

} // namespace

class tst_ColorTransformations : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void RunFormEqualsScalarForm() {
        const HBRGBA32i orange(236, 138, 0, 9);
        for (bool colorize : {false, true}) {
            QVERIFY(HBRunFormEqualsScalarForm(HBHueSaturationTransformation(200, 40, -30, colorize)));
            QVERIFY(HBRunFormEqualsScalarForm(HBHueSaturationTransformation(7, -20, 60, colorize)));
            QVERIFY(HBRunFormEqualsScalarForm(BlackAndWhite(colorize, 0.212671f, 0.71516f, 0.072169f)));
            QVERIFY(HBRunFormEqualsScalarForm(BlackAndWhite(colorize, 1.0f, -0.5f, 1000.0f)));
        }
        QVERIFY(HBRunFormEqualsScalarForm(Balance({10, -20, 30}, {-100, 100, 0}, {5, 50, -70})));
        QVERIFY(HBRunFormEqualsScalarForm(Filter(orange, 60)));
        QVERIFY(HBRunFormEqualsScalarForm(Colorize(orange, 70)));
        QVERIFY(HBRunFormEqualsScalarForm(Temperature(3000, 80, 20)));
        QVERIFY(HBRunFormEqualsScalarForm(Temperature(1000, 100, 100)));
        QVERIFY(HBRunFormEqualsScalarForm(HBTintRGB32(orange, HBRGBA32i(255, 255, 200), 45)));
        QVERIFY(HBRunFormEqualsScalarForm(Enhancer(33)));
        for (int alpha = 0; alpha < 256; alpha += 5)
            QVERIFY(HBRunFormEqualsScalarForm(Fill(HBRGBA32i(1, 200, 90, std::uint8_t(alpha)))));
    }

    void NeutralIsIdentity() {
        const HBRGBA32i red(255, 0, 0, 100);
        QVERIFY(IsIdentity(HBHueSaturationTransformation(0, 0, 0, false)));
        QVERIFY(IsIdentity(Balance({}, {}, {})));
        QVERIFY(IsIdentity(Filter(red, 0)));
        QVERIFY(IsIdentity(Filter(HBRGBA32i(255, 255, 255), 100)));
        QVERIFY(IsIdentity(HBTemperatureCorrection()));
        QVERIFY(IsIdentity(Temperature(6500, 100, 0)));
        QVERIFY(IsIdentity(Temperature(1000, 0, 100)));
        QVERIFY(IsIdentity(Colorize(red, 0)));
        QVERIFY(IsIdentity(HBTintRGB32(red, red, 0)));
        QVERIFY(IsIdentity(HBTintRGB32(HBRGBA32i(0, 0, 0), HBRGBA32i(255, 255, 255), 100)));
        QVERIFY(IsIdentity(Enhancer(0)));
        QVERIFY(IsIdentity(HBColorEnhancerTransformation()));
        QVERIFY(IsIdentity(KMFillTransformation()));
        QVERIFY(IsIdentity(Fill(HBRGBA32i(9, 9, 9, 0))));
    }

    /// Out of range is as the nearest in range.
    void ArgumentsAreClamped() {
        const HBRGBA32i color(250, 100, 20);
        QVERIFY(AreEqual(HBHueSaturationTransformation(INT_MAX, INT_MAX, INT_MIN, false),
                         HBHueSaturationTransformation(359, 100, -100, false)));
        QVERIFY(AreEqual(HBHueSaturationTransformation(INT_MIN, INT_MIN, INT_MAX, true),
                         HBHueSaturationTransformation(0, -100, 100, true)));
        QVERIFY(AreEqual(Balance({INT_MAX, INT_MIN, 101}, {INT_MIN, -101, 0}, {0, INT_MAX, INT_MAX}),
                         Balance({100, -100, 100}, {-100, -100, 0}, {0, 100, 100})));
        QVERIFY(AreEqual(Filter(color, INT_MAX), Filter(color, 100)));
        QVERIFY(IsIdentity(Filter(color, INT_MIN)));
        QVERIFY(AreEqual(Colorize(color, INT_MAX), Colorize(color, 100)));
        QVERIFY(IsIdentity(Colorize(color, INT_MIN)));
        QVERIFY(AreEqual(HBTintRGB32(color, color, INT_MAX), HBTintRGB32(color, color, 100)));
        QVERIFY(IsIdentity(HBTintRGB32(color, color, INT_MIN)));
        QVERIFY(AreEqual(Enhancer(INT_MAX), Enhancer(100)));
        QVERIFY(IsIdentity(Enhancer(INT_MIN)));
        QVERIFY(AreEqual(Temperature(INT_MIN, INT_MAX, INT_MAX), Temperature(1000, 100, 100)));
        QVERIFY(AreEqual(Temperature(0, 100, INT_MIN), Temperature(1000, 100, -100)));
        QVERIFY(AreEqual(Temperature(INT_MAX, 60, 0), Temperature(40000, 60, 0)));
        QVERIFY(IsIdentity(Temperature(INT_MAX, INT_MIN, 0)));
        for (int kelvin : {INT_MIN, -5, 0, 999})
            QCOMPARE(HBTemperatureCorrection::GetTemperatureColor(kelvin),
                     HBTemperatureCorrection::GetTemperatureColor(1000));
        QCOMPARE(HBTemperatureCorrection::GetTemperatureColor(INT_MAX),
                 HBTemperatureCorrection::GetTemperatureColor(40000));
    }

    void HueSaturation() {
        const std::array<int, 3> rows[] = {{40, 0, 0},      {359, 0, 0},    {0, 60, 0},
                                           {120, -35, 0},   {200, -100, 0}, {10, 20, 45},
                                           {250, 100, -70}, {1, 0, 100},    {1, 0, -100}};
        for (const auto& row : rows) {
            for (bool colorize : {false, true}) {
                // Qt rounds the components of HSL to 16 bits and the hue to hundredths of a degree.
                const auto qt = [=](const Triple& c) { return QtHsl(c, row[0], row[1], row[2], colorize); };
                QVERIFY(IsFormula(HBHueSaturationTransformation(row[0], row[1], row[2], colorize), qt, 0.75));
            }
        }
    }

    void ColorBalance() {
        const std::array<int, 3> red = {10, -20, 30};
        const std::array<int, 3> green = {-100, 100, 0};
        const std::array<int, 3> blue = {0, 50, -70};
        const auto formula = [&](const Triple& c) {
            const double y = (0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2]) / 255.0;
            const auto raised = [=](double level, const std::array<int, 3>& values) {
                return level + values[0] * (1 - y) * (1 - y) + values[1] * 2 * y * (1 - y) + values[2] * y * y;
            };
            return Triple{raised(c[0], red), raised(c[1], green), raised(c[2], blue)};
        };
        QVERIFY(IsFormula(Balance(red, green, blue), formula, Rounded));
    }

    void BlendModes_data() {
        HBColumns<QColor, int>("color", "percent");
        QTest::newRow("orange") << QColor(236, 138, 0) << 25;
        QTest::newRow("pale") << QColor(255, 210, 255) << 60;
        QTest::newRow("blue") << QColor(0, 0, 255) << 100;
        QTest::newRow("black") << QColor(0, 0, 0) << 100;
        QTest::newRow("white") << QColor(255, 255, 255) << 100;
        QTest::newRow("grey") << QColor(99, 99, 99) << 50;
        QTest::newRow("green, transparent") << QColor(0, 255, 0, 0) << 80;
    }
    void BlendModes() {
        QFETCH(QColor, color);
        QFETCH(int, percent);
        const HBRGBA32i pixel = HBRGBA32i::FromRgba(color.rgba());
        const Triple c = TripleOf(pixel);
        const auto filter = [=](const Triple& p) {
            const Triple multiplied = {p[0] * c[0] / 255.0, p[1] * c[1] / 255.0, p[2] * c[2] / 255.0};
            return Mix(p, SetLum(multiplied, Lum(p)), percent);
        };
        const auto colorize = [=](const Triple& p) { return Mix(p, SetLum(c, Lum(p)), percent); };
        const auto tint = [=](const Triple& p) {
            const Triple tone = {c[0] + (40 - c[0]) * p[0] / 255.0, c[1] + (250 - c[1]) * p[1] / 255.0,
                                 c[2] + (0 - c[2]) * p[2] / 255.0};
            return Mix(p, tone, percent);
        };
        QVERIFY(IsFormula(Filter(pixel, percent), filter, Rounded));
        QVERIFY(IsFormula(Colorize(pixel, percent), colorize, Rounded));
        QVERIFY(IsFormula(HBTintRGB32(pixel, HBRGBA32i(40, 250, 0), percent), tint, Rounded));
    }

    /// The chromaticities of the Planckian locus as published by Robertson, "Computation of correlated color
    /// temperature and distribution temperature", J. Opt. Soc. Am. 58 (1968); the last from Wyszecki & Stiles,
    /// Color Science, 2nd ed., (x, y) = (0.6528, 0.3444).
    void TemperatureColor() {
        const struct {
            double mired, u, v;
        } rows[] = {
            {30, 0.18208, 0.27119},
            {50, 0.18388, 0.27709},
            {100, 0.19032, 0.29326},
            {150, 0.19962, 0.30921},
            {200, 0.21142, 0.32312},
            {300, 0.24010, 0.34308},
            {400, 0.27218, 0.35407},
            {600, 0.33724, 0.36051},
            {1000, 4 * 0.6528 / (-2 * 0.6528 + 12 * 0.3444 + 3), 6 * 0.3444 / (-2 * 0.6528 + 12 * 0.3444 + 3)}};
        for (const auto& row : rows) {
            const auto color = HBTemperatureCorrection::GetTemperatureColor(qRound(1e6 / row.mired));
            const Triple expected = ShownChromaticity(row.u, row.v);
            const Triple found = TripleOf(color);
            for (std::size_t i = 0; i < 3; ++i)
                QVERIFY2(std::abs(found[i] - expected[i]) <= 2.0, qPrintable(QString::number(row.mired)));
            QCOMPARE(int(color.alpha), 255);
        }
    }

    void TemperatureTakesWhiteToWhite() {
        // The colour of a black body at 6500 K, not too bright, becomes that of another, with the same luminance.
        const Triple neutral = LightOf(HBTemperatureCorrection::GetTemperatureColor(6500));
        HBRGBA32i start;
        start.red = std::uint8_t(std::lround(HBEncode(0.2 * neutral[0])));
        start.green = std::uint8_t(std::lround(HBEncode(0.2 * neutral[1])));
        start.blue = std::uint8_t(std::lround(HBEncode(0.2 * neutral[2])));
        for (int kelvin : {2500, 4000, 5500, 9000, 20000}) {
            HBRGBA32i pixel = start;
            Temperature(kelvin, 100, 0)(pixel);
            const Triple light = LightOf(HBTemperatureCorrection::GetTemperatureColor(kelvin));
            const double scale = Luminance(LightOf(start)) / Luminance(light);
            const Triple found = TripleOf(pixel);
            for (std::size_t i = 0; i < 3; ++i)
                QVERIFY(std::abs(found[i] - HBEncode(scale * light[i])) <= 1.5); // start and light are rounded
        }
    }

    void TintAndSmallSteps() {
        const auto grey = [](int kelvin, int tint) {
            return Apply(Temperature(kelvin, 100, tint), 128, 128, 128);
        };
        QVERIFY(grey(6500, 50).green < 128 && grey(6500, 50).red > 128); // magenta
        QVERIFY(grey(6500, -50).green > 128 && grey(6500, -50).red < 128);
        // One kelvin does not jump.
        const HBRGBA32i near = grey(6501, 0);
        QVERIFY(std::abs(near.red - 128) <= 1 && std::abs(near.green - 128) <= 1 &&
                std::abs(near.blue - 128) <= 1);
    }

    void BlackAndWhiteWeights() {
        struct Weights {
            float red, green, blue;
        };
        for (const Weights w : {Weights{0.333f, 0.333f, 0.333f}, Weights{0.212671f, 0.71516f, 0.072169f},
                                Weights{2.0f, -1.0f, 0.1f}, Weights{1.0f, 1.0f, 1.0f}}) {
            const auto luma = [=](const Triple& c) {
                const double grey = double(w.red) * c[0] + double(w.green) * c[1] + double(w.blue) * c[2];
                return Triple{grey, grey, grey};
            };
            QVERIFY(IsFormula(BlackAndWhite(false, w.red, w.green, w.blue), luma, Rounded));
            const auto lightness = [=](const Triple& c) {
                const double y = double(w.red) * HBDecode(c[0]) + double(w.green) * HBDecode(c[1]) +
                                 double(w.blue) * HBDecode(c[2]);
                const double grey =
                    2.55 * (y > 216.0 / 24389.0 ? 116.0 * std::cbrt(y) - 16.0 : y * 24389.0 / 27.0);
                return Triple{grey, grey, grey};
            };
            QVERIFY(IsFormula(BlackAndWhite(true, w.red, w.green, w.blue), lightness, 0.62)); // a table
        }
    }

    void BlackAndWhiteHostileWeights() {
        const float infinity = std::numeric_limits<float>::infinity();
        const float nan = std::numeric_limits<float>::quiet_NaN();
        for (bool cie : {false, true}) {
            QCOMPARE(Apply(BlackAndWhite(cie, nan, infinity, -infinity), 9, 200, 255), HBRGBA32i(0, 0, 0, 77));
            QVERIFY(AreEqual(BlackAndWhite(cie, nan, 1.0f, -infinity), BlackAndWhite(cie, 0.0f, 1.0f, 0.0f)));
            QCOMPARE(Apply(BlackAndWhite(cie, 3e38f, 3e38f, -3e38f), 9, 9, 9), HBRGBA32i(255, 255, 255, 77));
            QCOMPARE(Apply(BlackAndWhite(cie, 3e38f, -3e38f, 0.0f), 9, 9, 9), HBRGBA32i(0, 0, 0, 77));
        }
    }

    void EnhancerMixesLevels() {
        const auto formula = [](const Triple& c) {
            const Triple levels = {qBound(0.0, (c[0] - 20) / 180, 1.0) * 255, qMin(c[1] / 100, 1.0) * 255,
                                   qMax(0.0, (c[2] - 50) / 205) * 255};
            return Mix(c, levels, 40);
        };
        QVERIFY(IsFormula(Enhancer(40), formula, 0.5 + 0.4 * 0.5)); // the levels are rounded first
        // Either order of the two calls.
        HBColorEnhancerTransformation enhancer;
        enhancer.SetAmountData(40);
        enhancer.SetLevels(EnhancerLevels());
        QVERIFY(AreEqual(enhancer, Enhancer(40)));
    }

    void FillIsSourceOver() {
        // On opaque pixels, where QPainter's premultiplied arithmetic loses nothing.
        QImage image(17, 289, QImage::Format_ARGB32);
        std::vector<HBRGBA32i> pixels = HBDenseColors();
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            pixels[i].alpha = 255;
            image.setPixel(int(i % 17), int(i / 17), pixels[i].ToRgba());
        }
        const HBRGBA32i color(200, 10, 90, 101);
        QPainter(&image).fillRect(image.rect(), QColor::fromRgba(color.ToRgba()));
        Fill(color)(pixels.data(), int(pixels.size()));
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const QRgb painted = image.pixel(int(i % 17), int(i / 17));
            QVERIFY(std::abs(qRed(painted) - pixels[i].red) <= 1 &&
                    std::abs(qGreen(painted) - pixels[i].green) <= 1 &&
                    std::abs(qBlue(painted) - pixels[i].blue) <= 1);
            QCOMPARE(int(pixels[i].alpha), 255);
        }
        const HBRGBA32i opaque(1, 2, 3);
        QVERIFY(AreEqual(Fill(opaque), [=](HBRGBA32i& pixel) { pixel = opaque; }));
    }

    /// On opaque pixels the run form has a way of its own.
    void FillOfOpaqueRuns() {
        std::vector<HBRGBA32i> levels;
        for (int level = 0; level < 256; ++level)
            levels.emplace_back(std::uint8_t(level), std::uint8_t(255 - level), std::uint8_t(level / 2));
        for (int alpha = 0; alpha < 256; ++alpha) {
            for (int own : {0, 1, 77, 128, 254, 255}) {
                const auto fill =
                    Fill(HBRGBA32i(std::uint8_t(own), 200, std::uint8_t(alpha), std::uint8_t(alpha)));
                std::vector<HBRGBA32i> run = levels;
                std::vector<HBRGBA32i> single = levels;
                fill(run.data(), int(run.size()));
                for (HBRGBA32i& pixel : single) fill(pixel);
                QVERIFY(run == single);
            }
        }
    }
};

HB_TEST_MAIN(tst_ColorTransformations)
#include "tst_ColorTransformations.moc"
