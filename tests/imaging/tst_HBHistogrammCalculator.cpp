// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBHistogrammCalculator.h>
#include <HBParallel.h>
#include <HBStretchRange.h>
#include <HBTailLevels.h>
#include <HBTestMain.h>
#include <HBTestPool.h>

#include <hwy/targets.h>

#include <limits>
#include <random>

namespace {

using Counts = HBHistogrammCalculator::Counts;

/// Differs along x and y in every channel; the padding of the border tiles is filled as well.
HBImage<> Ramp(int width, int height) {
    HBImage<> image(width, height);
    for (int tile = 0; tile < image.Columns() * image.Rows(); ++tile) {
        const KMTilePin<HBRGBA32i> pin(image.Tile(tile), true);
        std::fill_n(pin.Pixels(), HBImage<>::TilePixels, HBRGBA32i(255, 0, 77, 9));
    }
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.SetPixel(x, y, HBRGBA32i(quint8(x), quint8(x + 2 * y), quint8(y), quint8(x ^ y)));
    return image;
}

Counts PlainLoop(const HBImage<>& image, const QRect& rect) {
    Counts counts;
    for (int y = qMax(0, rect.top()); y <= qMin(image.Height() - 1, rect.bottom()); ++y) {
        for (int x = qMax(0, rect.left()); x <= qMin(image.Width() - 1, rect.right()); ++x) {
            const HBRGBA32i p = image.PixelAt(x, y);
            ++counts.levels[0][p.red];
            ++counts.levels[1][p.green];
            ++counts.levels[2][p.blue];
            ++counts.levels[3][HBHistogrammCalculator::LumaOf(p)];
            ++counts.pixels;
        }
    }
    return counts;
}

} // namespace

