// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostViewExport.h"
#include "HBTileMips.h"

#include <QGraphicsView>

class HBTileImageItem;

/// The view that shows the document (the photo). Scene coordinates are pixels of the photo.
///
/// Ctrl and the wheel zoom to the cursor, the wheel alone (see SetWheelZooms) and the scroll bars move the photo,
/// and so does dragging with the middle button, with the space key held, or with no tool (SetHandDrags). GUI
/// thread only.
class HB_HOSTVIEW_EXPORT KMDocumentView : public QGraphicsView
{
    Q_OBJECT
public:
    static constexpr double MinimumZoom = 1.0 / 512;
    static constexpr double MaximumZoom = 64;

    explicit KMDocumentView(QWidget* parent = nullptr);

    /// The cursor shown over the view in place of its own; QCursor() gives the view's own back.
    void SetOverrideCursor(const QCursor& cursor);
    /// Whether a panel has set a cursor: it is about to use the mouse on the photo.
    bool HasOverrideCursor() const { return m_Overridden; }
    /// The view's own cursor, that of the present tool.
    void SetToolCursor(const QCursor& cursor);

    /// Whether the left button drags the photo, where nothing in the scene takes it and no panel picks; at first
    /// not.
    void SetHandDrags(bool drags) { m_HandDrags = drags; }
    /// Whether the wheel zooms without Ctrl too, as in programs for photos; at first not. Two fingers on a pad
    /// move the photo.
    void SetWheelZooms(bool zooms) { m_WheelZooms = zooms; }

    /// The photo to show. One of the same size as the last keeps zoom and position, any other is fitted in.
    void SetPicture(const HBImage<>& picture);
    const HBImage<>& Picture() const;
    QRectF PictureRect() const;
    HBTileImageItem* PictureItem() const { return m_pPicture; }
    /// How the photo is shown, when not as it is; see HBTilePainter.
    void SetLook(const HBTileMips::Look& look);
    /// The part of the photo that is in sight, in its pixels; empty without one.
    QRect SightArea() const;
    /// Shown while there is no photo.
    void SetPlaceholder(const QString& text);

    /// Device pixels per pixel of the photo: 1 shows each on exactly one, whatever the screen's pixel ratio.
    double Zoom() const { return m_Zoom; }
    /// Clamped to MinimumZoom..MaximumZoom. The point of the photo at `anchor` (in the viewport) stays there, as
    /// far as the scroll bars allow.
    void SetZoom(double zoom, const QPointF& anchor);
    void SetZoom(double zoom) { SetZoom(zoom, QRectF(viewport()->rect()).center()); }
    bool IsFitted() const { return m_Fit != Fit::No; }

public Q_SLOTS:
    void ZoomIn();
    void ZoomOut();
    /// The whole photo as large as it goes, also after the window has changed its size.
    void ZoomToFit();
    void ZoomToActual() { SetZoom(1); }
    /// See HBTileImageItem; the slots for HBPanelSession's signals of these names.
    void ShowSight(const HBImage<>& sight, const QRect& area, int level);
    void EndSight();

Q_SIGNALS:
    void ZoomChanged(double zoom);
    /// SightArea() or Zoom() is another.
    void SightChanged(const QRect& area, double zoom);
    /// A panel has begun or ceased to pick, or picks with another cursor.
    void OverrideCursorChanged();
    /// The pixel of the photo under the mouse; (-1, -1) when there is none.
    void PixelHovered(const QPoint& pixel);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    // Files dropped on the photo are the window's business, not the scene's.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    enum class Fit {
        No,
        Shrink, ///< as a photo is opened: never larger than its pixels
        Fill
    };

    void FitNow();
    void ApplyZoom(double zoom, const QPointF& anchor);
    void ShowCursor();
    void UseBackground();
    void TellSight();
    QPoint PixelAt(const QPoint& viewportPosition) const;
    bool MayDrag(const QMouseEvent& event) const;

    HBTileImageItem* m_pPicture;
    QString m_Placeholder;
    double m_Zoom = 1;
    double m_Ratio = 1; ///< the screen's pixel ratio that m_Zoom was applied for
    Fit m_Fit = Fit::Shrink;
    QRect m_ToldArea; ///< by SightChanged, with the zoom
    double m_ToldZoom = 0;
    bool m_Overridden = false;
    QCursor m_OverrideCursor;
    QCursor m_ToolCursor;
    bool m_SpaceHeld = false;
    bool m_Panning = false;
    bool m_HandDrags = false;
    bool m_WheelZooms = false;
    QPoint m_PanFrom;
};
