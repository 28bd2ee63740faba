// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRunFormCheck.h"
#include "HBTestLight.h"
#include "HBTestMain.h"

#include <HBParallel.h>
#include <KMIterativeWBTransformation.h>

#include <QScopeGuard>
#include <QThreadPool>

#include <array>
#include <climits>
#include <cmath>
#include <functional>

namespace {

using WB = KMIterativeWBTransformation;
using Triple = std::array<double, 3>;

double Decode(double level) { return HBDecode(level); }
int Encode(double light) { return int(std::lround(HBEncode(light))); }

/// Every pixel, padding included, from the function of its place; padding is what no image has.
HBImage<> Generate(int width, int height, const std::function<HBRGBA32i(int, int)>& color, HBRGBA32i padding) {
    constexpr int Side = HBImage<>::TileSide;
    HBImage<> image(width, height);
    for (int index = 0; index < image.Tiles().size(); ++index) {
        const QRect area = image.TileRect(index);
        const KMTilePin<HBRGBA32i> pin(image.Tile(index), true);
        for (int y = 0; y < Side; ++y) {
            for (int x = 0; x < Side; ++x) {
                const bool inside = x < area.width() && y < area.height();
                pin.Pixels()[y * Side + x] = inside ? color(area.left() + x, area.top() + y) : padding;
            }
        }
    }
    return image;
}

HBImage<> Uniform(int width, int height, HBRGBA32i color, HBRGBA32i padding = {}) {
    return Generate(
        width, height, [=](int, int) { return color; }, padding);
}

/// Surfaces of all colours, some of them white, under a light of the given colour.
HBImage<> Scene(int width, int height, const Triple& light, HBRGBA32i padding = {}) {
    const auto surface = [&](int x, int y) {
        const quint32 random = quint32((x / 9) * 7919 + (y / 7) * 104729 + 1) * 2654435761u;
        const auto shown = [&](int shift, double share) {
            const bool white = random >> 27 == 0;
            return std::uint8_t(Encode(share * (white ? 0.95 : 0.9 * Decode((random >> shift) & 255))));
        };
        return HBRGBA32i(shown(0, light[0]), shown(8, light[1]), shown(16, light[2]), std::uint8_t(x));
    };
    return Generate(width, height, surface, padding);
}

double Angle(const Triple& a, const Triple& b) {
    const auto dot = [](const Triple& p, const Triple& q) { return p[0] * q[0] + p[1] * q[1] + p[2] * q[2]; };
    return std::acos(qMin(1.0, dot(a, b) / std::sqrt(dot(a, a) * dot(b, b)))) * 180.0 / M_PI;
}

bool AreEqual(const HBChannelTables& a, const HBChannelTables& b) {
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

bool IsIdentity(const HBChannelTables& tables) { return AreEqual(tables, HBChannelTables()); }

constexpr auto Auto = WB::AutoBalance;
constexpr auto Over = WB::Overexposure;
constexpr auto Under = WB::Underexposure;

} // namespace

class tst_KMIterativeWBTransformation : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// A light multiplies the picture by three gains; the correction takes its colour back.
    void CastIsTakenBack() {
        const Triple lights[] = {{1, 1, 1}, {1, 0.75, 0.5}, {0.6, 0.8, 1}, {0.7, 1, 0.75}, {0.2, 0.15, 0.08}};
        for (const Triple& light : lights) {
            const WB correction(Scene(300, 200, light), Auto, 100);
            // A grey surface under the light is grey again, as bright as it was.
            HBRGBA32i grey(std::uint8_t(Encode(0.4 * light[0])), std::uint8_t(Encode(0.4 * light[1])),
                           std::uint8_t(Encode(0.4 * light[2])));
            correction(grey);
            const Triple corrected = {Decode(grey.red), Decode(grey.green), Decode(grey.blue)};
            QVERIFY(Angle(corrected, {1, 1, 1}) < 3.0);
            const auto luminance = [](const Triple& c) { return 0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2]; };
            QVERIFY(std::abs(luminance(corrected) / (0.4 * luminance(light)) - 1.0) < 0.05);
        }
    }

    void StrengthLeadsToTheCorrection() {
        const HBImage<> scene = Scene(200, 200, {1.0, 0.7, 0.5});
        int before = 255;
        for (int strength : {0, 25, 50, 75, 100}) {
            const int red = WB(scene, Auto, strength).red[200];
            QVERIFY(strength == 0 ? red == 200 : red < before);
            before = red;
        }
        QVERIFY(AreEqual(WB(scene, Auto, INT_MAX), WB(scene, Auto, 100)));
        QVERIFY(IsIdentity(WB(scene, Auto, INT_MIN)));
    }

    void NothingToCorrect() {
        const HBRGBA32i black(0, 0, 0);
        for (auto function : {Auto, Over, Under}) {
            QVERIFY(IsIdentity(WB(HBImage<>(), function, 100)));
            QVERIFY(IsIdentity(WB(Scene(100, 100, {1, 0.5, 0.5}), function, 0)));
            // One colour, one pixel.
            const WB one(Uniform(1, 1, HBRGBA32i(200, 10, 10)), function, 100);
            QCOMPARE(int(one.red[0]), 0);
        }
        QVERIFY(IsIdentity(WB(Uniform(130, 1, black), Auto, 100)));
        QVERIFY(IsIdentity(WB(Uniform(130, 1, HBRGBA32i(200, 0, 9)), Auto, 100))); // no green at all
        QVERIFY(IsIdentity(WB(Uniform(5, 5, HBRGBA32i(140, 140, 140)), Auto, 100)));
        for (int unknown : {-1, 3, 5, INT_MAX, INT_MIN})
            QVERIFY(IsIdentity(WB(Scene(50, 50, {1, 0.5, 0.5}), WB::BalanceFunction(unknown), 100)));
        // Black and white have no tone that a power could move.
        for (auto function : {Over, Under}) {
            HBRGBA32i pixel(0, 255, 0, 3);
            WB(Uniform(9, 9, black), function, 100)(pixel);
            WB(Uniform(9, 9, HBRGBA32i(255, 255, 255)), function, 100)(pixel);
            QCOMPARE(pixel, HBRGBA32i(0, 255, 0, 3));
        }
    }

    void ExposureGoesToTheKey() {
        // 118 has a luminance of 0.18.
        const HBImage<> bright = Uniform(200, 3, HBRGBA32i(200, 200, 200));
        const HBImage<> dark = Uniform(200, 3, HBRGBA32i(60, 60, 60));
        QCOMPARE(int(WB(bright, Over, 100).green[200]), 118);
        QCOMPARE(int(WB(dark, Under, 100).green[60]), 118);
        QVERIFY(IsIdentity(WB(bright, Under, 100)));
        QVERIFY(IsIdentity(WB(dark, Over, 100)));
        const int half = WB(bright, Over, 50).red[200];
        QVERIFY(half > 118 && half < 200);
        // The log-average of two tones is their geometric mean.
        const auto halves = [](int x, int) { return x % 2 ? HBRGBA32i(220, 220, 220) : HBRGBA32i(150, 150, 150); };
        const double mean = std::sqrt(Decode(220) * Decode(150));
        const double power = std::log(0.18) / std::log(mean);
        QCOMPARE(int(WB(Generate(300, 131, halves, {}), Over, 100).red[180]),
                 Encode(std::pow(Decode(180), power)));
    }

    void PaddingIsNotCounted() {
        for (const QSize size : {QSize(130, 1), QSize(1, 1), QSize(127, 129), QSize(17, 260)}) {
            const Triple light = {1.0, 0.6, 0.4};
            const HBImage<> plain = Scene(size.width(), size.height(), light);
            const HBImage<> loud = Scene(size.width(), size.height(), light, HBRGBA32i(0, 255, 255));
            for (auto function : {Auto, Over, Under})
                QVERIFY(AreEqual(WB(plain, function, 100), WB(loud, function, 100)));
        }
    }

    void SameBytesEverywhere() {
        const auto reset = qScopeGuard([] { hwy::GetChosenTarget().Update(hwy::SupportedTargets()); });
        auto& pool = HBThreadPool();
        const int threads = pool.maxThreadCount();
        const HBImage<> scene = Scene(333, 417, {0.5, 0.3, 0.9});
        const WB expected[] = {WB(scene, Auto, 70), WB(scene, Over, 70), WB(scene, Under, 70)};
        for (qint64 left = hwy::SupportedTargets(); left; left &= left - 1) {
            hwy::GetChosenTarget().Update(left & -left);
            for (int count : {1, 3}) {
                pool.setMaxThreadCount(count);
                for (auto function : {Auto, Over, Under})
                    QVERIFY(AreEqual(WB(scene, function, 70), expected[function]));
            }
        }
        pool.setMaxThreadCount(threads);
    }

    void CorrectionOutlivesThePicture() {
        auto scene = std::make_unique<HBImage<>>(Scene(100, 100, {1.0, 0.6, 0.4}));
        const WB iterative(*scene, Auto, 100);
        scene.reset();
        const KMWBTransformation sliced(iterative);
        QVERIFY(HBRunFormEqualsScalarForm(sliced));
        HBRGBA32i pixels[3] = {{1, 2, 3, 4}, {90, 80, 70, 60}, {200, 100, 50, 0}};
        HBRGBA32i expected[3] = {pixels[0], pixels[1], pixels[2]};
        for (HBRGBA32i& pixel : expected) sliced(pixel);
        WB copy = iterative;
        copy.SetProcessingBuffer(pixels);
        copy(0);
        copy(1, 2);
        QVERIFY(std::equal(pixels, pixels + 3, expected));
    }
};

HB_TEST_MAIN(tst_KMIterativeWBTransformation)
#include "tst_KMIterativeWBTransformation.moc"
