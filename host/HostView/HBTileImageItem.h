// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBTileMips.h"
#include "hostview_export.h"

#include <QGraphicsItem>
#include <QImage>

/// A tiled image in a scene, one scene unit a pixel, of any size: only the tiles in sight are painted, straight
/// from their memory at half the size and above, from shrunken tiles below. Tiles meet without a seam at any scale
/// (not rotated). Transparency lies on a checkerboard. GUI thread only.
class HOSTVIEW_EXPORT HBTileImageItem : public QGraphicsItem
{
public:
    explicit HBTileImageItem(QGraphicsItem* parent = nullptr);

    const HBImage<>& Image() const { return m_Image; }
    /// Cheap; tiles that both images share are not worked on again.
    void SetImage(const HBImage<>& image);

    /// Paints only what lies in this rectangle; QRectF(): all.
    void SetClip(const QRectF& clip);

    /// How long one paint may shrink tiles before it shows what it has and goes on later; default 40.
    void SetPatience(int milliseconds) { m_Patience = milliseconds; }
    const HBTileMips& Mips() const { return m_Mips; }

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    QRect TilesUnder(const QRectF& area) const;
    void PaintTiles(QPainter* painter, const QRect& tiles);
    void PaintShrunken(QPainter* painter, const QRect& tiles, double scale);
    void PaintChecker(QPainter* painter, const QRectF& area) const;

    HBImage<> m_Image;
    HBTileMips m_Mips;
    QRectF m_Clip;
    int m_Patience = 40;
};
