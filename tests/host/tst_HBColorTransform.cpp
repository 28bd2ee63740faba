// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"
#include "HBTestProfiles.h"

#include <HBColorTransform.h>
#include <HBTestImages.h>
#include <HBTilePainter.h>

#include <limits>

class TestHBColorTransform : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        if (Q_BYTE_ORDER != Q_LITTLE_ENDIAN) QSKIP("the comparison is written for the usual byte order");
    }

    /// What the painter shows, at its pixels and smaller, against Little CMS alone. The picture stays as it is.
    void theViewConverts_data() {
        QTest::addColumn<QByteArray>("photo");
        QTest::addColumn<QByteArray>("monitor");
        const QByteArray table = HBTableProfile(cmsSigRgbData);
        QTest::newRow("wide photo") << HBWideProfile() << QByteArray();
        QTest::newRow("wide monitor") << QByteArray() << HBWideProfile();
        QTest::newRow("photo by a table") << table << QByteArray();
        QTest::newRow("table to wide") << table << HBWideProfile();
    }
    void theViewConverts() {
        QFETCH(QByteArray, photo);
        QFETCH(QByteArray, monitor);
        const HBImage<> image = HBTestColorCube(15);
        const QImage bytes = image.ToQImage();
        HBTileMips::Look look;
        look.colors = HBColorTransform::Make(photo, monitor);
        QVERIFY(look.colors);
        HBTilePainter painter;
        painter.SetImage(image);
        painter.SetLook(look);
        const auto converted = [&](const QImage& picture) {
            QVector<quint32> pixels;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x) pixels << picture.pixel(x, y);
            }
            return HBThroughProfiles(pixels, TYPE_BGRA_8, photo, monitor);
        };
        const QImage shown = painter.ToImage(bytes.rect(), 1);
        const QVector<quint32> expected = converted(bytes);
        for (int i = 0; i < expected.size(); ++i)
            QCOMPARE(shown.pixel(i % shown.width(), i / shown.width()), expected.at(i));
        // Smaller: the means are converted, and nothing is converted twice.
        HBTileMips plain, colored;
        plain.SetImage(image);
        colored.SetImage(image);
        colored.SetLook(look);
        const QRect tile(0, 0, 1, 1);
        QVERIFY(plain.Prepare(tile, 2, std::numeric_limits<int>::max()));
        QVERIFY(colored.Prepare(tile, 2, std::numeric_limits<int>::max()));
        const QVector<quint32> means = converted(plain.Assemble(tile, 2));
        const QImage small = colored.Assemble(tile, 2);
        for (int i = 0; i < means.size(); ++i)
            QCOMPARE(small.pixel(i % small.width(), i / small.width()), means.at(i));
        QCOMPARE(image.ToQImage(), bytes);
        painter.SetLook({});
        QCOMPARE(painter.ToImage(bytes.rect(), 1).pixel(7, 7), bytes.pixel(7, 7));
    }

    void greysLookAsTheirProfileSays() {
        const QByteArray icc = HBGreyProfile(1.4);
        const auto transform = HBColorTransform::Make(icc, {});
        QVERIFY(transform);
        QVector<quint32> levels;
        for (quint32 level = 0; level < 256; ++level) levels << level;
        // Little CMS takes one byte of each as the grey.
        const QVector<quint32> expected = HBThroughProfiles(
            levels, COLORSPACE_SH(PT_GRAY) | CHANNELS_SH(1) | BYTES_SH(1) | EXTRA_SH(3), icc, {});
        for (int level = 0; level < 256; ++level) {
            QRgb pixel = qRgba(level, level, level, 77);
            transform->Apply(&pixel, 1);
            QCOMPARE(qAlpha(pixel), 77);
            QCOMPARE(qRed(pixel), qGreen(pixel));
            // For RGB Little CMS goes a shorter way, which is coarser in the deepest shadows.
            QVERIFY2(qAbs(qRed(pixel) - qRed(expected.at(level))) <= (level < 8 ? 2 : 1),
                     qPrintable(QString::number(level)));
        }
        QCOMPARE(HBProfileModel(HBRgbProfileOfGrey(icc)), QByteArray("RGB "));
        QVERIFY(!HBColorTransform::Make(icc, HBRgbProfileOfGrey(icc)));
    }

    void whatIsNothingToConvert() {
        QString reason;
        QVERIFY(!HBColorTransform::Make({}, {}, &reason) && reason.isEmpty());
        QVERIFY(!HBColorTransform::Make(HBSrgbProfile(), {}, &reason) && reason.isEmpty());
        for (const QByteArray& broken : {QByteArray("no profile"), HBWideProfile().left(200),
                                         HBSrgbProfile().left(127), HBTableProfile(cmsSigCmykData)}) {
            reason.clear();
            QVERIFY(!HBColorTransform::Make(broken, {}, &reason) && !reason.isEmpty());
        }
        QVERIFY(HBProfileName(HBSrgbProfile()).contains("sRGB"));
        QCOMPARE(HBProfileName("no profile"), QString());
    }

    /// Blown in any channel, black in all; in every size, and only there.
    void clippingIsMarked() {
        QImage picture(256, 128, QImage::Format_ARGB32);
        picture.fill(qRgb(10, 0, 254));
        for (int y = 0; y < 128; ++y) {
            for (int x = 0; x < 64; ++x) picture.setPixel(x, y, qRgb(255, 0, 0) ^ (x < 32 ? 0 : 0x00ff0000));
        }
        HBTilePainter painter;
        painter.SetImage(HBImage<>::FromQImage(picture));
        HBTileMips::Look look;
        look.marksClipping = true;
        painter.SetLook(look);
        for (const double scale : {1.0, 0.125}) {
            const QImage shown = painter.ToImage(picture.rect(), scale);
            QCOMPARE(shown.pixel(int(8 * scale), 1), qRgb(255, 0, 0));
            QCOMPARE(shown.pixel(int(48 * scale), 1), qRgb(0, 0, 255));
            QCOMPARE(shown.pixel(int(160 * scale), 1), qRgb(10, 0, 254));
        }
    }
};

HB_TEST_MAIN(TestHBColorTransform)
#include "tst_HBColorTransform.moc"
