// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAverageTintRGB32.h"
#include "HBRunFormCheck.h"
#include "HBTestMain.h"
#include "HBThresholdRGB32.h"

#include <climits>

namespace {

constexpr HBRGBA32i Black(0, 0, 0);
constexpr HBRGBA32i White(255, 255, 255);
// What the panel starts with, at 75 %.
constexpr HBRGBA32i DarkTone(5, 6, 8);
constexpr HBRGBA32i LightTone(170, 209, 255);

using Average = HBAverageTintRGB32<333, 334, 333>;
using Ntsc = HBAverageTintRGB32<300, 590, 110>;
using Threshold = HBThresholdRGB32<30, 59, 11>;
using Luma = HBAverageTintRGB32<212, 715, 73>;

template <class Tint>
HBRGBA32i Apply(const Tint& tint, HBRGBA32i pixel) {
    pixel.alpha = 31;
    tint(pixel);
    return pixel;
}

HBRGBA32i Pixel(int red, int green, int blue) {
    return {std::uint8_t(red), std::uint8_t(green), std::uint8_t(blue), 31};
}

} // namespace

class tst_AdjustmentKernels : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TintValues() {
        constexpr int all = 255000;
        QCOMPARE(Apply(Average(Black, White, all), Pixel(255, 0, 0)), Pixel(84, 84, 84));
        QCOMPARE(Apply(Ntsc(Black, White, all), Pixel(255, 0, 0)), Pixel(76, 76, 76));
        QCOMPARE(Apply(Luma(Black, White, all), Pixel(255, 0, 0)), Pixel(54, 54, 54));
        QCOMPARE(Apply(Average(Black, White, all), Pixel(0, 255, 0)), Pixel(85, 85, 85)); // green weighs 334
        // Both divisions truncate.
        QCOMPARE(Apply(Average(Black, White, all / 2), Pixel(255, 0, 0)), Pixel(169, 42, 42));
        const Luma tint(DarkTone, LightTone, 75 * 2550);
        QCOMPARE(Apply(tint, Pixel(255, 255, 255)), Pixel(191, 220, 255));
        QCOMPARE(Apply(tint, Pixel(0, 0, 0)), Pixel(3, 4, 6));
        QCOMPARE(Apply(tint, Pixel(100, 150, 200)), Pixel(97, 126, 159));
    }

    void NothingOfItIsIdentity() {
        for (HBRGBA32i pixel : HBDenseColors()) {
            const HBRGBA32i before = pixel;
            Ntsc(LightTone, DarkTone, 0)(pixel);
            Ntsc(LightTone, DarkTone, INT_MIN)(pixel);
            QCOMPARE(pixel, before);
        }
        QCOMPARE(Apply(Luma(Black, White, INT_MAX), Pixel(255, 0, 0)), Pixel(54, 54, 54));
    }

    void ThresholdValues() {
        const struct {
            HBRGBA32i color;
            int luminance;
        } rows[] = {{Black, 0},         {{127, 127, 127}, 127}, {{128, 128, 128}, 128}, {{255, 0, 0}, 76}, // 76.5
                    {{0, 255, 0}, 150}, // 150.45
                    {{0, 0, 255}, 28},  // 28.05
                    {{2, 2, 1}, 1},     // 1.89
                    {White, 255}};
        for (const auto& row : rows) {
            for (int level : {INT_MIN, -1, 0, row.luminance, row.luminance + 1, 256, INT_MAX}) {
                const int expected = row.luminance < level ? 0 : 255;
                QCOMPARE(Apply(Threshold{level}, row.color), Pixel(expected, expected, expected));
            }
        }
    }

    void RunFormEqualsScalarForm() {
        for (int amount : {0, 1, 2550, 127500, 252450, 255000}) {
            QVERIFY(HBRunFormEqualsScalarForm(Average(DarkTone, LightTone, amount)));
            QVERIFY(HBRunFormEqualsScalarForm(Ntsc(Black, White, amount)));
            QVERIFY(HBRunFormEqualsScalarForm(Luma(White, Black, amount)));
        }
        for (int level : {INT_MIN, -1, 0, 1, 28, 29, 127, 128, 255, 256, INT_MAX})
            QVERIFY(HBRunFormEqualsScalarForm(Threshold{level}));
        QVERIFY(HBRunFormEqualsScalarForm(HBThresholdRGB32<100, 0, 0>{100}));
        QVERIFY(HBRunFormEqualsScalarForm(HBThresholdRGB32<0, 0, 100>{100}));
    }
};

HB_TEST_MAIN(tst_AdjustmentKernels)
#include "tst_AdjustmentKernels.moc"
