// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <ControlNode.h>
#include <HBTestMain.h>

#include <QAccessible>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPointer>

class TestControlNode : public QObject {
    Q_OBJECT
private slots:
    void HitArea_data();
    void HitArea();
    void LooksTheSameInAnyView_data();
    void LooksTheSameInAnyView();
    void PressesStayWithTheNode();
    void SlotsMayDeleteTheNode();
    void AssistiveTechnology();
};

void TestControlNode::HitArea_data() {
    QTest::addColumn<QPointF>("offset");
    QTest::addColumn<bool>("hit");
    QTest::newRow("centre") << QPointF(0, 0) << true;
    QTest::newRow("inside") << QPointF(3.9, -3.9) << true;
    QTest::newRow("right of it") << QPointF(4.1, 0) << false;
    QTest::newRow("below it") << QPointF(0, 4.1) << false;
}

void TestControlNode::HitArea() {
    QFETCH(QPointF, offset);
    QGraphicsScene scene(0, 0, 255, 255);
    QGraphicsView view(&scene);
    auto* node = new ControlNode(nullptr);
    scene.addItem(node);
    node->setPos(100, 80);
    for (const qreal scale : {0.5, 1.0, 6.0}) {
        view.setTransform(QTransform::fromScale(scale, 2 * scale));
        QTEST(scene.itemAt(node->pos() + offset, view.viewportTransform()) == node, "hit");
    }
}

void TestControlNode::LooksTheSameInAnyView_data() {
    QTest::addColumn<qreal>("x");
    QTest::addColumn<qreal>("y");
    QTest::newRow("as it is") << 1.0 << 1.0;
    QTest::newRow("stretched") << 3.0 << 0.5;
    QTest::newRow("large") << 5.0 << 5.0;
}

void TestControlNode::LooksTheSameInAnyView() {
    QFETCH(qreal, x);
    QFETCH(qreal, y);
    QGraphicsScene scene(0, 0, 255, 255);
    scene.setBackgroundBrush(QColor(90, 140, 90));
    QGraphicsView view(&scene);
    view.resize(300, 300);
    view.show(); // a view lays itself out only then
    auto* node = new ControlNode(nullptr);
    scene.addItem(node);
    node->setPos(100, 80);
    view.setTransform(QTransform::fromScale(x, y));
    view.centerOn(node);
    const auto extent = [&] {
        const QImage image = view.viewport()->grab().toImage();
        QRect drawn;
        for (int row = 0; row < image.height(); ++row)
            for (int column = 0; column < image.width(); ++column)
                if (image.pixelColor(column, row) != QColor(90, 140, 90)) drawn |= QRect(column, row, 1, 1);
        return drawn.size();
    };
    const QSize normal = extent();
    QVERIFY2(qAbs(normal.width() - 10) <= 2 && qAbs(normal.height() - 10) <= 2,
             qPrintable(QStringLiteral("%1 x %2").arg(normal.width()).arg(normal.height())));
    node->setSunken(true);
    QVERIFY(node->isSunken());
    QVERIFY(extent().width() > normal.width());
    node->setSunken(false);
    QCOMPARE(extent(), normal);
}

void TestControlNode::PressesStayWithTheNode() {
    QGraphicsScene scene(0, 0, 255, 255);
    QGraphicsView view(&scene);
    view.setDragMode(QGraphicsView::RubberBandDrag);
    view.resize(300, 300);
    auto* node = new ControlNode(nullptr);
    node->setPos(100, 80);
    scene.addItem(node);
    QVector<Qt::MouseButton> buttons;
    QSignalSpy pressed(node, SIGNAL(mousePressed(ControlNode*,Qt::MouseButton)));
    QSignalSpy released(node, SIGNAL(mouseReleased(ControlNode*,Qt::MouseButton)));
    connect(node, &ControlNode::mousePressed, [&](ControlNode* which, Qt::MouseButton button) {
        QCOMPARE(which, node);
        buttons << button;
    });
    const QPoint at = view.mapFromScene(node->pos());
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        QTest::mousePress(view.viewport(), button, {}, at);
        QVERIFY(view.rubberBandRect().isNull());
        QTest::mouseRelease(view.viewport(), button, {}, at);
    }
    QCOMPARE(buttons, (QVector<Qt::MouseButton>{Qt::LeftButton, Qt::RightButton}));
    QCOMPARE(pressed.count(), 2);
    QCOMPARE(released.count(), 2);
    QCOMPARE(node->pos(), QPointF(100, 80));
}

void TestControlNode::SlotsMayDeleteTheNode() {
    QGraphicsScene scene(0, 0, 255, 255);
    QGraphicsView view(&scene);
    view.resize(300, 300);
    for (const bool onPress : {true, false}) {
        QPointer<ControlNode> node = new ControlNode(nullptr);
        node->setPos(100, 80);
        scene.addItem(node);
        const auto remove = [&node] { delete node; };
        if (onPress)
            connect(node, &ControlNode::mousePressed, remove);
        else
            connect(node, &ControlNode::mouseReleased, remove);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.mapFromScene(node->pos()));
        QVERIFY(!node);
    }
}

void TestControlNode::AssistiveTechnology() {
    QGraphicsScene scene(0, 0, 255, 255);
    QGraphicsView view(&scene);
    view.resize(300, 300);
    auto* node = new ControlNode(nullptr);
    scene.addItem(node);
    node->setPos(100, 80);
    node->SetAccessibleName(QStringLiteral("Point 1"));
    node->setSunken(true);
    QAccessibleInterface* description = QAccessible::queryAccessibleInterface(node);
    QVERIFY(description);
    QCOMPARE(description->text(QAccessible::Name), QStringLiteral("Point 1"));
    QVERIFY(description->state().selected && description->state().focusable);
    QCOMPARE(description->parent(), QAccessible::queryAccessibleInterface(&view));
    QVERIFY(description->rect().contains(view.viewport()->mapToGlobal(view.mapFromScene(node->pos()))));
}

HB_TEST_MAIN(TestControlNode)
#include "tst_ControlNode.moc"
