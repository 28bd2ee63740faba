// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBCurveScene.h"

#include <ControlNode.h>
#include <HBCurvesTransformation.h>

#include <QApplication>
#include <QGraphicsPathItem>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QPointer>

namespace
{

constexpr int Top = 255;          ///< highest level, and the scene's size
constexpr double StrokeWidth = 4; ///< of the curve, as far as a click is concerned

QPen ThinPen(const QColor& color)
{
    return QPen(QBrush(color), 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}

/// The nearest level point under a scene position, in the scene's own direction of y.
QPoint Nearest(const QPointF& scenePos)
{
    auto level = [](double v) { return qBound(0, int(qBound(-1e6, v, 1e6) + 0.5), Top); };
    return {level(scenePos.x()), level(scenePos.y())};
}

/// From a curve point to the scene, and back.
QPoint Flipped(const QPoint& point)
{
    return {point.x(), Top - point.y()};
}

} // namespace

HBCurveScene::HBCurveScene(QVector<QPoint>* points, QObject* parent)
    : QGraphicsScene(0, 0, Top, Top, parent)
    , m_pPoints(points)
    , m_pCurve(addPath(QPainterPath(), ThinPen(Qt::gray)))
{
    AddMesh();
    SetPoints(points);
}

void HBCurveScene::ShowIn(QGraphicsView* view)
{
    view->setScene(this);
    view->installEventFilter(this);
    // On its own resize event the view still has its old viewport; the viewport's own comes when it is new.
    view->viewport()->installEventFilter(this);
    view->fitInView(sceneRect(), Qt::IgnoreAspectRatio);
    view->setRenderHint(QPainter::Antialiasing);
}

void HBCurveScene::AddMesh()
{
    QPainterPath mesh;
    for (const double quarter : {63.75, 127.5, 191.25}) {
        mesh.moveTo(quarter, 0);
        mesh.lineTo(quarter, Top);
    }
    for (const double quarter : {63.75, 127.5, 191.25}) {
        mesh.moveTo(0, quarter);
        mesh.lineTo(Top, quarter);
    }
    addPath(mesh, ThinPen(QColor(128, 128, 128, 80)));
}

bool HBCurveScene::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
        for (QGraphicsView* view : views()) {
            if (watched == view || watched == view->viewport())
                view->fitInView(sceneRect(), Qt::IgnoreAspectRatio);
        }
    }
    return QGraphicsScene::eventFilter(watched, event);
}

/// The scene itself, and the node that is hit, get every event afterwards.
bool HBCurveScene::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::GraphicsSceneMousePress:
        Press(*static_cast<QGraphicsSceneMouseEvent*>(event));
        break;
    case QEvent::GraphicsSceneMouseMove:
        Drag(*static_cast<QGraphicsSceneMouseEvent*>(event));
        break;
    case QEvent::KeyPress:
        PressKey(*static_cast<QKeyEvent*>(event));
        break;
    case QEvent::FocusOut:
        Deselect();
        break;
    default:
        break;
    }
    return QGraphicsScene::event(event);
}

// ---- Drawing ----

QPainterPath HBCurveScene::BuildSpline(const QVector<QPoint>& points)
{
    QPainterPath path;
    if (points.size() < 2)
        return path;
    path.moveTo(0, Top - points.first().y());
    path.lineTo(points.first().x(), Top - points.first().y());
    if (points.size() == 2) {
        path.lineTo(points.last().x(), Top - points.last().y());
    } else {
        QVector<double> a;
        QVector<double> b;
        QVector<double> c;
        HBCurvesTransformation::BuildSplineParts(points, a, b, c);
        const int last = qMin(points.last().x(), Top);
        for (int x = qMax(points.first().x(), 0); x <= last; ++x) {
            const int y = qBound(0, HBCurvesTransformation::SplineValue(x, points, a, b, c), Top);
            path.lineTo(x, Top - y);
        }
    }
    path.lineTo(Top, Top - points.last().y());
    return path;
}

void HBCurveScene::RebuildCurve()
{
    m_pCurve->setPath(BuildSpline(Points()));
}

void HBCurveScene::SetPoints(QVector<QPoint>* points)
{
    m_pPoints = points;
    RebuildCurve();
    MakeNodes();
    Q_EMIT PointTouched(Points().first());
}

// ---- Nodes ----

