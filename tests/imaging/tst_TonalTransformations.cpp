// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRunFormCheck.h"
#include "HBTestMain.h"

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

Table Posterize(int levels) { return CommonTable(HBIterativePosterizeTransformation(levels).Operation()); }

struct LevelsSettings {
    int input[4][2] = {{0, 255}, {0, 255}, {0, 255}, {0, 255}};
    int output[4][2] = {{0, 255}, {0, 255}, {0, 255}, {0, 255}};
    double gamma[4] = {1.0, 1.0, 1.0, 1.0};
    int amount = 100;

    HBLevelsTransformation Operation() const {
        return HBIterativeLevelsTransformation(input, output, gamma, amount).Operation();
    }
};

/// Levels with only the composite channel set.
Table Composite(int low, int high, double gamma, int black, int white) {
    LevelsSettings settings;
    settings.input[0][0] = low;
    settings.input[0][1] = high;
    settings.gamma[0] = gamma;
    settings.output[0][0] = black;
    settings.output[0][1] = white;
    return CommonTable(settings.Operation());
}

} // namespace

class tst_TonalTransformations : public QObject {
    Q_OBJECT
private slots:
    void NeutralIsIdentity() {
        QVERIFY(IsIdentity(HBIterativeGammaCorrectionTransformation(1.0).Operation()));
        QVERIFY(IsIdentity(HBIterativeExposureTransformation(0.0, 0.0).Operation()));
        QVERIFY(IsIdentity(LevelsSettings().Operation()));
        QVERIFY(IsIdentity(HBLevelsTransformation()));
        LevelsSettings none;
        none.output[0][1] = 0;
        none.amount = 0;
        QVERIFY(IsIdentity(none.Operation()));
    }

    void GammaValues_data() {
        QTest::addColumn<double>("gamma");
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("expected");
        QTest::newRow("square root") << 2.0 << 64 << 128; // 127.75
        QTest::newRow("square") << 0.5 << 128 << 64;      // 64.25
        QTest::newRow("2.2") << 2.2 << 128 << 186;        // 186.42, the usual table of gamma 2.2
        QTest::newRow("2.2 back") << 1 / 2.2 << 186 << 127;
        QTest::newRow("brightest") << 5.0 << 1 << 84;   // 84.18
        QTest::newRow("darkest") << 0.01 << 254 << 172; // 172.14
        QTest::newRow("too much") << 9.0 << 1 << 84;
        QTest::newRow("infinite") << Infinity << 1 << 84;
        QTest::newRow("zero") << 0.0 << 254 << 172;
        QTest::newRow("negative") << -1.0 << 254 << 172;
        QTest::newRow("not a number") << NaN << 100 << 100;
    }
    void GammaValues() {
        QFETCH(double, gamma);
        QFETCH(int, level);
        const Table table = Gamma(gamma);
        QTEST(int(table[level]), "expected");
        QCOMPARE(int(table[0]), 0);
        QCOMPARE(int(table[255]), 255);
    }

    void ExposureValues_data() {
        QTest::addColumn<double>("exposure");
        QTest::addColumn<double>("offset");
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("expected");
        // Half the light is level 187.5 of sRGB, 18 % grey 117.6, full light less half of it 187.5 again.
        QTest::newRow("half the light") << -1.0 << 0.0 << 255 << 188;
        QTest::newRow("twice the light") << 1.0 << 0.0 << 187 << 254;
        QTest::newRow("twice the light, white") << 1.0 << 0.0 << 188 << 255;
        QTest::newRow("18 % of the light") << -2.473931188 << 0.0 << 255 << 118;
        QTest::newRow("half light added") << 0.0 << 0.5 << 0 << 188;
        QTest::newRow("half light taken") << 0.0 << -0.5 << 255 << 188;
        QTest::newRow("straight part of the function") << 0.0 << -0.5 << 188 << 10; // 9.51
        QTest::newRow("straight part, half") << -1.0 << 0.0 << 10 << 5;
        QTest::newRow("out of the straight part") << 1.0 << 0.0 << 10 << 18; // 18.05
        QTest::newRow("offset after exposure") << 1.0 << 0.1 << 100 << 161;  // 160.69
        QTest::newRow("20 stops") << 20.0 << 0.0 << 1 << 255;
        QTest::newRow("20 stops, black") << 20.0 << 0.0 << 0 << 0;
        QTest::newRow("-20 stops") << -20.0 << 0.0 << 255 << 0;
        QTest::newRow("clamped") << -Infinity << 7.0 << 255 << 188;
        QTest::newRow("not numbers") << NaN << NaN << 77 << 77;
    }
    void ExposureValues() {
        QFETCH(double, exposure);
        QFETCH(double, offset);
        QFETCH(int, level);
        QTEST(int(Exposure(exposure, offset)[level]), "expected");
    }

