// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBSelectionShape.h>

#include <QObject>

class HBSelectionOutline;
class KMDocumentView;
class QGraphicsSceneMouseEvent;

/// Draws selections with the mouse: drag for a rectangle or an ellipse, with Shift a square or a circle; a click
/// selects nothing; Escape gives a drag up, else the selection, unless that key is wanted for more. It leaves the
/// mouse to a panel that picks colours.
class HBSelectionTool : public QObject
{
    Q_OBJECT
public:
    enum class Tool { None, Rectangle, Ellipse };

    explicit HBSelectionTool(KMDocumentView* view, QObject* parent = nullptr);
    ~HBSelectionTool() override;

    /// Tool::None: the mouse does not select.
    void SetTool(Tool tool);
    /// Pixels, for the present selection and later ones.
    void SetFeather(int feather);

    /// Whether Escape drops the selection when nothing is being dragged; true at first.
    void SetEscapeDeselects(bool does) { m_EscapeDeselects = does; }

    const HBSelectionShape& Shape() const { return m_Shape; }
    void SetShape(const HBSelectionShape& shape);
    /// For the panels. Throws std::bad_alloc.
    /// \param photo as it was opened, for selections by colour
    HBSelection Selection(const HBImage<>& photo) const { return m_Shape.Rasterize(photo); }

public Q_SLOTS:
    void SelectAll();
    void SelectNothing() { SetShape({}); }
    /// Nothing becomes everything, everything nothing.
    void Invert();

Q_SIGNALS:
    void Changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSize PhotoSize() const;
    bool OnMouse(QGraphicsSceneMouseEvent* event);
    bool OnEscape();
    bool MayStart(const QPointF& scenePosition) const;
    void Drag(const QPointF& to, bool square);
    void EndDrag();
    void ShowOutline();

    KMDocumentView* m_pView;
    HBSelectionOutline* m_pOutline;
    Tool m_Tool = Tool::None;
    int m_Feather = 0;
    HBSelectionShape m_Shape;
    HBSelectionShape m_Before; ///< the selection before the drag
    QPointF m_DragFrom;
    bool m_Dragging = false;
    bool m_EscapeDeselects = true;
};
