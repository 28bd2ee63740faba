// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionOutline.h"

#include "HBSightCoverage.h"

#include <KMDocumentView.h>

#include <QEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <functional>
#include <new>

namespace
{

constexpr int DashPeriod = 8;     // pixels, half of them black
constexpr int StepInterval = 120; // ms
constexpr int CellSide = 32;      // of the raster in which changes are counted
constexpr int ArmLength = 20;     // of the crosshair, pixels

// Numbers of pixels in the image of the lines; those from 1 on are the dashes, by their place in the period.
constexpr uchar Nothing = 0;
constexpr uchar FirstDash = 1;
constexpr uchar LightDot = FirstDash + DashPeriod;
constexpr uchar DarkDot = LightDot + 1;

QVector<QRgb> Colors(int phase)
{
    QVector<QRgb> colors{0};
    for (int i = 0; i < DashPeriod; ++i)
        colors.append((i + phase) % DashPeriod < DashPeriod / 2 ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
    colors.append(qRgba(255, 255, 255, 170));
    colors.append(qRgba(0, 0, 0, 170));
    return colors;
}

/// Which row of a coverage is at each row of the screen, counted from one before the frame; -1: beside the photo.
std::vector<int> Places(int first, int count, double scale, double shift, int photo, int from, int length,
                        int rows)
{
    std::vector<int> places;
    for (int i = -1; i <= count; ++i) {
        const double at = (first + i + 0.5 - shift) / scale; // in pixels of the photo
        const int place = int(std::floor((at - from) * rows / length));
        places.push_back(at < 0 || at >= photo ? -1 : std::clamp(place, 0, rows - 1));
    }
    return places;
}

void DrawOnBoth(QPainter* painter, const std::function<void()>& draw)
{
    QPen pen(Qt::white, 1);
    painter->setPen(pen);
    draw();
    pen.setColor(Qt::black);
    pen.setDashPattern({4, 4});
    painter->setPen(pen);
    draw();
}

} // namespace

HBSelectionOutline::HBSelectionOutline(KMDocumentView* view) : m_pView(view)
{
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(10);
    m_Step.setInterval(StepInterval);
    QObject::connect(&m_Step, &QTimer::timeout, this, &HBSelectionOutline::Advance);
    QObject::connect(view, &KMDocumentView::SightChanged, this, &HBSelectionOutline::Update);
    view->scene()->addItem(this);
    view->viewport()->installEventFilter(this);
}

void HBSelectionOutline::SetPhoto(const HBImage<>& photo)
{
    if (m_Photo.IsSameAs(photo))
        return;
    m_Photo = photo;
    Update();
}

void HBSelectionOutline::Show(const HBSelectionShape& selection, const QPolygonF& line)
{
    m_Selection = selection;
    m_Line = line;
    Update();
}

void HBSelectionOutline::SetCrosshair(const std::optional<QPointF>& at)
{
    m_Crosshair = at;
    m_pView->viewport()->update();
}

QRectF HBSelectionOutline::boundingRect() const
{
    // Lines and the crosshair's arms may reach beyond the photo.
    const QRectF photo = m_pView->PictureRect();
    const QRectF wide = photo.adjusted(-photo.width(), -photo.height(), photo.width(), photo.height());
    return photo.isEmpty() ? photo : wide.united(m_Line.boundingRect());
}

void HBSelectionOutline::Update()
{
    prepareGeometryChange();
    m_Stale = true;
    MoveOrRest();
    m_pView->viewport()->update();
}

// ---- The moving dashes ----

/// Not in a window that is hidden or minimized, nor where the desktop wants no animations.
void HBSelectionOutline::MoveOrRest()
{
    const bool moves = !m_Selection.IsNone() && m_pView->viewport()->isVisible() &&
                       m_pView->style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
    if (moves && !m_Step.isActive())
        m_Step.start();
    else if (!moves)
        m_Step.stop();
}

void HBSelectionOutline::Advance()
{
    m_Phase = (m_Phase + 1) % DashPeriod;
    if (!m_Edges.isNull())
        m_Edges.setColorTable(Colors(m_Phase));
    m_pView->viewport()->update(m_Moving);
}

bool HBSelectionOutline::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
        QTimer::singleShot(0, this, &HBSelectionOutline::MoveOrRest); // it is so only behind the event
    if (event->type() == QEvent::Resize)
        Update();
    return QGraphicsObject::eventFilter(watched, event);
}

// ---- The lines ----