    void PosterizeValues_data() {
        QTest::addColumn<int>("levels");
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("expected");
        QTest::newRow("2, dark") << 2 << 127 << 0;
        QTest::newRow("2, light") << 2 << 128 << 255;
        QTest::newRow("3, end of the first bin") << 3 << 85 << 0;
        QTest::newRow("3, second bin") << 3 << 86 << 128; // 127.5
        QTest::newRow("4, end of the first bin") << 4 << 63 << 0;
        QTest::newRow("4, second bin") << 4 << 64 << 85;
        QTest::newRow("4, third bin") << 4 << 191 << 170;
        QTest::newRow("255, first") << 255 << 1 << 0;
        QTest::newRow("255, darkened") << 255 << 127 << 126;
        QTest::newRow("255, kept") << 255 << 128 << 128; // 255 × 127 / 254 = 127.5
        QTest::newRow("too few") << INT_MIN << 127 << 0;
        QTest::newRow("too many") << INT_MAX << 1 << 0;
    }
    void PosterizeValues() {
        QFETCH(int, levels);
        QFETCH(int, level);
        QTEST(int(Posterize(levels)[level]), "expected");
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

    void CompositeLevels_data() {
        QTest::addColumn<int>("low");
        QTest::addColumn<int>("high");
        QTest::addColumn<double>("gamma");
        QTest::addColumn<int>("black");
        QTest::addColumn<int>("white");
        QTest::addColumn<QVector<QPoint>>("expected"); // level, result
        using Points = QVector<QPoint>;
        QTest::newRow("input") << 50 << 200 << 1.0 << 0 << 255
                               << Points{{49, 0}, {50, 0}, {125, 128}, {200, 255}, {201, 255}};
        QTest::newRow("output") << 0 << 255 << 1.0 << 100 << 200 << Points{{0, 100}, {128, 150}, {255, 200}};
        QTest::newRow("output upside down")
            << 0 << 255 << 1.0 << 255 << 0 << Points{{0, 255}, {100, 155}, {255, 0}};
        QTest::newRow("gamma 2") << 0 << 255 << 2.0 << 0 << 255 << Points{{0, 0}, {64, 128}, {255, 255}};
        QTest::newRow("gamma inside the input") << 100 << 200 << 2.0 << 0 << 255 << Points{{125, 128}};
        QTest::newRow("empty input") << 128 << 128 << 1.0 << 0 << 255 << Points{{127, 0}, {128, 255}};
        QTest::newRow("empty input, white") << 255 << 255 << 9.99 << 10 << 20 << Points{{254, 10}, {255, 20}};
        QTest::newRow("input upside down")
            << 200 << 100 << 0.5 << 0 << 255 << Points{{100, 0}, {199, 0}, {200, 255}};
        QTest::newRow("far away") << INT_MIN << INT_MAX << 1.0 << INT_MIN << INT_MAX << Points{{0, 0}, {77, 77}};
        QTest::newRow("far away, upside down")
            << INT_MAX << INT_MIN << 1.0 << INT_MAX << INT_MIN << Points{{254, 255}, {255, 0}};
        QTest::newRow("gamma 0") << 0 << 255 << 0.0 << 0 << 255 << Points{{254, 172}, {255, 255}};
        QTest::newRow("gamma infinite") << 0 << 255 << Infinity << 0 << 255 << Points{{0, 0}, {1, 146}};
        QTest::newRow("gamma not a number") << 0 << 255 << NaN << 0 << 255 << Points{{77, 77}};
    }
    void CompositeLevels() {
        QFETCH(int, low);
        QFETCH(int, high);
        QFETCH(double, gamma);
        QFETCH(int, black);
        QFETCH(int, white);
        QFETCH(QVector<QPoint>, expected);
        const Table table = Composite(low, high, gamma, black, white);
        for (const QPoint& point : qAsConst(expected)) QCOMPARE(int(table[point.x()]), point.y());
    }

    void ChannelsComeFirstAndAlone() {
        LevelsSettings settings;
        settings.output[1][1] = 10;
        settings.input[0][1] = 10;
        settings.gamma[2] = 2.0;
        settings.input[3][0] = 250;
        settings.gamma[3] = 0.2;
        const HBLevelsTransformation levels = settings.Operation();
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
        LevelsSettings settings;
        settings.output[0][1] = 0;
        const struct {
            int amount, expected;
        } rows[] = {{25, 150}, {50, 100}, {100, 0}, {101, 0}, {INT_MAX, 0}, {-1, 200}, {INT_MIN, 200}};
        for (const auto& row : rows) {
            settings.amount = row.amount;
            QCOMPARE(int(settings.Operation().red[200]), row.expected);
        }
    }

    void RunFormsEqualScalarForms() {
        LevelsSettings settings;
        settings.gamma[1] = 2.0;
        settings.output[2][0] = 200;
        const QVector<QPoint> curves[4] = {{{0, 0}, {100, 150}, {255, 255}}, {}, {{0, 255}, {255, 0}}, {}};
        QVERIFY(HBRunFormEqualsScalarForm(settings.Operation()));
        QVERIFY(HBRunFormEqualsScalarForm(HBIterativeCurvesTransformation(curves, 100).Operation()));
        QVERIFY(HBRunFormEqualsScalarForm(HBIterativeGammaCorrectionTransformation(2.2).Operation()));
        QVERIFY(HBRunFormEqualsScalarForm(HBIterativeExposureTransformation(0.7, -0.01).Operation()));
        QVERIFY(HBRunFormEqualsScalarForm(HBIterativePosterizeTransformation(5).Operation()));
    }
};

HB_TEST_MAIN(tst_TonalTransformations)
#include "tst_TonalTransformations.moc"
