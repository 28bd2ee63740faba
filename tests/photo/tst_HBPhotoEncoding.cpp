// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestFiles.h"
#include "HBTestMain.h"

#include <HBJpegWriter.h>
#include <HBPhotoEncoding.h>
#include <HBPhotoFile.h>
#include <HBPictureRows.h>

#include <QBuffer>
#include <QImageWriter>
#include <QtEndian>

namespace {

/// Fine coloured detail, which lossy formats spoil.
QImage Confetti(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    quint32 random = 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, 0xff000000 | (random = random * 1664525 + 1013904223) >> 8);
    }
    return image;
}

QByteArray ByQt(const char* format, int quality, QImage::Format pixels = QImage::Format_RGB32) {
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    writer.write(Confetti(64, 48).convertToFormat(pixels));
    return buffer.data();
}

QByteArray Jpeg(const HBJpegCoding& coding, int quality) {
    const HBImage<> image = HBImage<>::FromQImage(Confetti(64, 48));
    HBPictureRows rows(image, false);
    QByteArray bytes;
    QString reason;
    HBWriteJpeg(rows, coding, {quality}, &bytes, &reason);
    return bytes;
}

QByteArray Jpeg(const QVector<HBJpegCoding::Component>& components, bool rgb = false, bool progressive = false) {
    HBJpegCoding coding{components, {}, rgb, progressive};
    for (int i = 0; i < 3; ++i) {
        HBJpegCoding::Table table; // such as no quality of libjpeg's gives
        for (int k = 0; k < 64; ++k) table[std::size_t(k)] = quint16(3 + i + k / (i + 1));
        coding.tables.append(table);
    }
    return Jpeg(coding, 50);
}

/// The tables and, of each component, number, sampling factors and table: the segments DQT and SOF without the
/// size (ITU-T T.81, B.2).
QByteArray WhatDecidesQuality(const QByteArray& jpeg) {
    QByteArray found;
    for (int at = 2; at + 4 < jpeg.size() && jpeg[at] == '\xff' && jpeg[at + 1] != '\xda';) {
        const int marker = quint8(jpeg[at + 1]);
        const int size = qFromBigEndian<quint16>(jpeg.constData() + at + 2);
        if (marker == 0xdb) found += jpeg.mid(at, 2 + size);
        if (marker >= 0xc0 && marker <= 0xc2) found += jpeg.mid(at, 2) + jpeg.mid(at + 9, size - 7);
        at += 2 + size;
    }
    return found;
}

/// A second directory like the first, which a TIFF's first then names as the next one.
QByteArray WithTwoPages(QByteArray tiff) {
    const int first = qFromLittleEndian<qint32>(tiff.constData() + 4);
    const int size = 2 + 12 * qFromLittleEndian<quint16>(tiff.constData() + first);
    qToLittleEndian<qint32>(tiff.size(), tiff.data() + first + size);
    return tiff + tiff.mid(first, size) + QByteArray(4, '\0');
}

/// The value of a field of short numbers that fits into its entry, which all but the bits of several channels do.
QByteArray WithTiffField(QByteArray tiff, quint16 tag, quint16 value) {
    const int first = qFromLittleEndian<qint32>(tiff.constData() + 4);
    for (int entry = first + 2;; entry += 12) {
        char* at = tiff.data() + entry;
        if (qFromLittleEndian<quint16>(at) != tag) continue;
        const bool inside = qFromLittleEndian<qint32>(at + 4) <= 2;
        qToLittleEndian(value, inside ? at + 8 : tiff.data() + qFromLittleEndian<qint32>(at + 8));
        return tiff;
    }
}

QByteArray WithChunk(const QByteArray& file, int at, const QByteArray& chunk) {
    return file.left(at) + chunk + file.mid(at);
}

} // namespace

