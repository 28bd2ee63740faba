// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostViewExport.h"
#include "HBTilePainter.h"

#include <QGraphicsItem>

/// A tiled image in a scene, one scene unit a pixel; see HBTilePainter. GUI thread only.
class HB_HOSTVIEW_EXPORT HBTileImageItem : public QGraphicsItem
{
public:
    explicit HBTileImageItem(QGraphicsItem* parent = nullptr);

    const HBImage<>& Image() const { return m_Painter.Image(); }
    /// Cheap; only where the images differ is anything painted again.
    void SetImage(const HBImage<>& image);

    /// See HBTilePainter.
    void SetLook(const HBTileMips::Look& look);

    /// Shows `sight` over a part of the image, until another is shown, or EndSight. What of the part lies beyond
    /// the image is not shown.
    /// \param area in pixels of the image; each pixel of `sight` is as many of them wide as 2^n, from its upper
    ///        left corner on
    void ShowSight(const HBImage<>& sight, const QRect& area, int level);
    /// The image itself is right again: `sight` goes as soon as the image can be painted in its place.
    void EndSight();

    /// Paints only what lies in this rectangle; QRectF(): all.
    void SetClip(const QRectF& clip);

    /// How long one paint may shrink tiles before it shows what it has and goes on later; default 40.
    void SetPatience(int milliseconds) { m_Painter.SetPatience(milliseconds); }

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    bool PaintWithSight(QPainter* painter, const QRectF& exposed);

    HBTilePainter m_Painter;
    HBTilePainter m_Sight;
    QRect m_SightArea; ///< empty: there is none
    int m_SightLevel = 0;
    bool m_SightEnds = false;
    QRectF m_Clip;
};
