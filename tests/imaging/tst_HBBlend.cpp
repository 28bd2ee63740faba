// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBBlend.h>

#include <cmath>

class tst_HBBlend : public QObject {
    Q_OBJECT
private slots:
    void ScaleRoundsToNearest() {
        for (int a = 0; a < 256; ++a) {
            for (int b = 0; b < 256; ++b) QCOMPARE(HBBlend::Scale(a, b), (2 * a * b + 255) / 510);
        }
    }

    void SelectionWeighsAllFourChannels() {
        // 255 is odd, so that no value lies half-way: rounding has one meaning.
        for (int source = 0; source < 256; source += 5) {
            for (int adjusted = 0; adjusted < 256; adjusted += 3) {
                for (int coverage = 0; coverage < 256; ++coverage) {
                    const auto mean =
                        std::uint8_t((2 * (source * (255 - coverage) + adjusted * coverage) + 255) / 510);
                    HBRGBA32i pixel(std::uint8_t(adjusted), 0, 255, std::uint8_t(255 - adjusted));
                    const HBRGBA32i original(std::uint8_t(source), 0, 255, std::uint8_t(255 - source));
                    HBBlend::HBSourceBySelection()(original, pixel, HBRGBA32i(9, 9, 9, std::uint8_t(coverage)));
                    if (pixel != HBRGBA32i(mean, 0, 255, std::uint8_t(255 - mean)))
                        QCOMPARE(int(pixel.red), int(mean));
                }
            }
        }
    }

    void SourceOver_data() {
        QTest::addColumn<QColor>("source");
        QTest::addColumn<QColor>("destination");
        QTest::addColumn<QColor>("expected");
        const QColor none(10, 20, 30, 0);
        const QColor red(255, 0, 0);
        const QColor halfBlue(0, 0, 255, 128);
        QTest::newRow("opaque covers") << red << halfBlue << red;
        QTest::newRow("nothing covers nothing") << none << halfBlue << halfBlue;
        QTest::newRow("on nothing") << halfBlue << none << halfBlue;
        QTest::newRow("half on opaque") << halfBlue << red << QColor(127, 0, 128);
        // alpha 128/255 + 128/255 × 127/255; the colours weigh 255 : 127 in it
        QTest::newRow("half on half") << halfBlue << QColor(255, 0, 0, 128) << QColor(85, 0, 170, 192);
    }
    void SourceOver() {
        QFETCH(QColor, source);
        QFETCH(QColor, destination);
        QFETCH(QColor, expected);
        HBRGBA32i pixel = HBRGBA32i::FromRgba(destination.rgba());
        HBBlend::HBSourceOver()(HBRGBA32i::FromRgba(source.rgba()), pixel);
        QCOMPARE(QColor::fromRgba(pixel.ToRgba()), expected);
    }
    void SourceOverIsTheFormula() {
        for (int as = 0; as < 256; as += 3) {
            for (int ad = 1; ad < 256; ad += 2) {
                HBRGBA32i pixel(0, 200, 255, std::uint8_t(ad));
                HBBlend::HBSourceOver()(HBRGBA32i(255, 100, 255, std::uint8_t(as)), pixel);
                const double s = as / 255.0;
                const double d = ad / 255.0 * (1 - s);
                QCOMPARE(int(pixel.alpha), int(std::lround((s + d) * 255)));
                QVERIFY(std::abs(pixel.red - 255 * s / (s + d)) <= 0.5 + 1e-9);
                QVERIFY(std::abs(pixel.green - (100 * s + 200 * d) / (s + d)) <= 0.5 + 1e-9);
                QCOMPARE(int(pixel.blue), 255);
            }
        }
    }
};

HB_TEST_MAIN(tst_HBBlend)
#include "tst_HBBlend.moc"
