// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionTool.h"

#include "HBSelectionOutline.h"
#include "HBSightCoverage.h"

#include <HBStepManner.h>
#include <KMDocumentView.h>

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QLineF>

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace
{

constexpr double ClickReach = 3; // pixels of the screen that a click may wobble

/// How far shapes may reach beyond the photo, in its widths and heights.
constexpr double Beyond = 10;

QPoint WayOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

HBSelectionMode ModeOf(Qt::KeyboardModifiers modifiers, HBSelectionMode mode)
{
    const bool subtracts = modifiers & (Qt::ControlModifier | Qt::AltModifier);
    if (modifiers & Qt::ShiftModifier)
        return subtracts ? HBSelectionMode::Intersect : HBSelectionMode::Add;
    return subtracts ? HBSelectionMode::Subtract : mode;
}

} // namespace

HBSelectionTool::HBSelectionTool(KMDocumentView* view, QObject* parent)
    : QObject(parent)
    , m_pView(view)
    , m_pOutline(new HBSelectionOutline(view))
{
    m_pView->scene()->installEventFilter(this);
    m_pView->installEventFilter(this);
}

HBSelectionTool::~HBSelectionTool() = default;

QSize HBSelectionTool::PhotoSize() const
{
    return {m_Photo.Width(), m_Photo.Height()};
}

/// In pixels of the photo.
double HBSelectionTool::ScreenPixel() const
{
    return 1 / std::max(1e-6, m_pView->transform().m11());
}

// ---- The selection ----

void HBSelectionTool::SetTool(Tool tool)
{
    GiveUp();
    HideCrosshair();
    m_Tool = tool;
    m_pView->SetToolCursor(tool == Tool::None   ? QCursor()
                           : tool == Tool::Move ? QCursor(Qt::SizeAllCursor)
                                                : QCursor(Qt::CrossCursor));
}

void HBSelectionTool::SetPhoto(const HBImage<>& photo)
{
    m_Photo = photo;
    m_pOutline->SetPhoto(photo);
}

void HBSelectionTool::SetFeather(int feather)
{
    m_Feather = std::max(0, feather);
    if (m_HasNewOptions = m_pGesture != nullptr; m_HasNewOptions)
        return; // when it has ended
    HBSelectionShape shape = m_Shape;
    shape.SetPixelFeather(m_Feather, PhotoSize());
    if (shape != m_Shape)
        Put(shape, OfFeather);
}

void HBSelectionTool::SetTolerance(int tolerance)
{
    m_Tolerance = std::clamp(tolerance, 0, 255);
    if (m_HasNewOptions = m_pGesture != nullptr; m_HasNewOptions)
        return;
    HBSelectionShape shape = m_Shape;
    if (shape.IsNone() || shape.shapes.last().kind != HBShape::Kind::Color)
        return;
    shape.shapes.last().tolerance = m_Tolerance;
    if (shape != m_Shape)
        Put(shape, OfTolerance);
}

/// What was chosen during a gesture.
void HBSelectionTool::TakeOptions()
{
    if (!std::exchange(m_HasNewOptions, false))
        return;
    SetTolerance(m_Tolerance);
    SetFeather(m_Feather);
}

void HBSelectionTool::SetShape(const HBSelectionShape& shape)
{
    m_pGesture.reset();
    m_Pressed = m_HasNewOptions = false;
    if (!shape.IsNone()) {
        const HBShape& last = shape.shapes.last();
        if (last.kind == HBShape::Kind::Color)
            m_Tolerance = last.tolerance;
        else if (last.HasFeather())
            m_Feather = last.PixelFeather(PhotoSize());
        Q_EMIT OptionsChanged();
    }
    Put(shape);
}

void HBSelectionTool::Put(const HBSelectionShape& shape, Gesture gesture)
{
    const bool isOther = shape != m_Shape;
    m_Shape = shape;
    ShowOutline();
    if (isOther)
        Q_EMIT Changed(gesture);
}

HBTarget HBSelectionTool::SelectIn(const HBImage<>& picture, const HBImage<>& photo) const
{
    return m_Shape.IsNone() ? HBTarget{picture} : HBSelectIn({picture}, m_Shape, photo, nullptr);
}

