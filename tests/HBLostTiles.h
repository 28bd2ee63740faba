// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <KMTileManager64.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

/// Cuts the scratch file to nothing behind the manager's back, as a failing disk would.
inline bool HBDestroyScratchFile(const QString& folder) {
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    for (const QString& name : descriptors.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)) {
        const QByteArray path = QFile::encodeName(descriptors.filePath(name));
        char target[4096];
        const ssize_t length = readlink(path.constData(), target, sizeof target);
        if (length > 0 && QByteArray(target, int(length)).startsWith(QFile::encodeName(folder)))
            return ftruncate(name.toInt(), 0) == 0;
    }
    return false;
}

/// What every tile that is not pinned holds is gone: to pin it throws std::bad_alloc, as it does without memory.
/// For programs that leave the scratch folder alone.
inline bool HBLoseTiles() {
    static const QTemporaryDir folder;
    KMTileManager64& manager = KMTileManager64::Instance();
    manager.SetScratchFolder(folder.path());
    const qint64 budget = manager.MemoryBudget();
    manager.SetMemoryBudget(KMTileManager64::TileBytes);
    {
        const KMTileRef another(manager.MakeTile());
        const KMTilePin<uchar> pin(another, true); // all others leave
    }
    manager.SetMemoryBudget(budget);
    return HBDestroyScratchFile(folder.path());
}
