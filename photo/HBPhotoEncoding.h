// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBJpegWriter.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// How a photo file is encoded: what a save over it is to keep, and what it cannot.
struct HBPhotoEncoding
{
    QByteArray format;    ///< what the file is, whatever its name says: "jpeg", "png", "tiff" ...; empty: unknown
    HBJpegCoding jpeg;    ///< empty for other formats
    int webpQuality = -1; ///< 0..99 as libwebp counts, 100: lossless; -1: no WebP
    int bitsPerChannel = 8;
    int pages = 1;
    bool isAnimated = false;
    bool isForPrint = false; ///< CMYK or Lab
    bool hasLayers = false;
    bool lacksPixels = false; ///< a part of the picture is missing: the file was cut short
    bool hasAppendix = false; ///< a video or further pictures behind the end of the picture
};

// Any thread. Nothing is thrown but std::bad_alloc.

/// \param file the whole file
/// \param format as QImageReader names it
HBPhotoEncoding HBReadEncoding(const QByteArray& file, const QByteArray& format);

/// What would be lost if a photo that was read from such a file is saved over it, under that name: each an object
/// ("16 bits a channel"). Empty if nothing.
QStringList HBLossesOfSave(const HBPhotoEncoding& encoding, const QString& path);

/// The format that a file with this name is written in, named as QImageReader does.
QByteArray HBFormatOfName(const QString& path);
