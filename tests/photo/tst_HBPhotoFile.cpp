// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestFiles.h"
#include "HBTestMain.h"

#include <HBPhotoCheck.h>
#include <HBPhotoFile.h>

#include <QImageWriter>
#include <QProcess>
#include <QtConcurrent>

#include <csignal>
#include <functional>
#include <malloc.h>
#include <memory>
#include <numeric>
#include <sys/resource.h>
#include <tiffio.h>
#include <unistd.h>

namespace {

/// Smooth, so that lossy formats keep it nearly; no symmetry, so that a turned picture shows.
QImage Gradient(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgb(255 * x / width, 255 * y / height, 128));
    }
    return image;
}

/// Every alpha with every red.
QImage TransparentRamp() {
    QImage image(256, 256, QImage::Format_ARGB32);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) image.setPixel(x, y, qRgba(x, 255 - x, 7 * x & 255, y));
    }
    return image;
}

/// How much more memory than now is resident while it runs, at most, in bytes.
qint64 PeakOf(const std::function<void()>& run) {
    const auto resident = [](const char* name) {
        const QByteArray status = HBBytesOf("/proc/self/status");
        return status.mid(status.indexOf(name) + 6).trimmed().split(' ').first().toLongLong() * 1024;
    };
    malloc_trim(0);
    HBWriteBytes("/proc/self/clear_refs", "5"); // the peak begins anew
    const qint64 before = resident("VmRSS:");
    run();
    return resident("VmHWM:") - before;
}

/// How a TIFF file stores its pixels.
struct TiffLayout {
    const char* mode = "wl"; ///< byte order
    int bits = 8;
    bool grey = false;
    bool planes = false;
    int tileSide = 0;
    int orientation = 1;
    bool alpha = true;
};

/// Its colours are not multiplied by alpha.
bool WriteTiff(const QString& path, const QImage& image, const TiffLayout& layout) {
    TIFF* tiff = TIFFOpen(qUtf8Printable(path), layout.mode);
    const std::uint16_t alpha = EXTRASAMPLE_UNASSALPHA;
    const int colors = layout.grey ? 1 : 3;
    const int samples = colors + layout.alpha;
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, image.width());
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, image.height());
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, layout.bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, samples);
    if (layout.alpha) TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &alpha);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, layout.grey ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, layout.planes ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, layout.orientation);
    const int width = layout.tileSide ? layout.tileSide : image.width();
    const int height = layout.tileSide ? layout.tileSide : 1;
    if (layout.tileSide) {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, width);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, height);
    }
    bool good = true;
    for (int plane = 0; plane < (layout.planes ? samples : 1); ++plane) {
        for (int top = 0; top < image.height(); top += height) {
            for (int left = 0; left < image.width(); left += width) {
                QByteArray piece;
                for (int i = 0; i < width * height; ++i) {
                    const QRgb pixel = image.pixel(qMin(left + i % width, image.width() - 1),
                                                   qMin(top + i / width, image.height() - 1));
                    const int values[] = {qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)};
                    for (int sample = 0; sample < samples; ++sample) {
                        if (!layout.planes || sample == plane)
                            piece.append(layout.bits / 8, char(values[sample == colors ? 3 : sample]));
                    }
                }
                good = good && (layout.tileSide ? TIFFWriteTile(tiff, piece.data(), left, top, 0, plane) > 0
                                                : TIFFWriteScanline(tiff, piece.data(), top, plane) > 0);
            }
        }
    }
    TIFFClose(tiff);
    return good;
}

/// A PNG that claims a size and holds nothing.
QByteArray EmptyPng(const char* size) {
    static const char end[] = "\0\0\0\0IEND\xae\x42\x60\x82";
    return QByteArray("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR", 16) + QByteArray::fromHex(size) + QByteArray(end, 12);
}

} // namespace

