// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
// The curve editor of HBCurvesWidget: points inserted, moved and deleted in a scene of 255 × 255 units.
#include "HBConnectionSet.h"
#include "HBCurvesWidget.h"
#include "ui_CurvesWidget.h"

#include <ControlNode.h>
#include <HBCurvesTransformation.h>

#include <QAction>
#include <QApplication>
#include <QGraphicsPathItem>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>

namespace
{

constexpr int Top = 255;          ///< highest level, and the scene's size
constexpr int Gap = 4;            ///< least distance of two points' inputs
constexpr double StrokeWidth = 4; ///< of the curve, as far as a click is concerned

enum SliderHandle : uint { First, Last };

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

} // namespace

QPoint HBCurvesWidget::ToViewPoint(const QPoint& point)
{
    return {point.x(), Top - point.y()};
}

QPoint HBCurvesWidget::FromViewPoint(const QPoint& point)
{
    return {point.x(), Top - point.y()};
}

// ---- The scene ----

void HBCurvesWidget::MakeScene()
{
    QGraphicsView* view = m_pUI->m_pCurveView;
    m_pScene = new QGraphicsScene(0, 0, Top, Top, view);
    view->setScene(m_pScene);
    m_pCurve = m_pScene->addPath(QPainterPath(), ThinPen(Qt::gray));
    m_pScene->installEventFilter(this);
    view->installEventFilter(this);
    // On its own resize event the view still has its old viewport; the viewport's own comes when it is new.
    view->viewport()->installEventFilter(this);
    view->fitInView(m_pScene->sceneRect(), Qt::IgnoreAspectRatio);
    view->setRenderHint(QPainter::Antialiasing);
    view->setAccessibleName(tr("Tone curve"));
    view->setAccessibleDescription(
        tr("Page Up and Page Down select a point, Insert adds one, the arrow keys move it, "
           "Delete removes it."));

    auto* remove = new QAction(view);
    remove->setShortcut(Qt::Key_Delete);
    remove->setShortcutContext(Qt::WidgetShortcut);
    view->addAction(remove);
    connect(remove, SIGNAL(triggered()), SLOT(OnDeleteAction()));
    AddMesh();
}

void HBCurvesWidget::AddMesh()
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
    m_pScene->addPath(mesh, ThinPen(QColor(128, 128, 128, 80)));
}

void HBCurvesWidget::FilterView(QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        m_pUI->m_pCurveView->fitInView(m_pScene->sceneRect(), Qt::IgnoreAspectRatio);
}

void HBCurvesWidget::FilterScene(QEvent* event)
{
    switch (event->type()) {
    case QEvent::GraphicsSceneMousePress:
        SceneMousePressEvent(static_cast<QGraphicsSceneMouseEvent*>(event));
        break;
    case QEvent::GraphicsSceneMouseMove:
        SceneMouseMoveEvent(static_cast<QGraphicsSceneMouseEvent*>(event));
        break;
    case QEvent::GraphicsSceneMouseRelease:
        SceneMouseReleaseEvent(static_cast<QGraphicsSceneMouseEvent*>(event));
        break;
    case QEvent::KeyPress:
        SceneKeyPressEvent(static_cast<QKeyEvent*>(event));
        break;
    case QEvent::FocusOut:
        SceneFocusOut(static_cast<QFocusEvent*>(event));
        break;
    default:
        break;
    }
}

// ---- Drawing ----

QPainterPath HBCurvesWidget::BuildSpline(const QVector<QPoint>& points)
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

void HBCurvesWidget::RebuildCurve()
{
    if (auto* item = qgraphicsitem_cast<QGraphicsPathItem*>(m_pCurve))
        item->setPath(BuildSpline(Points()));
}

