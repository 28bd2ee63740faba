// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecordStream.h"

bool HBWriteTag(QDataStream& stream, const char* tag)
{
    const int length = int(qstrlen(tag));
    return stream.writeRawData(tag, length) == length;
}

bool HBReadTag(QDataStream& stream, const char* tag)
{
    return HBReadRaw(stream, int(qstrlen(tag))) == tag;
}

QByteArray HBReadRaw(QDataStream& stream, int size)
{
    const QDataStream::Status before = stream.status();
    QByteArray bytes(size, Qt::Uninitialized);
    bytes.truncate(qMax(0, stream.readRawData(bytes.data(), size)));
    // A raw read that ends early sets the status, and setStatus() alone never changes one that is not Ok.
    stream.resetStatus();
    stream.setStatus(before);
    return bytes;
}

bool HBReadBool32(QDataStream& stream)
{
    qint32 value = 0;
    stream >> value;
    return value != 0;
}