class tst_HBPhotoFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_pFolder = std::make_unique<HBTestFolder>(); }
    void cleanup() { m_pFolder.reset(); }

    void Pixels_data() {
        HBColumns<QString, QImage::Format>("name", "format");
        for (const QImage::Format format :
             {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_Indexed8, QImage::Format_Grayscale8,
              QImage::Format_Mono, QImage::Format_RGBA64, QImage::Format_Grayscale16})
            QTest::addRow("png %d", int(format)) << "a.png" << format;
        QTest::newRow("tiff") << "a.tif" << QImage::Format_RGB32;
        QTest::newRow("tiff with alpha") << "a.TIFF" << QImage::Format_ARGB32;
        QTest::newRow("webp with alpha") << "a.webp" << QImage::Format_ARGB32;
        QTest::newRow("bmp") << "a.bmp" << QImage::Format_RGB32;
        QTest::newRow("wrong suffix") << "a.png.jpg" << QImage::Format_ARGB32;
    }
    /// What Qt wrote is read with the same pixels, and so is what we write from it.
    void Pixels() {
        QFETCH(QString, name);
        QFETCH(QImage::Format, format);
        QImage source = Gradient(161, 137).convertToFormat(QImage::Format_ARGB32);
        if (QImage::toPixelFormat(format).alphaUsage() == QPixelFormat::UsesAlpha) {
            for (int x = 0; x < 61; ++x) source.setPixel(x, 5, qRgba(200, 100, 50, 4 * x));
        }
        source = source.convertToFormat(format);
        const QString path = Path(name);
        QImageWriter writer(path, name.contains("png") ? "png" : QFileInfo(name).suffix().toLower().toLatin1());
        writer.setQuality(100);
        QVERIFY(writer.write(source));

        HBPhoto photo;
        QString error;
        QVERIFY2(HBReadPhoto(path, &photo, &error), qPrintable(error));
        // libwebp forgets colours that nobody sees.
        const QImage::Format compared =
            photo.encoding.format == "webp" ? QImage::Format_ARGB32_Premultiplied : QImage::Format_ARGB32;
        QCOMPARE(photo.image.ToQImage().convertToFormat(compared),
                 source.convertToFormat(QImage::Format_ARGB32).convertToFormat(compared));
        QCOMPARE(photo.warnings.join(';'), source.depth() == 64 || format == QImage::Format_Grayscale16
                                               ? "16 bits a channel are reduced to 8"
                                               : "");
        if (name == "a.png.jpg") {
            QCOMPARE(photo.encoding.format, QByteArray("png"));
            return;
        }
        HBPhoto again;
        QVERIFY2(HBWritePhoto(Path("b-" + name), photo.image, {100}, &error), qPrintable(error));
        QVERIFY2(HBReadPhoto(Path("b-" + name), &again, &error), qPrintable(error));
        QCOMPARE(again.image.ToQImage().convertToFormat(compared),
                 photo.image.ToQImage().convertToFormat(compared));
    }

    /// To the last bit, however the file stores them.
    void TransparentTiff() {
        const QImage ramp = TransparentRamp();
        QString error;
        HBPhoto photo;
        QVERIFY2(HBWritePhoto(Path("own.tif"), HBImage<>::FromQImage(ramp), {}, &error), qPrintable(error));
        QVERIFY2(HBReadPhoto(Path("own.tif"), &photo, &error), qPrintable(error));
        QCOMPARE(photo.image.ToQImage(), ramp);

        QImage grey = ramp;
        for (int y = 0; y < 256; ++y) {
            for (int x = 0; x < 256; ++x) grey.setPixel(x, y, qRgba(x, x, x, y));
        }
        const TiffLayout layouts[] = {
            {},
            {"wb", 8, false, true},
            {"wl", 8, false, false, 96},
            {"wl", 8, false, true, 96},
            {"wl", 8, true},
            {"wl", 16},
            {"wl", 8, false, false, 0, 6},
            {"wl", 8, false, false, 0, 1, false},
            {"wl", 8, false, true, 96, 1, false},
            {"wb", 8, true, false, 96, 1, false},
        };
        for (const TiffLayout& layout : layouts) {
            QImage source = layout.grey ? grey : ramp;
            if (!layout.alpha) {
                source.reinterpretAsFormat(QImage::Format_RGB32); // its colours stay, its alpha does not count
                source = source.convertToFormat(QImage::Format_ARGB32);
            }
            QVERIFY(WriteTiff(Path("a.tif"), source, layout));
            QVERIFY2(HBReadPhoto(Path("a.tif"), &photo, &error), qPrintable(error));
            const QImage upright = layout.orientation == 6 ? source.transformed(QTransform().rotate(90)) : source;
            QVERIFY2(photo.image.ToQImage() == upright, qPrintable(QString::number(&layout - layouts)));
        }
    }

    /// To the byte what Qt's own writer gives, and to the bit what its reader does.
    void AsByQt() {
        QString error;
        for (QImage picture : {Gradient(301, 203), TransparentRamp()}) {
            for (const int dots : {3000, 2835}) {
                picture.setDotsPerMeterX(dots);
                picture.setDotsPerMeterY(dots);
                HBImage<> image = HBImage<>::FromQImage(picture);
                for (const int which : {0, 1}) image.SetHostValue(which, dots);
                for (const char* name : {"a.png", "a.tif"}) {
                    QVERIFY(QImageWriter(Path(name)).write(picture));
                    const QByteArray byQt = HBBytesOf(Path(name));
                    QVERIFY2(HBWritePhoto(Path(name), image, {}, &error), qPrintable(error));
                    QVERIFY2(HBBytesOf(Path(name)) == byQt, name);
                }
            }
        }
        for (const char* kind : {"", "grey", "progressive", "grey progressive"}) {
            QImageWriter writer(Path("a.jpg"));
            writer.setProgressiveScanWrite(QByteArray(kind).contains("progressive"));
            QVERIFY(writer.write(Gradient(301, 203).convertToFormat(
                QByteArray(kind).contains("grey") ? QImage::Format_Grayscale8 : QImage::Format_RGB32)));
            HBPhoto photo;
            QVERIFY2(HBReadPhoto(Path("a.jpg"), &photo, &error), qPrintable(error));
            QVERIFY2(photo.image.ToQImage() == QImage(Path("a.jpg")).convertToFormat(QImage::Format_ARGB32), kind);
        }
    }

    /// As its tiles: besides these there are a few rows and the file; twice while metadata are put in.
    void PictureIsInMemoryOnce() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        QSKIP("A sanitizer keeps what was freed.");
