// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRunFormCheck.h"
#include "HBTestMain.h"
#include "HBThresholdRGB32.h"

#include <climits>

namespace {

using Threshold = HBThresholdRGB32<30, 59, 11>;

}

class tst_HBThresholdRGB32 : public QObject {
    Q_OBJECT
private slots:
    void Values_data() {
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<int>("luminance");
        QTest::newRow("black") << QColor(0, 0, 0) << 0;
        QTest::newRow("grey") << QColor(127, 127, 127) << 127;
        QTest::newRow("lighter grey") << QColor(128, 128, 128) << 128;
        QTest::newRow("red") << QColor(255, 0, 0) << 76;       // 76.5
        QTest::newRow("green") << QColor(0, 255, 0) << 150;    // 150.45
        QTest::newRow("blue") << QColor(0, 0, 255) << 28;      // 28.05
        QTest::newRow("just below 2") << QColor(2, 2, 1) << 1; // 1.89
        QTest::newRow("white") << QColor(255, 255, 255) << 255;
    }
    void Values() {
        QFETCH(QColor, colour);
        QFETCH(int, luminance);
        for (int level : {INT_MIN, -1, 0, luminance, luminance + 1, 256, INT_MAX}) {
            HBRGBA32i pixel(std::uint8_t(colour.red()), std::uint8_t(colour.green()), std::uint8_t(colour.blue()),
                            31);
            Threshold{level}(pixel);
            const std::uint8_t expected = luminance < level ? 0 : 255;
            QCOMPARE(pixel, HBRGBA32i(expected, expected, expected, 31));
        }
    }

    void RunFormEqualsScalarForm() {
        for (int level : {INT_MIN, -1, 0, 1, 28, 29, 127, 128, 255, 256, INT_MAX})
            QVERIFY(HBRunFormEqualsScalarForm(Threshold{level}));
        QVERIFY(HBRunFormEqualsScalarForm(HBThresholdRGB32<100, 0, 0>{100}));
        QVERIFY(HBRunFormEqualsScalarForm(HBThresholdRGB32<0, 0, 100>{100}));
    }
};

HB_TEST_MAIN(tst_HBThresholdRGB32)
#include "tst_HBThresholdRGB32.moc"
