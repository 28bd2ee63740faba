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
    if (image.Width() != Image().Width() || image.Height() != Image().Height())
        prepareGeometryChange();
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
    const bool whole = m_Painter.Paint(painter, exposed);
    painter->restore();
    if (whole)
        return;
    // The rest with the next turn of the event loop; by then the scene may be gone.
    QTimer::singleShot(0, scene(), [scene = QPointer<QGraphicsScene>(scene())] {
        if (scene)
            scene->update();
    });
}