/// Shows the curve of the current channel: slider, line, nodes, and the first point in the line edits.
void HBCurvesWidget::ShowCurve()
{
    const QVector<QPoint>& points = Points();
    m_pUI->m_pInputSlider->SetMaximum(First, points.at(1).x() - Gap);
    m_pUI->m_pInputSlider->SetValue(First, points.first().x());
    m_pUI->m_pInputSlider->SetMinimum(Last, points.at(points.size() - 2).x() + Gap);
    m_pUI->m_pInputSlider->SetValue(Last, points.last().x());
    RebuildCurve();
    MakeControls();
    ShowPoint(points.first());
}

void HBCurvesWidget::ShowPoint(const QPoint& point)
{
    m_pUI->m_pInputSpin->setText(QString::number(point.x()));
    m_pUI->m_pOutputSpin->setText(QString::number(point.y()));
}

// ---- Nodes ----

void HBCurvesWidget::MakeControls()
{
    if (!m_pUI->m_pCurveView->scene())
        return;
    m_pSelected = nullptr;
    qDeleteAll(m_Nodes);
    m_Nodes.clear();
    for (int i = 0; i < Points().size(); ++i)
        InsertNode(i);
}

void HBCurvesWidget::InsertNode(int index)
{
    if (index < 0 || index >= Points().size())
        return;
    auto* node = new ControlNode(nullptr);
    node->setPos(ToViewPoint(Points().at(index)));
    // Moves go through MovePoint, which keeps the distances.
    node->setFlag(QGraphicsItem::ItemIsMovable, false);
    node->setFlag(QGraphicsItem::ItemIsFocusable, true);
    m_pScene->addItem(node);
    connect(node, SIGNAL(mousePressed(ControlNode*,Qt::MouseButton)),
                         SLOT(OnNodePressed(ControlNode*,Qt::MouseButton)));
    connect(node, SIGNAL(mouseReleased(ControlNode*,Qt::MouseButton)),
                         SLOT(OnNodeReleased(ControlNode*,Qt::MouseButton)));
    m_Nodes.insert(index, node);
}

/// At most one node is sunken: the selected one.
void HBCurvesWidget::Select(ControlNode* node)
{
    if (m_pSelected)
        m_pSelected->setSunken(false);
    m_pSelected = node;
    if (m_pSelected)
        m_pSelected->setSunken(true);
}

void HBCurvesWidget::OnNodePressed(ControlNode* node, Qt::MouseButton button)
{
    if (button != Qt::LeftButton)
        return;
    Select(node);
    const int index = m_Nodes.indexOf(node);
    if (index >= 0 && index < Points().size())
        ShowPoint(Points().at(index));
}

void HBCurvesWidget::OnNodeReleased(ControlNode*, Qt::MouseButton) {}

// ---- Editing ----

bool HBCurvesWidget::HitTestForInsert(const QPoint& point, const QPointF& scenePos)
{
    if (Points().contains(point))
        return false;
    const auto* item = qgraphicsitem_cast<QGraphicsPathItem*>(m_pCurve);
    if (!item)
        return false;
    QPainterPathStroker stroker;
    stroker.setWidth(StrokeWidth);
    return stroker.createStroke(item->path()).contains(scenePos);
}

bool HBCurvesWidget::InsertPoint(const QPoint& point)
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

bool HBCurvesWidget::CanMove(int index, const QPoint& point)
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

bool HBCurvesWidget::MovePoint(int index, const QPoint& point)
{
    if (!CanMove(index, point))
        return false;
    const QPointer<ControlNode> node = m_Nodes.at(index);
    const int last = Points().size() - 1;
    MavuCustomSlider* slider = m_pUI->m_pInputSlider;
    if (index == last - 1)
        slider->SetMinimum(Last, point.x() + Gap);
    if (index == 1)
        slider->SetMaximum(First, point.x() - Gap);
    // A handle that stood beyond its new limit has moved its end of the curve, and a host that was told so may have set
    // another curve.
    if (!node || !CanMove(index, point))
        return false;
    if (index == 0 || index == last) {
        const HBMute mute(*m_pSliderLink, this);
        slider->SetValue(index == 0 ? First : Last, point.x());
    }
    Points()[index] = point;
    node->setPos(ToViewPoint(point));
    RebuildCurve();
    NotifyChanged(&HBCurvesWidget::ValueChanged);
    return true;
}