class tst_HBPhotoEncoding : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void jpegIsSavedAsItWas_data() {
        QTest::addColumn<QByteArray>("jpeg");
        QTest::newRow("4:2:0") << Jpeg({{2, 2, 0}, {1, 1, 1}, {1, 1, 1}});
        QTest::newRow("4:4:4") << Jpeg({{1, 1, 0}, {1, 1, 1}, {1, 1, 2}});
        QTest::newRow("4:2:2") << Jpeg({{2, 1, 0}, {1, 1, 1}, {1, 1, 1}});
        QTest::newRow("upright 4:2:2") << Jpeg({{1, 2, 0}, {1, 1, 1}, {1, 1, 1}});
        QTest::newRow("grey") << Jpeg({{1, 1, 0}});
        QTest::newRow("red, green, blue") << Jpeg({{1, 1, 0}, {1, 1, 0}, {1, 1, 0}}, true);
        QTest::newRow("progressive") << Jpeg({{1, 1, 0}, {1, 1, 1}, {1, 1, 1}}, false, true);
        for (const int quality : {1, 30, 75, 98, 100}) QTest::addRow("Qt's %d", quality) << ByQt("jpeg", quality);
    }
    void jpegIsSavedAsItWas() {
        QFETCH(QByteArray, jpeg);
        QVERIFY(HBWriteBytes(Path("a.jpg"), jpeg));
        HBPhoto photo;
        QString error;
        QVERIFY2(HBReadPhoto(Path("a.jpg"), &photo, &error), qPrintable(error));
        HBPhotoOptions options{10, photo.encoding};
        HBPhotoEncoding written;
        QVERIFY2(HBWritePhoto(Path("b.jpeg"), photo.image, options, &error, nullptr, &written), qPrintable(error));
        QCOMPARE(WhatDecidesQuality(HBBytesOf(Path("b.jpeg"))), WhatDecidesQuality(jpeg));
        QCOMPARE(written.jpeg.tables, photo.encoding.jpeg.tables);
        QVERIFY(HBLossesOfSave(photo.encoding, Path("a.jpg")).isEmpty());
        // In another format the file's own quality says nothing.
        QVERIFY(HBWritePhoto(Path("c.webp"), photo.image, options, &error, nullptr, &written));
        QVERIFY(qAbs(written.webpQuality - 10) <= 3);
    }

    /// A grey file whose photo has got colours, and one in a way that cannot be written.
    void jpegThatCannotStay() {
        const HBImage<> image = HBImage<>::FromQImage(Confetti(64, 48));
        QString error;
        HBPhotoOptions options{95, HBReadEncoding(Jpeg({{1, 1, 1}}), "jpeg")};
        QVERIFY(HBWritePhoto(Path("a.jpg"), image, options, &error));
        QVERIFY(!QImage(Path("a.jpg")).allGray());
        options.encoding.jpeg.components.resize(4);
        QVERIFY(HBWritePhoto(Path("a.jpg"), image, options, &error));
        QVERIFY(HBWritePhoto(Path("b.jpg"), image, {95}, &error));
        QCOMPARE(HBBytesOf(Path("a.jpg")), HBBytesOf(Path("b.jpg")));
        QVERIFY(HBReadJpegCoding("no JPEG").IsEmpty());
        QVERIFY(HBReadJpegCoding(Jpeg({{1, 1, 1}}).left(100)).IsEmpty());
    }

    void fullColorsFromNinetyOn() {
        for (const int quality : {89, 90, 100}) {
            const HBJpegCoding coding = HBReadJpegCoding(Jpeg({}, quality));
            QCOMPARE(coding.components.at(0).horizontal, quality < 90 ? 2 : 1);
            QCOMPARE(coding.components.at(0).vertical, quality < 90 ? 2 : 1);
        }
    }

    void qualityCountsWhereItIsSaidTo() {
        const HBImage<> image = HBImage<>::FromQImage(Confetti(64, 48));
        for (const QByteArray& format : QImageWriter::supportedImageFormats()) {
            const QString path = QString("a.") + format;
            QString error;
            QByteArray low, high;
            if (!HBEncodePhoto(path, image, {10}, &low, &error)) continue; // not a format of photographs
            QVERIFY2(HBEncodePhoto(path.toUpper(), image, {90}, &high, &error), qPrintable(error));
            QVERIFY2((low != high) == HBTakesQuality(path.toUpper()), qPrintable(path));
        }
        QVERIFY(HBTakesQuality("a.jpg") && HBTakesQuality("a.webp") && !HBTakesQuality("jpg"));
    }

    void webpIsSavedAsItWas() {
        for (const int quality : {0, 10, 40, 75, 90, 98, 100}) {
            QVERIFY(HBWriteBytes(Path("a.webp"), ByQt("webp", quality)));
            HBPhoto photo;
            QString error;
            QVERIFY2(HBReadPhoto(Path("a.webp"), &photo, &error), qPrintable(error));
            // The steps of the quantizer are coarser than those of the quality.
            const int estimate = photo.encoding.webpQuality;
            QVERIFY2(quality == 100 ? estimate == 100 : estimate < 100 && qAbs(estimate - quality) <= 3,
                     qPrintable(QString("%1: %2").arg(quality).arg(estimate)));
            QVERIFY(HBWritePhoto(Path("b.webp"), photo.image, {10, photo.encoding}, &error));
            if (quality == 100) QCOMPARE(QImage(Path("b.webp")), QImage(Path("a.webp")));
        }
    }

    void losses() {
        const QByteArray jpeg = ByQt("jpeg", 75), png = ByQt("png", -1), tiff = ByQt("tiff", -1),
                         webp = ByQt("webp", 75);
        const struct {
            QByteArray file;
            const char *name, *loss; ///< the name's suffix is the format, unless it is a JPEG
        } rows[] = {{png, "a.png", ""},
                    {tiff, "a.TIF", ""},
                    {webp, "a.webp", ""},
                    {ByQt("png", -1, QImage::Format_RGBA64), "a.png", "16 bits"},
                    {WithTiffField(tiff, 258, 16), "a.tiff", "16 bits"},
                    {WithTwoPages(tiff), "a.tif", "pages (1)"},
                    {WithTiffField(tiff, 262, 5), "a.tif", "CMYK"},
                    {WithChunk(png, 33, QByteArray("\0\0\0\0acTL\0\0\0\0", 12)), "a.png", "animation"},
                    {WithChunk(webp, 12, QByteArray("ANIM\0\0\0\0", 8)), "a.webp", "animation"},
                    {jpeg + QByteArray(5000, 'x'), "a.jpg", "appended"},
                    {jpeg, "a.png", "format, which is JPEG"}};
        for (const auto& row : rows) {
            const QByteArray format = row.file.startsWith("\xff\xd8") ? "jpeg" : HBFormatOfName(row.name);
            const QStringList losses = HBLossesOfSave(HBReadEncoding(row.file, format), row.name);
            QVERIFY2(losses.size() == (*row.loss ? 1 : 0) && losses.value(0).contains(row.loss), row.loss);
        }
    }

    /// Numbers that lead nowhere.
    void brokenFiles() {
        for (const char* format : {"jpeg", "png", "tiff", "webp"}) {
            const QByteArray whole = ByQt(format, 75);
            for (int i = 0; i < qMin(400, whole.size()); ++i) {
                HBReadEncoding(whole.left(i), format);
                QByteArray broken = whole;
                broken[i] = char(0xff);
                HBReadEncoding(broken, format);
            }
        }
        QByteArray circle = WithTwoPages(ByQt("tiff", -1));
        const int second = circle.size() - 4;
        circle.replace(second, 4, circle.mid(4, 4));
        QCOMPARE(HBReadEncoding(circle, "tiff").pages, 1000);
    }

private:
    QString Path(const QString& name) const { return m_Folder(name); }

    HBTestFolder m_Folder;
};

HB_TEST_MAIN(tst_HBPhotoEncoding)
#include "tst_HBPhotoEncoding.moc"
