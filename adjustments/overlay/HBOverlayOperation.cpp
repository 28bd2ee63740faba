// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayOperation.h"

#include "HBOverlayLayout.h"
#include "HBOverlayText.h"

#include <algorithm>
#include <array>
#include <memory>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;
static_assert(TileSide % HBComposition::Step == 0);
using TilePixels = std::array<QRgb, HBImage<>::TilePixels>;

bool IsTransparent(const TilePixels& layer)
{
    for (size_t row = 0; row < layer.size(); row += TileSide) {
        QRgb any = 0;
        for (size_t i = row; i < row + TileSide; ++i)
            any |= layer[i];
        if (qAlpha(any) != 0)
            return false;
    }
    return true;
}

} // namespace

HBOperation HBOverlayOperation(const QVector<QRect>& areas, const HBComposition& composition,
                               const HBOverlayRenderer& render)
{
    if (composition.opacity <= 0)
        return {};
    return {
        nullptr, [=](HBTileAccess& tile) {
            const QRect area = tile.Area();
            if (std::none_of(areas.begin(), areas.end(), [&area](const QRect& a) { return a.intersects(area); }))
                return;
            // What reaches beyond the picture stays transparent, so that whole rows of the tile can be composed.
            const auto layer = std::make_unique<TilePixels>();
            QImage view(reinterpret_cast<uchar*>(layer->data()), area.width(), area.height(),
                        TileSide * int(sizeof(QRgb)), QImage::Format_ARGB32);
            render(area, view);
            if (!IsTransparent(*layer))
                composition.Run(reinterpret_cast<QRgb*>(tile.Pixels()), layer->data(), area.height() * TileSide);
        }};
}

HBStage HBOverlayStage(const std::function<HBOperation(const QSize& picture)>& prepare)
{
    HBStage stage;
    stage.ignoresSelection = true;
    stage.prepare = [prepare](const HBImage<>& picture, const HBJobControl*) {
        return picture.IsEmpty() ? HBOperation() : prepare({picture.Width(), picture.Height()});
    };
    return stage;
}

QRectF HBOverlayRoom(const QSize& picture, const QRect& margins)
{
    const QRectF room = HBOverlayLayout::Between(picture, margins);
    if (room.isEmpty())
        throw HBAdjustmentError(HBOverlayText::tr("The margins leave no room"));
    return room;
}
