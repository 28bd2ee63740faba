// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBUsableMemory.h"

#include <QFile>

#include <limits>
#include <unistd.h>

namespace
{

constexpr qint64 NoLimit = std::numeric_limits<qint64>::max();

QByteArray Contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

qint64 LimitIn(const QString& path)
{
    bool isNumber = false; // "max" is none
    const qint64 bytes = Contents(path).trimmed().toLongLong(&isNumber);
    return isNumber && bytes > 0 ? bytes : NoLimit;
}

/// Of the group and of those around it. A container may see only its own at the top, though it is told the path of
/// the whole machine: what is not there does not count.
qint64 SmallestLimit(const QString& top, QString group, const char* name)
{
    qint64 smallest = LimitIn(top + '/' + name);
    for (; group.contains('/'); group.truncate(group.lastIndexOf('/')))
        smallest = qMin(smallest, LimitIn(top + group + '/' + name));
    return smallest;
}

} // namespace

qint64 HBUsableMemory(const QString& root)
{
    qint64 bytes = qint64(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE);
    const QString groups = root + "/sys/fs/cgroup";
    // Lines of "number:controllers:/path"; version 2 has no controllers there.
    for (const QByteArray& line : Contents(root + "/proc/self/cgroup").split('\n')) {
        const QString text = QFile::decodeName(line);
        const QString controllers = text.section(':', 1, 1);
        const QString path = text.section(':', 2);
        if (text.startsWith("0::"))
            bytes = qMin(bytes, SmallestLimit(groups, path, "memory.max"));
        else if (controllers.split(',').contains("memory"))
            bytes = qMin(bytes, SmallestLimit(groups + "/memory", path, "memory.limit_in_bytes"));
    }
    return bytes;
}
