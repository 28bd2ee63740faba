// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBTileImageItem.h>

#include <QGraphicsScene>
#include <QPainter>

#include <cmath>
#include <limits>

namespace {

HBImage<> Filled(int width, int height, HBRGBA32i pixel) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(pixel.ToRgba());
    return HBImage<>::FromQImage(image);
}

/// The whole scene at that scale, on magenta.
QImage Render(QGraphicsScene& scene, const QSize& size, double scale) {
    QImage image(qRound(size.width() * scale), qRound(size.height() * scale), QImage::Format_RGB32);
    image.fill(qRgb(255, 0, 255));
    QPainter painter(&image);
    scene.render(&painter, QRectF(QPointF(0, 0), QSizeF(image.size())),
                 QRectF(0, 0, image.width() / scale, image.height() / scale));
    return image;
}

} // namespace

class TestHBTileImageItem : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void showsThePixelsThemselvesFromHundredPercentUp() {
        QImage ramp(300, 140, QImage::Format_ARGB32);
        for (int y = 0; y < ramp.height(); ++y) {
            for (int x = 0; x < ramp.width(); ++x) ramp.setPixel(x, y, qRgb(x & 255, y, x >> 8));
        }
        QGraphicsScene scene;
        HBTileImageItem item;
        scene.addItem(&item);
        item.SetImage(HBImage<>::FromQImage(ramp));
        for (const int scale : {1, 3}) {
            const QImage image = Render(scene, ramp.size(), scale);
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    QCOMPARE(image.pixel(x, y), ramp.pixel(x / scale, y / scale));
            }
        }
        scene.removeItem(&item);
    }

    void averagesBelowHalfAndIgnoresPadding() {
        // Stripes of one pixel become their mean; the padding beyond 130 must not darken the last column.
        QImage stripes(130, 8, QImage::Format_ARGB32);
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 130; ++x)
                stripes.setPixel(x, y, x % 2 ? qRgb(200, 200, 200) : qRgb(100, 100, 100));
        }
        HBTileMips mips;
        mips.SetImage(HBImage<>::FromQImage(stripes));
        QVERIFY(mips.Prepare(QRect(0, 0, 2, 1), 1, std::numeric_limits<int>::max()));
        const QImage half = mips.Assemble(QRect(0, 0, 2, 1), 1);
        QCOMPARE(half.size(), QSize(128, 64));
        QVERIFY(!half.hasAlphaChannel());
        for (int x = 0; x < 65; ++x) QCOMPARE(half.pixel(x, 0), qRgb(150, 150, 150));
        // Each level is made from the one below it.
        const QImage quarter = mips.Assemble(QRect(0, 0, 1, 1), 2);
        QCOMPARE(quarter.size(), QSize(32, 32));
        QCOMPARE(quarter.pixel(31, 1), qRgb(150, 150, 150));
    }

    void shrinksOnlyTilesThatChanged() {
        HBImage<> image = Filled(300, 300, HBRGBA32i(1, 2, 3));
        HBTileMips mips;
        mips.SetImage(image);
        const QRect all(0, 0, 3, 3);
        QVERIFY(mips.Prepare(all, 3, 100000));
        QCOMPARE(mips.MadeCount(), 9);
        image.SetPixel(150, 150, HBRGBA32i(255, 255, 255));
        mips.SetImage(image);
        QVERIFY(mips.Prepare(all, 3, 100000));
        QCOMPARE(mips.MadeCount(), 10);
        QVERIFY(mips.Prepare(all, 5, 100000)); // coarser ones are there
        QCOMPARE(mips.MadeCount(), 10);
        QVERIFY(mips.Prepare(QRect(0, 0, 1, 1), 1, 100000));
        QCOMPARE(mips.MadeCount(), 11);
        // Without time a few are made all the same, so that it ends.
        mips.SetImage(Filled(300, 300, HBRGBA32i(9, 9, 9)));
        int calls = 1;
        while (!mips.Prepare(all, 3, 0)) ++calls;
        QVERIFY(calls <= 9);
    }

    /// For views of another kind: the pixels themselves, or their means, with transparency kept.
    void convertsAPartAtItsScale() {
        HBTilePainter picture;
        QCOMPARE(picture.ToImage(QRect(0, 0, 9, 9), 1), QImage());
        HBImage<> image = Filled(300, 200, HBRGBA32i(100, 200, 40, 128));
        image.SetPixel(130, 130, HBRGBA32i(1, 2, 3));
        QCOMPARE(picture.SetImage(image), QRegion(0, 0, 300, 200));
        const QImage all = image.ToQImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(picture.ToImage(QRect(-5, 120, 155, 500), 1), all.copy(0, 120, 150, 80));
        const QImage doubled = picture.ToImage(QRect(129, 129, 3, 3), 2);
        QCOMPARE(doubled.size(), QSize(6, 6));
        QCOMPARE(doubled.pixel(3, 3), qRgb(1, 2, 3));
        const QImage small = picture.ToImage(QRect(0, 0, 300, 200), 0.1);
        QCOMPARE(small.size(), QSize(30, 20));
        QCOMPARE(qAlpha(small.pixel(2, 2)), 128);
        for (const double scale : {0.0, -1.0, 1e9, double(NAN)})
            QCOMPARE(picture.ToImage(QRect(0, 0, 300, 200), scale), QImage());
        image.SetPixel(0, 0, HBRGBA32i(1, 2, 3));
        QCOMPARE(picture.SetImage(image), QRegion(0, 0, 128, 128));
    }

    void transparencyLiesOnAChecker() {
        QGraphicsScene scene;
        HBTileImageItem item;
        scene.addItem(&item);
        item.SetImage(Filled(200, 64, HBRGBA32i(0, 0, 0, 0)));
        for (const double scale : {0.25, 1.0, 2.0}) {
            const QImage image = Render(scene, QSize(200, 64), scale);
            QCOMPARE(image.pixel(1, 1), qRgb(0xcc, 0xcc, 0xcc));
            QCOMPARE(image.pixel(9, 1), qRgb(255, 255, 255)); // squares of 8 at any scale
            QCOMPARE(image.pixel(9, 9), qRgb(0xcc, 0xcc, 0xcc));
        }
        scene.removeItem(&item);
    }
};

HB_TEST_MAIN(TestHBTileImageItem)
#include "tst_HBTileImageItem.moc"
