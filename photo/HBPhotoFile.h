// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPhotoEncoding.h"

#include <HBImage.h>

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>

/// A photo as read from a file.
struct HBPhoto
{
    /// Upright pixels, with the file's metadata as elements, its ICC profile, and dots per metre as host values.
    HBImage<> image;
    HBPhotoEncoding encoding;
    QStringList warnings; ///< what could not be read, though the picture could; to be shown after the file's name
};

/// What becomes of a file that was cut short, as by a broken transfer.
enum class HBCutShort {
    Refused,
    Read ///< what there is of it, with a warning; the rest is grey or transparent
};

struct HBPhotoOptions
{
    int quality = 92; ///< of JPEG and WebP, 0..100; a WebP of 100 is lossless
    /// Of the file that is saved over: what is written in the same format is as good as that, whatever `quality`
    /// says.
    HBPhotoEncoding encoding = {};
    /// Whether colours are written as sRGB, whatever the picture's profile; see HBConvertToSrgb.
    bool convertToSrgb = false;
    /// Asked when the picture is encoded and about to go to the disk, on the writing thread; false: it fails
    /// instead.
    /// \param file all its bytes
    std::function<bool(const QByteArray& file)> mayWrite = {};
    /// Asked now and then, on the writing thread, while a JPEG, PNG or TIFF is encoded, and before the picture
    /// goes to the disk; false: it fails. May be null.
    std::function<bool()> isWanted = {};
    HBChroma chroma = HBChroma::ByQuality; ///< of JPEG
};

/// Whether a photo can be written to a file with this name, by its suffix. Any thread.
bool HBCanWritePhoto(const QString& path);
/// Whether HBPhotoOptions::quality counts for a file with this name. Any thread.
bool HBTakesQuality(const QString& path);

// Any thread, several at once. Errors name the file. Nothing is thrown.

/// Reads the first picture of a file of any format that Qt's plug-ins know. Refuses what is too large for this
/// machine before memory is taken for it. On failure `photo` is left alone. JPEG, PNG and TIFF of the usual kinds
/// are decoded straight into the image's tiles; others are in memory twice while that is done.
/// \param isWanted asked now and then, on this thread, while the usual kinds are decoded; false: the reading
///        fails. May be null. Must not throw
bool HBReadPhoto(const QString& path, HBPhoto* photo, QString* error,
                 const std::function<bool()>& isWanted = nullptr, HBCutShort cutShort = HBCutShort::Refused);

/// The size that the file's head tells, before it is turned upright; not valid if it tells none.
QSize HBPhotoSize(const QString& path);

/// Writes the image with its metadata, in the format that the path's suffix names; the whole file or nothing, in
/// which case a file that was there before stays. Where a format has no transparency the picture is put on white.
/// \param warnings what the format could not take, though the picture was written; may be null
/// \param written how the file is encoded that was written; may be null
bool HBWritePhoto(const QString& path, const HBImage<>& image, const HBPhotoOptions& options, QString* error,
                  QStringList* warnings = nullptr, HBPhotoEncoding* written = nullptr);

/// What HBWritePhoto would write there, without looking at the disk.
bool HBEncodePhoto(const QString& path, const HBImage<>& image, const HBPhotoOptions& options, QByteArray* file,
                   QString* error, QStringList* warnings = nullptr);
