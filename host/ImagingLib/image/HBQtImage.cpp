// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBQtImage.h"

#include <QByteArray>

#include <cstring>
#include <new>

namespace
{

/// Qt cuts an image into pieces of 65,536 bytes, and does a single piece, up to just before twice that, itself.
constexpr int LargestAlone = 2 * 65536 - 1;

/// Qt answers a want of memory with a null image.
QImage Usable(QImage image, bool wanted)
{
    if (wanted && image.isNull())
        throw std::bad_alloc();
    return image;
}

int RowsAtOnce(const QImage& image)
{
    return qMax(1, LargestAlone / qMax(1, int(image.bytesPerLine())));
}

/// Some rows of the image, converted.
QImage Piece(const QImage& image, int first, QImage::Format format)
{
    const int count = qMin(RowsAtOnce(image), image.height() - first);
    QImage rows(image.constScanLine(first), image.width(), count, image.bytesPerLine(), image.format());
    if (image.colorCount() > 0)
        rows.setColorTable(image.colorTable());
    return Usable(rows.convertToFormat(format), true);
}

/// Row by row: they may be longer in the one than in the other.
void CopyRows(const QImage& from, uchar* to, qptrdiff stride)
{
    const size_t bytes = (size_t(from.width()) * size_t(from.depth()) + 7) / 8;
    for (int y = 0; y < from.height(); ++y)
        std::memcpy(to + y * stride, from.constScanLine(y), bytes);
}

} // namespace

void HBCheckMemory()
{
    const QByteArray room(1 << 20, Qt::Uninitialized);
}

QImage HBConverted(const QImage& image, QImage::Format format)
{
    if (image.format() == format || image.height() <= RowsAtOnce(image))
        return Usable(image.convertToFormat(format), !image.isNull());
    QImage result = Usable(QImage(image.size(), format), true);
    for (int y = 0; y < image.height(); y += RowsAtOnce(image))
        CopyRows(Piece(image, y, format), result.scanLine(y), result.bytesPerLine());
    return result;
}

QImage HBConverted(QImage&& image, QImage::Format format)
{
    const bool isLarge = image.format() != format && image.height() > RowsAtOnce(image);
    if (!isLarge || image.depth() != 32 || QImage::toPixelFormat(format).bitsPerPixel() != 32)
        return HBConverted(image, format);
    QImage result = std::move(image);
    uchar* const pixels = result.bits();
    if (!pixels)
        throw std::bad_alloc();
    for (int y = 0; y < result.height(); y += RowsAtOnce(result))
        CopyRows(Piece(result, y, format), pixels + qptrdiff(y) * result.bytesPerLine(), result.bytesPerLine());
    if (!result.reinterpretAsFormat(format))
        throw std::bad_alloc();
    return result;
}
