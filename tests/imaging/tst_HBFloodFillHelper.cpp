// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "../HBLostTiles.h"
#include "HBTestControl.h"
#include "HBTestImages.h"
#include "HBTestMain.h"

#include <HBBlend.h>
#include <HBFloodFillHelper.h>
#include <HBParallel.h>

#include <climits>
#include <cstdlib>
#include <functional>
#include <new>
#include <vector>

namespace {

constexpr HBRGBA32i White(255, 255, 255);
constexpr HBRGBA32i Black(0, 0, 0);
constexpr HBRGBA32i Red(255, 0, 0);
constexpr HBRGBA32i Exactly(0, 0, 0, 0);

HBRGBA32i Tolerance(int level) {
    const auto byte = std::uint8_t(level);
    return {byte, byte, byte, byte};
}

QImage Generate(int width, int height, const std::function<HBRGBA32i(int, int)>& color) {
    return HBTestPicture(width, height, [&](int x, int y) { return color(x, y).ToRgba(); }).ToQImage();
}

QImage Uniform(int width, int height, HBRGBA32i color) {
    return Generate(width, height, [=](int, int) { return color; });
}

bool IsLike(QRgb a, QRgb b, HBRGBA32i tolerance) {
    return std::abs(qRed(a) - qRed(b)) <= tolerance.red && std::abs(qGreen(a) - qGreen(b)) <= tolerance.green &&
           std::abs(qBlue(a) - qBlue(b)) <= tolerance.blue && std::abs(qAlpha(a) - qAlpha(b)) <= tolerance.alpha;
}

/// The plain way: one pixel after the other, without tiles.
QImage PlainFill(const QImage& image, QPoint seed, HBRGBA32i tolerance, HBRGBA32i replacement, QRect* filled) {
    QImage result = image;
    const QRgb like = image.pixel(seed);
    std::vector<bool> seen(std::size_t(image.width()) * std::size_t(image.height()));
    std::vector<QPoint> open = {seed};
    *filled = QRect();
    while (!open.empty()) {
        const QPoint p = open.back();
        open.pop_back();
        if (!image.rect().contains(p) || !IsLike(image.pixel(p), like, tolerance)) continue;
        const auto place = std::size_t(p.y()) * std::size_t(image.width()) + std::size_t(p.x());
        if (seen[place]) continue;
        seen[place] = true;
        *filled |= QRect(p, QSize(1, 1));
        HBRGBA32i pixel = HBRGBA32i::FromRgba(image.pixel(p));
        if (replacement.alpha > 0) HBBlend::HBSourceOver()(replacement, pixel);
        result.setPixel(p, pixel.ToRgba());
        for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
            open.push_back(p + step);
    }
    return result;
}

bool FillsAsThePlainWay(const QImage& image, QPoint seed, HBRGBA32i tolerance, HBRGBA32i replacement) {
    QRect expectedArea;
    const QImage expected = PlainFill(image, seed, tolerance, replacement, &expectedArea);
    const HBImage<> source = HBImage<>::FromQImage(image);
    HBImage<> tiled = source; // shares its tiles
    QRect area;
    const bool found = HBFloodFillHelper::FloodFill(tiled, seed, tolerance, replacement, &area);
    return found && tiled.ToQImage() == expected && area == expectedArea && source.ToQImage() == image;
}

/// A white corridor, one pixel wide between black walls, that winds inwards over all tiles.
QImage Spiral(int size) {
    QImage image = Uniform(size, size, Black);
    QPoint at(0, 0);
    QPoint step(1, 0);
    int turns = 0;
    const auto isFree = [&](QPoint p) { return image.rect().contains(p) && image.pixel(p) == Black.ToRgba(); };
    while (turns < 2) {
        image.setPixel(at, White.ToRgba());
        const QPoint next = at + step;
        if (isFree(next) && (isFree(next + step) || !image.rect().contains(next + step))) {
            at = next;
            turns = 0;
        } else {
            step = QPoint(-step.y(), step.x());
            ++turns;
        }
    }
    return image;
}

QImage Noise(int width, int height, int percentWhite) {
    quint32 state = 7;
    return Generate(width, height, [&](int, int) {
        state = state * 1664525u + 1013904223u;
        return int((state >> 16) % 100) < percentWhite ? White : Black;
    });
}

} // namespace

