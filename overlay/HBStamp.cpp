// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStamp.h"

#include "HBOverlayText.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <QMutex>

#include <cstring>
#include <new>
#include <vector>

namespace
{

/// The last picture that was read: while a stamp is moved about, its file is not decoded again for each step.
struct Kept
{
    QString file;
    QDateTime modified;
    qint64 size = -1;
    QImage image;
};
QMutex keptGuard;

Kept& TheKept()
{
    static Kept kept;
    return kept;
}

/// Qt answers a want of memory with a null image.
QImage Usable(const QImage& image)
{
    if (image.isNull())
        throw std::bad_alloc();
    return image;
}

QImage Decode(const QString& file, QString* reason)
{
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const auto tooLarge = [reason](const QSize& size) {
        if (qint64(size.width()) * size.height() <= HBStamp::MaximumPixels)
            return false;
        *reason = HBOverlayText::tr("it is larger than %1 megapixels").arg(HBStamp::MaximumPixels / 1'000'000);
        return true;
    };
    if (tooLarge(reader.size())) // unknown to some formats before they are read
        return {};
    const QImage image = reader.read();
    if (image.isNull()) {
        *reason = reader.errorString();
        return {};
    }
    return tooLarge(image.size()) ? QImage() : Usable(image.convertToFormat(QImage::Format_ARGB32));
}

} // namespace

QImage HBStamp::Load(const QString& file, QString* error)
{
    auto fail = [&](const QString& reason) {
        *error = HBOverlayText::tr("The stamp %1 cannot be read: %2").arg(file, reason);
        return QImage();
    };
    const QFileInfo info(file);
    if (!info.exists())
        return fail(HBOverlayText::tr("there is no such file"));
    // Reading from a pipe or a device may never end.
    if (!info.isFile())
        return fail(HBOverlayText::tr("this is not a file"));
    if (info.size() == 0) // also a file of the kernel's that could be read for ever
        return fail(HBOverlayText::tr("the file is empty"));

    const QMutexLocker lock(&keptGuard);
    Kept& kept = TheKept();
    if (kept.file == file && kept.modified == info.lastModified() && kept.size == info.size())
        return kept.image;
    QString reason;
    const QImage image = Decode(file, &reason);
    if (image.isNull())
        return fail(reason);
    kept = {file, info.lastModified(), info.size(), image};
    return image;
}

HBStamp::HBStamp(const QImage& image, const QSize& size) : m_Image(image)
{
    if (size.width() <= image.width() && size.height() <= image.height()) {
        if (size != image.size()) {
            m_Image = Usable(image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                 .convertToFormat(QImage::Format_ARGB32));
        }
        return;
    }
    // Colours mix by their coverage.
    m_Image = Usable(image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    m_Columns = HBEnlarging(image.width(), size.width());
    m_Rows = HBEnlarging(image.height(), size.height());
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
