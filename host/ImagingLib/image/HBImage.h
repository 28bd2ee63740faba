// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"
#include "HBRGBA32i.h"
#include "KMCMSProfile.h"
#include "KMEXIFElement.h"
#include "KMTileManager64.h"

#include <QImage>
#include <QList>
#include <QMetaType>
#include <QRect>
#include <QVector>

/// A tiled image, held and copied by value. Copies share the tiles; a tile is copied when it is written (Detach).
///
/// Tile (column, row) is entry row × Columns() + column of the tile list. Tiles at the right and bottom border
/// reach beyond the image: their pixels outside it are padding that nothing may count or rely on.
///
/// Not thread-safe by itself: a copy per thread is the way to share one. Several threads may detach *different*
/// tiles of one image at once if DetachList() was called before.
///
/// Written HBImage<> everywhere, which is the only instantiation.
template <class Pixel = HBRGBA32i, int TileWidth = 128, int TileHeight = 128>
class HBImage
{
public:
    static_assert(sizeof(Pixel) * TileWidth * TileHeight == KMTileManager64::TileBytes,
                  "a tile is what the tile manager hands out");
    static_assert(TileWidth == TileHeight, "a tile's rows are TileSide pixels apart");
    static constexpr int TileSide = TileWidth;
    static constexpr int TilePixels = TileWidth * TileHeight;

    HBImage() = default;
    /// Transparent black. A size of 0 or less in either direction gives an empty image.
    HBImage(int width, int height);
    HBImage(const HBImage& other);
    HBImage(HBImage&& other) noexcept { Swap(other); }
    HBImage& operator=(HBImage other) noexcept
    {
        Swap(other);
        return *this;
    }
    ~HBImage() { qDeleteAll(m_Elements); }

    /// Any QImage format; 16-bit channels are reduced to 8. \throws std::bad_alloc
    static HBImage FromQImage(const QImage& image);
    /// QImage::Format_ARGB32; a null QImage if the image is empty or larger than a QImage can be.
    QImage ToQImage() const;

    int Width() const { return m_Width; }
    int Height() const { return m_Height; }
    int Columns() const { return m_Columns; }
    int Rows() const { return m_Rows; }
    /// Also true for an image whose tile list does not fit its size.
    bool IsEmpty() const { return m_Width <= 0 || m_Height <= 0 || m_Tiles.size() != m_Columns * m_Rows; }

    /// Whether nothing was written since one was copied from the other: the same pixels, told without looking at
    /// them.
    bool IsSameAs(const HBImage& other) const
    {
        return m_Width == other.m_Width && m_Height == other.m_Height &&
               m_Tiles.constData() == other.m_Tiles.constData();
    }

    const QVector<KMTileRef>& Tiles() const { return m_Tiles; }
    const KMTileRef& Tile(int index) const { return m_Tiles.at(index); }
    /// The pixels of the image that tile `index` holds, in image coordinates.
    QRect TileRect(int index) const
    {
        const QRect tile(index % m_Columns * TileWidth, index / m_Columns * TileHeight, TileWidth, TileHeight);
        return tile & QRect(0, 0, m_Width, m_Height);
    }

    /// Makes the tile list this image's own. The tiles stay shared.
    void DetachList() { m_Tiles.detach(); }
    /// Makes tile `index` this image's own, copying it if someone else holds it too. Call it before a tile is
    /// written. \throws std::bad_alloc
    void Detach(int index)
    {
        KMTileRef& tile = m_Tiles[index];
        if (tile.IsShared())
            tile = KMTileRef(KMTileManager64::Instance().CopyTile(tile.Get()));
    }

    /// Replaces tile `index` by one of another image of the same size, which then is shared.
    void ShareTile(int index, const KMTileRef& tile) { m_Tiles[index] = tile; }

    /// One pixel, for tests and tools; walk tiles where speed matters. (0,0,0,0) outside the image.
    Pixel PixelAt(int x, int y) const;
    /// Sets one pixel, detaching its tile; nothing outside the image.
    void SetPixel(int x, int y, Pixel pixel);

    const KMCMSProfile& Profile() const { return m_Profile; }
    void SetProfile(const KMCMSProfile& profile) { m_Profile = profile; }

    /// Two values that belong to the host; carried along unchanged. In our programs: the resolution in dots per
    /// metre, horizontal and vertical, 0 if unknown.
    int HostValue(int which) const { return m_HostValues[which & 1]; }
    void SetHostValue(int which, int value) { m_HostValues[which & 1] = value; }

    /// The metadata; the elements belong to the image.
    const QList<KMEXIFElement*>& Elements() const { return m_Elements; }
    /// Takes the element over.
    void AddElement(KMEXIFElement* element) { m_Elements.append(element); }
    void ClearElements()
    {
        qDeleteAll(m_Elements);
        m_Elements.clear();
    }

    void Swap(HBImage& other) noexcept;

private:
    QVector<KMTileRef> m_Tiles;
    int m_Columns = 0;
    int m_Rows = 0;
    int m_Width = 0;
    int m_Height = 0;
    KMCMSProfile m_Profile;
    int m_HostValues[2] = {0, 0};
    QList<KMEXIFElement*> m_Elements;
};

template <class Pixel, int TileWidth, int TileHeight>
HBImage<Pixel, TileWidth, TileHeight>::HBImage(const HBImage& other)
    : HBImage() // so that a throw frees the elements
{
    m_Elements.reserve(other.m_Elements.size());
    for (const KMEXIFElement* element : other.m_Elements)
        m_Elements.append(new KMEXIFElement(*element));
    m_Tiles = other.m_Tiles;
    m_Columns = other.m_Columns;
    m_Rows = other.m_Rows;
    m_Width = other.m_Width;
    m_Height = other.m_Height;
    m_Profile = other.m_Profile;
    m_HostValues[0] = other.m_HostValues[0];
    m_HostValues[1] = other.m_HostValues[1];
}

template <class Pixel, int TileWidth, int TileHeight>
void HBImage<Pixel, TileWidth, TileHeight>::Swap(HBImage& other) noexcept
{
    m_Tiles.swap(other.m_Tiles);
    std::swap(m_Columns, other.m_Columns);
    std::swap(m_Rows, other.m_Rows);
    std::swap(m_Width, other.m_Width);
    std::swap(m_Height, other.m_Height);
    std::swap(m_Profile, other.m_Profile);
    std::swap(m_HostValues, other.m_HostValues);
    m_Elements.swap(other.m_Elements);
}

extern template class HB_IMAGINGLIB_EXPORT HBImage<>;
Q_DECLARE_METATYPE(HBImage<>)
