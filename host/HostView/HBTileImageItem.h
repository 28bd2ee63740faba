// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBTilePainter.h"
#include "hostview_export.h"

#include <QGraphicsItem>

/// A tiled image in a scene, one scene unit a pixel; see HBTilePainter. GUI thread only.
class HOSTVIEW_EXPORT HBTileImageItem : public QGraphicsItem
{
public:
    explicit HBTileImageItem(QGraphicsItem* parent = nullptr);

    const HBImage<>& Image() const { return m_Painter.Image(); }
    /// Cheap; only where the images differ is anything painted again.
    void SetImage(const HBImage<>& image);

    /// Paints only what lies in this rectangle; QRectF(): all.
    void SetClip(const QRectF& clip);

    /// How long one paint may shrink tiles before it shows what it has and goes on later; default 40.
    void SetPatience(int milliseconds) { m_Painter.SetPatience(milliseconds); }

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    HBTilePainter m_Painter;
    QRectF m_Clip;
};
