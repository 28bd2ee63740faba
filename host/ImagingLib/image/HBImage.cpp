// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBImage.h"

#include "HBQtImage.h"

#include <cstring>
#include <limits>
#include <new>

namespace
{

int TilesAlong(int length, int tileLength)
{
    return (length - 1) / tileLength + 1; // no overflow up to INT_MAX
}

/// `count` rows of `image` from `first` on as QImage::Format_ARGB32. Only these rows are converted, so that a
/// whole second copy of the image never exists.
QImage Strip(const QImage& image, int first, int count)
{
    QImage rows(image.constScanLine(first), image.width(), count, image.bytesPerLine(), image.format());
    if (image.colorCount() > 0)
        rows.setColorTable(image.colorTable());
    return HBConverted(rows, QImage::Format_ARGB32);
}

} // namespace

template <class Pixel, int TileWidth, int TileHeight>
HBImage<Pixel, TileWidth, TileHeight>::HBImage(int width, int height)
{
    if (width <= 0 || height <= 0)
        return;
    const int columns = TilesAlong(width, TileWidth);
    const int rows = TilesAlong(height, TileHeight);
    const qint64 count = qint64(columns) * rows;
    if (count > std::numeric_limits<int>::max() / int(sizeof(KMTileRef)) / 2)
        throw std::bad_alloc(); // more than the list can hold
    m_Tiles.reserve(int(count));
    for (int i = 0; i < int(count); ++i)
        m_Tiles.append(KMTileRef(KMTileManager64::Instance().MakeTile()));
    m_Columns = columns;
    m_Rows = rows;
    m_Width = width;
    m_Height = height;
}

template <class Pixel, int TileWidth, int TileHeight>
HBImage<Pixel, TileWidth, TileHeight> HBImage<Pixel, TileWidth, TileHeight>::FromQImage(const QImage& image)
{
    HBImage result(image.width(), image.height());
    for (int row = 0; row < result.Rows(); ++row) {
        const int top = row * TileHeight;
        const int height = qMin(TileHeight, image.height() - top);
        const QImage strip = Strip(image, top, height);
        for (int column = 0; column < result.Columns(); ++column) {
            const int index = row * result.Columns() + column;
            const QRect area = result.TileRect(index);
            const KMTilePin<Pixel> pin(result.Tile(index), true);
            for (int y = 0; y < height; ++y) {
                std::memcpy(pin.Pixels() + y * TileWidth,
                            strip.constScanLine(y) + area.left() * int(sizeof(Pixel)),
                            std::size_t(area.width()) * sizeof(Pixel));
            }
        }
    }
    return result;
}

template <class Pixel, int TileWidth, int TileHeight>
QImage HBImage<Pixel, TileWidth, TileHeight>::ToQImage() const
{
    if (IsEmpty())
        return {};
    QImage image(m_Width, m_Height, QImage::Format_ARGB32);
    if (image.isNull())
        return {};
    for (int index = 0; index < m_Tiles.size(); ++index) {
        const QRect area = TileRect(index);
        const KMTilePin<Pixel> pin(Tile(index), false);
        for (int y = 0; y < area.height(); ++y) {
            std::memcpy(image.scanLine(area.top() + y) + area.left() * int(sizeof(Pixel)),
                        pin.Pixels() + y * TileWidth, std::size_t(area.width()) * sizeof(Pixel));
        }
    }
    return image;
}

template <class Pixel, int TileWidth, int TileHeight>
Pixel HBImage<Pixel, TileWidth, TileHeight>::PixelAt(int x, int y) const
{
    if (IsEmpty() || x < 0 || y < 0 || x >= m_Width || y >= m_Height)
        return Pixel(0, 0, 0, 0);
    const KMTilePin<Pixel> pin(Tile(y / TileHeight * m_Columns + x / TileWidth), false);
    return pin.Pixels()[y % TileHeight * TileWidth + x % TileWidth];
}

template <class Pixel, int TileWidth, int TileHeight>
void HBImage<Pixel, TileWidth, TileHeight>::SetPixel(int x, int y, Pixel pixel)
{
    if (IsEmpty() || x < 0 || y < 0 || x >= m_Width || y >= m_Height)
        return;
    const int index = y / TileHeight * m_Columns + x / TileWidth;
    Detach(index);
    const KMTilePin<Pixel> pin(Tile(index), true);
    pin.Pixels()[y % TileHeight * TileWidth + x % TileWidth] = pixel;
}

template class HBImage<>;