class TestHBHistogrammCalculator : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void EqualsAPlainLoop() {
        std::vector<std::pair<QSize, QRect>> rows = {{{0, 0}, {0, 0, 5, 5}}};
        for (const QSize& size : {QSize(1, 1), QSize(127, 129), QSize(128, 128), QSize(257, 3), QSize(300, 290)})
            rows.emplace_back(size, QRect(QPoint(), size));
        // One pixel, across borders, one tile, reaching out, outside, in the padding, inverted.
        for (const QRect& rect :
             {QRect(128, 127, 1, 1), QRect(100, 120, 130, 20), QRect(128, 128, 128, 128), QRect(-50, -50, 90, 900),
              QRect(-50, -50, 50, 50), QRect(300, 0, 50, 50), QRect(QPoint(50, 50), QPoint(10, 10))})
            rows.emplace_back(QSize(300, 290), rect);
        const int threads = HBThreadPool().maxThreadCount();
        for (const auto& [size, rect] : rows) {
            const HBImage<> image = Ramp(size.width(), size.height());
            const Counts expected = PlainLoop(image, rect);
            for (const int lanes : {1, 4}) {
                HBThreadPool().setMaxThreadCount(lanes);
                const Counts counts = HBHistogrammCalculator::Count(image, rect);
                QCOMPARE(counts.pixels, expected.pixels);
                QVERIFY(counts.levels == expected.levels);
            }
        }
        HBThreadPool().setMaxThreadCount(threads);
    }

    void LumaIsRounded() {
        for (int r = 0; r < 256; r += 5) {
            for (int g = 0; g < 256; g += 5) {
                for (int b = 0; b < 256; b += 5) {
                    const int luma = HBHistogrammCalculator::LumaOf(HBRGBA32i(quint8(r), quint8(g), quint8(b)));
                    // 15-bit weights are off by up to 0.008, which tells near halves only.
                    QVERIFY(qAbs(luma - (0.2126 * r + 0.7152 * g + 0.0722 * b)) <= 0.508);
                }
            }
        }
        for (int level = 0; level < 256; ++level)
            QCOMPARE(HBHistogrammCalculator::LumaOf(HBRGBA32i(quint8(level), quint8(level), quint8(level))),
                     level);
    }

    // The fast counters are 16 bits wide: far more pixels than that of one level.
    void OneColorOfManyPixels() {
        QImage color(1500, 1000, QImage::Format_RGB32);
        color.fill(QColor(1, 128, 255));
        for (const Counts& counts : {HBHistogrammCalculator::Count(color),
                                     HBHistogrammCalculator::Count(HBImage<>::FromQImage(color), color.rect())}) {
            QCOMPARE(counts.pixels, quint64(1500000));
            QCOMPARE(counts.levels[0][1], quint64(1500000));
            QCOMPARE(counts.levels[1][128], quint64(1500000));
            QCOMPARE(counts.levels[2][255], quint64(1500000));
            QCOMPARE(counts.levels[3][110], quint64(1500000)); // 0.2126 + 91.55 + 18.41
        }
    }

    void QImagesOfAnyFormat() {
        const QImage ramp = Ramp(130, 70).ToQImage();
        const Counts expected = HBHistogrammCalculator::Count(Ramp(130, 70), QRect(0, 0, 130, 70));
        QVERIFY(HBHistogrammCalculator::Count(ramp).levels == expected.levels);
        QVERIFY(HBHistogrammCalculator::Count(ramp.convertToFormat(QImage::Format_RGBA8888)).levels ==
                expected.levels);

        QImage indexed(3, 200, QImage::Format_Indexed8);
        indexed.setColorTable({qRgb(10, 20, 30), qRgb(40, 50, 60)});
        indexed.fill(1);
        QCOMPARE(HBHistogrammCalculator::Count(indexed).levels[1][50], quint64(600));
        QImage half(4, 4, QImage::Format_ARGB32_Premultiplied);
        half.fill(QColor(200, 100, 50, 255));
        QCOMPARE(HBHistogrammCalculator::Count(half).levels[0][200], quint64(16));
        QCOMPARE(HBHistogrammCalculator::Count(QImage()).pixels, quint64(0));
    }

    void AccumulateAddsAndStops() {
        const HBImage<> image = Ramp(200, 150);
        const Counts counts = PlainLoop(image, QRect(0, 0, 200, 150));
        int red[256] = {};
        int luma[256] = {};
        luma[60] = std::numeric_limits<int>::max() - 1;
        HBHistogrammCalculator calculator;
        calculator.SetOutput(red, nullptr, nullptr, luma);
        calculator.Accumulate(image, QRect(0, 0, 200, 150));
        calculator.Accumulate(image, QRect(0, 0, 200, 150));
        for (int level = 0; level < 256; ++level) QCOMPARE(red[level], int(2 * counts.levels[0][level]));
        QCOMPARE(luma[60], std::numeric_limits<int>::max());
    }

    void AbandonedCountsEnd() {
        const std::atomic<bool> abandoned{true};
        QCOMPARE(HBHistogrammCalculator::Count(Ramp(300, 300), QRect(0, 0, 300, 300), &abandoned).pixels,
                 quint64(0));
    }

    void WhatRunsBehindGivesWay() {
        const HBPoolSize one(1);
        QVector<int> order;
        int steps = 0;
        HBRunBehind([&] {
            order.append(steps);
            if (steps == 0) HBThreadPool().start(QRunnable::create([&] { order.append(100); }));
            return ++steps < 3;
        });
        HBThreadPool().waitForDone();
        QCOMPARE(order, QVector<int>({0, 100, 1, 2}));
    }

    void CountsBehind() {
        const HBImage<> image = Ramp(300, 290);
        const Counts expected = PlainLoop(image, QRect(0, 0, 300, 290));
        for (const int threads : {1, 4}) {
            const HBPoolSize pool(threads);
            QAtomicInt calls;
            Counts plain, tiled, none;
            const auto into = [&](Counts& counts) {
                return [&](const Counts& counted) {
                    counts = counted;
                    calls.ref();
                };
            };
            const auto abandoned = std::make_shared<std::atomic<bool>>(false);
            HBHistogrammCalculator::CountBehind(image.ToQImage(), abandoned, into(plain));
            HBHistogrammCalculator::CountBehind(image, abandoned, into(tiled));
            HBHistogrammCalculator::CountBehind(image, std::make_shared<std::atomic<bool>>(true), into(none));
            HBThreadPool().waitForDone();
            QCOMPARE(calls.loadAcquire(), 3);
            QVERIFY(plain.levels == expected.levels && tiled.levels == expected.levels);
            QCOMPARE(none.pixels, quint64(0));
        }
    }

    /// As from the histogram: of noise, dark and light pictures, few levels, tails too thin for the sample, and
    /// one whose sampled rows are not like the others.
    void TailLevels() {
        std::mt19937 random(5);
        for (int kind = 0; kind < 7; ++kind) {
            HBImage<> image(1030, 1100);
            for (int index = 0; index < image.Tiles().size(); ++index) {
                const KMTilePin<HBRGBA32i> pin(image.Tile(index), true);
                const int sampled = index * 37 % image.TileRect(index).height();
                for (int i = 0; i < HBImage<>::TilePixels; ++i) {
                    const int noise = int(random());
                    const int x = noise & 255, y = (noise >> 8) & 255, z = (noise >> 16) & 255;
                    const HBRGBA32i pixels[] = {HBRGBA32i(quint8(x), quint8(y), quint8(z)),
                                                HBRGBA32i(quint8(x * y / 255), quint8(x * y * z / 65025), 0),
                                                HBRGBA32i(quint8(255 - x * y / 255), 255, quint8(x / 100)),
                                                HBRGBA32i(quint8(x ? 7 : y), quint8(x & 1), quint8(qMin(x, 128))),
                                                HBRGBA32i(quint8(x < 3 ? y : 128), 40, quint8(qMax(y, 250))),
                                                HBRGBA32i(128, 128, 128),
                                                HBRGBA32i(quint8(i / 128 == sampled ? 9 : x), quint8(y), 3)};
                    pin.Pixels()[i] = pixels[kind];
                }
            }
            const Counts counts = HBHistogrammCalculator::Count(image, QRect(0, 0, 1030, 1100));
            const auto reset = qScopeGuard([] { hwy::GetChosenTarget().Update(hwy::SupportedTargets()); });
            for (qint64 left = hwy::SupportedTargets(); left; left &= left - 1) {
                hwy::GetChosenTarget().Update(left & -left);
                const auto tails = HBTailLevels(image);
                QVERIFY(tails);
                for (std::size_t c = 0; c < 4; ++c) {
                    const std::vector<int> expected = HBHistogrammCalculator::Threshold(counts.levels[c]);
                    QCOMPARE(std::vector<int>((*tails)[c].begin(), (*tails)[c].end()), expected);
                }
            }
            HBJobControl cancelled;
            cancelled.Cancel();
            QVERIFY(!HBTailLevels(image, &cancelled));
        }
    }

    void Threshold() {
        const struct {
            QMap<int, int> levels;
            int low, high;
        } rows[] = {{{}, 0, 255},
                    {{{40, 1}}, 40, 40},
                    {{{3, 5}, {50, 990}, {200, 5}}, 3, 50}, // just 0.5 % at the ends
                    {{{3, 4}, {50, 992}, {200, 4}}, 50, 50},
                    {{{0, 100}, {255, 100}}, 0, 255},
                    {{{7, INT_MAX}, {9, INT_MAX}}, 7, 9},
                    {{{7, -50}, {9, 10}}, 9, 9}};
        for (const auto& row : rows) {
            int counts[256] = {};
            for (auto it = row.levels.cbegin(); it != row.levels.cend(); ++it) counts[it.key()] = it.value();
            QCOMPARE(HBHistogrammCalculator::Threshold(counts), (std::vector<int>{row.low, row.high}));
        }
    }

    void StretchRange() {
        const struct {
            QMap<int, unsigned> levels;
            int low, high;
        } rows[] = {{{{100, 10}, {105, 10}}, 94, 110}, // too narrow: 16 apart, inside 0..255
                    {{{250, 10}, {255, 10}}, 239, 255},
                    {{{0, 10}}, 0, 16},
                    {{{255, 10}}, 239, 255},
                    {{{128, 10}}, 120, 136},
                    {{{10, 10}, {200, 10}}, 10, 200},
                    // The last level below which nearly nothing lies, used or not.
                    {{{3, 1}, {40, 649}, {150, 650}}, 39, 150},
                    {{{40, 649}, {150, 650}, {252, 1}}, 40, 150},
                    {{{5, 1}, {50, 998}, {200, 1}}, 41, 57}, // up to the crowd
                    // Exactly 0.2 % is enough to stay, 99.8 % is reached one level before the top.
                    {{{10, 2}, {90, 996}, {250, 2}}, 10, 90}};
        for (const auto& row : rows) {
            unsigned counts[256] = {}, total = 0;
            for (auto it = row.levels.cbegin(); it != row.levels.cend(); ++it)
                total += counts[it.key()] = it.value();
            QCOMPARE(HBStretchRange(counts, row.levels.firstKey(), row.levels.lastKey(), total),
                     (std::pair{row.low, row.high}));
        }
        const unsigned none[256] = {};
        QCOMPARE(HBStretchRange(none, 0, 0, 0), (std::pair{0, 16}));
    }
};

HB_TEST_MAIN(TestHBHistogrammCalculator)
#include "tst_HBHistogrammCalculator.moc"
