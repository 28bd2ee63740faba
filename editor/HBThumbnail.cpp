// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBThumbnail.h"

#include <HBPhotoFile.h>
#include <HBQtImage.h>
#include <HBSaveFile.h>
#include <HBScaled.h>

#include <QBuffer>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QStandardPaths>
#include <QUrl>

#include <exception>

namespace
{

constexpr qint64 MostPixels = 400'000'000; // of a format that can only be read whole
constexpr char UriKey[] = "Thumb::URI";
constexpr char TimeKey[] = "Thumb::MTime";
constexpr char SizeKey[] = "Thumb::Size";
constexpr char SoftwareKey[] = "Software";
constexpr char OurName[] = "Panel Editor";

QString Root()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + "/thumbnails";
}

/// As other programs write it, or the same file would have two.
QByteArray UriOf(const QString& photo)
{
    const QUrl url = QUrl::fromLocalFile(QFileInfo(photo).absoluteFilePath());
    return url.toEncoded(QUrl::FullyEncoded).replace(';', "%3B");
}

QString TimeOf(const QString& photo)
{
    return QString::number(QFileInfo(photo).lastModified().toSecsSinceEpoch());
}

/// Null if there is none that fits.
QImage Cached(const QString& photo)
{
    QImage cached(HBThumbnailPath(photo), "png");
    const bool fits = cached.text(TimeKey) == TimeOf(photo) && cached.text(UriKey).toLatin1() == UriOf(photo);
    return fits ? cached : QImage();
}

QImage Made(const QString& photo)
{
    QImageReader reader(photo);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    const QSize small = size.scaled(HBThumbnailSide, HBThumbnailSide, Qt::KeepAspectRatio).expandedTo({1, 1});
    if (!size.isValid() || qint64(size.width()) * size.height() > MostPixels)
        return {};
    // Twice as large where the reader shrinks while it reads, so that what is left to do looks good.
    if (qMax(size.width(), size.height()) > 2 * HBThumbnailSide)
        reader.setScaledSize(small * 2);
    const QImage read = reader.read();
    if (read.isNull() || qMax(read.width(), read.height()) <= HBThumbnailSide)
        return read;
    return HBScaled(read, {HBThumbnailSide, HBThumbnailSide}, Qt::KeepAspectRatio);
}

/// What cannot be kept is made again another time.
void Keep(const QString& photo, QImage thumbnail)
{
    const QString path = HBThumbnailPath(photo);
    const QString folder = QFileInfo(path).path();
    if (!QFileInfo(folder).isDir()) {
        QDir().mkpath(folder);
        for (const QString& own : {Root(), folder})
            QFile::setPermissions(own, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    thumbnail.setText(UriKey, QString::fromLatin1(UriOf(photo)));
    thumbnail.setText(TimeKey, TimeOf(photo));
    thumbnail.setText(SizeKey, QString::number(QFileInfo(photo).size()));
    thumbnail.setText(SoftwareKey, OurName);
    HBCheckMemory();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QString ignored;
    if (thumbnail.save(&buffer, "PNG") && HBSaveFile(path, bytes, &ignored))
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace

QString HBThumbnailPath(const QString& photo)
{
    const QByteArray name = QCryptographicHash::hash(UriOf(photo), QCryptographicHash::Md5).toHex();
    return Root() + "/large/" + QString::fromLatin1(name) + ".png";
}

QImage HBThumbnail(const QString& photo)
try {
    HBCheckMemory();
    QImage thumbnail = Cached(photo);
    if (!thumbnail.isNull())
        return thumbnail;
    const QString time = TimeOf(photo);
    thumbnail = Made(photo);
    // Not of one that is being written, nor of the cache itself.
    const bool lasts = TimeOf(photo) == time && !QFileInfo(photo).absoluteFilePath().startsWith(Root() + '/');
    if (!thumbnail.isNull() && lasts)
        Keep(photo, thumbnail);
    return thumbnail;
} catch (const std::exception&) { // no memory, or no more threads
    return {};
}
