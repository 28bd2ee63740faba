// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// One entry of an image's metadata. The imaging library only carries it; who reads the file gives it meaning.
struct KMEXIFElement
{
    /// Dotted name, as "Exif.Photo.ISOSpeedRatings"; a whole block goes under its family: "Xmp", "Iptc".
    QByteArray key;
    /// Type of the value, in the numbers of TIFF 6.0 (2 = ASCII, 3 = SHORT, 5 = RATIONAL ...); 7 for a block.
    int type = 7;
    /// The value, little endian.
    QByteArray value;

    friend bool operator==(const KMEXIFElement& a, const KMEXIFElement& b)
    {
        return a.key == b.key && a.type == b.type && a.value == b.value;
    }
    friend bool operator!=(const KMEXIFElement& a, const KMEXIFElement& b) { return !(a == b); }
};
