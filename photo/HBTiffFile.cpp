// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTiffFile.h"

#include "HBPhotoText.h"

#include <HBQtImage.h>

#include <QScopeGuard>

#include <cstring>
#include <new>
#include <tiffio.h>
#include <vector>

namespace
{

/// A file in memory, as libtiff uses it. Called from C: nothing may be thrown.
struct Memory
{
    static constexpr qint64 Largest = 0x7fff0000; ///< that a QByteArray can hold

    QByteArray* written = nullptr; ///< null: it is read only
    const char* bytes = nullptr;
    qint64 size = 0;
    qint64 position = 0;
    bool isFull = false;

    static tmsize_t Read(thandle_t handle, void* to, tmsize_t count)
    {
        auto* self = static_cast<Memory*>(handle);
        const qint64 got = qBound(qint64(0), self->size - self->position, qint64(count));
        std::memcpy(to, self->bytes + self->position, size_t(got));
        self->position += got;
        return got;
    }
    static tmsize_t Write(thandle_t handle, void* from, tmsize_t count)
    {
        auto* self = static_cast<Memory*>(handle);
        if (!self->written || self->position + count > Largest)
            return 0;
        try {
            if (self->position > self->size) // libtiff begins at even places
                self->written->append(QByteArray(int(self->position - self->size), '\0'));
            if (self->position + count > self->written->size())
                self->written->resize(int(self->position + count));
            std::memcpy(self->written->data() + self->position, from, size_t(count));
        } catch (const std::bad_alloc&) {
            self->isFull = true;
            return 0;
        }
        self->position += count;
        self->size = self->written->size();
        self->bytes = self->written->constData();
        return count;
    }
    static toff_t Seek(thandle_t handle, toff_t offset, int whence)
    {
        auto* self = static_cast<Memory*>(handle);
        const qint64 base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? self->position : self->size;
        const qint64 wanted = qMax(qint64(0), base + qint64(offset));
        self->position = self->written ? wanted : qMin(wanted, self->size);
        return toff_t(self->position);
    }
    static int Close(thandle_t) { return 0; }
    static toff_t Size(thandle_t handle) { return toff_t(static_cast<Memory*>(handle)->size); }

    TIFF* Open(const char* mode)
    {
        HBCheckMemory(); // libtiff crashes where it gets none for the first directory
        return TIFFClientOpen("", mode, this, Read, Write, Seek, Close, Size, nullptr, nullptr);
    }
};

void Log(const char*, const char* format, va_list arguments)
{
    try {
        const QString text = QString::vasprintf(format, arguments);
        if (!text.startsWith(QLatin1String("Unknown field"))) // nothing is wrong with those
            qWarning("%s", qUtf8Printable(text));
    } catch (...) { // between here and its reader is C: a message less
    }
}

// ---- Reading ----

struct Layout
{
    uint32_t width = 0;
    uint32_t height = 0;
    uint16_t samples = 1;
    uint16_t colors = 1;     ///< 3, 1 for grey, 4 for print; one sample more is alpha
    bool hasPlanes = false;  ///< one behind the other, a sample each
    uint32_t pieceWidth = 0; ///< of a tile or a strip
    uint32_t pieceHeight = 0;
};

/// Whether the picture is one to read here.
bool GetLayout(TIFF* tiff, HBPrintColors* print, Layout* layout)
{
    uint16_t bits = 0;
    uint16_t planes = 0;
    uint16_t compression = 0;
    uint16_t model = 0;
    uint16_t inks = 0;
    uint16_t extraCount = 0;
    uint16_t* extra = nullptr;
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &layout->width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &layout->height);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &bits);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &layout->samples);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_PLANARCONFIG, &planes);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_COMPRESSION, &compression);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_INKSET, &inks);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_EXTRASAMPLES, &extraCount, &extra);
    if (extraCount > 0 && !extra) // libtiff has counted them, but had no memory to keep them
        throw std::bad_alloc();
    if (!TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &model) ||
        (model != PHOTOMETRIC_RGB && model != PHOTOMETRIC_MINISBLACK && model != PHOTOMETRIC_SEPARATED))
        return false;
    layout->colors = model == PHOTOMETRIC_RGB ? 3 : model == PHOTOMETRIC_SEPARATED ? 4 : 1;
    layout->hasPlanes = planes == PLANARCONFIG_SEPARATE && layout->samples > 1;
    layout->pieceWidth = layout->width;
    if (TIFFIsTiled(tiff)) {
        TIFFGetField(tiff, TIFFTAG_TILEWIDTH, &layout->pieceWidth);
        TIFFGetField(tiff, TIFFTAG_TILELENGTH, &layout->pieceHeight);
    } else {
        TIFFGetFieldDefaulted(tiff, TIFFTAG_ROWSPERSTRIP, &layout->pieceHeight);
        layout->pieceHeight = qMin(layout->pieceHeight, layout->height); // it may say "all"
    }
    const bool hasAlpha = extraCount == 1 && extra[0] == EXTRASAMPLE_UNASSALPHA;
    // In a small file tiles may be huge by what they say.
    const bool hasPieces = layout->pieceWidth > 0 && layout->pieceHeight > 0 &&
                           layout->pieceWidth <= layout->width + 1024 &&
                           layout->pieceHeight <= layout->height + 1024;
    constexpr uint32_t longest = 0x7fffff; // as a QImage
    return bits == 8 && compression != COMPRESSION_OJPEG && hasPieces &&
           layout->samples == layout->colors + hasAlpha && layout->width - 1 < longest &&
           layout->height - 1 < longest &&
           (layout->colors != 4 || (!hasAlpha && inks == INKSET_CMYK && print && print->Begin(false)));
}

