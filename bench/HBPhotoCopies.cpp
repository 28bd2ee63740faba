// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// Photos for a measurement of the replayer, and what their reading and writing alone takes:
//
//     panels-photos make FOLDER COUNT PHOTO...    JPEGs of 12 megapixels, tiled with the photos
//     panels-photos copy FOLDER RESULTS JOBS      reads and writes all of them, so many at once

#include <HBPhotoFile.h>

#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QRunnable>
#include <QThreadPool>

#include <atomic>
#include <cstdio>

namespace
{

constexpr int Width = 4000;
constexpr int Height = 3000;

bool Tell(const QString& error)
{
    std::fprintf(stderr, "%s\n", qPrintable(error));
    return false;
}

/// The photos side by side in one size, from another place in each picture, so that no two files are the same.
QImage Mosaic(const QVector<QImage>& photos, int number)
{
    constexpr int tileWidth = 600;
    constexpr int tileHeight = 400;
    QImage mosaic(Width, Height, QImage::Format_RGB32);
    QPainter painter(&mosaic);
    int next = number;
    for (int y = -(number * 37 % tileHeight); y < Height; y += tileHeight) {
        for (int x = -(number * 53 % tileWidth); x < Width; x += tileWidth)
            painter.drawImage(QRect(x, y, tileWidth, tileHeight), photos[next++ % photos.size()]);
    }
    return mosaic;
}

bool Make(const QString& folder, int count, const QStringList& names)
{
    QVector<QImage> photos;
    QString error;
    for (const QString& name : names) {
        HBPhoto photo;
        if (!HBReadPhoto(name, &photo, &error))
            return Tell(error);
        photos.append(photo.image.ToQImage());
    }
    if (photos.isEmpty() || !QDir().mkpath(folder))
        return Tell(folder + ": needs photos and a folder that can be made");
    for (int i = 0; i < count; ++i) {
        HBImage<> image = HBImage<>::FromQImage(Mosaic(photos, i));
        image.AddElement(new KMEXIFElement{"Exif.Image.Make", 2, QByteArray("Maker", 6)});
        image.AddElement(new KMEXIFElement{"Exif.Photo.ISOSpeedRatings", 3, QByteArray("\x64\0", 2)});
        HBPhotoOptions options;
        options.quality = 89; // with colours of half the size, as cameras store them
        if (!HBWritePhoto(QDir(folder).filePath(QString("%1.jpg").arg(i, 3, 10, QChar('0'))), image, options,
                          &error))
            return Tell(error);
    }
    return true;
}

bool Copy(const QString& folder, const QString& results, int jobs)
{
    if (!QDir().mkpath(results))
        return Tell(results + ": cannot be made");
    std::atomic<bool> good{true};
    QThreadPool pool;
    pool.setMaxThreadCount(jobs);
    for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name)) {
        pool.start(QRunnable::create([&, name] {
            HBPhoto photo;
            QString error;
            if (!HBReadPhoto(QDir(folder).filePath(name), &photo, &error) ||
                !HBWritePhoto(QDir(results).filePath(name), photo.image, {}, &error))
                good = Tell(error);
        }));
    }
    pool.waitForDone();
    return good;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList words = application.arguments().mid(1);
    if (words.size() > 3 && words[0] == "make")
        return Make(words[1], words[2].toInt(), words.mid(3)) ? 0 : 1;
    if (words.size() == 4 && words[0] == "copy")
        return Copy(words[1], words[2], words[3].toInt()) ? 0 : 1;
    std::fputs("panels-photos make FOLDER COUNT PHOTO...\npanels-photos copy FOLDER RESULTS JOBS\n", stderr);
    return 2;
}
