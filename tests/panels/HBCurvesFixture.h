// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelFixture.h"
#include "HBPickedDocument.h"

#include <ControlNode.h>
#include <HBCurvesWidget.h>
#include <HistogramWidget.h>
#include <MavuCustomSlider.h>

#include <QComboBox>
#include <QGraphicsPathItem>
#include <QGraphicsView>
#include <QLineEdit>
#include <QToolButton>

using HBPoints = QVector<QPoint>;
inline const HBPoints Default = {{0, 0}, {255, 255}};
inline const HBPoints Bent = {{0, 0}, {100, 120}, {255, 255}};

inline void HBClickScene(QGraphicsScene* scene, const QPointF& position, Qt::MouseButton button = Qt::LeftButton) {
    HBSceneMouse(scene, QEvent::GraphicsSceneMousePress, position, button);
    HBSceneMouse(scene, QEvent::GraphicsSceneMouseRelease, position, button);
}

/// An editor of a curve. The scene's y grows downward: level y is at 255 - y.
struct HBCurveUser {
    explicit HBCurveUser(QGraphicsScene* editor) : scene(editor) {}
    virtual ~HBCurveUser() = default;
    virtual HBPoints Points() const = 0;

    /// In the order in which they were put into the scene.
    template <class Item>
    QVector<Item*> Items() const {
        QVector<Item*> found;
        for (QGraphicsItem* item : scene->items(Qt::AscendingOrder)) {
            if (auto* match = dynamic_cast<Item*>(item)) found += match;
        }
        return found;
    }
    /// Of the curve as it is drawn, line by line.
    QVector<QPointF> Drawn() const {
        const QPainterPath path = Items<QGraphicsPathItem>()[0]->path();
        QVector<QPointF> elements;
        for (int i = 0; i < path.elementCount(); ++i) elements += path.elementAt(i);
        return elements;
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
        const auto nodes = Items<ControlNode>();
        const HBPoints points = Points();
        return nodes.size() == points.size() &&
               std::all_of(points.begin(), points.end(), [&](const QPoint& point) {
                   return std::any_of(nodes.begin(), nodes.end(),
                                      [&](const ControlNode* node) { return node->pos() == View(point); });
               });
    }

    void Press(const QPoint& point) { HBSceneMouse(scene, QEvent::GraphicsSceneMousePress, View(point)); }
    void Drag(const QPoint& point) { HBSceneMouse(scene, QEvent::GraphicsSceneMouseMove, View(point)); }
    void Release(const QPoint& point) { HBSceneMouse(scene, QEvent::GraphicsSceneMouseRelease, View(point)); }
    void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(scene, &event);
    }
    static QPointF View(const QPoint& point) { return QPointF(point.x(), 255 - point.y()); }

    QGraphicsScene* const scene;
};

/// The curves panel and its editor.
struct HBCurvesFixture : HBPanelFixture<HBCurvesWidget>, HBCurveUser {
    explicit HBCurvesFixture(bool dialog = true)
        : HBPanelFixture(dialog)
        , HBCurveUser(Find<QGraphicsView>("m_pCurveView")->scene()) {}

    HBPoints Points() const override { return panel.GetValue().points[panel.GetValue().channel]; }
    /// Shows these points in a channel.
    void Set(const HBPoints& points, int index = 0) {
        HBCurvesWidget::Params params;
        params.channel = index;
        params.points[index] = points;
        panel.SetValue(params);
    }
    QString Edits() const { return input->text() + ' ' + output->text(); }

    QComboBox* channel = Find<QComboBox>("m_pChannel");
    HistogramWidget* histogram = Find<HistogramWidget>("m_pHistogramm");
    QGraphicsView* view = Find<QGraphicsView>("m_pCurveView");
    MavuCustomSlider* slider = Find<MavuCustomSlider>("m_pInputSlider");
    QLineEdit* input = Find<QLineEdit>("m_pInputSpin");
    QLineEdit* output = Find<QLineEdit>("m_pOutputSpin");
    QToolButton* black = Find<QToolButton>("m_pBlack");
    QToolButton* gray = Find<QToolButton>("m_pGray");
    QToolButton* white = Find<QToolButton>("m_pWhite");
};
