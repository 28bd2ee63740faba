// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRunFormCheck.h"
#include "HBTestMain.h"

#include <HBIterativeBrightnessContrastTransformation.h>
#include <HBIterativeCurvesTransformation.h>
#include <HBIterativeExposureTransformation.h>
#include <HBIterativeGammaCorrectionTransformation.h>
#include <HBIterativeLevelsTransformation.h>
#include <HBIterativePosterizeTransformation.h>

#include <algorithm>
#include <climits>
#include <limits>
#include <set>

namespace {

using Table = HBChannelTables::Table;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

bool IsIdentity(const HBChannelTables& tables) {
    const HBChannelTables identity;
    return tables.red == identity.red && tables.green == identity.green && tables.blue == identity.blue;
}

const Table& CommonTable(const HBChannelTables& tables) {
    if (tables.red != tables.green || tables.green != tables.blue) qWarning("the channels differ");
    return tables.red;
}

Table Gamma(double gamma) { return CommonTable(HBIterativeGammaCorrectionTransformation(gamma).Operation()); }

Table Exposure(double exposure, double offset) {
    return CommonTable(HBIterativeExposureTransformation(exposure, offset).Operation());
}

Table BrightnessContrast(int brightness, int contrast) {
    return CommonTable(HBIterativeBrightnessContrastTransformation(brightness, contrast).Operation());
}

Table Posterize(int levels) { return CommonTable(HBIterativePosterizeTransformation(levels).Operation()); }

HBLevelsTransformation Levels(const HBLevelsSettings& settings, int amount = 100) {
    return HBIterativeLevelsTransformation(settings.input, settings.output, settings.gamma, amount).Operation();
}

/// Levels with only the composite channel set.
Table Composite(int low, int high, double gamma, int black, int white) {
    HBLevelsSettings settings;
    settings.input[0][0] = low;
    settings.input[0][1] = high;
    settings.gamma[0] = gamma;
    settings.output[0][0] = black;
    settings.output[0][1] = white;
    return CommonTable(Levels(settings));
}

} // namespace

