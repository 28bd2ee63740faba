// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBUprightTiles.h"

#include <cstring>

// EXIF 2.32, tag 0x0112. The file's x and y are reversed first, then they change places.
HBUprightTiles::HBUprightTiles(const QSize& lying, int orientation)
    : m_Lying(lying)
    , m_Swaps(orientation >= 5)
    , m_FlipsX(orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8)
    , m_FlipsY(orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7)
    , m_Image(m_Swaps ? lying.height() : lying.width(), m_Swaps ? lying.width() : lying.height())
{
}

void HBUprightTiles::Put(int first, int count, const QRgb* rows, qptrdiff stride)
{
    m_HasRows = true;
    constexpr int TileSide = HBImage<>::TileSide;
    const int along = m_FlipsY ? m_Lying.height() - first - count : first;
    const QRect piece =
        m_Swaps ? QRect(along, 0, count, m_Lying.width()) : QRect(0, along, m_Lying.width(), count);
    const qptrdiff alongX = m_FlipsX ? -1 : 1;
    const qptrdiff alongY = m_FlipsY ? -stride : stride;
    const qptrdiff right = m_Swaps ? alongY : alongX;
    const qptrdiff down = m_Swaps ? alongX : alongY;
    // Of the pixel that becomes the piece's upper left one.
    const QRgb* corner = rows + (m_FlipsX ? m_Lying.width() - 1 : 0) + (m_FlipsY ? (count - 1) * stride : 0);
    for (int row = piece.top() / TileSide; row <= piece.bottom() / TileSide; ++row) {
        for (int column = piece.left() / TileSide; column <= piece.right() / TileSide; ++column) {
            const int index = row * m_Image.Columns() + column;
            const QRect part = m_Image.TileRect(index) & piece;
            const KMTilePin<QRgb> pin(m_Image.Tile(index), true);
            for (int y = part.top(); y <= part.bottom(); ++y) {
                const QRgb* from = corner + (part.left() - piece.left()) * right + (y - piece.top()) * down;
                QRgb* to = pin.Pixels() + y % TileSide * TileSide + part.left() % TileSide;
                if (right == 1) {
                    std::memcpy(to, from, size_t(part.width()) * sizeof(QRgb));
                    continue;
                }
                for (int x = 0; x < part.width(); ++x)
                    to[x] = from[x * right];
            }
        }
    }
}
