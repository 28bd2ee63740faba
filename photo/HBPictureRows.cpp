// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPictureRows.h"

#include <QPainter>

#include <cstring>
#include <new>

namespace
{

constexpr int Side = HBImage<>::TileSide;
constexpr int DotsPerMetreUnknown = 2835; // 72 dots per inch

/// Qt answers a want of memory with a null image.
QImage Usable(QImage image)
{
    if (image.isNull())
        throw std::bad_alloc();
    return image;
}

bool IsOpaque(const HBImage<>& image)
{
    for (int index = 0; index < image.Tiles().size(); ++index) {
        const QRect area = image.TileRect(index);
        const KMTilePin<QRgb> pin(image.Tile(index), false);
        QRgb all = 0xff000000;
        for (int y = 0; y < area.height(); ++y) {
            for (int x = 0; x < area.width(); ++x)
                all &= pin.Pixels()[y * Side + x];
        }
        if (all != 0xff000000)
            return false;
    }
    return true;
}

} // namespace

HBPictureRows::HBPictureRows(const HBImage<>& image, bool keepsAlpha)
    : m_Image(image)
    , m_Format(QImage::Format_RGB32)
{
    if (IsOpaque(image))
        return;
    m_IsOnWhite = !keepsAlpha;
    if (keepsAlpha)
        m_Format = QImage::Format_ARGB32;
}

int HBPictureRows::Dots(int which) const
{
    return m_Image.HostValue(which) > 0 ? m_Image.HostValue(which) : DotsPerMetreUnknown;
}

bool HBPictureRows::IsGrey()
{
    for (int first = 0; first < Height() && !HasAlpha(); first += Side) {
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

/// One row of tiles.
QImage HBPictureRows::Strip(int first) const
{
    QImage strip = Usable(QImage(Width(), qMin(Side, Height() - first), QImage::Format_ARGB32));
    const int row = first / Side;
    for (int column = 0; column < m_Image.Columns(); ++column) {
        const int index = row * m_Image.Columns() + column;
        const QRect area = m_Image.TileRect(index);
        const KMTilePin<QRgb> pin(m_Image.Tile(index), false);
        auto* to = reinterpret_cast<QRgb*>(strip.bits()) + area.left();
        for (int y = 0; y < area.height(); ++y)
            std::memcpy(to + qptrdiff(y) * Width(), pin.Pixels() + y * Side, size_t(area.width()) * sizeof(QRgb));
    }
    if (m_Format == QImage::Format_ARGB32)
        return strip;
    if (m_IsOnWhite) {
        QImage onWhite = Usable(QImage(strip.size(), QImage::Format_RGB32));
        onWhite.fill(Qt::white);
        QPainter(&onWhite).drawImage(0, 0, strip);
        strip = onWhite;
    } else {
        strip.reinterpretAsFormat(QImage::Format_RGB32);
    }
    return m_Format == QImage::Format_RGB32 ? strip : Usable(strip.convertToFormat(m_Format));
}

const uchar* HBPictureRows::Row(int y)
{
    const int first = y / Side * Side;
    if (first != m_First) {
        m_Strip = QImage(); // not two at once
        m_Strip = Strip(first);
        m_First = first;
    }
    return m_Strip.constScanLine(y - first);
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
