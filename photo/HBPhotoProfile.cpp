// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoProfile.h"

#include <QtEndian>

namespace
{

template <class Number>
QByteArray BigEndian(Number number)
{
    const Number bytes = qToBigEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&bytes), sizeof bytes);
}

QByteArray LittleEndian(quint32 number, int bytes)
{
    const quint32 all = qToLittleEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&all), bytes);
}

/// The check sum of a PNG chunk's name and data (ISO/IEC 15948, annex D).
quint32 Crc32(const QByteArray& bytes)
{
    quint32 crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? 0xedb88320 ^ crc >> 1 : crc >> 1;
    }
    return ~crc;
}

/// A chunk of a RIFF file: name, length, data, and a byte more if the length is odd.
QByteArray RiffChunk(const char* name, const QByteArray& data)
{
    QByteArray chunk = name + LittleEndian(quint32(data.size()), 4) + data;
    if (data.size() & 1)
        chunk.append('\0');
    return chunk;
}

} // namespace

QByteArray HBWithPngProfile(const QByteArray& file, const QByteArray& icc)
{
    constexpr int behindHeader = 8 + 12 + 13; // signature, and the first chunk, which has 13 bytes of data
    // Name of the profile, end of the name, method (0: zlib). qCompress() puts a length before its zlib stream.
    const QByteArray chunk = QByteArray("iCCPICC profile\0\0", 17) + qCompress(icc).mid(4);
    QByteArray result = file;
    return result.insert(behindHeader, BigEndian(quint32(chunk.size() - 4)) + chunk + BigEndian(Crc32(chunk)));
}

QByteArray HBWithWebPProfile(const QByteArray& file, const QByteArray& icc, const QSize& size)
{
    // RFC 9649 (WebP container), 2.7: a profile needs an extended header, which it follows.
    constexpr char hasProfile = 0x20;
    constexpr char hasAlpha = 0x10;
    constexpr int head = 12;       // "RIFF", length, "WEBP"
    constexpr int header = 8 + 10; // the extended header with its name and length
    constexpr int flags = head + 8;
    QByteArray result = file;
    if (result.mid(head, 4) != "VP8X") {
        // Without one a file is opaque and lossy, or lossless, and then a bit behind 28 of the size tells about
        // alpha.
        const bool alpha = result.mid(head, 4) == "VP8L" && result.size() > 24 && (result[24] & 0x10);
        const QByteArray data = QByteArray(1, alpha ? hasAlpha : '\0') + QByteArray(3, '\0') +
                                LittleEndian(quint32(size.width() - 1), 3) +
                                LittleEndian(quint32(size.height() - 1), 3);
        result.insert(head, RiffChunk("VP8X", data));
    }
    result[flags] = char(result[flags] | hasProfile);
    result.insert(head + header, RiffChunk("ICCP", icc));
    return result.replace(4, 4, LittleEndian(quint32(result.size() - 8), 4));
}
