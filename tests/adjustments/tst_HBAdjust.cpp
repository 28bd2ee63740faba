// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRunTest.h"
#include "HBTestImages.h"

#include <HBAdjustment.h>
#include <HBAverageTintRGB32.h>
#include <HBBlackAndWhite.h>
#include <HBBrightnessContrast.h>
#include <HBColorBalance.h>
#include <HBColorize.h>
#include <HBCurves.h>
#include <HBExposure.h>
#include <HBFillColor.h>
#include <HBGammaCorrection.h>
#include <HBHueSaturation.h>
#include <HBHueSaturationTransformation.h>
#include <HBIterativeAdjustmentTransformation.h>
#include <HBIterativeBlackAndWhiteTransformation.h>
#include <HBIterativeBrightnessContrastTransformation.h>
#include <HBIterativeColorBalanceTransformation.h>
#include <HBIterativeColorizeTransformation.h>
#include <HBIterativeCurvesTransformation.h>
#include <HBIterativeExposureTransformation.h>
#include <HBIterativeGammaCorrectionTransformation.h>
#include <HBIterativeLevelsTransformation.h>
#include <HBIterativePhotoFilterTransformation.h>
#include <HBIterativePosterizeTransformation.h>
#include <HBLevels.h>
#include <HBPhotoFilter.h>
#include <HBPictureCorrection.h>
#include <HBPosterize.h>
#include <HBTemperature.h>
#include <HBTemperatureCorrection.h>
#include <HBThreshold.h>
#include <HBThresholdRGB32.h>
#include <HBTint.h>
#include <HBTintRGB32.h>
#include <KMIterativeWBTransformation.h>

#include <limits>