class tst_TonalTransformations : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void NeutralIsIdentity() {
        QVERIFY(IsIdentity(HBIterativeGammaCorrectionTransformation(1.0).Operation()));
        QVERIFY(IsIdentity(HBIterativeExposureTransformation(0.0, 0.0).Operation()));
        QVERIFY(IsIdentity(Levels({})));
        QVERIFY(IsIdentity(HBLevelsTransformation()));
        QVERIFY(IsIdentity(HBIterativeBrightnessContrastTransformation(0, 0).Operation()));
        HBLevelsSettings black;
        black.output[0][1] = 0;
        QVERIFY(IsIdentity(Levels(black, 0)));
    }

    void BrightnessContrastValues() {
        const struct {
            int brightness, contrast, level, expected;
        } rows[] = {{50, 0, 100, 150},
                    {50, 0, 206, 255},
                    {-127, 0, 128, 1},
                    {-127, 0, 126, 0},
                    // tan(67.5°) = 1 + √2 and tan(22.5°) = √2 - 1 about 127.5
                    {0, 64, 100, 61},
                    {0, 64, 155, 194},
                    {0, 64, 74, 0},
                    {0, -64, 100, 116},
                    {10, -64, 100, 126},
                    // flat, then upright
                    {0, -127, 0, 127},
                    {0, -127, 255, 128},
                    {0, 127, 126, 0},
                    {0, 127, 129, 255}};
        for (const auto& row : rows)
            QCOMPARE(int(BrightnessContrast(row.brightness, row.contrast)[row.level]), row.expected);
        QCOMPARE(BrightnessContrast(128, 0), BrightnessContrast(127, 0));
        QCOMPARE(BrightnessContrast(INT_MAX, INT_MIN), BrightnessContrast(127, -127));
        QCOMPARE(BrightnessContrast(INT_MIN, INT_MAX), BrightnessContrast(-127, 127));
        for (int contrast = -127; contrast <= 127; ++contrast) {
            const Table table = BrightnessContrast(contrast / 2, contrast);
            QVERIFY(std::is_sorted(table.begin(), table.end()));
        }
    }

    void GammaValues() {
        const struct {
            double gamma;
            int level, expected;
        } rows[] = {{2.0, 64, 128},  {0.5, 128, 64},      // 127.75, 64.25
                    {2.2, 128, 186}, {1 / 2.2, 186, 127}, // 186.42, the usual table of gamma 2.2
                    {5.0, 1, 84},    {0.01, 254, 172},    // 84.18, 172.14: the ends of the range
                    {9.0, 1, 84},    {Infinity, 1, 84},   {0.0, 254, 172}, {-1.0, 254, 172}, {NaN, 100, 100}};
        for (const auto& row : rows) {
            const Table table = Gamma(row.gamma);
            QCOMPARE(int(table[row.level]), row.expected);
            QCOMPARE(int(table[0]), 0);
            QCOMPARE(int(table[255]), 255);
        }
    }

    void ExposureValues() {
        // Half the light is level 187.5 of sRGB, 18 % grey 117.6, full light less half of it 187.5 again.
        const struct {
            double exposure, offset;
            int level, expected;
        } rows[] = {{-1.0, 0.0, 255, 188},
                    {1.0, 0.0, 187, 254},
                    {1.0, 0.0, 188, 255},
                    {-2.473931188, 0.0, 255, 118},
                    {0.0, 0.5, 0, 188},
                    {0.0, -0.5, 255, 188},
                    // into the straight part of the function (9.51), within it, and out of it (18.05)
                    {0.0, -0.5, 188, 10},
                    {-1.0, 0.0, 10, 5},
                    {1.0, 0.0, 10, 18},
                    {1.0, 0.1, 100, 161}, // 160.69: offset after exposure
                    {20.0, 0.0, 1, 255},
                    {20.0, 0.0, 0, 0},
                    {-20.0, 0.0, 255, 0},
                    {-Infinity, 7.0, 255, 188},
                    {NaN, NaN, 77, 77}};
        for (const auto& row : rows) QCOMPARE(int(Exposure(row.exposure, row.offset)[row.level]), row.expected);
    }

    void PosterizeValues() {
        const struct {
            int levels, level, expected;
        } rows[] = {{2, 127, 0},       {2, 128, 255},   {3, 85, 0},    {3, 86, 128}, // 127.5
                    {4, 63, 0},        {4, 64, 85},     {4, 191, 170}, {255, 1, 0},
                    {255, 127, 126},   {255, 128, 128}, // 255 × 127 / 254 = 127.5
                    {INT_MIN, 127, 0}, {INT_MAX, 1, 0}};
        for (const auto& row : rows) QCOMPARE(int(Posterize(row.levels)[row.level]), row.expected);
    }

    void PosterizeLeavesThatManyLevels() {
        for (int levels = 2; levels <= 255; ++levels) {
            const Table table = Posterize(levels);
            QVERIFY(std::is_sorted(table.begin(), table.end()));
            QCOMPARE(int(std::set<int>(table.begin(), table.end()).size()), levels);
            QCOMPARE(int(table[0]), 0);
            QCOMPARE(int(table[255]), 255);
        }
    }

    void CompositeLevels() {
        const struct {
            int low, high;
            double gamma;
            int black, white;
            QVector<QPoint> expected; // level, result
        } rows[] = {{50, 200, 1.0, 0, 255, {{49, 0}, {50, 0}, {125, 128}, {200, 255}, {201, 255}}},
                    {0, 255, 1.0, 100, 200, {{0, 100}, {128, 150}, {255, 200}}},
                    {0, 255, 1.0, 255, 0, {{0, 255}, {100, 155}, {255, 0}}},
                    {0, 255, 2.0, 0, 255, {{0, 0}, {64, 128}, {255, 255}}},
                    {100, 200, 2.0, 0, 255, {{125, 128}}},
                    // an input that is empty or upside down
                    {128, 128, 1.0, 0, 255, {{127, 0}, {128, 255}}},
                    {255, 255, 9.99, 10, 20, {{254, 10}, {255, 20}}},
                    {200, 100, 0.5, 0, 255, {{100, 0}, {199, 0}, {200, 255}}},
                    // hostile
                    {INT_MIN, INT_MAX, 1.0, INT_MIN, INT_MAX, {{0, 0}, {77, 77}}},
                    {INT_MAX, INT_MIN, 1.0, INT_MAX, INT_MIN, {{254, 255}, {255, 0}}},
                    {0, 255, 0.0, 0, 255, {{254, 172}, {255, 255}}},
                    {0, 255, Infinity, 0, 255, {{0, 0}, {1, 146}}},
                    {0, 255, NaN, 0, 255, {{77, 77}}}};
        for (const auto& row : rows) {
            const Table table = Composite(row.low, row.high, row.gamma, row.black, row.white);
            for (const QPoint& point : row.expected) QCOMPARE(int(table[point.x()]), point.y());
        }
    }

    void ChannelsComeFirstAndAlone() {
        HBLevelsSettings settings;
        settings.output[1][1] = 10;
        settings.input[0][1] = 10;
        settings.gamma[2] = 2.0;
        settings.input[3][0] = 250;
        settings.gamma[3] = 0.2;
        const HBLevelsTransformation levels = Levels(settings);
        // Red is squeezed into 0..10 and stretched again: nothing is lost between, and the order shows.
        QCOMPARE(levels.red, HBChannelTables().red);
        QCOMPARE(int(levels.green[1]), 255); // 255 × √(1 / 255) = 16 is above 10
        QCOMPARE(int(levels.blue[250]), 0);
        QCOMPARE(int(levels.blue[252]), 67); // 255 × 0.4^5 = 2.611, times 25.5
        QCOMPARE(int(levels.blue[255]), 255);

        HBRGBA32i pixel(77, 0, 200, 31);
        levels(pixel);
        QCOMPARE(pixel, HBRGBA32i(77, 0, 0, 31));
    }

    void AmountIsAShareOfTheWay() {
        HBLevelsSettings settings;
        settings.output[0][1] = 0;
        const struct {
            int amount, expected;
        } rows[] = {{25, 150}, {50, 100}, {100, 0}, {101, 0}, {INT_MAX, 0}, {-1, 200}, {INT_MIN, 200}};
        for (const auto& row : rows) QCOMPARE(int(Levels(settings, row.amount).red[200]), row.expected);
    }

    void RunFormsEqualScalarForms() {
        HBLevelsSettings settings;
        settings.gamma[1] = 2.0;
        settings.output[2][0] = 200;
        const QVector<QPoint> curves[4] = {{{0, 0}, {100, 150}, {255, 255}}, {}, {{0, 255}, {255, 0}}, {}};
        QVERIFY(HBRunFormEqualsScalarForm(Levels(settings)));
        QVERIFY(HBRunFormEqualsScalarForm(HBIterativeCurvesTransformation(curves, 100).Operation()));
        QVERIFY(HBRunFormEqualsScalarForm(HBIterativeGammaCorrectionTransformation(2.2).Operation()));
        QVERIFY(HBRunFormEqualsScalarForm(HBIterativeExposureTransformation(0.7, -0.01).Operation()));
        QVERIFY(HBRunFormEqualsScalarForm(HBIterativeBrightnessContrastTransformation(30, -40).Operation()));
        QVERIFY(HBRunFormEqualsScalarForm(HBIterativePosterizeTransformation(5).Operation()));
    }
};

HB_TEST_MAIN(tst_TonalTransformations)
#include "tst_TonalTransformations.moc"