void HBCurvesWidget::RemovePoint(int index)
{
    if (index <= 0 || index >= Points().size() - 1)
        return; // the ends stay
    if (m_pSelected == m_Nodes.at(index))
        Select(nullptr);
    delete m_Nodes.takeAt(index);
    Points().remove(index);
    RebuildCurve();
    NotifyChanged(&HBCurvesWidget::ValueChanged);
}

void HBCurvesWidget::OnInputChanged(uint control, int value)
{
    if (control != First && control != Last)
        return;
    const int index = control == First ? 0 : Points().size() - 1;
    if (!MovePoint(index, QPoint(value, Points().at(index).y())))
        return;
    // The host may have set another curve meanwhile.
    const int moved = control == First ? 0 : Points().size() - 1;
    ShowPoint(Points().at(moved));
    if (m_pSelected != m_Nodes.at(moved))
        Select(m_Nodes.at(moved));
}

void HBCurvesWidget::OnSliderNodeReleased()
{
    Select(nullptr);
}

void HBCurvesWidget::OnDeleteAction()
{
    if (!m_pSelected || !m_pUI->m_pCurveView->scene())
        return;
    // Not in mid-drag.
    if ((QApplication::mouseButtons() & Qt::LeftButton) && m_pScene->hasFocus())
        return;
    RemovePoint(m_Nodes.indexOf(m_pSelected));
}

// ---- Mouse and keys ----

void HBCurvesWidget::SceneMousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint view = Nearest(event->scenePos());
    // Both tests for an existing point take the scene's point, not flipped, on purpose.
    if (HitTestForInsert(view, event->scenePos()))
        InsertPoint(FromViewPoint(view));
    else if (!Points().contains(view))
        Select(nullptr);
}

void HBCurvesWidget::SceneMouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton) || !m_pSelected)
        return;
    const QPoint target = FromViewPoint(Nearest(event->scenePos()));
    if (MovePoint(m_Nodes.indexOf(m_pSelected), target))
        ShowPoint(target);
}

void HBCurvesWidget::SceneMouseReleaseEvent(QGraphicsSceneMouseEvent*) {}

void HBCurvesWidget::SceneKeyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Delete)) {
        OnDeleteAction();
        return;
    }
    // With these a key is a shortcut of the window's or the desktop's; the keypad's own flag does not count.
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return;
    const int step = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    switch (event->key()) {
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

void HBCurvesWidget::SceneFocusOut(QFocusEvent*)
{
    Select(nullptr);
}

/// Selects the next point, by keyboard; the first one if none is selected.
void HBCurvesWidget::StepSelection(int step)
{
    const int index = m_pSelected ? m_Nodes.indexOf(m_pSelected) + step : 0;
    if (index >= 0 && index < m_Nodes.size())
        OnNodePressed(m_Nodes.at(index), Qt::LeftButton);
}

/// Adds a point on the curve, by keyboard: in the middle of the gap behind the selected point.
void HBCurvesWidget::InsertAfterSelection()
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
        ShowPoint(point);
}

/// Moves the selected point, by keyboard, as far as its neighbours and the square allow.
void HBCurvesWidget::MoveSelection(const QPoint& step)
{
    const int index = m_Nodes.indexOf(m_pSelected);
    if (index < 0)
        return;
    const QVector<QPoint>& points = Points();
    const int lowest = index > 0 ? points.at(index - 1).x() + Gap : 0;
    const int highest = index < points.size() - 1 ? points.at(index + 1).x() - Gap : Top;
    const QPoint wanted = points.at(index) + step;
    const QPoint target(qBound(lowest, wanted.x(), highest), qBound(0, wanted.y(), Top));
    if (MovePoint(index, target))
        ShowPoint(target);
}
