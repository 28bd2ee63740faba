// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostCoreLibExport.h"

#include <QString>

/// What the host application decides for the panels. GUI thread only.
class HB_HOSTCORELIB_EXPORT KMApplication
{
public:
    /// Milliseconds a job may run before its progress is shown; default 500.
    static int GetProgressTimeout();
    static void SetProgressTimeout(int milliseconds);

    /// The folder a file was last opened from; the user's pictures folder at first, and when it has gone.
    static QString GetPathOpen();
    static void SetPathOpen(const QString& folder);
    /// Keeps that folder between sessions, as "files/pathOpen" in the program's QSettings. Not unless it is asked
    /// to: those are the program's.
    static void KeepPathOpen();

    /// Bytes of memory for image tiles; 0 restores the default, half of the memory that the
    /// program may use. Tiles beyond it go to a scratch file.
    static void SetTileMemory(qint64 bytes);
    static qint64 GetTileMemory();
};