#endif
        const qint64 room = 6 << 20;
        HBImage<> image = HBImage<>::FromQImage(Gradient(3000, 2500)); // 30 MB
        for (const char* name : {"a.jpg", "a.png", "a.tif", "tags.tif"}) {
            const bool hasTags = QByteArray(name).startsWith("tags");
            if (hasTags) image.AddElement(new KMEXIFElement{"Exif.Image.Make", 2, QByteArray("Maker", 6)});
            QString error;
            HBPhoto photo;
            const qint64 written = PeakOf([&] { QVERIFY(HBWritePhoto(Path(name), image, {}, &error)); });
            const qint64 file = QFileInfo(Path(name)).size();
            QVERIFY2(written < (hasTags ? 2 : 1) * file + room,
                     qPrintable(QString("%1 %2").arg(name).arg(written)));
            const qint64 read = PeakOf([&] { QVERIFY(HBReadPhoto(Path(name), &photo, &error)); });
            QVERIFY2(read < file + (30 << 20) + room, qPrintable(QString("%1 %2").arg(name).arg(read)));
        }
    }

    /// Shorter than the library of metadata can bear.
    void FewBytes() {
        QString error;
        HBPhoto photo;
        QVERIFY2(HBWritePhoto(Path("a.ppm"), HBImage<>::FromQImage(Gradient(1, 1)), {}, &error),
                 qPrintable(error));
        QVERIFY(HBReadPhoto(Path("a.ppm"), &photo, &error));
        QCOMPARE(photo.warnings, QStringList());
    }

    void GivenUp() {
        QString error;
        for (const char* name : {"a.jpg", "a.png", "a.tif"}) {
            QVERIFY(HBWritePhoto(Path(name), HBImage<>::FromQImage(Gradient(300, 200)), {}, &error));
            for (int rounds = 0; rounds < 6; rounds += 5) {
                HBPhoto photo;
                int asked = 0;
                QVERIFY(!HBReadPhoto(Path(name), &photo, &error, [&] { return asked++ < rounds; }));
                QCOMPARE(error, Path(name) + ": it was given up");
            }
        }
    }

    void QualityResolutionTransparency() {
        HBImage<> image = HBImage<>::FromQImage(Gradient(300, 200));
        image.SetHostValue(0, 11800);
        image.SetHostValue(1, 11800);
        QString error;
        QVERIFY(HBWritePhoto(Path("low.jpg"), image, {20}, &error));
        QVERIFY(HBWritePhoto(Path("high.jpg"), image, {100}, &error));
        QVERIFY(QFileInfo(Path("low.jpg")).size() < QFileInfo(Path("high.jpg")).size());
        for (const char* name : {"a.jpg", "a.png", "a.tif"}) {
            HBPhoto photo;
            QVERIFY(HBWritePhoto(Path(name), image, {}, &error));
            QVERIFY(HBReadPhoto(Path(name), &photo, &error));
            QVERIFY2(qAbs(photo.image.HostValue(0) - 11800) < 20, name);
        }
        QImage transparent(64, 64, QImage::Format_ARGB32);
        transparent.fill(qRgba(255, 0, 0, 0));
        QVERIFY(HBWritePhoto(Path("a.jpg"), HBImage<>::FromQImage(transparent), {}, &error));
        QCOMPARE(QImage(Path("a.jpg")).pixel(30, 30), qRgb(255, 255, 255)); // which has no transparency
        // Quality is none of PNG's business: it stays compressed.
        QVERIFY(QFileInfo(Path("a.png")).size() < 300 * 200);
    }

    void CutShort_data() {
        QTest::addColumn<QString>("suffix");
        for (const char* suffix : {"jpg", "png", "tif", "webp", "bmp", "gif"}) QTest::newRow(suffix) << suffix;
    }
    void CutShort() {
        QFETCH(QString, suffix);
        QString error;
        const QString path = Path("whole." + suffix);
        HBImage<> image = HBImage<>::FromQImage(Gradient(67, 45));
        image.AddElement(new KMEXIFElement{"Exif.Image.Make", 2, QByteArray("Maker", 6)});
        if (suffix == "gif") // Qt does not write it
            QVERIFY(
                HBWriteBytes(path, QByteArray::fromHex("47494638396101000100800000000000ffffff2c000000000100010000"
                                                       "02024401003b")));
        else
            QVERIFY(HBWritePhoto(path, image, {}, &error));
        const QByteArray whole = HBBytesOf(path);
        HBPhoto photo;
        QVERIFY2(HBReadPhoto(path, &photo, &error), qPrintable(error));
        QVERIFY(HBWriteBytes(path, whole + "trailing data"));
        QVERIFY2(HBReadPhoto(path, &photo, &error), qPrintable(error));

        const int step = whole.size() < 3000 ? 1 : 37;
        for (int size = whole.size() - 1; size >= 0; size -= size < 200 ? 1 : step) {
            QVERIFY(HBWriteBytes(path, whole.left(size)));
            photo.encoding.format = "untouched";
            error.clear();
            if (HBReadPhoto(path, &photo, &error)) {
                // Only a tag or a pad byte at the very end may be missing, if all pixels are there.
                QVERIFY2(suffix == "tif", qPrintable(QString::number(size)));
                QCOMPARE(photo.image.ToQImage(), image.ToQImage());
                continue;
            }
            QVERIFY2(error.startsWith(path + ": "), qPrintable(error));
            QCOMPARE(photo.encoding.format, QByteArray("untouched"));
        }
        // What there is of it, for those who ask.
        if (suffix != "jpg" && suffix != "png") return;
        for (const int left : {whole.size() - 2, whole.size() * 4 / 5}) {
            QVERIFY(HBWriteBytes(path, whole.left(left)));
            QVERIFY2(HBReadPhoto(path, &photo, &error, nullptr, HBCutShort::Read), qPrintable(error));
            QCOMPARE(QSize(photo.image.Width(), photo.image.Height()), QSize(67, 45));
            QVERIFY2(photo.warnings.value(0).contains("cut short"), qPrintable(photo.warnings.join(';')));
            const bool lacks = photo.encoding.lacksPixels;
            QVERIFY(suffix == "jpg" ? lacks == (left != whole.size() - 2) : true);
            QCOMPARE(HBLossesOfSave(photo.encoding, path).isEmpty(), !lacks);
        }
        QVERIFY(HBWriteBytes(path, whole.left(30)));
        QVERIFY(!HBReadPhoto(path, &photo, &error, nullptr, HBCutShort::Read));
    }

    void NotAPhoto() {
        const std::pair<QString, QByteArray> rows[] = {
            {"none.jpg", {}},
            {"/dev/zero", {}},
            {"a.jpg", ""},
            {"a.jpg", "This is not a photo.\n"},
            {"a.png", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"},
            {"a.jpg", QByteArray(5000, '\0')},
            {"a.jpg", "\xff\xd8\xff\xe0"},
            {"a.png", EmptyPng("000f4240000f424008060000005c6d387d")}, // a million by a million pixels
            {"a.png", EmptyPng("000000000000000508060000005c6d387d")},
            {"a.tif", QByteArray("II*\0\x08\0\0\0\0\0", 10)},
            {"a.tif", QByteArray("MM\0*\xff\xff\xff\xff", 8)}};
        for (const auto& [name, bytes] : rows) {
            const QString path = name.startsWith('/') ? name : Path(name);
            if (!bytes.isNull()) QVERIFY(HBWriteBytes(path, bytes));
            HBPhoto photo;
            QString error;
            QVERIFY(!HBReadPhoto(path, &photo, &error));
            QVERIFY2(error.startsWith(path + ": ") && error.size() > path.size() + 10, qPrintable(error));
            QVERIFY(photo.image.IsEmpty());
        }
    }

    /// A file of the kernel's says that it is empty and could be read for ever: it is not read at all. This one
    /// would be a picture.
    void EmptyByItsEntry() {
        QProcess sleeper;
        sleeper.start("bash", {"-c", "exec -a 'P6 7 5 255 ' sleep 60"});
        QVERIFY(sleeper.waitForStarted());
        const QString path = QString("/proc/%1/cmdline").arg(sleeper.processId());
        QTRY_VERIFY(HBBytesOf(path).startsWith("P6 "));
        QCOMPARE(HBPhotoSize(path), QSize());
        HBPhoto photo;
        QString error;
        QVERIFY(!HBReadPhoto(path, &photo, &error));
        QCOMPARE(error, path + ": the file is empty");
        sleeper.kill();
        sleeper.waitForFinished();
    }

    /// 2^43 bytes a row, 2^31 rows: the product has 75 bits.
    void BmpThatNoNumberCanCount() {
        QByteArray bmp("BM");
        bmp.append(QByteArray(98, '\0'));
        bmp[14] = 40;
        bmp[21] = bmp[25] = char(0x80);
        bmp[29] = char(0x80);
        QVERIFY(!HBIsWholeFile(bmp));
    }

    void CannotBeWritten() {
        QVERIFY(QDir(m_pFolder->path()).mkdir("folder.jpg"));
        const QStringList before = m_pFolder->Files();
        const std::pair<const char*, QSize> rows[] = {{"a.xyz", {8, 8}},
                                                      {"none/a.jpg", {8, 8}},
                                                      {"folder.jpg", {8, 8}},
                                                      {"a.jpg", {0, 0}},
                                                      {"a.webp", {16384, 1}}};
        for (const auto& [name, size] : rows) {
            QString error;
            QVERIFY2(!HBWritePhoto(Path(name), HBImage<>(size.width(), size.height()), {}, &error), name);
            QVERIFY2(error.startsWith(Path(name) + ": "), qPrintable(error));
            QCOMPARE(m_pFolder->Files(), before);
        }
    }

    /// A limit on the size of files stands for the full disk: the write fails in the same place.
    void FullDiskKeepsTheOldFile() {
        QVERIFY(HBWriteBytes(Path("a.tif"), "old"));
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit before;
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        for (const int room : {20000, 100, 0}) { // for the second, the file fits into a buffer
            const int side = room > 1000 ? 200 : 10;
            const rlimit small{rlim_t(room), before.rlim_max};
            QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
            QString error;
            const bool written =
                HBWritePhoto(Path("a.tif"), HBImage<>::FromQImage(Gradient(side, side)), {}, &error);
            QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
            QVERIFY(!written);
            QCOMPARE(error, Path("a.tif") + ": " + qt_error_string(EFBIG));
            QCOMPARE(HBBytesOf(Path("a.tif")), QByteArray("old"));
            QCOMPARE(m_pFolder->Files(), QStringList("a.tif"));
        }
    }

    void RemarksAreTold() {
        QString error;
        HBPhoto photo;
        QVERIFY(HBWritePhoto(Path("a.jpg"), HBImage<>::FromQImage(Gradient(300, 200)), {}, &error));
        QByteArray damaged = HBBytesOf(Path("a.jpg"));
        damaged.insert(damaged.size() - 2, QByteArray(100, 'x'));
        QVERIFY(HBWriteBytes(Path("a.jpg"), damaged));
        QVERIFY2(HBReadPhoto(Path("a.jpg"), &photo, &error), qPrintable(error));
        QVERIFY2(photo.warnings.join(';').contains("Corrupt JPEG data"), qPrintable(photo.warnings.join(';')));

        // Nor is one about the head left to the log, where it would stand without the file's name.
        QVERIFY(HBWritePhoto(Path("a.png"), HBImage<>::FromQImage(Gradient(30, 20)), {}, &error));
        QByteArray head = HBBytesOf(Path("a.png"));
        head.insert(33, QByteArray("\0\0\0\x05iCCPab\0\0x\1\2\3\4", 17));
        QVERIFY(HBWriteBytes(Path("a.png"), head));
        QCOMPARE(HBPhotoSize(Path("a.png")), QSize(30, 20));
        QVERIFY2(HBReadPhoto(Path("a.png"), &photo, &error), qPrintable(error));
        QVERIFY2(photo.warnings.join(';').contains("iCCP"), qPrintable(photo.warnings.join(';')));

        // Two pictures of one pixel in a file.
        QVERIFY(HBWriteBytes(
            Path("a.gif"),
            QByteArray::fromHex("47494638396101000100800000000000ffffff") +
                QByteArray::fromHex("2c00000000010001000002024401002c0000000001000100000202440100") + ";"));
        QVERIFY2(HBReadPhoto(Path("a.gif"), &photo, &error), qPrintable(error));
        QCOMPARE(photo.warnings, QStringList("only the first of 2 pages is read"));
        for (const char* mode : {"w", "a"}) QVERIFY(WriteTiff(Path("a.tif"), Gradient(9, 7), {mode}));
        QVERIFY2(HBReadPhoto(Path("a.tif"), &photo, &error), qPrintable(error));
        QCOMPARE(photo.warnings, QStringList("only the first of 2 pages is read"));
    }

    void ManyThreads() {
        HBImage<> image = HBImage<>::FromQImage(Gradient(130, 130));
        const QByteArray xmp = "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF "
                               "xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description "
                               "xmlns:xmp='http://ns.adobe.com/xap/1.0/' xmp:Rating='4'/></rdf:RDF></x:xmpmeta>";
        image.AddElement(new KMEXIFElement{"Xmp", 7, xmp});
        QVector<int> numbers(40);
        std::iota(numbers.begin(), numbers.end(), 0);
        QAtomicInt good = 0;
        QtConcurrent::blockingMap(numbers, [&](int number) {
            const QString path = Path(QString("%1.%2").arg(number).arg(number & 1 ? "jpg" : "png"));
            QString error;
            HBPhoto photo;
            if (HBWritePhoto(path, HBImage<>(image), {}, &error) && HBReadPhoto(path, &photo, &error) &&
                photo.image.Elements().size() == 1)
                ++good;
        });
        QCOMPARE(int(good), numbers.size());
    }

private:
    QString Path(const QString& name) const { return m_pFolder->filePath(name); }

    std::unique_ptr<HBTestFolder> m_pFolder;
};

HB_TEST_MAIN(tst_HBPhotoFile)
#include "tst_HBPhotoFile.moc"