void HBSelectionOutline::Trace()
{
    m_Stale = false;
    m_Edges = QImage();
    m_Moving = QRegion();
    const QRect part = m_pView->SightArea() & QRect(0, 0, m_Photo.Width(), m_Photo.Height());
    if (m_Selection.IsNone() || part.isEmpty() || m_Photo.IsEmpty())
        return;
    const QTransform toView = m_pView->viewportTransform();
    const double scale = toView.m11();
    const QRect frame = toView.mapRect(QRectF(part)).toAlignedRect() & m_pView->viewport()->rect();
    const auto shown = [&](int length) { return std::clamp(int(std::lround(length * scale)), 1, length); };
    const QSize size(shown(part.width()), shown(part.height()));
    const QImage covered = HBCoverageInSight(m_Selection, m_Photo, part, size);
    const std::vector<int> columns = Places(frame.left(), frame.width(), scale, toView.dx(), m_Photo.Width(),
                                            part.left(), part.width(), size.width());
    const std::vector<int> rows = Places(frame.top(), frame.height(), scale, toView.dy(), m_Photo.Height(),
                                         part.top(), part.height(), size.height());
    // With a margin of one pixel all round.
    std::vector<uchar> coverage(rows.size() * columns.size());
    for (std::size_t y = 0; y < rows.size(); ++y) {
        const uchar* const line = rows[y] < 0 ? nullptr : covered.constScanLine(rows[y]);
        for (std::size_t x = 0; line && x < columns.size(); ++x)
            coverage[y * columns.size() + x] = columns[x] < 0 ? 0 : line[columns[x]];
    }
    const bool soft = std::any_of(m_Selection.shapes.begin(), m_Selection.shapes.end(), [](const HBShape& shape) {
        return shape.kind == HBShape::Kind::Gradient || shape.feather > 0;
    });
    FindEdges(coverage, frame, soft);
}

void HBSelectionOutline::FindEdges(const std::vector<uchar>& coverage, const QRect& frame, bool soft)
{
    const int width = frame.width();
    const int stride = width + 2;
    m_Edges = QImage(frame.size(), QImage::Format_Indexed8);
    if (m_Edges.isNull())
        throw std::bad_alloc();
    m_Edges.fill(Nothing);
    m_Edges.setColorTable(Colors(m_Phase));
    m_EdgesAt = frame.topLeft();
    const auto cells = [](int length) { return (length + CellSide - 1) / CellSide; };
    std::vector<bool> moving(std::size_t(cells(width) * cells(frame.height())));
    for (int y = 0; y < frame.height(); ++y) {
        uchar* const line = m_Edges.scanLine(y);
        for (int x = 0; x < width; ++x) {
            const uchar* const at = coverage.data() + (y + 1) * stride + x + 1;
            const uchar own = *at;
            if (own == 0)
                continue;
            const uchar least = std::min({at[-1], at[1], at[-stride], at[stride]});
            if (least == own && own == 255)
                continue;
            const int place = x + frame.left() + y + frame.top();
            if (own >= 128 && least < 128) {
                line[x] = uchar(FirstDash + place % DashPeriod);
                moving[std::size_t(y / CellSide * cells(width) + x / CellSide)] = true;
            } else if (soft && (least == 0 || own == 255)) {
                line[x] = place % 4 < 2 ? LightDot : DarkDot;
            }
        }
    }
    for (int row = 0; row < cells(frame.height()); ++row) {
        for (int column = 0; column < cells(width); ++column) {
            if (moving[std::size_t(row * cells(width) + column)])
                m_Moving += QRect(frame.topLeft() + QPoint(column, row) * CellSide, QSize(CellSide, CellSide));
        }
    }
}

void HBSelectionOutline::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    try {
        if (m_Stale)
            Trace();
    } catch (const std::bad_alloc&) {
        m_Edges = QImage(); // the selection is there though it is not seen
    }
    const QTransform toView = m_pView->viewportTransform();
    painter->save();
    painter->resetTransform();
    painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    if (!m_Edges.isNull())
        painter->drawImage(m_EdgesAt, m_Edges);
    if (m_Line.size() > 1)
        DrawOnBoth(painter, [&] { painter->drawPolyline(toView.map(m_Line)); });
    if (m_Crosshair) {
        const QPointF at = toView.map(*m_Crosshair);
        DrawOnBoth(painter, [&] {
            painter->drawLine(at - QPointF(ArmLength, 0), at + QPointF(ArmLength, 0));
            painter->drawLine(at - QPointF(0, ArmLength), at + QPointF(0, ArmLength));
        });
    }
    painter->restore();
}
