// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTiffReader.h"

#include <QScopeGuard>
#include <QString>

#include <cstring>
#include <tiffio.h>

namespace
{

/// A file in memory, as libtiff reads it.
struct Source
{
    const QByteArray& bytes;
    qint64 position = 0;

    static tmsize_t Read(thandle_t handle, void* to, tmsize_t count)
    {
        auto* self = static_cast<Source*>(handle);
        const qint64 got = qBound(qint64(0), self->bytes.size() - self->position, qint64(count));
        std::memcpy(to, self->bytes.constData() + self->position, size_t(got));
        self->position += got;
        return got;
    }
    static tmsize_t Write(thandle_t, void*, tmsize_t) { return 0; }
    static toff_t Seek(thandle_t handle, toff_t offset, int whence)
    {
        auto* self = static_cast<Source*>(handle);
        const qint64 base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? self->position : self->bytes.size();
        self->position = qBound(qint64(0), base + qint64(offset), qint64(self->bytes.size()));
        return toff_t(self->position);
    }
    static int Close(thandle_t) { return 0; }
    static toff_t Size(thandle_t handle) { return toff_t(static_cast<Source*>(handle)->bytes.size()); }
};

void Log(const char*, const char* format, va_list arguments)
{
    const QString text = QString::vasprintf(format, arguments);
    if (!text.startsWith(QLatin1String("Unknown field"))) // nothing is wrong with those
        qWarning("%s", qUtf8Printable(text));
}

/// Puts a piece of a strip or tile into the picture; instead of libtiff's own function, which multiplies.
void PutInterleaved(TIFFRGBAImage* image, uint32_t* to, uint32_t, uint32_t, uint32_t width, uint32_t height,
                    int32_t fromSkew, int32_t toSkew, unsigned char* from)
{
    const int samples = image->samplesperpixel;
    const int colors = image->photometric == PHOTOMETRIC_RGB ? 3 : 1;
    for (uint32_t y = 0; y < height; ++y) {
        for (uint32_t x = 0; x < width; ++x, from += samples)
            *to++ = qRgba(from[0], from[colors / 2], from[colors - 1], from[colors]);
        to += toSkew;
        from += qptrdiff(fromSkew) * samples;
    }
}

/// The same of one plane a channel.
void PutPlanes(TIFFRGBAImage*, uint32_t* to, uint32_t, uint32_t, uint32_t width, uint32_t height, int32_t fromSkew,
               int32_t toSkew, unsigned char* red, unsigned char* green, unsigned char* blue, unsigned char* alpha)
{
    qptrdiff from = 0;
    for (uint32_t y = 0; y < height; ++y) {
        for (uint32_t x = 0; x < width; ++x, ++from)
            *to++ = qRgba(red[from], green[from], blue[from], alpha[from]);
        to += toSkew;
        from += fromSkew;
    }
}

QImage Pixels(TIFF* tiff)
{
    TIFFRGBAImage reader;
    char problem[1024];
    if (!TIFFRGBAImageOK(tiff, problem) || !TIFFRGBAImageBegin(&reader, tiff, 1, problem))
        return {};
    const auto end = qScopeGuard([&reader] { TIFFRGBAImageEnd(&reader); });
    const bool known = reader.photometric == PHOTOMETRIC_RGB || reader.photometric == PHOTOMETRIC_MINISBLACK;
    if (reader.alpha != EXTRASAMPLE_UNASSALPHA || reader.bitspersample != 8 || !known)
        return {};
    if (reader.isContig)
        reader.put.contig = PutInterleaved;
    else
        reader.put.separate = PutPlanes;
    reader.req_orientation = reader.orientation; // as it lies in the file
    QImage image(int(reader.width), int(reader.height), QImage::Format_ARGB32);
    if (image.isNull() ||
        !TIFFRGBAImageGet(&reader, reinterpret_cast<uint32_t*>(image.bits()), reader.width, reader.height))
        return {};
    return image;
}

} // namespace

QImage HBReadStraightTiff(const QByteArray& file)
{
    Source source{file};
    TIFF* tiff = TIFFClientOpen("", "rm", &source, Source::Read, Source::Write, Source::Seek, Source::Close,
                                Source::Size, nullptr, nullptr);
    if (!tiff)
        return {};
    const auto close = qScopeGuard([tiff] { TIFFClose(tiff); });
    return Pixels(tiff);
}

void HBLogTiffMessages()
{
    TIFFSetErrorHandler(Log);
    TIFFSetWarningHandler(Log);
}
