// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSaveFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <unistd.h>

bool HBSaveFile(const QString& path, const QByteArray& bytes, QString* reason)
{
    const QFileInfo present(path);
    if (present.exists() && !present.isDir() && !present.isWritable()) { // Qt says so in English
        *reason = QCoreApplication::translate("HBSaveFile", "the file is write-protected");
        return false;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        *reason = file.errorString();
        return false;
    }
    // Here, not in commit(): that renames the file also when the last of its buffer could not be written. A
    // network disk tells only at the end that it is full.
    errno = 0;
    // Given back before the file gets its name: Qt would leave it under a passing one for want of memory.
    QByteArray room(1 << 18, Qt::Uninitialized);
    if (file.write(bytes) == bytes.size() && file.flush() &&
        (::fdatasync(file.handle()) == 0 || errno == EINVAL)) {
        room.clear();
        if (file.commit())
            return true;
        *reason = file.errorString();
        return false;
    }
    const int code = errno; // Qt knows no reason if a part was written
    *reason = code == ENOSPC || code == EDQUOT ? QCoreApplication::translate("HBSaveFile", "the disk is full")
                                               : qt_error_string(code);
    return false;
}
