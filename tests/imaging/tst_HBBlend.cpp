// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBBlend.h>

#include <climits>
#include <cmath>

class tst_HBBlend : public QObject {
    Q_OBJECT
private Q_SLOTS:
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

    void SourceOverIsTheFormula() {
        for (int as = 0; as < 256; as += 3) {
            for (int ad = 0; ad < 256; ++ad) {
                HBRGBA32i pixel(0, 200, 255, std::uint8_t(ad));
                HBBlend::HBSourceOver()(HBRGBA32i(255, 100, 255, std::uint8_t(as)), pixel);
                const double s = as / 255.0;
                const double d = ad / 255.0 * (1 - s);
                QCOMPARE(int(pixel.alpha), int(std::lround((s + d) * 255)));
                const double share = ad == 0 ? 1 : s / (s + d); // on nothing the source is taken
                QVERIFY(std::abs(pixel.red - 255 * share) <= 0.5 + 1e-9);
                QVERIFY(std::abs(pixel.green - (200 - 100 * share)) <= 0.5 + 1e-9);
                QCOMPARE(int(pixel.blue), 255);
            }
        }
    }

    void SourceOverByOpacity() {
        const HBRGBA32i above(200, 10, 255, 90);
        const HBRGBA32i below(0, 11, 255, 91);
        const struct {
            int opacity;
            HBRGBA32i expected;
        } rows[] = {{0, below},
                    {256, above},
                    {128, {100, 11, 255, 91}}, // halves upwards
                    {253, {198, 10, 255, 90}},
                    {INT_MIN, below},
                    {INT_MAX, above}};
        for (const auto& row : rows) {
            HBRGBA32i pixel = below;
            HBBlend::HBSourceOver()(above, pixel, row.opacity);
            QCOMPARE(pixel, row.expected);
        }
    }
};

HB_TEST_MAIN(tst_HBBlend)
#include "tst_HBBlend.moc"
