// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelFixture.h"

#include <ControlNode.h>
#include <HBCurvesWidget.h>
#include <HistogramWidget.h>
#include <MavuCustomSlider.h>

#include <QApplication>
#include <QComboBox>
#include <QGraphicsPathItem>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QLineEdit>
#include <QToolButton>

using HBPoints = QVector<QPoint>;

/// Sends a mouse event to a scene as its views do.
inline void HBSceneMouse(QGraphicsScene* scene, QEvent::Type type, const QPointF& position,
                         Qt::MouseButton button = Qt::LeftButton) {
    QGraphicsSceneMouseEvent event(type);
    event.setScenePos(position);
    event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : button);
    event.setButtons(type == QEvent::GraphicsSceneMouseRelease ? Qt::NoButton : button);
    QApplication::sendEvent(scene, &event);
}

inline void HBClickScene(QGraphicsScene* scene, const QPointF& position, Qt::MouseButton button = Qt::LeftButton) {
    HBSceneMouse(scene, QEvent::GraphicsSceneMousePress, position, button);
    HBSceneMouse(scene, QEvent::GraphicsSceneMouseRelease, position, button);
}

/// The curves panel and its editor. The scene's y grows downward: level y is at 255 - y.
struct HBCurvesFixture : HBPanelFixture<HBCurvesWidget> {
    using HBPanelFixture::HBPanelFixture;

    HBPoints Points() const { return panel.GetValue().points[panel.GetValue().channel]; }
    /// Shows these points in a channel.
    void Set(const HBPoints& points, int index = 0) {
        HBCurvesWidget::Params params;
        params.channel = index;
        params.points[index] = points;
        panel.SetValue(params);
    }

    /// In the order in which they were put into the scene.
    template <class Item>
    QVector<Item*> Items() const {
        QVector<Item*> found;
        for (QGraphicsItem* item : scene->items(Qt::AscendingOrder)) {
            if (auto* match = dynamic_cast<Item*>(item)) found += match;
        }
        return found;
    }
    ControlNode* NodeAt(const QPoint& point) const {
        for (ControlNode* node : Items<ControlNode>()) {
            if (node->pos() == QPointF(point.x(), 255 - point.y())) return node;
        }
        return nullptr;
    }
    /// The points whose nodes are sunken: one or none.
    HBPoints Selected() const {
        HBPoints found;
        for (const ControlNode* node : Items<ControlNode>()) {
            if (node->isSunken()) found += QPoint(int(node->pos().x()), 255 - int(node->pos().y()));
        }
        return found;
    }
    /// One node per point, where it is.
    bool NodesFit() const {
        const HBPoints points = Points();
        return Items<ControlNode>().size() == points.size() &&
               std::all_of(points.begin(), points.end(), [this](const QPoint& p) { return NodeAt(p) != nullptr; });
    }
    QString Edits() const { return input->text() + ' ' + output->text(); }

    void Press(const QPoint& point) { HBSceneMouse(scene, QEvent::GraphicsSceneMousePress, View(point)); }
    void Drag(const QPoint& point) { HBSceneMouse(scene, QEvent::GraphicsSceneMouseMove, View(point)); }
    void Release(const QPoint& point) { HBSceneMouse(scene, QEvent::GraphicsSceneMouseRelease, View(point)); }
    static QPointF View(const QPoint& point) { return QPointF(point.x(), 255 - point.y()); }

    QComboBox* channel = Find<QComboBox>("m_pChannel");
    HistogramWidget* histogram = Find<HistogramWidget>("m_pHistogramm");
    QGraphicsView* view = Find<QGraphicsView>("m_pCurveView");
    QGraphicsScene* scene = view->scene();
    MavuCustomSlider* slider = Find<MavuCustomSlider>("m_pInputSlider");
    QLineEdit* input = Find<QLineEdit>("m_pInputSpin");
    QLineEdit* output = Find<QLineEdit>("m_pOutputSpin");
    QToolButton* black = Find<QToolButton>("m_pBlack");
    QToolButton* gray = Find<QToolButton>("m_pGray");
    QToolButton* white = Find<QToolButton>("m_pWhite");
};