void HBCurveScene::MakeNodes()
{
    m_pSelected = nullptr;
    qDeleteAll(m_Nodes);
    m_Nodes.clear();
    for (int i = 0; i < Points().size(); ++i)
        InsertNode(i);
}

void HBCurveScene::InsertNode(int index)
{
    if (index < 0 || index >= Points().size())
        return;
    auto* node = new ControlNode(nullptr);
    node->setPos(Flipped(Points().at(index)));
    // Moves go through MovePoint, which keeps the distances.
    node->setFlag(QGraphicsItem::ItemIsMovable, false);
    node->setFlag(QGraphicsItem::ItemIsFocusable, true);
    addItem(node);
    connect(node, SIGNAL(mousePressed(ControlNode*,Qt::MouseButton)), m_pNodeListener,
                         SLOT(OnNodePressed(ControlNode*,Qt::MouseButton)));
    connect(node, SIGNAL(mouseReleased(ControlNode*,Qt::MouseButton)), m_pNodeListener,
                         SLOT(OnNodeReleased(ControlNode*,Qt::MouseButton)));
    m_Nodes.insert(index, node);
}

/// At most one node is sunken: the selected one.
void HBCurveScene::Select(ControlNode* node)
{
    if (m_pSelected)
        m_pSelected->setSunken(false);
    m_pSelected = node;
    if (m_pSelected)
        m_pSelected->setSunken(true);
}

void HBCurveScene::OnNodePressed(ControlNode* node, Qt::MouseButton button)
{
    if (button != Qt::LeftButton)
        return;
    Select(node);
    const int index = m_Nodes.indexOf(node);
    if (index >= 0 && index < Points().size())
        Q_EMIT PointTouched(Points().at(index));
}

// ---- Editing ----

bool HBCurveScene::HitTestForInsert(const QPoint& point, const QPointF& scenePos)
{
    if (Points().contains(point))
        return false;
    QPainterPathStroker stroker;
    stroker.setWidth(StrokeWidth);
    return stroker.createStroke(m_pCurve->path()).contains(scenePos);
}

bool HBCurveScene::InsertPoint(const QPoint& point)
{
    QVector<QPoint>& points = Points();
    if (points.size() < 2 || point.y() > Top)
        return false;
    int index = 1;
    // Strictly more than the gap on both sides, on purpose: a point may be moved closer than it may be inserted.
    while (index < points.size() &&
           !(points.at(index - 1).x() + Gap < point.x() && points.at(index).x() - Gap > point.x()))
        ++index;
    if (index == points.size())
        return false;
    points.insert(index, point);
    InsertNode(index);
    Select(m_Nodes.at(index));
    RebuildCurve();
    return true;
}

bool HBCurveScene::CanMove(int index, const QPoint& point)
{
    if (index < 0 || index >= m_Nodes.size() || !m_Nodes.at(index))
        return false;
    const QVector<QPoint>& points = Points();
    const int last = points.size() - 1;
    if (index > 0 && point.x() < points.at(index - 1).x() + Gap)
        return false;
    if (index < last && point.x() > points.at(index + 1).x() - Gap)
        return false;
    return points.at(index) != point;
}

bool HBCurveScene::MovePoint(int index, const QPoint& point)
{
    if (!CanMove(index, point))
        return false;
    const QPointer<ControlNode> node = m_Nodes.at(index);
    const int last = Points().size() - 1;
    if (index == last - 1)
        Q_EMIT EndLimited(Last, point.x() + Gap);
    if (index == 1)
        Q_EMIT EndLimited(First, point.x() - Gap);
    // A slider's handle that stood beyond its new limit has moved its end of the curve, and a host that was told
    // so may have set another curve.
    if (!node || !CanMove(index, point))
        return false;
    if (index == 0 || index == last) {
        Q_EMIT EndMoving(index == 0 ? First : Last, point.x());
        if (!node || !CanMove(index, point))
            return false;
    }
    Points()[index] = point;
    node->setPos(Flipped(point));
    RebuildCurve();
    Q_EMIT PointsChanged();
    return true;
}

void HBCurveScene::RemovePoint(int index)
{
    if (index <= 0 || index >= Points().size() - 1)
        return; // the ends stay
    if (m_pSelected == m_Nodes.at(index))
        Select(nullptr);
    delete m_Nodes.takeAt(index);
    Points().remove(index);
    RebuildCurve();
    Q_EMIT PointsChanged();
}

