// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBEnlarging.h"

#include <QImage>
#include <QRect>
#include <QString>

#include <functional>
#include <memory>

/// The picture of a stamp at the size at which it is laid over a photo. Any size goes: what is larger than the
/// file is made piece by piece. Reading the pieces is safe on several threads at once.
class HBStamp
{
public:
    /// Pictures larger than this are not read: none is a stamp, and a small file may hold a huge one.
    static constexpr qint64 MaximumPixels = 100'000'000;
    /// Nor those that are larger in memory: 16 bits a channel take twice as much.
    static constexpr qint64 MaximumBytes = 4 * MaximumPixels;

    /// The stamp in a file, upright. Those used last are kept until their files change: neither moving one about
    /// nor a recipe with several reads and scales them again for each step.
    /// \param fit the size at which it is drawn, from that of its picture
    /// \throws HBAdjustmentError with the file and the reason; std::bad_alloc
    static std::shared_ptr<const HBStamp> Load(const QString& file, const std::function<QSize(const QSize&)>& fit);

    /// \param image in Format_ARGB32
    HBStamp(QImage image, const QSize& size);

    /// Whether Read gives premultiplied pixels.
    bool IsPremultiplied() const { return !m_Columns.IsEmpty(); }
    /// Copies `piece`, which must lie within the size, to `pixels`, whose rows are `stride` pixels apart.
    void Read(const QRect& piece, QRgb* pixels, int stride) const;

    QSize Size() const { return m_Size; }
    /// At the size of the file's picture, that.
    const QImage& Image() const { return m_Image; }

private:
    void ReadEnlarged(const QRect& piece, QRgb* pixels, int stride) const;

    QSize m_Size;
    QImage m_Image;        ///< premultiplied if it is enlarged
    HBEnlarging m_Columns; ///< of an enlarged stamp; else empty
    HBEnlarging m_Rows;
};
