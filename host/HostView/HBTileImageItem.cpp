// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTileImageItem.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionGraphicsItem>
#include <QTimer>

HBTileImageItem::HBTileImageItem(QGraphicsItem* parent) : QGraphicsItem(parent)
{
    setFlag(ItemUsesExtendedStyleOption); // for the exposed rectangle
    setAcceptedMouseButtons(Qt::NoButton);
}

void HBTileImageItem::SetImage(const HBImage<>& image)
{
    if (image.Width() != Image().Width() || image.Height() != Image().Height()) {
        prepareGeometryChange();
        m_SightArea = QRect();
        m_Sight.SetImage({});
    }
    const QRegion changed = m_Painter.SetImage(image);
    if (!scene() || !isVisible())
        return;
    // Not update(), which would put all of them together to one rectangle.
    for (const QRect& rect : changed) {
        const QRectF seen = m_Clip.isNull() ? QRectF(rect) : QRectF(rect) & m_Clip;
        if (!seen.isEmpty()) // which would mean the whole scene
            scene()->update(mapRectToScene(seen));
    }
}

void HBTileImageItem::SetLook(const HBTileMips::Look& look)
{
    m_Painter.SetLook(look);
    m_Sight.SetLook(look);
    update();
}

void HBTileImageItem::ShowSight(const HBImage<>& sight, const QRect& area, int level)
{
    const bool moved = area != m_SightArea || level != m_SightLevel;
    m_SightArea = area;
    m_SightLevel = level;
    m_SightEnds = false;
    const QRegion changed = m_Sight.SetImage(sight);
    if (!scene() || !isVisible())
        return;
    if (moved) {
        update();
        return;
    }
    const QTransform toImage = QTransform(1 << level, 0, 0, 1 << level, area.left(), area.top());
    for (const QRect& rect : changed)
        scene()->update(mapRectToScene(toImage.mapRect(QRectF(rect))));
}

void HBTileImageItem::EndSight()
{
    if (m_SightArea.isEmpty())
        return;
    m_SightEnds = true;
    update();
}

void HBTileImageItem::SetClip(const QRectF& clip)
{
    if (clip == m_Clip)
        return;
    m_Clip = clip;
    update();
}

QRectF HBTileImageItem::boundingRect() const
{
    return Image().IsEmpty() ? QRectF() : QRectF(0, 0, Image().Width(), Image().Height());
}

void HBTileImageItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*)
{
    QRectF exposed = option->exposedRect & boundingRect();
    if (!m_Clip.isNull())
        exposed &= m_Clip;
    if (exposed.isEmpty())
        return;
    painter->save();
    if (!m_Clip.isNull())
        painter->setClipRect(m_Clip, Qt::IntersectClip);
    const bool whole =
        m_SightArea.isEmpty() ? m_Painter.Paint(painter, exposed) : PaintWithSight(painter, exposed);
    painter->restore();
    if (whole)
        return;
    // The rest with the next turn of the event loop; by then the scene may be gone.
    QTimer::singleShot(0, scene(), [scene = QPointer<QGraphicsScene>(scene())] {
        if (scene)
            scene->update();
    });
}

bool HBTileImageItem::PaintWithSight(QPainter* painter, const QRectF& exposed)
{
    const QRectF area = QRectF(m_SightArea) & boundingRect();
    const bool covered = area.contains(exposed);
    // What it covers is shrunken only when it is to be seen.
    bool whole = true;
    if (m_SightEnds || !covered)
        whole = m_Painter.Paint(painter, exposed);
    if (m_SightEnds && whole) {
        m_SightArea = QRect();
        m_Sight.SetImage({});
        return true;
    }
    painter->save();
    painter->setClipRect(area, Qt::IntersectClip);
    painter->translate(m_SightArea.topLeft());
    painter->scale(1 << m_SightLevel, 1 << m_SightLevel);
    const QRectF part = (exposed & area).translated(-m_SightArea.topLeft());
    whole &=
        m_Sight.Paint(painter, QRectF(part.topLeft() / (1 << m_SightLevel), part.size() / (1 << m_SightLevel)));
    painter->restore();
    return whole;
}