/// \param from the first row's samples
/// \param plane from one channel of a pixel to the next; 1: side by side
void ToQRgb(const Layout& layout, const HBPrintColors* print, const uchar* from, size_t plane, uint32_t count,
            QRgb* to)
{
    const size_t step = layout.hasPlanes ? 1 : layout.samples;
    if (layout.colors == 4) {
        auto* inks = reinterpret_cast<uchar*>(to);
        for (size_t x = 0; x < count; ++x) {
            for (size_t ink = 0; ink < 4; ++ink)
                *inks++ = from[ink * plane + x * step];
        }
        print->Convert(to, int(count));
        return;
    }
    const uchar* green = from + (layout.colors / 2) * plane;
    const uchar* blue = from + (layout.colors - 1u) * plane;
    const bool hasAlpha = layout.samples > layout.colors;
    const uchar* alpha = hasAlpha ? from + layout.colors * plane : nullptr;
    for (size_t x = 0; x < count; ++x)
        to[x] = qRgba(from[x * step], green[x * step], blue[x * step], hasAlpha ? alpha[x * step] : 255);
}

/// However many rows are packed together, only a few are in memory.
bool ReadRowByRow(TIFF* tiff, const Layout& layout, HBStraightRead* read)
{
    const int width = int(layout.width);
    const int height = int(layout.height);
    std::vector<uchar> samples(size_t(qMax(tmsize_t(layout.width) * layout.samples, TIFFScanlineSize(tiff))));
    std::vector<QRgb> rows(size_t(width) * HBUprightTiles::RowsAtOnce);
    for (int first = 0; first < height; first += HBUprightTiles::RowsAtOnce) {
        const int count = qMin(HBUprightTiles::RowsAtOnce, height - first);
        for (int y = 0; y < count; ++y) {
            if (TIFFReadScanline(tiff, samples.data(), uint32_t(first + y), 0) < 0)
                return false;
            ToQRgb(layout, read->print, samples.data(), 1, layout.width, rows.data() + qptrdiff(y) * width);
        }
        if (!read->IsWanted())
            return false;
        read->tiles.Put(first, count, rows.data(), width);
    }
    return true;
}

bool ReadPiece(TIFF* tiff, uint32_t left, uint32_t top, uint16_t plane, uchar* to, tmsize_t bytes)
{
    return TIFFIsTiled(tiff)
               ? TIFFReadEncodedTile(tiff, TIFFComputeTile(tiff, left, top, 0, plane), to, bytes) >= 0
               : TIFFReadEncodedStrip(tiff, TIFFComputeStrip(tiff, top, plane), to, bytes) >= 0;
}

bool ReadPieceByPiece(TIFF* tiff, const Layout& layout, HBStraightRead* read)
{
    const size_t bytes = size_t(qMax(tmsize_t(0), TIFFIsTiled(tiff) ? TIFFTileSize(tiff) : TIFFStripSize(tiff)));
    const uint16_t planes = layout.hasPlanes ? layout.samples : 1;
    const size_t stride = size_t(layout.pieceWidth) * (layout.hasPlanes ? 1 : layout.samples);
    if (bytes < stride * layout.pieceHeight)
        return false;
    std::vector<uchar> samples(bytes * planes);
    std::vector<QRgb> rows(size_t(layout.width) * layout.pieceHeight);
    for (uint32_t top = 0; top < layout.height; top += layout.pieceHeight) {
        const uint32_t count = qMin(layout.pieceHeight, layout.height - top);
        for (uint32_t left = 0; left < layout.width; left += layout.pieceWidth) {
            for (uint16_t plane = 0; plane < planes; ++plane) {
                if (!read->IsWanted() ||
                    !ReadPiece(tiff, left, top, plane, samples.data() + plane * bytes, tmsize_t(bytes)))
                    return false;
            }
            for (uint32_t y = 0; y < count; ++y) {
                ToQRgb(layout, read->print, samples.data() + y * stride, layout.hasPlanes ? bytes : 1,
                       qMin(layout.pieceWidth, layout.width - left),
                       rows.data() + size_t(y) * layout.width + left);
            }
        }
        read->tiles.Put(int(top), int(count), rows.data(), int(layout.width));
    }
    return true;
}

/// Dots per metre; 0: the file does not say.
int Dots(TIFF* tiff, uint32_t tag)
{
    uint16_t unit = 0;
    float dots = 0;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_RESOLUTIONUNIT, &unit);
    const bool known = TIFFGetField(tiff, tag, &dots) && (unit == RESUNIT_CENTIMETER || unit == RESUNIT_INCH);
    const double perMetre = known ? double(dots) * (unit == RESUNIT_INCH ? 100 / 2.54 : 100) : 0;
    return perMetre > 0 && perMetre < 1e9 ? qRound(perMetre) : 0;
}

