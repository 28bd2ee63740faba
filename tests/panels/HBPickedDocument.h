// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSignalRecorder.h"

#include <HBImage.h>
#include <KMDocumentView.h>
#include <KMPixelRatioRound.h>

#include <QApplication>
#include <QGraphicsSceneMouseEvent>

/// Sends a mouse event to a scene as its views do.
inline void HBSceneMouse(QGraphicsScene* scene, QEvent::Type type, const QPointF& position,
                         Qt::MouseButton button = Qt::LeftButton) {
    QGraphicsSceneMouseEvent event(type);
    event.setScenePos(position);
    event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : button);
    event.setButtons(type == QEvent::GraphicsSceneMouseRelease ? Qt::NoButton : button);
    QApplication::sendEvent(scene, &event);
}

/// A document to pick from. Scene coordinates times the screen's ratio are pixels of the photo.
struct HBPickedDocument {
    HBPickedDocument() { view.setScene(&scene); }

    /// 100 × 80 black pixels, with one block of a colour.
    static HBImage<> Photo(const QRect& block, QRgb color) {
        QImage image(100, 80, QImage::Format_ARGB32);
        image.fill(Qt::black);
        for (int y = block.top(); y <= block.bottom(); ++y) {
            for (int x = block.left(); x <= block.right(); ++x) image.setPixel(x, y, color);
        }
        return HBImage<>::FromQImage(image);
    }

    QPoint InScene(const QPoint& pixel) const { return QPoint(pixel.x() / ratio, pixel.y() / ratio); }
    void Start(const QPoint& pixel, Qt::MouseButton button = Qt::LeftButton) {
        HBSceneMouse(view.scene(), QEvent::GraphicsSceneMousePress, InScene(pixel), button);
    }
    void End(const QPoint& pixel, Qt::MouseButton button = Qt::LeftButton) {
        HBSceneMouse(view.scene(), QEvent::GraphicsSceneMouseRelease, InScene(pixel), button);
    }
    /// Drags over these pixels, corners included.
    void Pick(const QRect& pixels) {
        Start(pixels.topLeft());
        End(pixels.bottomRight());
    }
    bool HasPickerCursor() const {
        const QCursor cursor = view.viewport()->cursor();
        return !cursor.pixmap().isNull() && cursor.hotSpot() == QPoint(2, 14);
    }

    const int ratio = int(KMPixelRatioRound::GetPixelRatio());
    QGraphicsScene scene{0, 0, 100, 80};
    KMDocumentView view;
};

/// Delivers, too, what the released jobs have posted.
struct HBSettlingPoolBlock : HBPoolBlock {
    ~HBSettlingPoolBlock() { Release(); }
    void Release() {
        HBPoolBlock::Release();
        HBSettle();
    }
};
