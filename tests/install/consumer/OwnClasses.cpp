// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// What a program may have of its own: classes whose names the panels' host uses too, or once did, with another
// layout, and the functions that rcc makes of a theme.qrc.
#include <QGraphicsObject>
#include <QWidget>

#include <array>

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

struct HistogramShape {
    using Levels = std::array<quint64, 256>;
    static double Ceiling(const Levels& counts);
};

double HistogramShape::Ceiling(const Levels&) { qFatal("A panel has asked the program's HistogramShape"); }

int qInitResources_theme() { return 1; }

int qCleanupResources_theme() { return 1; }