void HBCurveScene::MoveEnd(uint end, int input)
{
    if (end != First && end != Last)
        return;
    const int index = end == First ? 0 : Points().size() - 1;
    if (!MovePoint(index, QPoint(input, Points().at(index).y())))
        return;
    // Another list may have been set meanwhile, and may be set by the signal.
    const int moved = end == First ? 0 : Points().size() - 1;
    if (m_pSelected != m_Nodes.at(moved))
        Select(m_Nodes.at(moved));
    Q_EMIT PointTouched(Points().at(moved));
}

void HBCurveScene::RemoveSelected()
{
    if (!m_pSelected || ((QApplication::mouseButtons() & Qt::LeftButton) && hasFocus()))
        return;
    RemovePoint(m_Nodes.indexOf(m_pSelected));
}

// ---- Mouse and keys ----

void HBCurveScene::Press(const QGraphicsSceneMouseEvent& event)
{
    if (event.button() != Qt::LeftButton)
        return;
    const QPoint view = Nearest(event.scenePos());
    // Both tests for an existing point take the scene's point, not flipped, on purpose.
    if (HitTestForInsert(view, event.scenePos()))
        InsertPoint(Flipped(view));
    else if (!Points().contains(view))
        Select(nullptr);
}

void HBCurveScene::Drag(const QGraphicsSceneMouseEvent& event)
{
    if (!(event.buttons() & Qt::LeftButton) || !m_pSelected)
        return;
    const QPoint target = Flipped(Nearest(event.scenePos()));
    if (MovePoint(m_Nodes.indexOf(m_pSelected), target))
        Q_EMIT PointTouched(target);
}

void HBCurveScene::PressKey(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Delete)) {
        RemoveSelected();
        return;
    }
    // With these a key is a shortcut of the window's or the desktop's; the keypad's own flag does not count.
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return;
    const int step = event.modifiers() & Qt::ShiftModifier ? 10 : 1;
    switch (event.key()) {
    case Qt::Key_PageUp:
        StepSelection(1);
        break;
    case Qt::Key_PageDown:
        StepSelection(-1);
        break;
    case Qt::Key_Insert:
    case Qt::Key_Plus:
        InsertAfterSelection();
        break;
    case Qt::Key_Left:
        MoveSelection({-step, 0});
        break;
    case Qt::Key_Right:
        MoveSelection({step, 0});
        break;
    case Qt::Key_Up:
        MoveSelection({0, step});
        break;
    case Qt::Key_Down:
        MoveSelection({0, -step});
        break;
    default:
        break;
    }
}

/// Selects the next point, by keyboard; the first one if none is selected.
void HBCurveScene::StepSelection(int step)
{
    const int index = m_pSelected ? m_Nodes.indexOf(m_pSelected) + step : 0;
    if (index >= 0 && index < m_Nodes.size())
        OnNodePressed(m_Nodes.at(index), Qt::LeftButton);
}

/// Adds a point on the curve, by keyboard: in the middle of the gap behind the selected point.
void HBCurveScene::InsertAfterSelection()
{
    const QVector<QPoint>& points = Points();
    const int index = qBound(0, m_pSelected ? m_Nodes.indexOf(m_pSelected) : 0, points.size() - 2);
    const int x = (points.at(index).x() + points.at(index + 1).x()) / 2;
    QVector<double> a;
    QVector<double> b;
    QVector<double> c;
    HBCurvesTransformation::BuildSplineParts(points, a, b, c);
    const QPoint point(x, qBound(0, HBCurvesTransformation::SplineValue(x, points, a, b, c), Top));
    if (InsertPoint(point))
        Q_EMIT PointTouched(point);
}

/// Moves the selected point, by keyboard, as far as its neighbours and the square allow.
void HBCurveScene::MoveSelection(const QPoint& step)
{
    const int index = m_Nodes.indexOf(m_pSelected);
    if (index < 0)
        return;
    const QVector<QPoint>& points = Points();
    const int lowest = index > 0 ? points.at(index - 1).x() + Gap : 0;
    const int highest = index < points.size() - 1 ? points.at(index + 1).x() - Gap : Top;
    const QPoint wanted = points.at(index) + step;
    // Between neighbours that leave no room there is no highest; qBound() of Qt 6 aborts then.
    const QPoint target(qMax(lowest, qMin(wanted.x(), highest)), qBound(0, wanted.y(), Top));
    if (MovePoint(index, target))
        Q_EMIT PointTouched(target);
}
