// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBKitExport.h"

#include <QEvent>
#include <QObject>
#include <QPoint>
#include <QPointer>

#include <functional>
#include <memory>

class KMDocumentView;
class QCursor;
class QGraphicsView;
class QMouseEvent;
class QRubberBand;
class QWidget;

/// Lets panels pick from a picture in any widget: while a picker is on, its cursor is shown there, a drag with the
/// left button draws a rubber band, and none of it reaches the widget. Everything else does. GUI thread only.
class HB_KIT_EXPORT HBPickSurface : public QObject
{
    Q_OBJECT
public:
    /// Where in the picture, in its pixels, a point of the widget lies; it may be outside.
    using ToPicture = std::function<QPointF(const QPoint& position)>;

    /// \param canvas what receives the mouse: of a scroll area the viewport
    HBPickSurface(QWidget* canvas, ToPicture toPicture, QObject* parent = nullptr);
    /// For a view whose scene counts in pixels of the picture, with its upper left corner at (0, 0).
    explicit HBPickSurface(QGraphicsView* view, QObject* parent = nullptr);
    ~HBPickSurface() override;

    /// What panels know it as (HBAdjustmentWidget::SetView). Never shown.
    KMDocumentView* View() const { return m_pView.get(); }
    bool IsPicking() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnCursorChanged();
    void ShowCursor(const QCursor& cursor);
    bool TakeMouse(QEvent::Type type, const QMouseEvent& mouse);
    void EndDrag();

    const std::unique_ptr<KMDocumentView> m_pView;
    const QPointer<QWidget> m_pCanvas;
    const ToPicture m_ToPicture;
    QPointer<QRubberBand> m_pBand;
    QPoint m_DragStart;
    bool m_Picking = false;
    bool m_Dragging = false;
    bool m_ShowingCursor = false;
    bool m_HadCursor = false; ///< the canvas, of its own
    std::unique_ptr<QCursor> m_pCanvasCursor;
};
