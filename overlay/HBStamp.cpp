// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStamp.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <QMutex>

#include <cmath>
#include <cstring>
#include <vector>

namespace
{

QString Translated(const char* text)
{
    return QCoreApplication::translate("HBOverlay", text);
}

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

QImage Decode(const QString& file, QString* reason)
{
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (qint64(size.width()) * size.height() > HBStamp::MaximumPixels) {
        *reason = Translated("it is larger than %1 megapixels").arg(HBStamp::MaximumPixels / 1'000'000);
        return {};
    }
    const QImage image = reader.read();
    if (image.isNull()) {
        *reason = reader.errorString();
        return {};
    }
    return image.convertToFormat(QImage::Format_ARGB32);
}

/// Both with their weights, on four channels of 8 bits at once, rounded.
QRgb Mixed(QRgb a, QRgb b, unsigned weightOfB)
{
    const unsigned weightOfA = 256 - weightOfB;
    const QRgb even = ((a & 0xff00ff) * weightOfA + (b & 0xff00ff) * weightOfB + 0x800080) >> 8 & 0xff00ff;
    const QRgb odd = ((a >> 8 & 0xff00ff) * weightOfA + (b >> 8 & 0xff00ff) * weightOfB + 0x800080) & 0xff00ff00;
    return even | odd;
}

} // namespace

QImage HBStamp::Load(const QString& file, QString* error)
{
    auto fail = [&](const QString& reason) {
        *error = Translated("The stamp %1 cannot be read: %2").arg(file, reason);
        return QImage();
    };
    const QFileInfo info(file);
    if (!info.exists())
        return fail(Translated("there is no such file"));
    // Reading from a pipe or a device may never end.
    if (!info.isFile())
        return fail(Translated("this is not a file"));

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
            m_Image = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                          .convertToFormat(QImage::Format_ARGB32);
        }
        return;
    }
    // Colours mix by their coverage.
    m_Image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    m_Columns = Places(image.width(), size.width());
    m_Rows = Places(image.height(), size.height());
}

QVector<HBStamp::Place> HBStamp::Places(int from, int to)
{
    QVector<Place> places(to);
    for (int i = 0; i < to; ++i) {
        // Middle of the pixel to middle of the pixel; the outermost half pixels have one neighbour only.
        const double at = qBound(0.0, (i + 0.5) * from / to - 0.5, double(from - 1));
        const int first = qMin(int(at), qMax(0, from - 2));
        places[i] = {first, qRound((at - first) * 256)};
    }
    return places;
}

void HBStamp::Read(const QRect& piece, QRgb* pixels, int stride) const
{
    if (!m_Columns.isEmpty()) {
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
    const int first = m_Columns.at(piece.left()).first;
    const int last = qMin(m_Columns.at(piece.right()).first + 1, m_Image.width() - 1);
    std::vector<QRgb> mixed(size_t(last - first + 2));
    for (int y = 0; y < piece.height(); ++y) {
        const Place row = m_Rows.at(piece.top() + y);
        const auto* upper = reinterpret_cast<const QRgb*>(m_Image.constScanLine(row.first));
        const auto* lower =
            reinterpret_cast<const QRgb*>(m_Image.constScanLine(qMin(row.first + 1, m_Image.height() - 1)));
        for (int x = first; x <= last; ++x)
            mixed[size_t(x - first)] = Mixed(upper[x], lower[x], unsigned(row.next));
        mixed[size_t(last - first + 1)] = mixed[size_t(last - first)]; // the neighbour of a single column

        const Place* column = m_Columns.constData() + piece.left();
        QRgb* target = pixels + y * stride;
        for (int x = 0; x < piece.width(); ++x, ++column) {
            const QRgb* source = mixed.data() + (column->first - first);
            target[x] = qUnpremultiply(Mixed(source[0], source[1], unsigned(column->next)));
        }
    }
}
