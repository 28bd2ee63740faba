// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBIterativeCurvesTransformation.h>

#include <math.h> // pchip.hpp calls ::isnan

#include <boost/math/interpolators/pchip.hpp>

#include <algorithm>
#include <climits>
#include <numeric>
#include <random>

namespace {

using Points = QVector<QPoint>;

struct Spline {
    Points points;
    QVector<double> a, b, c;

    explicit Spline(const Points& through) : points(through) {
        HBCurvesTransformation::BuildSplineParts(points, a, b, c);
    }
    int operator()(int x) const { return HBCurvesTransformation::SplineValue(x, points, a, b, c); }
};

/// The table of the red channel; the other curves are empty.
HBChannelTables::Table Red(const Points& composite, const Points& red, int amount = 100) {
    const Points curves[4] = {composite, red, {}, {}};
    return HBIterativeCurvesTransformation(curves, amount).Operation().red;
}

/// 4 to 64 points whose x are distinct; a third of the lists is monotone, and some points repeat a y.
Points RandomPoints(std::mt19937& random) {
    const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
    const int count = 4 + below(61);
    std::vector<int> x(256), y;
    std::iota(x.begin(), x.end(), 0);
    std::shuffle(x.begin(), x.end(), random);
    std::sort(x.begin(), x.begin() + count);
    for (int i = 0; i < count; ++i) y.push_back(i > 0 && below(5) == 0 ? y.back() : below(256));
    if (below(3) == 0) std::sort(y.begin(), y.end());
    Points points;
    for (int i = 0; i < count; ++i) points.append({x[std::size_t(i)], y[std::size_t(i)]});
    return points;
}

} // namespace

