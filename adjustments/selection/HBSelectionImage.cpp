// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionImage.h"

#include <HBQtImage.h>
#include <HBSelectionArea.h>

#include <QCoreApplication>

#include <algorithm>
#include <new>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;

struct ImageText
{
    Q_DECLARE_TR_FUNCTIONS(HBSelectionImage)
};

/// An image of the picture's size whose tiles are all the one given: it takes the memory of a list.
HBImage<> Uniform(const HBImage<>& picture, const KMTileRef& tile)
{
    HBImage<> image(picture.Width(), picture.Height());
    for (int index = 0; index < image.Tiles().size(); ++index)
        image.ShareTile(index, tile);
    return image;
}

KMTileRef TileOf(std::uint8_t coverage)
{
    HBImage<> image(TileSide, TileSide);
    std::fill_n(HBTileAccess(image, 0).Pixels(), HBImage<>::TilePixels,
                HBRGBA32i(coverage, coverage, coverage, coverage));
    return image.Tile(0);
}

/// Some rows of the mask in grey, so that no whole second copy of it exists.
QImage Rows(const QImage& mask, int first, int count)
{
    QImage rows = mask.copy(0, first, mask.width(), count);
    if (rows.format() == QImage::Format_Alpha8)
        rows.reinterpretAsFormat(QImage::Format_Grayscale8); // converted it would be black
    else
        rows = HBConverted(rows, QImage::Format_Grayscale8);
    if (rows.isNull())
        throw std::bad_alloc();
    return rows;
}

bool IsGreyAlone(const QImage& mask)
{
    switch (mask.format()) {
    case QImage::Format_Alpha8:
    case QImage::Format_Grayscale8:
    case QImage::Format_Grayscale16:
        return true;
    default:
        return !mask.hasAlphaChannel() && mask.allGray();
    }
}

/// Copies what the tile holds of the rows; a tile without coverage stays shared.
void FillTile(HBImage<>* image, int index, const QImage& rows)
{
    const QRect area = image->TileRect(index);
    HBTileAccess tile(*image, index);
    for (int y = 0; y < area.height(); ++y) {
        const uchar* const coverages = rows.constScanLine(y) + area.left();
        if (std::all_of(coverages, coverages + area.width(), [](uchar coverage) { return coverage == 0; }))
            continue;
        HBRGBA32i* const pixels = tile.Pixels() + y * TileSide;
        for (int x = 0; x < area.width(); ++x)
            pixels[x] = HBRGBA32i(coverages[x], coverages[x], coverages[x], coverages[x]);
    }
}

} // namespace

bool HBSelectRectangle(const QRect& rectangle, HBTarget* target, QString* reason)
{
    // QRect itself would turn an inverted rectangle round, and overflow.
    const HBSelectionArea area(target->source, target->source, {}, rectangle);
    if (!area.effective.isValid()) {
        *reason = ImageText::tr("the rectangle does not lie on the picture");
        return false;
    }
    target->selection = Uniform(target->source, TileOf(255));
    target->offset = {};
    target->bounds = area.effective;
    return true;
}

bool HBSelectMask(const QImage& mask, HBTarget* target, QString* reason)
{
    const QSize size(target->source.Width(), target->source.Height());
    if (mask.isNull() || target->source.IsEmpty() || mask.size() != size) {
        *reason = ImageText::tr("the mask is %1 × %2 pixels, the picture %3 × %4")
                      .arg(mask.width())
                      .arg(mask.height())
                      .arg(size.width())
                      .arg(size.height());
        return false;
    }
    if (!IsGreyAlone(mask)) {
        *reason = ImageText::tr("the mask is not gray alone");
        return false;
    }
    HBImage<> image = Uniform(target->source, TileOf(0));
    for (int row = 0; row < image.Rows(); ++row) {
        const QImage rows = Rows(mask, row * TileSide, qMin(TileSide, size.height() - row * TileSide));
        for (int column = 0; column < image.Columns(); ++column)
            FillTile(&image, row * image.Columns() + column, rows);
    }
    target->selection = image;
    target->offset = {};
    target->bounds = mask.rect();
    return true;
}
