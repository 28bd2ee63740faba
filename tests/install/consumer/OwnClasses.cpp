// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// Classes of the program whose names the panels' host uses too, with another layout.
#include <QGraphicsObject>
#include <QWidget>

class HistogramWidget : public QWidget {
public:
    HistogramWidget(QWidget* parent, Qt::WindowFlags flags);
    ~HistogramWidget() override;

    int m_Own[1000] = {};
};

HistogramWidget::HistogramWidget(QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags) {
    qFatal("A panel has made the program's HistogramWidget");
}

HistogramWidget::~HistogramWidget() = default;

class ControlNode : public QGraphicsObject {
public:
    explicit ControlNode(QGraphicsItem* parent);

    int m_Own[1000] = {};
    QRectF boundingRect() const override { return {}; }
    void paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) override {}
};

ControlNode::ControlNode(QGraphicsItem* parent) : QGraphicsObject(parent) {
    qFatal("A panel has made the program's ControlNode");
}