namespace {

constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr float NaNf = std::numeric_limits<float>::quiet_NaN();
constexpr float InfinityF = std::numeric_limits<float>::infinity();

/// A record, and what it must make of a picture: a second way there, pixel by pixel and without tiles.
struct Row {
    const char* name;
    std::function<HBOutcome(const HBTarget&)> adjust;
    std::function<HBImage<>(const HBTarget&)> expected;
};
QVector<Row> Rows;

/// What the record must mean, tried as the transformation's form for one pixel.
/// \param make returns the transformation for a picture
template <class Params, class Make>
void AddFor(const char* name, const Params& params, const Make& make) {
    Rows += {name, [=](const HBTarget& target) { return HBAdjust(params, target); },
             [=](const HBTarget& target) {
                 return HBTransformed(target.source, make(target.source), target.selection, target.offset,
                                      target.bounds);
             }};
}
template <class Params, class Transformation>
void Add(const char* name, const Params& params, const Transformation& transformation) {
    AddFor(name, params, [=](const HBImage<>&) { return transformation; });
}

HBRGBA32i Pixel(const QColor& color) { return HBRGBA32i::FromRgba(color.rgba()); }

void AddTonal() {
    const int brightness[][4] = {{0, 0, 0, 0}, {30, -50, 30, -50}, {-127, 127, -127, 127}, {300, -200, 127, -127}};
    for (const auto& [b, c, brightnessTaken, contrastTaken] : brightness)
        Add("brightness", HBBrightnessContrastParams{b, c},
            HBIterativeBrightnessContrastTransformation(brightnessTaken, contrastTaken));
    // A record that no form made counts as what its form would take.
    for (const auto& [given, taken] :
         {std::pair{2.2, 2.2}, {1.0, 1.0}, {1.2351, 1.24}, {0.001, 0.01}, {Infinity, 5.0}, {NaN, 1.0}})
        Add("gamma", HBGammaCorrectionParams{given}, HBIterativeGammaCorrectionTransformation(taken));
    Add("exposure", HBExposureParams{-1.5, 0.125}, HBIterativeExposureTransformation(-1.5, 0.125));
    Add("exposure", HBExposureParams{1.23456, -7}, HBIterativeExposureTransformation(1.2346, -0.5));
    for (const auto& [given, taken] : {std::pair{4, 4}, {2, 2}, {255, 255}, {-1, 2}})
        Add("posterize", HBPosterizeParams{given}, HBIterativePosterizeTransformation(taken));
    for (const int level : {128, 1, 255, 29, 0, -7, 256, 100000})
        Add("threshold", HBThresholdParams{level},
            HBIterativeAdjustmentTransformation(HBThresholdRGB32<30, 59, 11>{level}));
    for (const HBLevelsParams& p : {HBLevelsParams(),
                                    HBLevelsParams{3,
                                                   {{1, 250}, {10, 200}, {20, 180}, {30, 160}},
                                                   {0, 0, 0, 0}, // not used
                                                   {{5, 240}, {250, 3}, {7, 230}, {9, 220}},
                                                   {2.0, 0.5, 1.25, 4.0}},
                                    HBLevelsParams{0,
                                                   {{-100, 500}, {0, 255}, {9, 9}, {200, 100}},
                                                   {},
                                                   {{0, 255}, {-50, 300}, {0, 255}, {0, 255}},
                                                   {1, 20, 1, NaN}}})
        Add("levels", p, HBIterativeLevelsTransformation(p.input, p.output, p.gamma, 100));
    HBCurvesParams curves;
    Add("curves", curves, HBIterativeCurvesTransformation(curves.points, 100));
    curves.points[0] = {{0, 10}, {100, 50}, {250, 240}};
    curves.points[1] = {{5, 0}, {255, 250}};
    curves.points[2] = {{0, 255}, {255, 0}};
    curves.points[3] = {{0, 0}, {60, 90}, {62, 100}, {200, 210}};
    Add("curves", curves, HBIterativeCurvesTransformation(curves.points, 100));
}

void AddColor() {
    const int temperatures[][6] = {{6500, 0, 100, 6500, 0, 100},        {3000, 20, 80, 3000, 20, 80},
                                   {20000, -60, 30, 20000, -60, 30},    {Least, Least, Most, 1000, -100, 100},
                                   {Most, Most, Most, 40000, 100, 100}, {0, 0, 100, 1000, 0, 100}};
    for (const auto& [kelvin, tint, strength, kelvinTaken, tintTaken, strengthTaken] : temperatures) {
        HBTemperatureCorrection correction;
        correction.SetData(kelvinTaken, strengthTaken, tintTaken);
        Add("temperature", HBTemperatureParams{kelvin, tint, strength},
            HBIterativeAdjustmentTransformation(correction));
    }
    // All ranges together, whichever is shown.
    const HBColorBalanceParams balance = {{10, 20, 30}, {-1, -2, -3}, {70, 80, 90}, 0, false};
    const HBColorBalanceParams extreme = {{Least, Most, 0}, {Most, Least, 101}, {-101, 0, Least}, Least, true};
    const HBColorBalanceParams clamped = {{-100, 100, 0}, {100, -100, 100}, {-100, 0, -100}, 0, true};
    for (const auto& [given, taken] :
         {std::pair{HBColorBalanceParams(), HBColorBalanceParams()}, {balance, balance}, {extreme, clamped}})
        Add("color balance", given,
            HBIterativeColorBalanceTransformation(taken.cyanRed, taken.magentaGreen, taken.yellowBlue));
    const int hues[][7] = {{0, 0, 0, 0, 0, 0, 0},
                           {120, 30, -20, 0, 120, 30, -20},
                           {200, -40, 10, 1, 200, -40, 10},
                           {359, 100, 100, 0, 359, 100, 100},
                           {400, 500, -500, 0, 359, 100, -100}};
    for (const auto& [h, s, l, colorize, hue, saturation, lightness] : hues)
        Add("hue", HBHueSaturationParams{h, s, l, colorize == 1},
            HBIterativeAdjustmentTransformation(
                HBHueSaturationTransformation(hue, saturation, lightness, colorize == 1)));

    const QColor toned = QColor::fromHsv(200, 180, 60, 0), light(250, 240, 180);
    for (const auto& [amount, taken] : {std::pair{0, 0}, {37, 37}, {100, 100}, {Most, 100}, {Least, 0}}) {
        const auto add = [&, given = amount](int type, const auto& kernel) {
            Add("tint", HBTintParams{toned, light, given, HBTintParams::Type(type)},
                HBIterativeAdjustmentTransformation(kernel));
        };
        const HBRGBA32i black = Pixel(toned), white = Pixel(light);
        add(0, HBAverageTintRGB32<333, 334, 333>(black, white, taken * 2550));
        add(1, HBAverageTintRGB32<300, 590, 110>(black, white, taken * 2550));
        add(2, HBAverageTintRGB32<212, 715, 73>(black, white, taken * 2550));
        add(3, HBTintRGB32(black, white, taken));
        for (const int none : {7, Least}) add(none, [](HBRGBA32i&) {});
    }
    const struct {
        HBBlackAndWhiteParams params;
        float r, g, b;
    } greys[] = {{{0.25f, 0.5f, 0.125f, 0}, 0.333f, 0.333f, 0.333f},
                 {{0.25f, 0.5f, 0.125f, 1}, 0.212671f, 0.71516f, 0.072169f},
                 {{0.25f, 0.5f, 0.125f, 2}, 0.212671f, 0.71516f, 0.072169f},
                 {{0.25f, 0.5f, 0.125f, 3}, 0.3f, 0.59f, 0.11f},
                 {{0.25f, 0.5f, 0.125f, 4}, 0.212671f, 0.71516f, 0.072169f},
                 {{0.25f, 0.5f, 0.125f, 5}, 0.25f, 0.5f, 0.125f},
                 {{0.25f, 0.5f, 0.125f, 6}, 0.25f, 0.5f, 0.125f},
                 // The three decimals of a spin box would make it another level.
                 {{0.28449f, 0.28449f, 0.28449f, 5}, 0.28449f, 0.28449f, 0.28449f},
                 {{1, 1, 1, 5}, 1, 1, 1},
                 {{-1, -1, -1, -9}, -1, -1, -1},
                 {{NaNf, 0.5f, NaNf, 5}, NaNf, 0.5f, NaNf},
                 {{InfinityF, -InfinityF, 1e38f, Most}, InfinityF, -InfinityF, 1e38f},
                 {{NaNf, InfinityF, 1e38f, 4}, 0.212671f, 0.71516f, 0.072169f}};
    for (const auto& row : greys)
        Add("black and white", row.params,
            HBIterativeBlackAndWhiteTransformation(row.params.type == 4, row.r, row.g, row.b));

    const QColor colors[] = {QColor("#EBB113"),
                             QColor(200, 100, 50, 10),
                             QColor(),
                             QColor(Qt::transparent),
                             QColor::fromCmyk(1, 200, 30, 9),
                             QColor::fromRgbF(7.5, -3, 0.5),
                             QColor::fromHsv(200, 100, 100, 7)};
    for (const QColor& color : colors) {
        for (const auto& [percent, taken] :
             {std::pair{0, 0}, {1, 1}, {50, 50}, {100, 100}, {101, 100}, {-1, 0}, {Most, 100}, {Least, 0}}) {
            if (color != colors[0] && percent != 50) continue;
            Add("photo filter", HBPhotoFilterParams{color, percent},
                HBIterativePhotoFilterTransformation(Pixel(color), taken));
            Add("colorize", HBColorizeParams{color, percent},
                HBIterativeColorizeTransformation(Pixel(color), taken));
        }
    }
    // Advanced correction counts in the automatic mode only.
    for (const int mode : {0, 1, 2}) {
        for (const auto& [strength, taken] : {std::pair{0, 0}, {50, 50}, {100, 100}, {Most, 100}, {Least, 0}})
            AddFor("picture correction",
                   HBPictureCorrectionParams{mode != 0, strength, strength, strength, mode, false, 0, 50},
                   [mode = mode, taken = taken](const HBImage<>& photo) {
                       return KMIterativeWBTransformation(photo, KMWBTransformation::BalanceFunction(mode), taken);
                   });
    }
    for (const auto& [warmth, kelvin] : {std::pair{-100, 9000},
                                         {-1, 6525},
                                         {0, 6500},
                                         {1, 6455},
                                         {50, 4250},
                                         {100, 2000},
                                         {Least, 9000},
                                         {Most, 2000}})
        for (const auto& [strength, taken] : {std::pair{60, 60}, {100, 100}, {Most, 100}})
            Add("warmth", HBPictureCorrectionParams{false, 0, 0, 0, 0, true, warmth, strength},
                HBIterativePhotoFilterTransformation(HBTemperatureCorrection::GetTemperatureColor(kelvin), taken));
}

} // namespace

