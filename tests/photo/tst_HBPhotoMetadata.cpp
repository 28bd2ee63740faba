// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestFiles.h"
#include "HBTestMain.h"

#include <HBPhotoFile.h>

#include <QColorSpace>

#include <exiv2/exiv2.hpp>

#include <cstdlib>
#include <functional>
#include <memory>
#include <new>

namespace {

/// How many requests for 100,000 bytes or more are granted; -1: all.
int largeGranted = -1;

void* Allocate(std::size_t size) {
    if (size >= 100000 && largeGranted >= 0) {
        if (largeGranted == 0) throw std::bad_alloc();
        --largeGranted;
    }
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}

} // namespace

// Of the whole program, its libraries too. All forms: the sanitizer compares who allocates with who frees.
void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

constexpr QSize pictureSize(180, 150); // several tiles, and no whole one

QRgb ColorAt(int x, int y) { return qRgb(x, 250 - y, 100); }

/// Where the file has the upright pixel (x, y) if it says this orientation. From the definition, by row and column
/// 0: 1 top left, 2 top right, 3 bottom right, 4 bottom left, 5 left top, 6 right top, 7 right bottom, 8 left
/// bottom.
QPoint InFile(int orientation, int x, int y) {
    const int right = pictureSize.width() - 1 - x;
    const int bottom = pictureSize.height() - 1 - y;
    const QPoint places[] = {{x, y}, {right, y}, {right, bottom}, {x, bottom},
                             {y, x}, {y, right}, {bottom, right}, {bottom, x}};
    return places[orientation - 1];
}

QImage Picture(int orientation) {
    QImage image(orientation < 5 ? pictureSize : pictureSize.transposed(), QImage::Format_RGB32);
    for (int y = 0; y < pictureSize.height(); ++y) {
        for (int x = 0; x < pictureSize.width(); ++x) image.setPixel(InFile(orientation, x, y), ColorAt(x, y));
    }
    return image;
}

/// Changes a file's metadata.
void Tag(const QString& path, const std::function<void(Exiv2::Image&)>& change) {
    const auto image = Exiv2::ImageFactory::open(path.toStdString());
    image->readMetadata();
    change(*image);
    image->writeMetadata();
}

/// A profile of this colour model, filled up to a size that takes several segments of a JPEG.
QByteArray Profile(const char* model, int size = 150000) {
    QByteArray icc = QColorSpace(QColorSpace::SRgb).iccProfile();
    for (int i = icc.size(); i < size; ++i) icc.append(char(i * 31));
    for (int i = 0; i < 4; ++i) icc[i] = char(icc.size() >> (24 - 8 * i));
    return icc.replace(16, 4, model, 4);
}

/// A grey profile: white point D50, gamma 2.2 (ICC.1:2022).
QByteArray GreyProfile() {
    QByteArray icc = Profile("GRAY", 0).left(128);
    for (const char* tag : {"00000002", "77747074 0000009c 00000014", "6b545243 000000b0 00000010",
                            "58595a20 00000000 0000f6d6 00010000 0000d32d", "63757276 00000000 00000001 02330000"})
        icc += QByteArray::fromHex(tag);
    icc[2] = 0;
    icc[3] = char(icc.size());
    return icc;
}

void SetProfile(Exiv2::Image& image, const QByteArray& icc) {
    Exiv2::DataBuf buffer(reinterpret_cast<const Exiv2::byte*>(icc.constData()), icc.size());
    image.setIccProfile(buffer);
}

