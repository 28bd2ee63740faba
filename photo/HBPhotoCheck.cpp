// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoCheck.h"

#include "HBFileNumbers.h"

#include <cstring>

namespace
{

using Numbers = HBFileNumbers;
using TiffField = HBTiffField;

bool IsWholePng(const QByteArray& file)
{
    const Numbers numbers(file, true);
    for (qint64 chunk = 8; chunk + 12 <= file.size(); chunk += 12 + numbers.At(chunk, 4)) {
        if (file.mid(int(chunk) + 4, 4) == "IEND")
            return true;
    }
    return false;
}

bool IsWholeWebP(const QByteArray& file)
{
    return 8 + Numbers(file, false).At(4, 4) <= file.size();
}

/// Enough rows behind the header (BITMAPINFOHEADER); whether a compressed one is whole only its decoder knows.
bool IsWholeBmp(const QByteArray& file)
{
    const Numbers numbers(file, false);
    const qint64 stride = (numbers.At(18, 4) * numbers.At(28, 2) + 31) / 32 * 4;
    const qint64 rows = qAbs(qint64(qint32(numbers.At(22, 4)))); // negative: from top to bottom
    const qint64 compression = numbers.At(30, 4);
    const bool isPlain = numbers.At(14, 4) >= 40 && (compression == 0 || compression == 3);
    // Divided, not multiplied: a header may ask for more bytes than a number can count.
    return file.size() >= 54 && (!isPlain || stride == 0 || rows <= (file.size() - numbers.At(10, 4)) / stride);
}

/// From block to block (GIF89a) to the trailer.
bool IsWholeGif(const QByteArray& file)
{
    const Numbers numbers(file, false);
    auto tableSize = [&](qint64 flags) { return flags & 0x80 ? 3 * (2 << (flags & 7)) : 0; };
    qint64 position = 13 + tableSize(numbers.At(10, 1));
    while (position < file.size()) {
        const qint64 block = numbers.At(position, 1);
        if (block == 0x3b)
            return true;
        if (block != 0x2c && block != 0x21)
            return false;
        position += block == 0x2c ? 11 + tableSize(numbers.At(position + 9, 1)) : 2;
        while (const qint64 part = numbers.At(position, 1))
            position += 1 + part;
        ++position;
    }
    return false;
}

/// The values of all entries of the directory lie within the file.
bool AreValuesWithin(const QByteArray& file, const Numbers& numbers, qint64 directory)
{
    constexpr int bytesOf[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4}; // by type
    const qint64 end = directory + 2 + 12 * numbers.At(directory, 2);
    for (qint64 entry = directory + 2; entry < end; entry += 12) {
        const qint64 type = numbers.At(entry + 2, 2);
        const qint64 bytes = type < 14 ? bytesOf[type] * numbers.At(entry + 4, 4) : 0;
        if (bytes > 4 && numbers.At(entry + 8, 4) + bytes > file.size())
            return false;
    }
    return end <= file.size();
}

/// All strips or tiles of the first picture lie within the file (TIFF 6.0), and what describes it.
bool IsWholeTiff(const QByteArray& file, bool bigEndian)
{
    const Numbers numbers(file, bigEndian);
    const qint64 directory = numbers.At(4, 4);
    if (!AreValuesWithin(file, numbers, directory))
        return false;
    constexpr int offsetsAndCounts[][2] = {{273, 279}, {324, 325}};
    for (const auto& tags : offsetsAndCounts) {
        const TiffField offsets = TiffField::Find(numbers, directory, tags[0]);
        const TiffField counts = TiffField::Find(numbers, directory, tags[1]);
        if (offsets.count == 0)
            continue;
        if (offsets.position + offsets.count * offsets.bytes > file.size() ||
            counts.position + counts.count * counts.bytes > file.size())
            return false;
        for (qint64 i = 0; i < qMin(offsets.count, counts.count); ++i) {
            const qint64 offset = numbers.At(offsets.position + i * offsets.bytes, offsets.bytes);
            if (offset + numbers.At(counts.position + i * counts.bytes, counts.bytes) > file.size())
                return false;
        }
        return true;
    }
    return false;
}

} // namespace

/// From marker to marker (ITU-T T.81, annex B). The thumbnail's own end lies inside a segment, which is skipped.
int HBJpegEnd(const QByteArray& file)
{
    const Numbers numbers(file, true);
    bool hasPixels = false;
    int position = 2;
    const auto nextMarker = [&file](int from) { // QByteArray::indexOf() looks at one byte after the other
        const void* found =
            from < file.size() ? std::memchr(file.constData() + from, 0xff, size_t(file.size() - from)) : nullptr;
        return found ? int(static_cast<const char*>(found) - file.constData()) : -1;
    };
    while ((position = nextMarker(position)) >= 0 && position + 1 < file.size()) {
        const int marker = quint8(file[position + 1]);
        const bool filler = marker == 0xff;
        const bool standsAlone = marker <= 0x01 || (marker >= 0xd0 && marker <= 0xd8); // also FF 00: data
        if (marker == 0xd9)
            return hasPixels ? position + 2 : -1;
        hasPixels = hasPixels || marker == 0xda;
        position += filler ? 1 : standsAlone ? 2 : 2 + int(numbers.At(position + 2, 2));
    }
    return -1;
}

bool HBIsWholeFile(const QByteArray& file)
{
    if (file.startsWith("\xff\xd8"))
        return HBJpegEnd(file) >= 0;
    if (file.startsWith("\x89PNG\r\n\x1a\n"))
        return IsWholePng(file);
    if (file.startsWith("RIFF") && file.mid(8, 4) == "WEBP")
        return IsWholeWebP(file);
    if (file.startsWith("GIF8"))
        return IsWholeGif(file);
    if (file.startsWith("BM"))
        return IsWholeBmp(file);
    if (file.startsWith(QByteArray("II*\0", 4)) || file.startsWith(QByteArray("MM\0*", 4)))
        return IsWholeTiff(file, file[0] == 'M');
    return true;
}
