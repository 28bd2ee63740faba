// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestFiles.h"
#include "HBTestMain.h"
#include "HBTestProfiles.h"

#include <HBColorTransform.h>
#include <HBConvertToSrgb.h>
#include <HBPhotoFile.h>

#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>
#include <tiffio.h>

namespace {

constexpr int width = 160, height = 40;

/// Four inks, 0 for none.
QVector<quint32> Inks() {
    QVector<quint32> inks;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            inks << (quint32(x) | quint32(6 * y) << 8 | quint32(90) << 16 | quint32(x / 2) << 24);
    }
    return inks;
}

void WriteTiff(const QString& path, const QByteArray& icc, bool tiled) {
    TIFF* tiff = TIFFOpen(qPrintable(path), "w");
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, height);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_SEPARATED);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 4);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, tiled ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
    if (!icc.isEmpty()) TIFFSetField(tiff, TIFFTAG_ICCPROFILE, icc.size(), icc.constData());
    const QVector<quint32> inks = Inks();
    for (int ink = 0; ink < (tiled ? 4 : 1); ++ink) {
        for (int y = 0; y < height; ++y) {
            QByteArray row(reinterpret_cast<const char*>(inks.constData() + y * width), width * 4);
            for (int x = 0; tiled && x < width; ++x) row[x] = row.at(4 * x + ink);
            TIFFWriteScanline(tiff, row.data(), uint32_t(y), uint16_t(ink));
        }
    }
    TIFFClose(tiff);
}

/// Losslessly enough: quality 100, inverted, as its marker says.
void WriteJpeg(const QString& path, const QByteArray& icc) {
    jpeg_compress_struct codec;
    jpeg_error_mgr errors;
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    FILE* file = std::fopen(qPrintable(path), "wb");
    jpeg_stdio_dest(&codec, file);
    codec.image_width = width;
    codec.image_height = height;
    codec.input_components = 4;
    codec.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, 100, TRUE);
    codec.write_Adobe_marker = TRUE;
    jpeg_start_compress(&codec, TRUE);
    jpeg_write_icc_profile(&codec, reinterpret_cast<const JOCTET*>(icc.constData()), unsigned(icc.size()));
    QVector<quint32> inks = Inks();
    for (quint32& ink : inks) ink = ~ink;
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<JSAMPROW>(inks.data() + y * width);
        jpeg_write_scanlines(&codec, &row, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    std::fclose(file);
}

} // namespace

class TestHBPhotoColors : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { Path = std::make_unique<HBTestFolder>(); }

    /// By their profile, as Little CMS alone does it; without one as before.
    void printColors() {
        const QByteArray icc = HBTableProfile(cmsSigCmykData);
        const QVector<quint32> expected = HBThroughProfiles(Inks(), TYPE_CMYK_8, icc, {});
        WriteTiff((*Path)("rows.tif"), icc, false);
        WriteTiff((*Path)("planes.tif"), icc, true);
        WriteJpeg((*Path)("a.jpg"), icc);
        for (const char* name : {"rows.tif", "planes.tif", "a.jpg"}) {
            HBPhoto photo;
            QString error;
            QVERIFY2(HBReadPhoto((*Path)(name), &photo, &error), qPrintable(error));
            QCOMPARE(photo.warnings.size(), 1);
            QVERIFY(photo.warnings.first().contains("sRGB"));
            QCOMPARE(photo.image.Profile().Icc(), HBSrgbProfile());
            const int rounding = QByteArray(name).endsWith("jpg") ? 4 : 0; // of the coefficients
            for (int i = 0; i < expected.size(); ++i) {
                const QRgb pixel = photo.image.PixelAt(i % width, i / width).ToRgba();
                for (const int shift : {0, 8, 16, 24})
                    QVERIFY2(qAbs(int(pixel >> shift & 255) - int(expected.at(i) >> shift & 255)) <= rounding,
                             qPrintable(QString("%1 %2: %3 %4")
                                            .arg(name)
                                            .arg(i)
                                            .arg(pixel, 0, 16)
                                            .arg(expected.at(i), 0, 16)));
            }
        }
        WriteTiff((*Path)("none.tif"), {}, false);
        HBPhoto photo;
        QString error;
        QVERIFY2(HBReadPhoto((*Path)("none.tif"), &photo, &error), qPrintable(error));
        QVERIFY(photo.image.Profile().IsEmpty());
    }

    void asSrgb() {
        QImage ramp(200, 150, QImage::Format_ARGB32);
        QVector<quint32> pixels;
        for (int y = 0; y < 150; ++y) {
            for (int x = 0; x < 200; ++x) {
                ramp.setPixel(x, y, qRgb(x, y, 200 - x));
                pixels << ramp.pixel(x, y);
            }
        }
        HBImage<> image = HBImage<>::FromQImage(ramp);
        image.SetProfile(KMCMSProfile(HBWideProfile()));
        HBPhotoOptions options;
        options.convertToSrgb = true;
        QString error;
        QVERIFY2(HBWritePhoto((*Path)("a.png"), image, options, &error), qPrintable(error));
        HBPhoto photo;
        QVERIFY2(HBReadPhoto((*Path)("a.png"), &photo, &error), qPrintable(error));
        QCOMPARE(photo.image.Profile().Icc(), HBSrgbProfile());
        const QVector<quint32> expected = HBThroughProfiles(pixels, TYPE_BGRA_8, HBWideProfile(), {});
        for (int i = 0; i < expected.size(); ++i)
            QCOMPARE(photo.image.PixelAt(i % 200, i / 200).ToRgba(), expected.at(i));
        QCOMPARE(image.ToQImage().pixel(20, 30), ramp.pixel(20, 30));

        // Where it cannot be: as it is, and told.
        image.SetProfile(KMCMSProfile(HBWideProfile().left(300)));
        QStringList warnings;
        QVERIFY(HBWritePhoto((*Path)("b.png"), image, options, &error, &warnings));
        QVERIFY(warnings.join(' ').contains("color profile"));
    }

private:
    std::unique_ptr<HBTestFolder> Path;
};

HB_TEST_MAIN(TestHBPhotoColors)
#include "tst_HBPhotoColors.moc"
