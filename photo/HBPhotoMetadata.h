// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <KMCMSProfile.h>
#include <KMEXIFElement.h>

#include <QByteArray>
#include <QSize>
#include <QStringList>
#include <QVector>

/// What a photo file holds besides its pixels.
struct HBPhotoMetadata
{
    /// EXIF tags one by one ("Exif.Photo.ISOSpeedRatings"), without thumbnails and without what describes the
    /// layout of the file; XMP and IPTC as a block each ("Xmp": the packet, "Iptc": the datasets).
    QVector<KMEXIFElement> elements;
    KMCMSProfile profile;
    int orientation = 1;  ///< how the pixels lie in the file, as EXIF numbers it, 1..8
    int dotsPerMetre = 0; ///< by the EXIF tags; 0 if they do not say

    bool IsEmpty() const { return elements.isEmpty() && profile.IsEmpty(); }
};

// Any thread. `file` is a whole file in memory. What cannot be read or carried is told in `warnings`; nothing
// but std::bad_alloc is thrown.

HBPhotoMetadata HBReadMetadata(const QByteArray& file, QStringList* warnings);

/// The encoded picture `file` with the metadata put in. The tags are changed to tell of upright pixels and of
/// `size`.
QByteArray HBEmbedMetadata(QByteArray file, const HBPhotoMetadata& metadata, const QSize& size,
                           QStringList* warnings);