void HBSelectionTool::SelectAll()
{
    if (PhotoSize().isEmpty())
        return;
    GiveUp();
    Put({{HBShape::OfPixels(HBShape::Kind::Rectangle, QRect(QPoint(0, 0), PhotoSize()), 0, PhotoSize())}});
}

bool HBSelectionTool::IsAll() const
{
    if (m_Shape.shapes.size() != 1)
        return false;
    const HBShape& shape = m_Shape.shapes.first();
    return shape.kind == HBShape::Kind::Rectangle && !shape.inverted && shape.feather <= 0 &&
           shape.PixelRect(PhotoSize()).contains(QRect(QPoint(0, 0), PhotoSize()));
}

void HBSelectionTool::Invert()
{
    GiveUp();
    if (m_Shape.IsNone())
        SelectAll();
    else
        Put(IsAll() ? HBSelectionShape() : m_Shape.Inverted());
}

void HBSelectionTool::ShowOutline()
{
    try {
        m_pOutline->Show(m_pGesture ? m_pGesture->Selection() : m_Shape,
                         m_pGesture ? m_pGesture->Line() : QPolygonF());
    } catch (const std::bad_alloc&) {
        m_pOutline->Show({});
    }
}

// ---- Drawing ----

/// Not where a panel picks, nor on something that can be dragged itself.
bool HBSelectionTool::MayStart(const QPointF& scenePosition) const
{
    if (m_Tool == Tool::None || PhotoSize().isEmpty() || m_pView->HasOverrideCursor())
        return false;
    const QList<QGraphicsItem*> items = m_pView->scene()->items(scenePosition);
    return std::none_of(items.begin(), items.end(), [](const QGraphicsItem* item) {
        return item->isVisible() && (item->acceptedMouseButtons() & Qt::LeftButton);
    });
}