void TagFully(Exiv2::Image& image) {
    Exiv2::ExifData& exif = image.exifData();
    exif["Exif.Image.Make"] = "Maker";
    exif["Exif.Image.Orientation"] = std::uint16_t(6);
    exif["Exif.Image.XResolution"] = Exiv2::Rational(300, 1);
    exif["Exif.Image.ResolutionUnit"] = std::uint16_t(2);
    exif["Exif.Photo.ExposureTime"] = Exiv2::Rational(1, 250);
    exif["Exif.Photo.PixelXDimension"] = std::uint32_t(64);
    exif["Exif.Photo.PixelYDimension"] = std::uint32_t(96);
    exif["Exif.Photo.UserComment"] = "charset=Unicode Grüße";
    exif["Exif.GPSInfo.GPSLatitude"] = "48/1 8/1 1234/100";
    exif["Exif.Thumbnail.ImageWidth"] = std::uint16_t(16);
    Exiv2::XmpData& xmp = image.xmpData();
    xmp["Xmp.dc.title"] = "lang=x-default Grüße";
    xmp["Xmp.tiff.Orientation"] = "6";
    image.iptcData()["Iptc.Application2.Headline"] = "Headline";
    SetProfile(image, Profile("RGB "));
}

template <class Key, class Data>
QString Text(const Data& data, const char* key) {
    const auto datum = data.findKey(Key(key));
    return datum == data.end() ? QString() : QString::fromStdString(datum->toString());
}

QString Text(const Exiv2::Image& image, const char* key) {
    if (key[0] == 'E') return Text<Exiv2::ExifKey>(image.exifData(), key);
    return key[0] == 'X' ? Text<Exiv2::XmpKey>(image.xmpData(), key) : Text<Exiv2::IptcKey>(image.iptcData(), key);
}

} // namespace

