// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMApplication.h"

#include <KMTileManager64.h>

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace
{

constexpr char PathOpenKey[] = "files/pathOpen";
int progressTimeout = 500;
bool keepsPathOpen = false;

QString& PathOpen()
{
    static QString folder;
    return folder;
}

} // namespace

int KMApplication::GetProgressTimeout()
{
    return progressTimeout;
}

void KMApplication::SetProgressTimeout(int milliseconds)
{
    progressTimeout = qMax(0, milliseconds);
}

QString KMApplication::GetPathOpen()
{
    const QString folder = PathOpen();
    // It may have gone since, with its memory card for example.
    if (!folder.isEmpty() && QDir(folder).exists())
        return folder;
    return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

void KMApplication::SetPathOpen(const QString& folder)
{
    PathOpen() = folder;
    if (keepsPathOpen)
        QSettings().setValue(PathOpenKey, folder);
}

void KMApplication::KeepPathOpen()
{
    keepsPathOpen = true;
    PathOpen() = QSettings().value(PathOpenKey).toString();
}

void KMApplication::SetTileMemory(qint64 bytes)
{
    KMTileManager64::Instance().SetMemoryBudget(bytes);
}

qint64 KMApplication::GetTileMemory()
{
    return KMTileManager64::Instance().MemoryBudget();
}