/// Whether a drag from there moves the selection, with a tool that draws.
bool HBSelectionTool::IsWithin(const QPointF& at) const
{
    if (m_Mode != Mode::New || m_Tool == Tool::Color || m_Tool == Tool::Gradient || m_Shape.IsNone() || IsAll())
        return false;
    const bool isFixed = std::all_of(m_Shape.shapes.begin(), m_Shape.shapes.end(), [](const HBShape& shape) {
        return shape.kind == HBShape::Kind::Color; // wherever that is
    });
    const QPoint pixel(int(std::floor(at.x())), int(std::floor(at.y())));
    try {
        return !isFixed && m_Shape.CoverageAt(m_Photo, pixel.x(), pixel.y()) >= 128;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool HBSelectionTool::Begin(Tool tool, const QPointF& at, Qt::KeyboardModifiers modifiers)
{
    const Mode mode = tool == Tool::Move ? Mode::New : ModeOf(modifiers, m_Mode);
    if (mode != Mode::New && m_Shape.shapes.size() >= HBSelectionShape::MaximumShapes) {
        Q_EMIT Told(tr("A selection has at most %1 shapes.").arg(HBSelectionShape::MaximumShapes));
        return false;
    }
    const int needed = tool == Tool::Lasso      ? 4
                       : tool == Tool::Gradient ? 2
                                                : 0; // four: a lasso keeps three quarters
    if (mode != Mode::New && needed > 0 && HBPointCount(m_Shape) + needed > HBSelectionShape::MaximumPoints) {
        Q_EMIT Told(tr("The selection has too many corners for one more shape."));
        return false;
    }
    try {
        m_pGesture =
            HBSelectionGesture::Begin(tool, {m_Shape, mode, m_Photo, m_Feather, m_Tolerance, ScreenPixel()}, at);
    } catch (const std::bad_alloc&) {
        return false;
    }
    if (m_pGesture)
        ShowOutline();
    else if (m_Shape.IsNone())
        Q_EMIT Told(tr("There is no selection to be moved."));
    else
        Q_EMIT Told(tr("A selection by color lies where the color is."));
    return m_pGesture != nullptr;
}

void HBSelectionTool::MoveTo(const QPointF& at, bool held, bool regular)
{
    try {
        m_pGesture->MoveTo(at, held, regular);
        ShowOutline();
        Q_EMIT Told(m_pGesture->Measure());
    } catch (const std::bad_alloc&) {
        GiveUp();
    }
}

/// True for the callers that have used an event.
bool HBSelectionTool::End()
{
    HideCrosshair();
    HBSelectionShape drawn;
    QString trouble;
    try {
        drawn = m_pGesture->Selection();
        if (drawn != m_Shape && drawn.shapes.last().combination != HBShape::Combination::Add &&
            !drawn.LooksAtPhoto() && HBSelectsNothing(drawn, m_Photo))
            trouble = tr("Nothing of the selection would be left.");
    } catch (const std::bad_alloc&) {
        trouble = tr("There is not enough memory for this selection.");
    }
    m_pGesture.reset();
    m_Pressed = false;
    if (trouble.isEmpty())
        Put(drawn);
    else
        ShowOutline();
    TakeOptions();
    Q_EMIT Told(trouble);
    return true;
}

/// False if nothing is being drawn.
bool HBSelectionTool::GiveUp()
{
    if (!m_pGesture)
        return false;
    m_pGesture.reset();
    m_Pressed = false;
    ShowOutline();
    TakeOptions();
    Q_EMIT Told({});
    return true;
}

bool HBSelectionTool::eventFilter(QObject* watched, QEvent* event)
{
    bool used = false;
    if (watched == m_pView->scene()) {
        if (auto* mouse = dynamic_cast<QGraphicsSceneMouseEvent*>(event))
            used = OnMouse(mouse);
    } else if (event->type() == QEvent::KeyPress) {
        used = OnKey(*static_cast<QKeyEvent*>(event));
    }
    return used || QObject::eventFilter(watched, event);
}

// ---- Mouse ----

/// The view may show much more than the photo; recipes do not take shapes that are far away.
QPointF HBSelectionTool::PlaceOf(const QGraphicsSceneMouseEvent& event) const
{
    const double width = Beyond * PhotoSize().width();
    const double height = Beyond * PhotoSize().height();
    return {std::clamp(event.scenePos().x(), -width, width), std::clamp(event.scenePos().y(), -height, height)};
}

bool HBSelectionTool::OnMouse(QGraphicsSceneMouseEvent* event)
{
    switch (event->type()) {
    case QEvent::GraphicsSceneMousePress:
    case QEvent::GraphicsSceneMouseDoubleClick:
        return OnPress(event);
    case QEvent::GraphicsSceneMouseMove:
        return OnMove(event);
    case QEvent::GraphicsSceneMouseRelease:
        return OnRelease(event);
    default:
        return false;
    }
}

bool HBSelectionTool::OnPress(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !MayStart(event->scenePos()))
        return false;
    event->accept();
    const QPointF at = PlaceOf(*event);
    if (m_HasCrosshair) { // the keys' drawing is given up
        GiveUp();
        HideCrosshair();
    }
    if (m_pGesture && event->type() == QEvent::GraphicsSceneMouseDoubleClick) {
        if (m_pGesture->Set(at, true))
            End();
        return true;
    }
    m_Began = !m_pGesture;
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    m_Adds = m_Began && (modifiers & Qt::ShiftModifier) && !m_Shape.IsNone();
    const bool moves = m_Tool != Tool::Move && modifiers == Qt::NoModifier && IsWithin(at);
    if (m_Began && !Begin(moves ? Tool::Move : m_Tool, at, modifiers))
        return true;
    m_Pressed = true;
    m_Moved = false;
    m_PressedAt = at;
    return true;
}

bool HBSelectionTool::OnMove(QGraphicsSceneMouseEvent* event)
{
    if (!m_pGesture || m_HasCrosshair) {
        ShowCursor(event->scenePos());
        return false;
    }
    m_Adds = m_Adds && (event->modifiers() & Qt::ShiftModifier);
    const QPointF at = PlaceOf(*event);
    m_Moved |= m_Pressed && QLineF(m_PressedAt, at).length() >= ClickReach * ScreenPixel();
    if (m_Moved || !m_Pressed)
        MoveTo(at, m_Pressed, (event->modifiers() & Qt::ShiftModifier) && !m_Adds);
    return true;
}

bool HBSelectionTool::OnRelease(QGraphicsSceneMouseEvent* event)
{
    if (!m_Pressed || event->button() != Qt::LeftButton)
        return false;
    OnMove(event);
    m_Pressed = false;
    if (!m_pGesture)
        return true;
    if (!m_Moved && !m_pGesture->TakesClicks())
        GiveUp();
    else if (m_pGesture->Set(PlaceOf(*event), m_Began && m_Moved))
        End();
    else
        ShowOutline();
    return true;
}

void HBSelectionTool::ShowCursor(const QPointF& at)
{
    if (m_Tool != Tool::None && m_Tool != Tool::Move)
        m_pView->SetToolCursor(IsWithin(at) ? Qt::SizeAllCursor : Qt::CrossCursor);
}

// ---- Keys ----

bool HBSelectionTool::OnKey(const QKeyEvent& key)
{
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    if (key.key() == Qt::Key_Escape && !modifiers)
        return OnEscape();
    if (m_Tool == Tool::None || PhotoSize().isEmpty() || m_Pressed || m_pView->HasOverrideCursor())
        return false;
    const QPoint way = WayOf(key.key());
    if (!way.isNull() && !(modifiers & ~Qt::ShiftModifier)) {
        const QPointF by = QPointF(way) * (modifiers ? 10 : 1) * std::max(1.0, std::round(ScreenPixel()));
        if (m_Tool == Tool::Move)
            Nudge(by);
        else
            MoveCrosshair(by);
        return true;
    }
    if (key.key() == Qt::Key_Backspace && m_pGesture) {
        m_pGesture->TakeBack();
        ShowOutline();
        return true;
    }
    const bool isPoint = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Space;
    return isPoint && (m_HasCrosshair || m_pGesture) && OnPoint(key);
}

bool HBSelectionTool::OnEscape()
{
    if (GiveUp())
        return true;
    if (m_HasCrosshair) {
        HideCrosshair();
        return true;
    }
    if (m_Shape.IsNone() || !m_EscapeDeselects)
        return false;
    SelectNothing();
    return true;
}

bool HBSelectionTool::OnPoint(const QKeyEvent& key)
{
    const bool last = key.key() != Qt::Key_Space;
    if (!m_HasCrosshair) { // clicks have set corners
        const QPolygonF line = m_pGesture->Line();
        if (last && m_pGesture->Set(line.at(std::max(0, int(line.size()) - 2)), true)) // behind it is the mouse
            End();
        return last;
    }
    if (m_pGesture)
        return !m_pGesture->Set(m_Crosshair, last) || End();
    if (Begin(m_Tool, m_Crosshair, key.modifiers()) && m_Tool == Tool::Color)
        End();
    return true;
}

void HBSelectionTool::MoveCrosshair(const QPointF& by)
{
    if (!m_HasCrosshair) {
        GiveUp(); // of the mouse
        const QRect sight = m_pView->SightArea();
        if (!sight.contains(m_Crosshair.toPoint()) || m_Crosshair.isNull())
            m_Crosshair = sight.center();
        m_HasCrosshair = true;
    }
    m_Crosshair += by;
    m_Crosshair = {std::clamp(m_Crosshair.x(), 0.0, double(PhotoSize().width())),
                   std::clamp(m_Crosshair.y(), 0.0, double(PhotoSize().height()))};
    m_pOutline->SetCrosshair(m_Crosshair);
    m_pView->ensureVisible(QRectF(m_Crosshair, QSizeF(1, 1)), 20, 20);
    const QPoint pixel = m_Crosshair.toPoint();
    Q_EMIT m_pView->PixelHovered({std::min(pixel.x(), PhotoSize().width() - 1),
                                  std::min(pixel.y(), PhotoSize().height() - 1)}); // as if the mouse were there
    if (m_pGesture)
        MoveTo(m_Crosshair, false, false);
}

void HBSelectionTool::Nudge(const QPointF& by)
{
    GiveUp();
    if (!Begin(Tool::Move, {}, {}))
        return;
    m_pGesture->MoveTo(by, false, false);
    const HBSelectionShape moved = m_pGesture->Selection();
    m_pGesture.reset();
    Put(moved, OfNudges);
}

void HBSelectionTool::HideCrosshair()
{
    m_HasCrosshair = false;
    m_pOutline->SetCrosshair(std::nullopt);
}