class tst_HBPhotoMetadata : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_pFolder = std::make_unique<HBTestFolder>(); }
    void cleanup() { m_pFolder.reset(); }

    void Orientation_data() {
        HBColumns<QString, int>("name", "orientation");
        for (const char* suffix : {"jpg", "png", "tif", "webp"}) {
            for (int orientation = 1; orientation <= 8; ++orientation)
                QTest::addRow("%s %d", suffix, orientation) << QString("a.%1").arg(suffix) << orientation;
        }
        for (int outOfRange : {0, 9, 65535}) QTest::addRow("png %d", outOfRange) << "a.png" << outOfRange;
    }
    /// Applied when read, gone when written, whatever the format.
    void Orientation() {
        QFETCH(QString, name);
        QFETCH(int, orientation);
        QVERIFY(Picture(orientation < 1 || orientation > 8 ? 1 : orientation).save(Path(name), nullptr, 100));
        Tag(Path(name),
            [=](auto& image) { image.exifData()["Exif.Image.Orientation"] = std::uint16_t(orientation); });
        HBPhoto photo;
        QString error;
        QVERIFY2(HBReadPhoto(Path(name), &photo, &error), qPrintable(error));
        CompareUpright(photo.image);
        QVERIFY2(HBWritePhoto(Path("b-" + name), photo.image, {100}, &error), qPrintable(error));
        QVERIFY2(HBReadPhoto(Path("b-" + name), &photo, &error), qPrintable(error));
        CompareUpright(photo.image);
    }

    void RoundTrip_data() {
        HBColumns<QString, QString>("first", "second");
        for (const QString first : {"b.jpg", "b.png", "b.tif", "b.webp"}) {
            for (const QString second : {"c.jpg", "c.png", "c.tif", "c.webp"})
                QTest::newRow(qPrintable(first + " to " + second)) << first << second;
        }
    }
    /// From a tagged photo to one format, and from that to another.
    void RoundTrip() {
        QFETCH(QString, first);
        QFETCH(QString, second);
        QVERIFY(Picture(6).save(Path("a.jpg"), nullptr, 100));
        Tag(Path("a.jpg"), TagFully);
        HBPhoto photo;
        QString error;
        QStringList warnings;
        QVERIFY2(HBReadPhoto(Path("a.jpg"), &photo, &error), qPrintable(error));
        QCOMPARE(photo.image.Profile().Icc(), Profile("RGB "));
        QCOMPARE(photo.image.HostValue(0), 11811);
        QVERIFY2(HBWritePhoto(Path(first), photo.image, {100}, &error), qPrintable(error));
        QVERIFY2(HBReadPhoto(Path(first), &photo, &error), qPrintable(error));
        QCOMPARE(photo.warnings, QStringList());
        QCOMPARE(photo.image.Profile().Icc(), Profile("RGB "));
        QVERIFY2(HBWritePhoto(Path(second), photo.image, {100}, &error, &warnings), qPrintable(error));

        const bool hasIptc = !first.endsWith("webp");
        const bool keepsIptc = hasIptc && !second.endsWith("webp");
        QCOMPARE(warnings, hasIptc && !keepsIptc ? QStringList("IPTC metadata cannot be stored in this format")
                                                 : QStringList());
        HBPhoto again;
        QVERIFY2(HBReadPhoto(Path(second), &again, &error), qPrintable(error));
        CompareUpright(again.image);
        QCOMPARE(again.image.Profile().Icc(), Profile("RGB "));

        const auto written = Exiv2::ImageFactory::open(Path(second).toStdString());
        written->readMetadata();
        const std::pair<const char*, const char*> expected[] = {
            {"Exif.Image.Make", "Maker"},          {"Exif.Image.Orientation", "1"},
            {"Exif.Photo.ExposureTime", "1/250"},  {"Exif.Photo.PixelXDimension", "180"},
            {"Exif.Photo.PixelYDimension", "150"}, {"Exif.GPSInfo.GPSLatitude", "48/1 8/1 1234/100"},
            {"Exif.Thumbnail.ImageWidth", ""},     {"Xmp.dc.title", "lang=\"x-default\" Grüße"},
            {"Xmp.tiff.Orientation", "1"},         {"Iptc.Application2.Headline", keepsIptc ? "Headline" : ""},
        };
        for (const auto& [key, text] : expected)
            QCOMPARE(QString(key) + " = " + Text(*written, key), QString(key) + " = " + text);
        const auto comment = written->exifData().findKey(Exiv2::ExifKey("Exif.Photo.UserComment"));
        QVERIFY(comment != written->exifData().end());
        const auto* value = dynamic_cast<const Exiv2::CommentValue*>(&comment->value());
        QVERIFY(value);
        QCOMPARE(QString::fromStdString(value->comment()), QString("Grüße"));
    }

    /// As others read it: every format with one profile, lossy and lossless WebP with and without alpha too.
    void ProfileIsThereOnce() {
        const QByteArray icc = Profile("RGB ", 0);
        const std::tuple<const char*, int, int> rows[] = {
            {"a.jpg", 90, 255},  {"a.png", 90, 100},   {"a.tif", 90, 255},  {"a.webp", 90, 100},
            {"a.webp", 90, 255}, {"a.webp", 100, 100}, {"a.webp", 100, 255}};
        for (const auto& [name, quality, alpha] : rows) {
            HBImage<> image = HBImage<>::FromQImage(Picture(1));
            image.SetPixel(40, 40, HBRGBA32i(80, 120, 100, std::uint8_t(alpha)));
            image.SetProfile(KMCMSProfile(icc));
            QString error;
            QVERIFY2(HBWritePhoto(Path(name), image, {quality}, &error), qPrintable(error));
            const QByteArray bytes = HBBytesOf(Path(name));
            const int profiles = bytes.count("ICC_PROFILE") + bytes.count("iCCP") + bytes.count("ICCP");
            QVERIFY2(profiles == 1 || !qstrcmp(name, "a.tif"), name);
            const QImage read(Path(name));
            QCOMPARE(read.colorSpace().iccProfile(), icc);
            QCOMPARE(qAlpha(read.pixel(40, 40)), alpha);
        }
    }

    void GreyPictures() {
        QImage grey(40, 30, QImage::Format_Grayscale8);
        grey.fill(90);
        QString error;
        QStringList warnings;
        HBImage<> image = HBImage<>::FromQImage(grey);
        image.SetProfile(KMCMSProfile(GreyProfile()));
        for (const char* name : {"a.jpg", "a.png", "a.tif"}) {
            HBPhoto photo;
            QVERIFY2(HBWritePhoto(Path(name), image, {100}, &error, &warnings), qPrintable(error));
            QVERIFY2(HBReadPhoto(Path(name), &photo, &error), qPrintable(error));
            QCOMPARE(QImage(Path(name)).format(), QImage::Format_Grayscale8);
            QVERIFY(photo.image.Profile() == image.Profile());
        }
        QCOMPARE(warnings, QStringList());
        image.SetPixel(3, 3, {200, 0, 0});
        QVERIFY(HBWritePhoto(Path("a.png"), image, {}, &error, &warnings));
        QCOMPARE(warnings, QStringList());
        HBPhoto photo;
        QVERIFY(HBReadPhoto(Path("a.png"), &photo, &error));
        QCOMPARE(photo.image.Profile().Icc().mid(16, 4), QByteArray("RGB ")); // with the same tones
    }

    void ProfileThatDoesNotFit() {
        QVERIFY(Picture(1).save(Path("a.jpg")));
        Tag(Path("a.jpg"), [](auto& image) { SetProfile(image, Profile("CMYK", 600)); });
        HBPhoto photo;
        QString error;
        QVERIFY(HBReadPhoto(Path("a.jpg"), &photo, &error));
        QCOMPARE(photo.warnings.size(), 1);
        QVERIFY(photo.image.Profile().IsEmpty());
    }

    /// In no format: where it is put in unchecked, nobody can read the other metadata any more.
    void ProfileThatIsNone() {
        for (const char* name : {"a.jpg", "a.png", "a.tif", "a.webp"}) {
            QByteArray icc = Profile("RGB ");
            icc[2] = char(icc[2] + 1); // its length
            HBImage<> image = HBImage<>::FromQImage(Picture(1));
            image.AddElement(new KMEXIFElement{"Exif.Image.Make", 2, QByteArray("Maker", 6)});
            image.SetProfile(KMCMSProfile(icc));
            QString error;
            QStringList warnings;
            QVERIFY2(HBWritePhoto(Path(name), image, {}, &error, &warnings), qPrintable(error));
            QCOMPARE(warnings, QStringList("ICC metadata cannot be stored (Not a valid ICC Profile)"));
            HBPhoto photo;
            QVERIFY2(HBReadPhoto(Path(name), &photo, &error), qPrintable(error));
            QCOMPARE(photo.warnings, QStringList());
            QVERIFY(!photo.image.Elements().isEmpty());
            QVERIFY(photo.image.Profile().IsEmpty());
        }
    }

    /// From whichever large piece on memory is refused: everything is written, or nothing is.
    void MemoryFailsWhileEmbedding() {
        HBImage<> image = HBImage<>::FromQImage(Picture(1));
        image.SetProfile(KMCMSProfile(Profile("RGB ")));
        int failed = 0;
        for (const char* name : {"a.jpg", "a.png", "a.tif", "a.webp"}) {
            bool written = false;
            for (int n = 0; !written; ++n) {
                QVERIFY(n < 50);
                QString error;
                QStringList warnings;
                largeGranted = n;
                written = HBWritePhoto(Path(name), image, {}, &error, &warnings);
                largeGranted = -1;
                QVERIFY2(written || error.contains("not enough memory"), qPrintable(error));
                failed += !written;
                QCOMPARE(warnings, QStringList());
            }
            HBPhoto photo;
            QString error;
            QVERIFY2(HBReadPhoto(Path(name), &photo, &error), qPrintable(error));
            QVERIFY(!photo.image.Profile().IsEmpty());
        }
        QVERIFY(failed > 0);
    }

    /// The picture is what counts: metadata that a format cannot take is told, not fatal.
    void WhatCannotBeStored_data() {
        HBColumns<QString, QByteArray, QByteArray, QString>("name", "key", "value", "kind");
        const QByteArray xmp = "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF "
                               "xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description "
                               "xmlns:xmp='http://ns.adobe.com/xap/1.0/' xmp:Label='%'/></rdf:RDF></x:xmpmeta>";
        QTest::newRow("no place") << "a.bmp" << QByteArray("Exif.Image.Make") << QByteArray("M") << "EXIF";
        QTest::newRow("xmp too long") << "a.jpg" << QByteArray("Xmp")
                                      << QByteArray(xmp).replace("%", QByteArray(70000, 'x')) << "XMP";
        QTest::newRow("xmp no xml, too long") << "a.jpg" << QByteArray("Xmp") << QByteArray(70000, '<') << "XMP";
        QTest::newRow("xmp no xml") << "a.jpg" << QByteArray("Xmp") << QByteArray("<") << "XMP";
        QTest::newRow("iptc broken") << "a.jpg" << QByteArray("Iptc") << QByteArray("\x1c\x02\x69\xff\xff x")
                                     << "IPTC";
        QTest::newRow("no such tag") << "a.png" << QByteArray("Exif.Nonsense.Tag") << QByteArray("x") << "EXIF";
        QTest::newRow("no key") << "a.png" << QByteArray() << QByteArray("x") << "EXIF";
    }
    void WhatCannotBeStored() {
        QFETCH(QString, name);
        QFETCH(QByteArray, key);
        QFETCH(QByteArray, value);
        QFETCH(QString, kind);
        HBImage<> image = HBImage<>::FromQImage(Picture(1));
        image.AddElement(new KMEXIFElement{key, 2, value});
        image.SetProfile(KMCMSProfile(Profile("RGB ", 600)));
        QString error;
        QStringList warnings;
        QVERIFY2(HBWritePhoto(Path(name), image, {100}, &error, &warnings), qPrintable(error));
        QVERIFY2(warnings.join('\n').contains(kind), qPrintable(warnings.join('\n')));
        QVERIFY2(!warnings.join('\n').contains("()"), qPrintable(warnings.join('\n'))); // always with a reason
        HBPhoto photo;
        QVERIFY(HBReadPhoto(Path(name), &photo, &error));
        CompareUpright(photo.image);
        QCOMPARE(photo.image.Profile().IsEmpty(), name == "a.bmp");
    }

    /// Metadata cut or overwritten at every place never costs the picture, nor the program.
    void BrokenTags() {
        QVERIFY(Picture(1).save(Path("a.jpg")));
        Tag(Path("a.jpg"), [](auto& image) {
            TagFully(image);
            image.clearIccProfile();
        });
        const QByteArray whole = HBBytesOf(Path("a.jpg"));
        // Inside the segments: broken lengths make the pixels unreadable.
        const int exif = whole.indexOf(QByteArray("Exif\0", 5));
        const int xmp = whole.indexOf("http://ns.adobe.com/xap/1.0/");
        const int iptc = whole.indexOf("Photoshop 3.0");
        QVERIFY(exif > 0 && exif < xmp && xmp < iptc);
#ifdef __SANITIZE_ADDRESS__
        constexpr int step = 3; // each takes ten times as long
#else
        constexpr int step = 1;
#endif
        for (int position = exif + 6; position < iptc + 30; position += step) {
            if (position >= xmp - 4 && position < xmp) position = xmp;
            if (position >= iptc - 4 && position < iptc) position = iptc;
            QByteArray broken = whole;
            broken[position] = char(~broken[position]);
            QVERIFY(HBWriteBytes(Path("b.jpg"), broken));
            HBPhoto photo;
            QString error;
            if (HBReadPhoto(Path("b.jpg"), &photo, &error))
                QVERIFY(HBWritePhoto(Path("c.jpg"), photo.image, {}, &error));
        }
    }

private:
    QString Path(const QString& name) const { return m_pFolder->filePath(name); }

    /// Within what JPEG loses.
    void CompareUpright(const HBImage<>& image) {
        QCOMPARE(QSize(image.Width(), image.Height()), pictureSize);
        for (int y = 0; y < pictureSize.height(); y += 5) {
            for (int x = 0; x < pictureSize.width(); x += 5) {
                const QRgb found = image.PixelAt(x, y).ToRgba();
                const QRgb expected = ColorAt(x, y);
                const int difference =
                    qMax(qAbs(qRed(found) - qRed(expected)), qAbs(qGreen(found) - qGreen(expected)));
                if (difference > 8) QCOMPARE(QColor(found), QColor(expected));
            }
        }
    }

    std::unique_ptr<HBTestFolder> m_pFolder;
};

HB_TEST_MAIN(tst_HBPhotoMetadata)
#include "tst_HBPhotoMetadata.moc"
