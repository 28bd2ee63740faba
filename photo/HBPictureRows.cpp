// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPictureRows.h"

#include <HBQtImage.h>

#include <QPainter>

#include <cstring>
#include <new>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;
constexpr int RowsAtOnce = 16; // few enough for a cache
static_assert(TileSide % RowsAtOnce == 0, "a strip lies within a row of tiles");
constexpr int DotsPerMetreUnknown = 2835; // 72 dots per inch

/// Qt answers a want of memory with a null image.
QImage Usable(QImage image)
{
    if (image.isNull())
        throw std::bad_alloc();
    return image;
}

bool IsOpaque(const QRgb* pixels, int width, int height, int stride)
{
    QRgb all = 0xff000000;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            all &= pixels[qptrdiff(y) * stride + x];
    }
    return all == 0xff000000;
}

bool IsOpaque(const HBImage<>& image)
{
    for (int index = 0; index < image.Tiles().size(); ++index) {
        const QRect area = image.TileRect(index);
        const KMTilePin<QRgb> pin(image.Tile(index), false);
        if (!IsOpaque(pin.Pixels(), area.width(), area.height(), TileSide))
            return false;
    }
    return true;
}

} // namespace

HBPictureRows::HBPictureRows(const HBImage<>& image, bool keepsAlpha, std::function<bool()> isWanted)
    : m_Image(image)
    , m_Format(keepsAlpha && !IsOpaque(image) ? QImage::Format_ARGB32 : QImage::Format_RGB32)
    , m_IsWanted(std::move(isWanted))
{
}

int HBPictureRows::Dots(int which) const
{
    return m_Image.HostValue(which) > 0 ? m_Image.HostValue(which) : DotsPerMetreUnknown;
}

bool HBPictureRows::IsGrey()
{
    for (int first = 0; first < Height() && !HasAlpha(); first += RowsAtOnce) {
        if (!Strip(first).allGray())
            return false;
    }
    return !HasAlpha();
}

void HBPictureRows::MakeGrey()
{
    m_Format = QImage::Format_Grayscale8;
    m_First = -1;
}

const QImage& HBPictureRows::Strip(int first)
{
    if (first == m_First)
        return m_Strip;
    m_First = -1;
    m_Strip = QImage(); // so that the pixels are nobody else's
    const int height = qMin(RowsAtOnce, Height() - first);
    if (m_Pixels.height() != height)
        m_Pixels = Usable(QImage(Width(), height, QImage::Format_ARGB32));
    auto* const pixels = reinterpret_cast<QRgb*>(m_Pixels.bits());
    for (int column = 0; column < m_Image.Columns(); ++column) {
        const int index = first / TileSide * m_Image.Columns() + column;
        const QRect area = m_Image.TileRect(index);
        const KMTilePin<QRgb> pin(m_Image.Tile(index), false);
        const QRgb* from = pin.Pixels() + first % TileSide * TileSide;
        for (int y = 0; y < height; ++y) {
            std::memcpy(pixels + qptrdiff(y) * Width() + area.left(), from + y * TileSide,
                        size_t(area.width()) * sizeof(QRgb));
        }
    }
    m_Strip = m_Pixels;
    if (m_Format != QImage::Format_ARGB32 && !IsOpaque(pixels, Width(), height, Width())) {
        m_Strip = Usable(QImage(m_Pixels.size(), QImage::Format_RGB32));
        m_Strip.fill(Qt::white);
        QPainter(&m_Strip).drawImage(0, 0, m_Pixels);
    }
    if (m_Format == QImage::Format_Grayscale8)
        m_Strip = HBConverted(m_Strip, m_Format);
    m_First = first;
    return m_Strip;
}

const uchar* HBPictureRows::Row(int y)
{
    const int first = y / RowsAtOnce * RowsAtOnce;
    return Strip(first).constScanLine(y - first);
}

QImage HBPictureRows::Whole()
{
    QImage whole = Usable(QImage(Width(), Height(), m_Format));
    const size_t bytes = size_t(Width()) * size_t(whole.depth() / 8);
    for (int y = 0; y < Height(); ++y)
        std::memcpy(whole.scanLine(y), Row(y), bytes);
    whole.setDotsPerMeterX(DotsPerMetreX());
    whole.setDotsPerMeterY(DotsPerMetreY());
    return whole;
}
