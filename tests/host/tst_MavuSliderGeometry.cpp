// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBTestMain.h>
#include <MavuSliderGeometry.h>

#include <limits>

class TestMavuSliderGeometry : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void EveryValueSurvivesThePixels() {
        const MavuSliderGeometry geometries[] = {{0, 255, 2, 255},
                                                 {0, 255, 2, 1003},
                                                 {0, 255, 2, 61}, // less than a pixel a level
                                                 {-100, 100, 2, 333},
                                                 {7, 7, 2, 100}};
        for (const MavuSliderGeometry& geometry : geometries) {
            for (int value = geometry.minimum; value <= geometry.maximum; ++value) {
                QCOMPARE(geometry.ValueAt(geometry.PositionOf(value)), value);
                QCOMPARE(geometry.MovedBy(value, 0), value);
            }
        }
    }

    void Ends() {
        const MavuSliderGeometry geometry{0, 255, 2, 510};
        QCOMPARE(geometry.PositionOf(0), 2.0);
        QCOMPARE(geometry.PositionOf(255), 512.0);
        QCOMPARE(geometry.ValueAt(4.9), 1);
        QCOMPARE(geometry.ValueAt(5.1), 2);
        QCOMPARE(geometry.MovedBy(100, 20), 110);
        QCOMPARE(geometry.MovedBy(250, 20), 255);
    }

    void HostilePixels() {
        constexpr int Min = std::numeric_limits<int>::min();
        constexpr int Max = std::numeric_limits<int>::max();
        const struct {
            MavuSliderGeometry geometry;
            double x;
            int expected;
        } rows[] = {{{0, 255, 2, 100}, qQNaN(), 0}, {{0, 255, 2, 100}, qInf(), 255}, {{0, 255, 2, 100}, -1e300, 0},
                    {{3, 255, 2, 0}, 50, 3},        {{3, 255, 2, -4}, 50, 3},        {{9, 2, 2, 100}, 50, 9},
                    {{Min, Max, 2, 100}, 0, Min},   {{Min, Max, 2, 100}, 200, Max}};
        for (const auto& row : rows) QCOMPARE(row.geometry.ValueAt(row.x), row.expected);
    }
};

HB_TEST_MAIN(TestMavuSliderGeometry)
#include "tst_MavuSliderGeometry.moc"
