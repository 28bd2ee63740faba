// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostViewExport.h"
#include "HBTileMips.h"

#include <QImage>
#include <QRegion>

class QPainter;

/// A tiled picture for a view of any kind, of any size: converts only the tiles in sight, straight from their
/// memory at half the size and above, from shrunken tiles below, and those again only where the picture has
/// changed. Tiles meet without a seam at any scale (not rotated). GUI thread only.
///
///     void MyView::ShowPreview(const HBImage<>& image)           // a slot for HBPanelSession::PreviewReady
///     {
///         for (const QRect& rect : m_Picture.SetImage(image))
///             update(toView.mapRect(rect));
///     }
///     void MyView::paintEvent(QPaintEvent* event)
///     {
///         QPainter painter(this);
///         painter.setTransform(toView);
///         if (!m_Picture.Paint(&painter, toView.inverted().mapRect(QRectF(event->rect()))))
///             QTimer::singleShot(0, this, [this] { update(); });
///     }
class HB_HOSTVIEW_EXPORT HBTilePainter
{
public:
    const HBImage<>& Image() const { return m_Image; }
    /// Cheap; returns where it differs from the image before (HBChangedTiles), in its pixels.
    QRegion SetImage(const HBImage<>& image);

    /// How it is shown, when not as it is: the monitor's colours, or clipping marked. All is to be painted again.
    void SetLook(const HBTileMips::Look& look) { m_Mips.SetLook(look); }

    /// How long one paint may shrink tiles before it shows what it has; default 40.
    void SetPatience(int milliseconds) { m_Patience = milliseconds; }

    /// Paints what of the picture lies in `exposed`, a unit of the painter a pixel, over a checkerboard where it
    /// is transparent. False: the time was up, and some of it is shown as it was before; paint again.
    bool Paint(QPainter* painter, const QRectF& exposed);

    /// What of the picture lies in `area`, each pixel `scale` wide: QImage::Format_ARGB32_Premultiplied, whole.
    /// Null if that is nothing, or too large for memory.
    QImage ToImage(const QRect& area, double scale);

private:
    QRect TilesUnder(const QRectF& area) const;
    bool Paint(QPainter* painter, const QRectF& exposed, int patience, bool onChecker);
    bool PaintTiles(QPainter* painter, const QRect& tiles, int patience, bool onChecker);
    void PaintTile(QPainter* painter, int index, bool onChecker) const;
    bool PaintShrunken(QPainter* painter, const QRect& tiles, double scale, int patience, bool onChecker);

    HBImage<> m_Image;
    HBTileMips m_Mips;
    int m_Patience = 40;
};
