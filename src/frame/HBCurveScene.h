// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelsExport.h"

#include <ControlNode.h>
#include <QGraphicsScene>
#include <QList>
#include <QPainterPath>
#include <QPoint>
#include <QVector>

class QGraphicsSceneMouseEvent;
class QGraphicsView;
class QKeyEvent;

/// An editor of a tone curve: points inserted, moved and deleted with mouse and keys in a scene of 255 × 255
/// units.
///
/// Two spaces: a curve point is (input, output), both 0..255, output growing upward; the scene's y grows downward.
/// GUI thread. A slot of its signals may give it another list.
class HB_PANELS_EXPORT HBCurveScene : public QGraphicsScene
{
    Q_OBJECT
public:
    static constexpr int Gap = 4; ///< least distance of two points' inputs

    enum End : uint { First, Last }; ///< of the curve

    /// \param points see SetPoints
    explicit HBCurveScene(QVector<QPoint>* points, QObject* parent = nullptr);

    /// Fills this view, whatever its size.
    void ShowIn(QGraphicsView* view);
    /// Edits this list, in place, from now on. It has at least two points, each 0..255, by input; it must live as
    /// long as it is edited, and who changes it calls this again. Nothing is selected then.
    void SetPoints(QVector<QPoint>* points);
    /// Has nodes tell this object, by slots named like those of this class, instead of this; those made from now
    /// on.
    void SetNodeListener(QObject* listener) { m_pNodeListener = listener; }

    /// Moves an end of the curve to this input and selects it, as far as the points beside it allow; any other
    /// number of an end is ignored.
    void MoveEnd(uint end, int input);
    void Deselect() { Select(nullptr); }
    /// Not an end of the curve, nor in mid-drag.
    void RemoveSelected();

public Q_SLOTS:
    void OnNodePressed(ControlNode* node, Qt::MouseButton button);
    void OnNodeReleased(ControlNode*, Qt::MouseButton) {}

Q_SIGNALS:
    /// The list has changed, and with it the curve. Not for a point just inserted, which lies on the curve.
    void PointsChanged();
    /// This point was taken hold of or moved.
    void PointTouched(const QPoint& point);
    /// An end of the curve may now go to this input at most (the first) or at least (the last).
    void EndLimited(uint end, int input);
    /// An end of the curve is about to move to this input.
    void EndMoving(uint end, int input);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static QPainterPath BuildSpline(const QVector<QPoint>& points);
    void AddMesh();
    QVector<QPoint>& Points() { return *m_pPoints; }
    void RebuildCurve();
    void MakeNodes();
    void InsertNode(int index);
    bool InsertPoint(const QPoint& point);
    bool CanMove(int index, const QPoint& point);
    bool MovePoint(int index, const QPoint& point);
    void RemovePoint(int index);
    bool HitTestForInsert(const QPoint& point, const QPointF& scenePos);
    void Select(ControlNode* node);
    void StepSelection(int step);
    void InsertAfterSelection();
    void MoveSelection(const QPoint& step);
    void Press(const QGraphicsSceneMouseEvent& event);
    void Drag(const QGraphicsSceneMouseEvent& event);
    void PressKey(const QKeyEvent& event);

    QVector<QPoint>* m_pPoints;
    QObject* m_pNodeListener = this;
    QGraphicsPathItem* m_pCurve;
    QList<ControlNode*> m_Nodes; ///< one per point, in its order
    ControlNode* m_pSelected = nullptr;
};