class tst_HBAdjust : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        AddTonal();
        AddColor();
    }

    void Results_data() {
        HBColumns<QSize, QRect, QPoint>("size", "bounds", "offset");
        for (const QSize& size : HBAwkwardSizes())
            QTest::addRow("%d x %d", size.width(), size.height()) << size << QRect() << QPoint();
        const QSize photo(150, 140);
        QTest::newRow("selection inside a tile") << photo << QRect(10, 10, 5, 5) << QPoint();
        QTest::newRow("across tile borders") << photo << QRect(100, 120, 60, 20) << QPoint(0, 0);
        QTest::newRow("moved") << photo << QRect(0, 0, 80, 70) << QPoint(37, 61);
        QTest::newRow("over the left and top") << photo << QRect(0, 0, 150, 130) << QPoint(-60, -29);
        QTest::newRow("over the right and bottom") << photo << QRect(0, 0, 150, 130) << QPoint(140, 135);
        QTest::newRow("larger than its mask") << photo << QRect(-50, -50, 900, 900) << QPoint(60, 60);
        QTest::newRow("beside the photo") << photo << QRect(0, 0, 10, 10) << QPoint(1000, 0);
    }
    void Results() {
        QFETCH(QSize, size);
        QFETCH(QRect, bounds);
        QFETCH(QPoint, offset);
        HBTarget target{HBTestRamp(size.width(), size.height()), {}, offset, bounds};
        if (bounds.isValid()) target.selection = HBTestMask(200, 180);
        const QImage before = target.source.ToQImage();
        for (int i = 0; i < Rows.size(); ++i) {
            const HBOutcome outcome = Rows[i].adjust(target);
            QVERIFY(outcome.IsWhole());
            QVERIFY2(outcome.image.ToQImage() == Rows[i].expected(target).ToQImage(),
                     qPrintable(QString("row %1, %2").arg(i).arg(Rows[i].name)));
            QCOMPARE(target.source.ToQImage(), before);
        }
    }

    /// Over what is opaque, and over nothing, where the fill's own alpha is left: the opacity alone.
    void Fill() {
        const struct {
            int opacity;
            QRgb overGrey, overNothing;
        } rows[] = {
            {100, qRgb(200, 100, 50), qRgb(200, 100, 50)},    {50, qRgb(150, 100, 75), qRgba(200, 100, 50, 127)},
            {1, qRgb(101, 100, 100), qRgba(200, 100, 50, 2)}, {0, qRgb(100, 100, 100), 0},
            {999, qRgb(200, 100, 50), qRgb(200, 100, 50)},    {-9, qRgb(100, 100, 100), 0}};
        for (const auto& row : rows) {
            for (const int alpha : {255, 10, 0}) { // of the colour: counts for nothing
                const HBFillColorParams params{QColor(200, 100, 50, alpha), row.opacity};
                const auto filled = [&](QRgb below) {
                    const HBTarget target{HBTestPicture(130, 2, [=](int, int) { return below; }), {}, {}, {}};
                    return HBAdjust(params, target).image.ToQImage().pixel(129, 1);
                };
                QCOMPARE(filled(qRgb(100, 100, 100)), row.overGrey);
                QCOMPARE(filled(0), row.overNothing);
            }
        }
        QCOMPARE(HBAdjust(HBFillColorParams{QColor(), 100}, {HBTestRamp(2, 1)}).image.ToQImage().pixel(1, 0),
                 qRgb(0, 0, 0));
    }
};

HB_TEST_MAIN_WITHOUT_APPLICATION(tst_HBAdjust)
#include "tst_HBAdjust.moc"