// ---- Writing ----

bool SetHead(TIFF* tiff, const HBPictureRows& rows)
{
    const bool grey = rows.Format() == QImage::Format_Grayscale8;
    const int dotsX = rows.DotsPerMetreX();
    const int dotsY = rows.DotsPerMetreY();
    // Whole numbers are kept as they are.
    const bool perCentimetre = dotsX % 100 == 0 && dotsY % 100 == 0;
    const auto resolution = [perCentimetre](int dots) {
        return perCentimetre ? dots / 100. : double(qRound(dots * 0.0254));
    };
    const uint16_t alpha = EXTRASAMPLE_UNASSALPHA;
    constexpr tmsize_t stripBytes = 4 << 20;
    return TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, rows.Width()) &&
           TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, rows.Height()) &&
           TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE) &&
           TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) &&
           TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, perCentimetre ? RESUNIT_CENTIMETER : RESUNIT_INCH) &&
           TIFFSetField(tiff, TIFFTAG_XRESOLUTION, resolution(dotsX)) &&
           TIFFSetField(tiff, TIFFTAG_YRESOLUTION, resolution(dotsY)) &&
           TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT) &&
           TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, grey ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_RGB) &&
           TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL,
                        grey              ? 1
                        : rows.HasAlpha() ? 4
                                          : 3) &&
           TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8) &&
           (!rows.HasAlpha() || TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &alpha)) &&
           TIFFSetField(
               tiff, TIFFTAG_ROWSPERSTRIP,
               TIFFDefaultStripSize(tiff, uint32_t(qMax(tmsize_t(1), stripBytes / TIFFScanlineSize(tiff)))));
}

bool WriteRows(TIFF* tiff, HBPictureRows& rows)
{
    std::vector<uchar> samples(size_t(rows.Width()) * 4);
    for (int y = 0; y < rows.Height(); ++y) {
        if (!rows.IsWanted(y))
            return false;
        const uchar* row = rows.Row(y);
        if (rows.Format() == QImage::Format_Grayscale8) {
            std::memcpy(samples.data(), row, size_t(rows.Width()));
        } else {
            uchar* to = samples.data();
            for (int x = 0; x < rows.Width(); ++x) {
                const QRgb pixel = reinterpret_cast<const QRgb*>(row)[x];
                *to++ = uchar(qRed(pixel));
                *to++ = uchar(qGreen(pixel));
                *to++ = uchar(qBlue(pixel));
                if (rows.HasAlpha())
                    *to++ = uchar(qAlpha(pixel));
            }
        }
        if (TIFFWriteScanline(tiff, samples.data(), uint32_t(y), 0) != 1)
            return false;
    }
    return TIFFFlush(tiff);
}

} // namespace

HBStraightRead::Outcome HBReadTiff(const QByteArray& file, HBStraightRead* read)
{
    Memory memory;
    memory.bytes = file.constData();
    memory.size = file.size();
    TIFF* const tiff = memory.Open("rm");
    if (!tiff)
        return HBStraightRead::LeftToQt;
    const auto close = qScopeGuard([tiff] { TIFFClose(tiff); });
    Layout layout;
    if (!GetLayout(tiff, read->print, &layout))
        return HBStraightRead::LeftToQt;
    read->dotsPerMetreX = Dots(tiff, TIFFTAG_XRESOLUTION);
    read->dotsPerMetreY = Dots(tiff, TIFFTAG_YRESOLUTION);
    if (!read->Begin({int(layout.width), int(layout.height)}))
        return HBStraightRead::Failed;
    const bool byRows = !TIFFIsTiled(tiff) && !layout.hasPlanes;
    const bool whole = byRows ? ReadRowByRow(tiff, layout, read) : ReadPieceByPiece(tiff, layout, read);
    return whole ? HBStraightRead::Read : HBStraightRead::Failed; // libtiff's log tells why
}

bool HBWriteTiff(HBPictureRows& rows, QByteArray* bytes, QString* reason)
{
    // At once, or it would be copied as it grows.
    const int samples = rows.Format() == QImage::Format_Grayscale8 ? 1 : rows.HasAlpha() ? 4 : 3;
    const qint64 pixels = qint64(rows.Width()) * rows.Height() * samples;
    constexpr int aboutThem = 65536;
    bytes->clear();
    bytes->reserve(int(qMin(pixels + aboutThem, Memory::Largest)));
    Memory memory;
    memory.written = bytes;
    bool written = false;
    if (TIFF* const tiff = memory.Open("wB")) { // big-endian
        const auto close = qScopeGuard([tiff] { TIFFClose(tiff); });
        written = SetHead(tiff, rows) && WriteRows(tiff, rows);
    }
    if (memory.isFull)
        throw std::bad_alloc();
    return written || HBFail(reason, HBPhotoText::tr("the file is too large"));
}

void HBLogTiffMessages()
{
    TIFFSetErrorHandler(Log);
    TIFFSetWarningHandler(Log);
}
