// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <ControlNode.h>
#include <HBTestMain.h>

#include <QAccessible>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPointer>

namespace {

/// A node in a scene, and a view of it.
struct Window {
    QGraphicsScene scene{0, 0, 255, 255};
    QGraphicsView view{&scene};
    QPointer<ControlNode> node;

    Window() {
        view.resize(300, 300);
        AddNode();
    }
    void AddNode() {
        node = new ControlNode(nullptr);
        scene.addItem(node);
        node->setPos(100, 80);
    }
    QPoint At() const { return view.mapFromScene(node->pos()); }
};

} // namespace

class TestControlNode : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void HitArea() {
        Window w;
        for (const qreal scale : {0.5, 1.0, 6.0}) {
            w.view.setTransform(QTransform::fromScale(scale, 2 * scale));
            const auto isHit = [&](double x, double y) {
                return w.scene.itemAt(w.node->pos() + QPointF(x, y), w.view.viewportTransform()) == w.node;
            };
            QVERIFY(isHit(0, 0) && isHit(3.9, -3.9));
            QVERIFY(!isHit(4.1, 0) && !isHit(0, 4.1));
        }
    }

    void LooksTheSameInAnyView_data() {
        HBColumns<qreal, qreal>("x", "y");
        QTest::newRow("as it is") << 1.0 << 1.0;
        QTest::newRow("stretched") << 3.0 << 0.5;
        QTest::newRow("large") << 5.0 << 5.0;
    }

    void LooksTheSameInAnyView() {
        QFETCH(qreal, x);
        QFETCH(qreal, y);
        Window w;
        w.scene.setBackgroundBrush(QColor(90, 140, 90));
        w.view.show(); // a view lays itself out only then
        w.view.setTransform(QTransform::fromScale(x, y));
        w.view.centerOn(w.node);
        const auto extent = [&] {
            const QImage image = w.view.viewport()->grab().toImage();
            QRect drawn;
            for (int row = 0; row < image.height(); ++row)
                for (int column = 0; column < image.width(); ++column)
                    if (image.pixelColor(column, row) != QColor(90, 140, 90)) drawn |= QRect(column, row, 1, 1);
            return drawn.size();
        };
        const QSize normal = extent();
        QVERIFY2(qAbs(normal.width() - 10) <= 2 && qAbs(normal.height() - 10) <= 2,
                 qPrintable(QStringLiteral("%1 x %2").arg(normal.width()).arg(normal.height())));
        w.node->setSunken(true);
        QVERIFY(w.node->isSunken());
        QVERIFY(extent().width() > normal.width());
        w.node->setSunken(false);
        QCOMPARE(extent(), normal);
    }

    void PressesStayWithTheNode() {
        Window w;
        w.view.setDragMode(QGraphicsView::RubberBandDrag);
        QVector<Qt::MouseButton> buttons;
        QSignalSpy pressed(w.node.data(), SIGNAL(mousePressed(ControlNode*,Qt::MouseButton)));
        QSignalSpy released(w.node.data(), SIGNAL(mouseReleased(ControlNode*,Qt::MouseButton)));
        connect(w.node.data(), &ControlNode::mousePressed, [&](ControlNode* which, Qt::MouseButton button) {
            QCOMPARE(which, w.node);
            buttons << button;
        });
        const QPoint at = w.At();
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
            QTest::mousePress(w.view.viewport(), button, {}, at);
            QVERIFY(w.view.rubberBandRect().isNull());
            QTest::mouseRelease(w.view.viewport(), button, {}, at);
        }
        QCOMPARE(buttons, (QVector<Qt::MouseButton>{Qt::LeftButton, Qt::RightButton}));
        QCOMPARE(pressed.count(), 2);
        QCOMPARE(released.count(), 2);
        QCOMPARE(w.node->pos(), QPointF(100, 80));
    }

    void SlotsMayDeleteTheNode() {
        Window w;
        for (const bool onPress : {true, false}) {
            if (!w.node) w.AddNode();
            const auto remove = [&w] { delete w.node; };
            if (onPress)
                connect(w.node.data(), &ControlNode::mousePressed, remove);
            else
                connect(w.node.data(), &ControlNode::mouseReleased, remove);
            QTest::mouseClick(w.view.viewport(), Qt::LeftButton, {}, w.At());
            QVERIFY(!w.node);
        }
    }

    void AssistiveTechnology() {
        Window w;
        w.node->SetAccessibleName(QStringLiteral("Point 1"));
        w.node->setSunken(true);
        QAccessibleInterface* description = QAccessible::queryAccessibleInterface(w.node);
        QVERIFY(description);
        QCOMPARE(description->text(QAccessible::Name), QStringLiteral("Point 1"));
        QVERIFY(description->state().selected && description->state().focusable);
        QCOMPARE(description->parent(), QAccessible::queryAccessibleInterface(&w.view));
        QVERIFY(description->rect().contains(w.view.viewport()->mapToGlobal(w.At())));
    }
};

HB_TEST_MAIN(TestControlNode)
#include "tst_ControlNode.moc"
