// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostCoreLibExport.h"

#include <QString>
#include <QStringList>

/// The image files that this machine's Qt plug-ins read and write.
class HB_HOSTCORELIB_EXPORT KMImageFileManager
{
public:
    /// Suffixes in lower case without dot, sorted, as "jpeg", "jpg", "png".
    static QStringList SuffixesForRead();
    static QStringList SuffixesForWrite();

    /// Filters of a file dialog: all images first, then each format, then all files. Empty if no plug-in is there.
    static QString GetFilterForRead();
    static QString GetFilterForWrite();
};
