// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBSelectionShape.h>

#include <QGraphicsObject>
#include <QImage>
#include <QPolygonF>
#include <QRegion>
#include <QTimer>

#include <optional>

class KMDocumentView;

/// Shows a selection on the photo: dashes that move round what is covered by half or more, and dots where a soft
/// edge begins and ends. Lies in the view's scene, which owns it. Its lines are made anew for what is in sight,
/// as it is painted, so that a selection costs the same on any photo; they move only while they can be seen.
class HBSelectionOutline : public QGraphicsObject
{
public:
    explicit HBSelectionOutline(KMDocumentView* view);

    /// Whose colours are looked at.
    void SetPhoto(const HBImage<>& photo);
    /// \param line what is drawn besides, in pixels of the photo
    void Show(const HBSelectionShape& selection, const QPolygonF& line = {});
    /// Of the keys, in pixels of the photo; none without a place.
    void SetCrosshair(const std::optional<QPointF>& at);

    bool IsMoving() const { return m_Step.isActive(); }

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Update();
    void Trace();
    void FindEdges(const std::vector<uchar>& coverage, const QRect& frame, bool soft);
    void Advance();
    void MoveOrRest();

    KMDocumentView* m_pView;
    HBImage<> m_Photo;
    HBSelectionShape m_Selection;
    QPolygonF m_Line;
    std::optional<QPointF> m_Crosshair;
    bool m_Stale = false;
    QImage m_Edges;   ///< of what is in sight; each pixel's number says when it is black
    QPoint m_EdgesAt; ///< in the viewport
    QRegion m_Moving; ///< of the viewport
    QTimer m_Step;
    int m_Phase = 0;
};