class tst_HBCurvesTransformation : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AgreesWithBoost() {
        std::mt19937 random(20260101);
        for (int set = 0; set < 3000; ++set) {
            const Points points = RandomPoints(random);
            const Spline spline(points);
            std::vector<double> x, y;
            for (const QPoint& point : points) {
                x.push_back(point.x());
                y.push_back(point.y());
                QCOMPARE(spline(point.x()), point.y());
            }
            const boost::math::interpolators::pchip<std::vector<double>> reference(std::move(x), std::move(y));
            for (int at = points.first().x(); at <= points.last().x(); ++at) {
                // Half a level is the rounding; the rest is for a value that falls on the half.
                const double error = std::abs(spline(at) - reference(at));
                QVERIFY2(error <= 0.5 + 1e-9, qPrintable(QStringLiteral("set %1 at %2").arg(set).arg(at)));
            }
        }
    }

    void CoefficientForm() {
        // The inner slope is the harmonic mean of 0.5 and 1.5, the widths being equal: 0.75.
        const Spline spline({{0, 0}, {100, 50}, {200, 200}});
        const QVector<double> expected[] = {{0.5, 0.75}, {-0.0025, 0.015}, {0.000025, -0.000075}};
        const QVector<double>* parts[] = {&spline.a, &spline.b, &spline.c};
        for (int part = 0; part < 3; ++part) {
            QCOMPARE(parts[part]->size(), 2);
            for (int i = 0; i < 2; ++i) QVERIFY(qAbs(parts[part]->at(i) - expected[part][i]) < 1e-12);
        }
        QCOMPARE(spline(50), 22);   // 21.875
        QCOMPARE(spline(150), 116); // 115.625
    }

    void Values_data() {
        HBColumns<Points, Points>("points", "expected"); // expected: x, value
        QTest::newRow("flat outside") << Points{{50, 20}, {200, 230}}
                                      << Points{{-9, 20}, {49, 20}, {201, 230}, {999, 230}};
        QTest::newRow("straight, halves up")
            << Points{{0, 0}, {254, 127}} << Points{{1, 1}, {2, 1}, {3, 2}, {254, 127}};
        QTest::newRow("no point") << Points{} << Points{{INT_MIN, 0}, {77, 77}, {INT_MAX, 255}};
        QTest::newRow("one point") << Points{{100, 0}} << Points{{-1, 0}, {77, 77}, {100, 100}};
        QTest::newRow("equal x: the last counts, level on both sides")
            << Points{{0, 10}, {100, 50}, {100, 200}, {255, 250}}
            << Points{{99, 50}, {100, 200}, {101, 200}, {0, 10}, {255, 250}};
        QTest::newRow("equal x at the ends")
            << Points{{0, 10}, {0, 20}, {255, 30}, {255, 40}} << Points{{-1, 10}, {0, 20}, {254, 30}, {255, 40}};
        QTest::newRow("one x only") << Points{{100, 10}, {100, 20}} << Points{{99, 10}, {100, 20}, {101, 20}};
        QTest::newRow("backwards") << Points{{255, 10}, {0, 90}} << Points{{-1, 10}, {0, 90}, {255, 90}};
        QTest::newRow("unordered") << Points{{0, 0}, {200, 200}, {100, 100}, {255, 255}}
                                   << Points{{0, 0}, {150, 178}, {255, 255}}; // 178.125, level at 200
        QTest::newRow("far away") << Points{{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}}
                                  << Points{{INT_MIN, 0}, {-1, 0}, {77, 77}, {256, 255}, {INT_MAX, 255}};
        QTest::newRow("steep") << Points{{0, INT_MIN}, {1, INT_MAX}, {2, INT_MIN}}
                               << Points{{0, 0}, {1, 255}, {2, 0}};
    }
    void Values() {
        QFETCH(Points, points);
        QFETCH(Points, expected);
        const Spline spline(points);
        for (const QPoint& point : qAsConst(expected)) QCOMPARE(spline(point.x()), point.y());
    }

    void CoefficientsOfAnotherListAreRefused() {
        const Spline spline({{0, 255}, {255, 0}});
        const Points three{{0, 255}, {100, 100}, {255, 0}};
        QCOMPARE(HBCurvesTransformation::SplineValue(77, three, spline.a, spline.b, spline.c), 77);
        QCOMPARE(HBCurvesTransformation::SplineValue(77, spline.points, spline.a, {}, {}), 77);
    }

    void ChannelThenComposite() {
        const Points bright{{0, 100}, {255, 255}};
        const Points invert{{0, 255}, {255, 0}};
        const Points curve{{0, 0}, {100, 150}, {255, 255}};
        const Points curves[4] = {invert, bright, {}, curve};
        const auto tables = HBIterativeCurvesTransformation(curves, 100).Operation();
        const Spline blue(curve);
        for (int level = 0; level < 256; ++level) {
            QCOMPARE(int(tables.red[level]), 255 - qRound(100 + level * 155 / 255.0));
            QCOMPARE(int(tables.green[level]), 255 - level);
            QCOMPARE(int(tables.blue[level]), 255 - blue(level));
        }
        HBRGBA32i pixel(0, 40, 100, 31);
        tables(pixel);
        QCOMPARE(pixel, HBRGBA32i(155, 215, 105, 31));
    }

    void AmountIsAShareOfTheWay() {
        const Points black{{0, 0}, {255, 0}};
        const struct {
            int amount, expected;
        } rows[] = {{0, 200}, {25, 150}, {50, 100}, {100, 0}, {INT_MAX, 0}, {INT_MIN, 200}};
        for (const auto& row : rows) QCOMPARE(int(Red(black, {}, row.amount)[200]), row.expected);
    }

    void TooFewOrTooManyPointsAreTheIdentity() {
        Points longest;
        for (int x = 0; x < HBCurvesTransformation::MaxPoints; ++x) longest.append({x, 255 - x});
        QCOMPARE(int(Red({}, longest)[10]), 245);
        longest.append({256, 0});
        for (const Points& points : {Points{}, Points{{0, 255}}, longest, Points(1000000, QPoint(0, 255))})
            QCOMPARE(Red(points, points), HBChannelTables().red);
        const Points diagonal{{0, 0}, {255, 255}};
        QCOMPARE(Red(diagonal, diagonal), HBChannelTables().red);
    }
};

HB_TEST_MAIN(tst_HBCurvesTransformation)
#include "tst_HBCurvesTransformation.moc"
