// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Unsigned numbers anywhere in a file, 0 behind its end.
class HBFileNumbers
{
public:
    /// The file must outlive this.
    HBFileNumbers(const QByteArray& file, bool bigEndian) : m_File(file), m_BigEndian(bigEndian) {}

    /// \param bytes 1..4
    qint64 At(qint64 position, int bytes) const
    {
        if (position < 0 || position + bytes > m_File.size())
            return 0;
        quint32 value = 0;
        for (int i = 0; i < bytes; ++i)
            value = value << 8 | quint8(m_File[int(position) + (m_BigEndian ? i : bytes - 1 - i)]);
        return value;
    }

private:
    const QByteArray& m_File;
    bool m_BigEndian;
};

/// One field of a TIFF directory: its numbers are in the entry itself if they fit into four bytes.
struct HBTiffField
{
    qint64 position = 0;
    qint64 count = 0; ///< 0: there is no such field
    int bytes = 0;

    static HBTiffField Find(const HBFileNumbers& numbers, qint64 directory, int tag)
    {
        const qint64 entries = numbers.At(directory, 2);
        for (qint64 entry = directory + 2; entry < directory + 2 + entries * 12; entry += 12) {
            if (numbers.At(entry, 2) != tag)
                continue;
            HBTiffField field;
            field.bytes = numbers.At(entry + 2, 2) == 3 ? 2 : 4;
            field.count = numbers.At(entry + 4, 4);
            field.position = field.count * field.bytes <= 4 ? entry + 8 : numbers.At(entry + 8, 4);
            return field;
        }
        return {};
    }
};
