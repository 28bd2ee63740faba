// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBParamStream.h"

#include <QDataStream>
#include <QDebug>
#include <QMessageLogger>

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

void HBLogStreamError(const char* date, const char* time, int line, const char* source, const char* message)
{
    const QString text = QString("Build date=%1, time=%2. Line=%3, file=\"%4\". %5")
                             .arg(QLatin1String(date))
                             .arg(QLatin1String(time))
                             .arg(line)
                             .arg(QLatin1String(source))
                             .arg(QLatin1String(message));
    // As one QString without context: qDebug() would add file and line in debug builds.
    QMessageLogger().debug() << text;
}
