// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayBox.h"

#include <HBAdjustmentWidget.h>
#include <HBSign.h>
#include <HBWatermark.h>
#include <KMDocumentView.h>

#include <QFontMetricsF>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

constexpr double GripSide = 14; // on the screen
constexpr double FirstPoints = 48;
constexpr double LeastPoints = 1;
constexpr double MostPoints = 750; // a thousand units

/// Pixels of the photo in a unit of the records, a thousandth of its shorter side.
double UnitOf(const HBImage<>& photo)
{
    return std::min(photo.Width(), photo.Height()) / 1000.0;
}

QRectF Between(const HBImage<>& photo, const QRect& margins)
{
    const double unit = UnitOf(photo);
    return QRectF(QPointF(margins.left() * unit, margins.top() * unit),
                  QPointF(photo.Width() - margins.right() * unit, photo.Height() - margins.bottom() * unit));
}

/// What fits between, as large as it wants to be or smaller.
QRectF Placed(const QSizeF& wanted, const QRectF& between, Qt::Alignment alignment)
{
    if (wanted.isEmpty() || between.width() < 1 || between.height() < 1)
        return {};
    const double scale = std::min({1.0, between.width() / wanted.width(), between.height() / wanted.height()});
    QRectF rect(between.topLeft(), wanted * scale);
    if (alignment & Qt::AlignLeft)
        rect.moveLeft(between.left());
    else if (alignment & Qt::AlignRight)
        rect.moveRight(between.right());
    else
        rect.moveLeft(between.center().x() - rect.width() / 2);
    if (alignment & Qt::AlignTop)
        rect.moveTop(between.top());
    else if (alignment & Qt::AlignBottom)
        rect.moveBottom(between.bottom());
    else
        rect.moveTop(between.center().y() - rect.height() / 2);
    return rect;
}

double PointsOf(const QFont& font)
{
    const double points = font.pixelSize() > 0 ? font.pixelSize() * 0.75 : font.pointSizeF();
    return points > 0 ? points : 12;
}

QSizeF TextSize(const HBWatermarkParams& params, double unit)
{
    QFont font = params.font;
    constexpr int pixels = 256;
    font.setPixelSize(pixels);
    const QSizeF size = QFontMetricsF(font).size(0, params.text);
    return size * (PointsOf(params.font) * 4 / 3 / pixels * unit);
}

/// Moves what is aligned between two margins, which must not fall below 0.
void Shift(int* near, int* far, int by, bool alignedNear, bool alignedFar)
{
    if (alignedNear) {
        *near = std::clamp(*near + by, 0, 999);
    } else if (alignedFar) {
        *far = std::clamp(*far - by, 0, 999);
    } else {
        // The middle moves by half of what a margin does. What there is of the margin ahead goes first.
        int* const ahead = by > 0 ? far : near;
        int* const behind = by > 0 ? near : far;
        const int left = 2 * std::abs(by) - std::min(*ahead, 2 * std::abs(by));
        *ahead = std::max(0, *ahead - 2 * std::abs(by));
        *behind = std::min(999, *behind + left);
    }
}

void Shift(QRect* margins, const QPoint& by, Qt::Alignment alignment)
{
    int sides[4];
    margins->getCoords(&sides[0], &sides[1], &sides[2], &sides[3]);
    Shift(&sides[0], &sides[2], by.x(), alignment & Qt::AlignLeft, alignment & Qt::AlignRight);
    Shift(&sides[1], &sides[3], by.y(), alignment & Qt::AlignTop, alignment & Qt::AlignBottom);
    margins->setCoords(sides[0], sides[1], sides[2], sides[3]);
}

/// The panel's record, if it is of this kind, changed.
template <class Record, class Change>
void ChangeRecord(HBPanelSession* session, Change change)
{
    std::any record = session->Entry().get(*session->Panel());
    if (auto* own = std::any_cast<Record>(&record)) {
        change(*own);
        session->Entry().set(*session->Panel(), record);
        session->Refresh();
    }
}

} // namespace

/// Dashes around what is laid over the photo, and a grip at the corner: the same size at any zoom.
class HBOverlayBoxItem : public QGraphicsItem
{
public:
    HBOverlayBoxItem(HBOverlayBox* box, KMDocumentView* view) : m_pBox(box), m_pView(view)
    {
        setZValue(8);
        setAcceptedMouseButtons(Qt::LeftButton);
        setAcceptHoverEvents(true);
        setCursor(Qt::SizeAllCursor);
    }

    void Changed()
    {
        prepareGeometryChange();
        setVisible(!m_pBox->Box().isEmpty());
        update();
    }

    QRectF boundingRect() const override
    {
        const double grip = Grip();
        return m_pBox->Box().isEmpty() ? QRectF() : m_pBox->Box().adjusted(-grip, -grip, grip, grip);
    }
    QPainterPath shape() const override
    {
        QPainterPath path;
        path.addRect(m_pBox->Box());
        path.addRect(GripRect());
        return path;
    }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        QPen pen(Qt::white, 1);
        pen.setCosmetic(true);
        painter->setPen(pen);
        painter->drawRect(m_pBox->Box());
        pen.setColor(Qt::black);
        pen.setDashPattern({4, 4});
        painter->setPen(pen);
        painter->drawRect(m_pBox->Box());
        pen.setStyle(Qt::SolidLine);
        painter->setPen(pen);
        painter->setBrush(Qt::white);
        painter->drawRect(GripRect());
    }

