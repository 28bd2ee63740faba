// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBEnlarging.h"

#include <QImage>
#include <QRect>
#include <QString>

/// The picture of a stamp at the size at which it is laid over a photo. Any size goes: what is larger than the file is
/// made piece by piece. Reading the pieces is safe on several threads at once.
class HBStamp
{
public:
    /// Pictures larger than this are not read: none is a stamp, and a small file may hold a huge one.
    static constexpr qint64 MaximumPixels = 100'000'000;

    /// The picture in a file, upright, as QImage::Format_ARGB32. The last one is kept until its file
    /// changes. A null image, with the file and the reason in `error`, if that cannot be.
    static QImage Load(const QString& file, QString* error);

    /// \param image in Format_ARGB32
    HBStamp(const QImage& image, const QSize& size);

    /// Whether Read gives premultiplied pixels.
    bool IsPremultiplied() const { return !m_Columns.IsEmpty(); }
    /// Copies `piece`, which must lie within the size, to `pixels`, whose rows are `stride` pixels apart.
    void Read(const QRect& piece, QRgb* pixels, int stride) const;

private:
    void ReadEnlarged(const QRect& piece, QRgb* pixels, int stride) const;

    QImage m_Image;        ///< premultiplied if it is enlarged
    HBEnlarging m_Columns; ///< of an enlarged stamp; else empty
    HBEnlarging m_Rows;
};
