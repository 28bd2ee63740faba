// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestImages.h"
#include "HBTestMain.h"

#include <HBImage.h>
#include <HBQtImage.h>
#include <HBScaled.h>

#include <limits>
#include <new>

namespace {

constexpr int Huge = std::numeric_limits<int>::max();

QImage Ramp(int width, int height) { return HBTestRamp(width, height).ToQImage(); }

} // namespace

class tst_HBImage : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void Sizes() {
        for (const QSize& none : {QSize(0, 0), QSize(5, -1), QSize(std::numeric_limits<int>::min(), Huge)}) {
            const HBImage<> image(none.width(), none.height());
            QVERIFY(image.IsEmpty() && image.Tiles().isEmpty() && image.ToQImage().isNull());
        }
        const struct {
            int width, height, columns, rows;
        } sizes[] = {{1, 1, 1, 1}, {128, 128, 1, 1}, {129, 128, 2, 1}, {1, 257, 1, 3}};
        for (const auto& size : sizes) {
            const HBImage<> image(size.width, size.height);
            QCOMPARE(image.Columns(), size.columns);
            QCOMPARE(image.Rows(), size.rows);
            QCOMPARE(image.Tiles().size(), size.columns * size.rows);
            QImage expected(size.width, size.height, QImage::Format_ARGB32);
            expected.fill(Qt::transparent);
            QCOMPARE(image.ToQImage(), expected);
            QCOMPARE(image.TileRect(image.Tiles().size() - 1).bottomRight(),
                     QPoint(size.width - 1, size.height - 1));
            const QImage ramp = Ramp(size.width, size.height);
            QCOMPARE(HBImage<>::FromQImage(ramp).ToQImage(), ramp);
        }
    }
    void TooLarge() { QVERIFY_EXCEPTION_THROWN(HBImage<>(Huge, Huge), std::bad_alloc); }

    void EveryQImageFormat() {
        const QImage ramp = Ramp(259, 300);
        int formats = 0;
        for (int format = QImage::Format_Invalid + 1; format < QImage::NImageFormats; ++format, ++formats) {
            const QImage image = ramp.convertToFormat(QImage::Format(format));
            const HBImage<> tiled = HBImage<>::FromQImage(image);
            const QImage expected = image.convertToFormat(QImage::Format_ARGB32);
            QVERIFY2(tiled.ToQImage() == expected, qPrintable(QStringLiteral("format %1").arg(format)));
            QCOMPARE(HBConverted(image, QImage::Format_RGB888), image.convertToFormat(QImage::Format_RGB888));
            QImage own = image;
            const QImage premultiplied = HBConverted(std::move(own), QImage::Format_ARGB32_Premultiplied);
            QCOMPARE(premultiplied, image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
            QCOMPARE(tiled.PixelAt(200, 130).ToRgba(), expected.pixel(200, 130));
        }
        QVERIFY(formats >= 27);
        QVERIFY(HBImage<>::FromQImage(QImage()).IsEmpty());
        const QImage large = Ramp(500, 400);
        QCOMPARE(HBScaled(large, {31, 17}), large.scaled(31, 17, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }

    void WritingDetachesOneTile() {
        const HBImage<> original = HBImage<>::FromQImage(Ramp(300, 200));
        HBImage<> copy = original;
        QVERIFY(copy.Tiles() == original.Tiles());
        copy.SetPixel(129, 5, {1, 2, 3, 4});
        QVERIFY(copy.PixelAt(129, 5) == HBRGBA32i(1, 2, 3, 4));
        QCOMPARE(original.ToQImage(), Ramp(300, 200));
        for (int index = 0; index < copy.Tiles().size(); ++index)
            QCOMPARE(copy.Tile(index) == original.Tile(index), index != 1);
        const KMTileRef own = copy.Tile(0);
        copy.ShareTile(1, original.Tile(1));
        QCOMPARE(copy.ToQImage(), original.ToQImage());
    }

    void NoPixelOutside() {
        HBImage<> image = HBImage<>::FromQImage(Ramp(129, 2));
        const QPoint points[] = {{-1, 0}, {0, -1}, {129, 0}, {0, 2}, {130, 1}, {Huge, Huge}};
        for (const QPoint& point : points) {
            image.SetPixel(point.x(), point.y(), {9, 9, 9});
            QVERIFY(image.PixelAt(point.x(), point.y()) == HBRGBA32i(0, 0, 0, 0));
        }
        QCOMPARE(image.ToQImage(), Ramp(129, 2));
    }

    void CompanionsTravel() {
        HBImage<> image(2, 2);
        image.SetProfile(KMCMSProfile("profile"));
        image.SetHostValue(0, 3779);
        image.AddElement(new KMEXIFElement{"Exif.Photo.ISOSpeedRatings", 3, "\x64"});
        HBImage<> copy = image;
        image.ClearElements();
        copy = HBImage<>(copy);
        QCOMPARE(copy.Profile().Icc(), QByteArray("profile"));
        QCOMPARE(copy.HostValue(0), 3779);
        QCOMPARE(copy.Elements().size(), 1);
    }
};

HB_TEST_MAIN(tst_HBImage)
#include "tst_HBImage.moc"