protected:
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override
    {
        setCursor(GripRect().contains(event->pos()) ? Qt::SizeFDiagCursor : Qt::SizeAllCursor);
    }
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override
    {
        m_Sizes = GripRect().contains(event->pos());
        m_From = event->scenePos();
    }
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override
    {
        const QRectF before = m_pBox->Box();
        const QPointF by = event->scenePos() - m_From;
        if (m_Sizes)
            m_pBox->Resize(by);
        else
            m_pBox->Move(by);
        // What margins in whole units could not follow stays to be done.
        const QRectF after = m_pBox->Box();
        m_From += m_Sizes ? after.bottomRight() - before.bottomRight() : after.topLeft() - before.topLeft();
    }

private:
    double Grip() const { return GripSide / std::max(1e-6, m_pView->transform().m11()); }
    QRectF GripRect() const
    {
        const double side = Grip();
        return {m_pBox->Box().bottomRight() - QPointF(side / 2, side / 2), QSizeF(side, side)};
    }

    HBOverlayBox* const m_pBox;
    KMDocumentView* const m_pView;
    QPointF m_From;
    bool m_Sizes = false;
};

bool HBOverlayBox::IsFor(const HBPanelEntry& entry)
{
    const QByteArray name = entry.className;
    return name == "HBSignWidget" || name == "HBWatermarkWidget";
}

void HBOverlayBox::SetFirstSize(HBPanelSession* session)
{
    ChangeRecord<HBWatermarkParams>(session, [](HBWatermarkParams& params) {
        if (params.font == HBWatermarkParams().font)
            params.font.setPointSizeF(FirstPoints);
    });
}

HBOverlayBox::HBOverlayBox(HBPanelSession* session, KMDocumentView* view)
    : QObject(session)
    , m_pSession(session)
    , m_pView(view)
    , m_pItem(new HBOverlayBoxItem(this, view))
{
    view->scene()->addItem(m_pItem);
    connect(session, &HBPanelSession::PreviewReady, this, &HBOverlayBox::Find);
    connect(view, &KMDocumentView::ZoomChanged, this, [this] { m_pItem->Changed(); });
    Find();
}

HBOverlayBox::~HBOverlayBox()
{
    if (m_pView)
        delete m_pItem; // else it went with its scene
}

void HBOverlayBox::Find()
{
    const HBImage<>& photo = m_pSession->Target().source;
    m_Box = QRectF();
    if (!photo.IsEmpty() && m_pSession->Panel()) {
        const std::any record = m_pSession->Entry().get(*m_pSession->Panel());
        const double unit = UnitOf(photo);
        if (const auto* sign = std::any_cast<HBSignParams>(&record)) {
            const QSize stamp = sign->fileName.isEmpty() ? QSize() : QImageReader(sign->fileName).size();
            m_Box = Placed(QSizeF(stamp) * unit, Between(photo, sign->margins), sign->alignment);
        } else if (const auto* text = std::any_cast<HBWatermarkParams>(&record)) {
            const QRectF between = Between(photo, text->margins);
            const bool single = text->horizontalTiles == 1 && text->verticalTiles == 1 && text->angle == 0;
            m_Box = single ? Placed(TextSize(*text, unit), between, Qt::AlignCenter) : between;
        }
    }
    m_pItem->Changed();
}

void HBOverlayBox::Move(const QPointF& by)
{
    const double unit = UnitOf(m_pSession->Target().source);
    const QPoint units(qRound(by.x() / unit), qRound(by.y() / unit));
    if (units.isNull() || !m_pSession->Panel())
        return;
    ChangeRecord<HBSignParams>(m_pSession,
                               [&](HBSignParams& params) { Shift(&params.margins, units, params.alignment); });
    ChangeRecord<HBWatermarkParams>(
        m_pSession, [&](HBWatermarkParams& params) { Shift(&params.margins, units, Qt::AlignCenter); });
    Find();
}

/// A stamp becomes smaller by having less room, on the side that it is not aligned to.
void HBOverlayBox::Resize(const QPointF& by)
{
    const HBImage<>& photo = m_pSession->Target().source;
    if (m_Box.isEmpty() || !m_pSession->Panel())
        return;
    const double unit = UnitOf(photo);
    const double scale = std::max(0.02, 1 + std::max(by.x() / m_Box.width(), by.y() / m_Box.height()));
    const QRectF box = m_Box;
    ChangeRecord<HBSignParams>(m_pSession, [&](HBSignParams& params) {
        int sides[4];
        params.margins.getCoords(&sides[0], &sides[1], &sides[2], &sides[3]);
        const double spare = photo.Width() - box.width() * scale;
        if (params.alignment & Qt::AlignLeft)
            sides[2] = std::clamp(int(spare / unit) - sides[0], 0, 999);
        else if (params.alignment & Qt::AlignRight)
            sides[0] = std::clamp(int(spare / unit) - sides[2], 0, 999);
        else
            sides[0] = sides[2] = std::clamp(int(spare / unit / 2), 0, 999);
        params.margins.setCoords(sides[0], sides[1], sides[2], sides[3]);
    });
    ChangeRecord<HBWatermarkParams>(m_pSession, [&](HBWatermarkParams& params) {
        params.font.setPointSizeF(std::clamp(PointsOf(params.font) * scale, LeastPoints, MostPoints));
    });
    Find();
}
