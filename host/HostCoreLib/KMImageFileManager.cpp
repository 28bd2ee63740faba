// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMImageFileManager.h"

#include <QCoreApplication>
#include <QImageReader>
#include <QImageWriter>
#include <QSet>

namespace
{

/// Formats with a name of their own in the file dialog; suffixes separated by blanks.
struct Format
{
    const char* name;
    const char* suffixes;
};

constexpr Format namedFormats[] = {
    {QT_TRANSLATE_NOOP("KMImageFileManager", "JPEG"), "jpg jpeg"},
    {QT_TRANSLATE_NOOP("KMImageFileManager", "PNG"), "png"},
    {QT_TRANSLATE_NOOP("KMImageFileManager", "TIFF"), "tif tiff"},
    {QT_TRANSLATE_NOOP("KMImageFileManager", "WebP"), "webp"},
};

/// Formats that Qt names but that are no photographs: drawings, icons, cursors, animations of icons.
const QSet<QString> notPhotographs = {"svg", "svgz", "ico", "icns", "cur", "xbm", "wbmp", "pdf"};

QStringList Suffixes(const QList<QByteArray>& formats)
{
    QStringList suffixes;
    for (const QByteArray& format : formats) {
        const QString suffix = QString::fromLatin1(format).toLower();
        if (!notPhotographs.contains(suffix))
            suffixes.append(suffix);
    }
    suffixes.removeDuplicates();
    suffixes.sort();
    return suffixes;
}

QString Patterns(const QStringList& suffixes)
{
    QStringList patterns;
    for (const QString& suffix : suffixes)
        patterns.append("*." + suffix);
    return patterns.join(' ');
}

QString Filter(const QStringList& suffixes)
{
    if (suffixes.isEmpty())
        return {};
    QStringList filters = {QCoreApplication::translate("KMImageFileManager", "Images") + " (" +
                           Patterns(suffixes) + ')'};
    for (const Format& format : namedFormats) {
        const QStringList own = QString::fromLatin1(format.suffixes).split(' ');
        if (suffixes.contains(own.first()))
            filters.append(QCoreApplication::translate("KMImageFileManager", format.name) + " (" + Patterns(own) +
                           ')');
    }
    filters.append(QCoreApplication::translate("KMImageFileManager", "All files") + " (*)");
    return filters.join(";;");
}

} // namespace

QStringList KMImageFileManager::SuffixesForRead()
{
    return Suffixes(QImageReader::supportedImageFormats());
}

QStringList KMImageFileManager::SuffixesForWrite()
{
    return Suffixes(QImageWriter::supportedImageFormats());
}

QString KMImageFileManager::GetFilterForRead()
{
    return Filter(SuffixesForRead());
}

QString KMImageFileManager::GetFilterForWrite()
{
    return Filter(SuffixesForWrite());
}
