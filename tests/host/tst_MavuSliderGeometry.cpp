// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBTestMain.h>
#include <MavuSliderGeometry.h>

#include <limits>

class TestMavuSliderGeometry : public QObject {
    Q_OBJECT
private slots:
    void EveryValueSurvivesThePixels_data();
    void EveryValueSurvivesThePixels();
    void Ends();
    void HostilePixels_data();
    void HostilePixels();
    void Nearest();
};

void TestMavuSliderGeometry::EveryValueSurvivesThePixels_data() {
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<double>("length");
    QTest::newRow("one pixel a level") << 0 << 255 << 255.0;
    QTest::newRow("wide") << 0 << 255 << 1003.0;
    QTest::newRow("less than a pixel a level") << 0 << 255 << 61.0;
    QTest::newRow("negative") << -100 << 100 << 333.0;
    QTest::newRow("one value") << 7 << 7 << 100.0;
}

void TestMavuSliderGeometry::EveryValueSurvivesThePixels() {
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(double, length);
    const MavuSliderGeometry geometry{minimum, maximum, 2, length};
    for (int value = minimum; value <= maximum; ++value) {
        QCOMPARE(geometry.ValueAt(geometry.PositionOf(value)), value);
        QCOMPARE(geometry.MovedBy(value, 0), value);
    }
}

void TestMavuSliderGeometry::Ends() {
    const MavuSliderGeometry geometry{0, 255, 2, 510};
    QCOMPARE(geometry.PositionOf(0), 2.0);
    QCOMPARE(geometry.PositionOf(255), 512.0);
    QCOMPARE(geometry.ValueAt(4.9), 1);
    QCOMPARE(geometry.ValueAt(5.1), 2);
    QCOMPARE(geometry.MovedBy(100, 20), 110);
    QCOMPARE(geometry.MovedBy(250, 20), 255);
}

void TestMavuSliderGeometry::HostilePixels_data() {
    constexpr int Min = std::numeric_limits<int>::min();
    constexpr int Max = std::numeric_limits<int>::max();
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("x");
    QTest::addColumn<int>("expected");
    QTest::newRow("NaN") << 0 << 255 << 100.0 << qQNaN() << 0;
    QTest::newRow("infinite") << 0 << 255 << 100.0 << qInf() << 255;
    QTest::newRow("far left") << 0 << 255 << 100.0 << -1e300 << 0;
    QTest::newRow("no length") << 3 << 255 << 0.0 << 50.0 << 3;
    QTest::newRow("negative length") << 3 << 255 << -4.0 << 50.0 << 3;
    QTest::newRow("inverted range") << 9 << 2 << 100.0 << 50.0 << 9;
    QTest::newRow("all ints, low end") << Min << Max << 100.0 << 0.0 << Min;
    QTest::newRow("all ints, high end") << Min << Max << 100.0 << 200.0 << Max;
}

void TestMavuSliderGeometry::HostilePixels() {
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(double, length);
    QFETCH(double, x);
    const MavuSliderGeometry geometry{minimum, maximum, 2, length};
    QTEST(geometry.ValueAt(x), "expected");
}

void TestMavuSliderGeometry::Nearest() {
    const MavuSliderGeometry geometry{0, 255, 0, 255};
    using List = QVector<int>;
    QCOMPARE(geometry.NearestTo(90, {0, 128, 255}), List{1});
    QCOMPARE(geometry.NearestTo(10, {20, 20, 200}), (List{0, 1}));
    QCOMPARE(geometry.NearestTo(15, {10, 20}), (List{0, 1}));
    QCOMPARE(geometry.NearestTo(15, {}), List{});
}

HB_TEST_MAIN(TestMavuSliderGeometry)
#include "tst_MavuSliderGeometry.moc"