class tst_HBFloodFillHelper : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AsThePlainWay_data() {
        HBColumns<QImage, QPoint>("image", "seed");
        for (const QSize size : {QSize(1, 1), QSize(127, 127), QSize(128, 128), QSize(129, 257), QSize(300, 1),
                                 QSize(1, 300), QSize(64, 130)}) {
            QTest::addRow("%d x %d", size.width(), size.height())
                << Uniform(size.width(), size.height(), White) << QPoint(size.width() - 1, size.height() - 1);
        }
        QTest::newRow("spiral") << Spiral(300) << QPoint(0, 0);
        // The densities about the one at which a region just holds together wind most.
        for (int percent : {50, 57, 60, 63, 80}) {
            const QImage noise = Noise(400, 300, percent);
            QTest::addRow("noise %d", percent) << noise << QPoint(0, 0);
            QTest::addRow("noise %d, inside", percent) << noise << QPoint(130, 129);
        }
        QTest::newRow("checks") << Generate(140, 140, [](int x, int y) { return (x + y) % 2 ? White : Black; })
                                << QPoint(128, 5);
        QTest::newRow("comb") << Generate(300, 300, [](int x, int y) { return x % 2 && y != 299 ? Black : White; })
                              << QPoint(150, 0);
        // Islands of the colour inside the subject stay.
        QTest::newRow("islands") << Generate(300, 300, [](int x, int y) {
            const int ring = qMax(qAbs(x - 150), qAbs(y - 150)) / 20;
            return ring % 2 ? White : Black;
        }) << QPoint(299, 0);
    }
    void AsThePlainWay() {
        QFETCH(QImage, image);
        QFETCH(QPoint, seed);
        for (const HBRGBA32i replacement : {Red, HBRGBA32i(0, 90, 200, 127), White, HBRGBA32i(1, 2, 3, 0)})
            QVERIFY(FillsAsThePlainWay(image, seed, Exactly, replacement));
        QVERIFY(FillsAsThePlainWay(image, seed, Tolerance(255), Red)); // all
    }

    void ToleranceIsPerChannelAgainstTheSeed() {
        // A ramp does not creep: each pixel is compared with the seed, not with its neighbour.
        const QImage ramp = Generate(256, 140, [](int x, int y) {
            return HBRGBA32i(std::uint8_t(x), std::uint8_t(255 - x), std::uint8_t(x / 2),
                             std::uint8_t(255 - y / 2));
        });
        for (const HBRGBA32i tolerance :
             {Tolerance(0), Tolerance(1), Tolerance(30), HBRGBA32i(20, 255, 255, 255),
              HBRGBA32i(255, 20, 255, 255), HBRGBA32i(255, 255, 20, 255), HBRGBA32i(255, 255, 255, 20)}) {
            for (const QPoint seed : {QPoint(0, 0), QPoint(130, 60), QPoint(255, 139)})
                QVERIFY(FillsAsThePlainWay(ramp, seed, tolerance, Red));
        }
    }

    void NothingToFill() {
        QRect area(1, 2, 3, 4);
        HBImage<> empty;
        QVERIFY(!HBFloodFillHelper::FloodFill(empty, QPoint(0, 0), Exactly, Red, &area));
        QVERIFY(area.isEmpty());
        const QImage white = Uniform(130, 5, White);
        HBImage<> image = HBImage<>::FromQImage(white);
        for (const QPoint seed :
             {QPoint(-1, -1), QPoint(130, 0), QPoint(0, 5), QPoint(INT_MAX, INT_MAX), QPoint(INT_MIN, 0)}) {
            area = QRect(1, 2, 3, 4);
            QVERIFY(!HBFloodFillHelper::FloodFill(image, seed, Exactly, Red, &area));
            QVERIFY(area.isEmpty());
        }
        QCOMPARE(image.ToQImage(), white);
    }

    void OnlyWrittenTilesAreDetached() {
        // Three tiles in a row, the middle one black: the fill ends there.
        const QImage picture = Generate(384, 100, [](int x, int) { return x / 128 == 1 ? Black : White; });
        const HBImage<> source = HBImage<>::FromQImage(picture);
        HBImage<> filled = source;
        QVERIFY(HBFloodFillHelper::FloodFill(filled, QPoint(0, 0), Exactly, Red));
        QVERIFY(filled.Tile(0) != source.Tile(0));
        QVERIFY(filled.Tile(1) == source.Tile(1));
        QVERIFY(filled.Tile(2) == source.Tile(2));
        QCOMPARE(source.ToQImage(), picture);

        HBImage<> untouched = source;
        QVERIFY(HBFloodFillHelper::FloodFill(untouched, QPoint(0, 0), Exactly, HBRGBA32i(9, 9, 9, 0)));
        QVERIFY(untouched.Tiles() == source.Tiles());
    }

    /// The region is found once, from another image's tiles than those that are filled.
    void Prepared() {
        const HBImage<> source = HBImage<>::FromQImage(Spiral(300)); // 9 tiles, each visited again and again
        HBTestControl control;
        const HBTileFunction fill = HBFloodFillHelper::Prepare(source, QPoint(0, 0), Exactly, Red, &control);
        HBImage<> filled = HBImage<>::FromQImage(Uniform(300, 300, Black));
        for (int index = 0; index < filled.Tiles().size(); ++index) {
            HBTileAccess tile(filled, index);
            fill(tile);
        }
        QRect area;
        const QImage expected = PlainFill(Spiral(300), QPoint(0, 0), Exactly, Red, &area);
        QCOMPARE(filled.ToQImage(), expected);
        QVERIFY(control.asked > 9);

        control.asked = 0;
        control.allowedQuestions = 3;
        HBFloodFillHelper::Prepare(source, QPoint(0, 0), Exactly, Red, &control);
        QVERIFY(control.asked <= 3 + HBLaneCount(9));
        QVERIFY(!HBFloodFillHelper::Prepare(source, QPoint(0, 300), Exactly, Red));
        QVERIFY(!HBFloodFillHelper::Prepare(source, QPoint(0, 0), Exactly, HBRGBA32i(9, 9, 9, 0)));
    }

    /// A lane that fails ends the others, which wait for what it would hand over.
    void LostTiles() {
        HBImage<> image = HBImage<>::FromQImage(Uniform(1300, 1300, White));
        {
            const KMTilePin<HBRGBA32i> pin(image.Tile(0), false); // where the seed is
            QVERIFY(HBLoseTiles());
        }
        QVERIFY_EXCEPTION_THROWN(HBFloodFillHelper::FloodFill(image, QPoint(0, 0), Exactly, Red), std::bad_alloc);
    }

    void PictureLargerThanMemory() {
        auto& manager = KMTileManager64::Instance();
        const qint64 budget = manager.MemoryBudget();
        manager.SetMemoryBudget(4 * KMTileManager64::TileBytes);
        {
            HBImage<> image = HBImage<>::FromQImage(Spiral(600)); // 25 tiles
            QVERIFY(HBFloodFillHelper::FloodFill(image, QPoint(0, 0), Exactly, Red));
            QRect area;
            QCOMPARE(image.ToQImage(), PlainFill(Spiral(600), QPoint(0, 0), Exactly, Red, &area));
        }
        manager.SetMemoryBudget(budget);
    }
};

HB_TEST_MAIN(tst_HBFloodFillHelper)
#include "tst_HBFloodFillHelper.moc"
