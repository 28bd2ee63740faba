// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStamp.h"

#include "HBOverlayText.h"
#include "HBStage.h"
#include "HBStampCache.h"

#include <HBQtImage.h>
#include <HBScaled.h>

#include <QFileInfo>
#include <QImageReader>
#include <QPixelFormat>

#include <cstring>
#include <vector>

namespace
{

[[noreturn]] void Fail(const QString& file, const QString& reason)
{
    throw HBAdjustmentError(HBOverlayText::tr("The stamp %1 cannot be read: %2").arg(file, reason));
}

HBStampFile Inspected(const QString& name)
{
    const QFileInfo info(name);
    if (!info.exists())
        Fail(name, HBOverlayText::tr("there is no such file"));
    // Reading from a pipe or a device may never end.
    if (!info.isFile())
        Fail(name, HBOverlayText::tr("this is not a file"));
    if (info.size() == 0) // also a file of the kernel's that could be read for ever
        Fail(name, HBOverlayText::tr("the file is empty"));
    return {name, info.lastModified(), info.size()};
}

/// Refuses what takes too much memory. What a format does not tell before it is read counts as nothing.
void CheckSize(const QString& file, const QSize& size, qint64 bytes)
{
    constexpr qint64 mega = 1'000'000;
    if (qint64(size.width()) * size.height() > HBStamp::MaximumPixels)
        Fail(file, HBOverlayText::tr("it is larger than %1 megapixels").arg(HBStamp::MaximumPixels / mega));
    if (bytes > HBStamp::MaximumBytes)
        Fail(file, HBOverlayText::tr("it takes more than %1 MB of memory").arg(HBStamp::MaximumBytes / mega));
}

QImage Decoded(const QString& file)
{
    HBCheckMemory();
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    const int bits = QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel();
    CheckSize(file, size, qint64(size.width()) * size.height() * bits / 8);
    QImage image = reader.read();
    if (image.isNull())
        Fail(file, reader.errorString());
    CheckSize(file, image.size(), image.sizeInBytes());
    return HBConverted(std::move(image), QImage::Format_ARGB32);
}

} // namespace

// Without a lock while an image is read, converted or scaled: Qt shares that with threads of the global pool,
// which may all be waiting for the same lock. Rather two threads do the same.
std::shared_ptr<const HBStamp> HBStamp::Load(const QString& file, const std::function<QSize(const QSize&)>& fit)
{
    HBStampCache& cache = HBStampCache::Instance();
    const HBStampFile key = Inspected(file);
    QSize picture = cache.PictureSize(key);
    std::shared_ptr<const HBStamp> stamp = picture.isEmpty() ? nullptr : cache.Find(key, fit(picture));
    if (stamp)
        return stamp;
    const std::shared_ptr<const HBStamp> whole = picture.isEmpty() ? nullptr : cache.Find(key, picture);
    QImage image = whole ? whole->Image() : Decoded(file);
    picture = image.size();
    const QSize size = fit(picture);
    if (!whole && size != picture && image.sizeInBytes() <= HBStampCache::MaximumBytes)
        cache.Keep(key, picture, std::make_shared<const HBStamp>(image, picture));
    stamp = std::make_shared<const HBStamp>(std::move(image), size);
    cache.Keep(key, picture, stamp);
    return stamp;
}

HBStamp::HBStamp(QImage image, const QSize& size) : m_Size(size)
{
    if (size == image.size()) {
        m_Image = std::move(image);
        return;
    }
    // Colours mix by their coverage. A large image that is nobody else's is converted where it is.
    const QImage mixing = HBConverted(std::move(image), QImage::Format_ARGB32_Premultiplied);
    if (size.width() <= mixing.width() && size.height() <= mixing.height()) {
        m_Image = HBConverted(HBScaled(mixing, size), QImage::Format_ARGB32);
        return;
    }
    m_Image = mixing;
    m_Columns = HBEnlarging(mixing.width(), size.width());
    m_Rows = HBEnlarging(mixing.height(), size.height());
}

void HBStamp::Read(const QRect& piece, QRgb* pixels, int stride) const
{
    if (IsPremultiplied()) {
        ReadEnlarged(piece, pixels, stride);
        return;
    }
    for (int y = 0; y < piece.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(m_Image.constScanLine(piece.top() + y)) + piece.left();
        std::memcpy(pixels + y * stride, row, size_t(piece.width()) * sizeof(QRgb));
    }
}

void HBStamp::ReadEnlarged(const QRect& piece, QRgb* pixels, int stride) const
{
    // First down, on the few columns of the image that the piece needs, then across.
    const int first = m_Columns.First(piece.left());
    const int last = qMin(m_Columns.First(piece.right()) + 1, m_Image.width() - 1);
    const int count = last - first + 1;
    std::vector<QRgb> mixed(size_t(count) + 1); // one more: the neighbour of the last column, without a weight
    const auto row = [&](int y) {
        return reinterpret_cast<const QRgb*>(m_Image.constScanLine(qMin(y, m_Image.height() - 1))) + first;
    };
    for (int y = 0; y < piece.height(); ++y) {
        const int upper = m_Rows.First(piece.top() + y);
        HBEnlarging::Mix(row(upper), row(upper + 1), m_Rows.Weight(piece.top() + y), count, mixed.data());
        m_Columns.Across(mixed.data(), first, piece.left(), piece.width(), pixels + y * stride);
    }
}
