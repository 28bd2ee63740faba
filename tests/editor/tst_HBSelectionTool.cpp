// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBBeforeAfter.h>
#include <HBSelectionTool.h>
#include <KMDocumentView.h>

#include <QGraphicsSceneMouseEvent>
#include <QSignalSpy>

Q_DECLARE_METATYPE(HBSelectionTool::Tool)

using Kind = HBSelectionTool::Tool;

namespace {

constexpr QSize PhotoSize(400, 300);

/// Null: nothing is selected.
QRect RectOf(const HBSelectionTool& tool) {
    return tool.Shape().IsNone() ? QRect() : tool.Shape().shapes.first().PixelRect(PhotoSize);
}

} // namespace

class TestHBSelectionTool : public QObject {
    Q_OBJECT

    struct Fixture {
        KMDocumentView view;
        HBSelectionTool tool{&view};

        Fixture() { view.SetPicture(HBImage<>(PhotoSize.width(), PhotoSize.height())); }

        bool Mouse(QEvent::Type type, const QPointF& at, Qt::KeyboardModifiers modifiers = {}) {
            QGraphicsSceneMouseEvent event(type);
            event.setScenePos(at);
            event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : Qt::LeftButton);
            event.setButtons(type == QEvent::GraphicsSceneMouseRelease ? Qt::NoButton : Qt::LeftButton);
            event.setModifiers(modifiers);
            return QApplication::sendEvent(view.scene(), &event);
        }
        void Drag(const QPointF& from, const QPointF& to, Qt::KeyboardModifiers modifiers = {}) {
            Mouse(QEvent::GraphicsSceneMousePress, from);
            Mouse(QEvent::GraphicsSceneMouseMove, (from + to) / 2, modifiers);
            Mouse(QEvent::GraphicsSceneMouseRelease, to, modifiers);
        }
        void Escape() {
            QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QApplication::sendEvent(view.scene(), &event);
        }
    };

private Q_SLOTS:
    void drags_data() {
        HBColumns<Kind, QPointF, QPointF, bool, QRect>("kind", "from", "to", "shift",
                                                       "rect"); // rect: null: nothing is selected
        QTest::newRow("rectangle") << Kind::Rectangle << QPointF(10.2, 20.4) << QPointF(50, 70) << false
                                   << QRect(10, 20, 40, 50);
        QTest::newRow("backwards") << Kind::Rectangle << QPointF(50, 70) << QPointF(10, 20) << false
                                   << QRect(10, 20, 40, 50);
        QTest::newRow("square") << Kind::Rectangle << QPointF(50, 70) << QPointF(10, 60) << true
                                << QRect(10, 30, 40, 40);
        QTest::newRow("beyond the photo")
            << Kind::Rectangle << QPointF(390, -50) << QPointF(500, 20) << false << QRect(390, 0, 10, 20);
        QTest::newRow("ellipse beyond the photo")
            << Kind::Ellipse << QPointF(390, -50) << QPointF(500, 20) << false << QRect(390, -50, 110, 70);
        QTest::newRow("outside") << Kind::Ellipse << QPointF(-50, 10) << QPointF(-10, 20) << false << QRect();
        QTest::newRow("click") << Kind::Rectangle << QPointF(50, 50) << QPointF(50.3, 50) << false << QRect();
    }
    void drags() {
        QFETCH(Kind, kind);
        QFETCH(QPointF, from);
        QFETCH(QPointF, to);
        QFETCH(bool, shift);
        QFETCH(QRect, rect);
        Fixture f;
        f.tool.SelectAll();
        QSignalSpy changed(&f.tool, &HBSelectionTool::Changed);
        f.tool.SetFeather(3);
        changed.clear();
        f.tool.SetTool(kind);
        f.Drag(from, to, shift ? Qt::ShiftModifier : Qt::NoModifier);
        QCOMPARE(changed.count(), 1); // at its end, not while it goes on
        QCOMPARE(RectOf(f.tool), rect);
        for (const HBShape& shape : f.tool.Shape().shapes) {
            QCOMPARE(shape.kind == HBShape::Kind::Ellipse, kind == Kind::Ellipse);
            QCOMPARE(shape.PixelFeather(PhotoSize), 3);
        }
    }

    void leavesTheMouseToOthers() {
        Fixture f;
        f.Drag({10, 10}, {50, 50}); // no tool
        QVERIFY(f.tool.Shape().IsNone());
        f.tool.SetTool(Kind::Rectangle);
        f.view.SetOverrideCursor(Qt::PointingHandCursor); // a panel picks
        f.Drag({10, 10}, {50, 50});
        QVERIFY(f.tool.Shape().IsNone());
        f.view.SetOverrideCursor(QCursor());
        HBBeforeAfter beforeAfter(&f.view);
        beforeAfter.SetBefore(f.view.Picture());
        beforeAfter.SetSplit(true);
        f.Drag({200, 150}, {300, 150}); // the line between before and after
        QVERIFY(f.tool.Shape().IsNone());
    }

    void escape() {
        Fixture f;
        f.tool.SetTool(Kind::Rectangle);
        f.Drag({10, 10}, {50, 50});
        QSignalSpy changed(&f.tool, &HBSelectionTool::Changed);
        f.Mouse(QEvent::GraphicsSceneMousePress, {100, 100});
        f.Mouse(QEvent::GraphicsSceneMouseMove, {200, 200});
        f.Escape(); // the drag only
        f.Mouse(QEvent::GraphicsSceneMouseMove, {210, 210});
        QCOMPARE(RectOf(f.tool), QRect(10, 10, 40, 40));
        QCOMPARE(changed.count(), 0);
        f.Escape();
        QVERIFY(f.tool.Shape().IsNone());
        QCOMPARE(changed.count(), 1);
    }

    void allNoneInvert() {
        Fixture f;
        f.tool.Invert();
        QCOMPARE(RectOf(f.tool), QRect(0, 0, 400, 300));
        f.tool.Invert();
        QVERIFY(f.tool.Shape().IsNone());
        f.tool.SetShape({{HBShape::OfPixels(HBShape::Kind::Ellipse, {10, 10, 50, 50}, 0, PhotoSize)}});
        f.tool.Invert();
        QCOMPARE(f.tool.Selection(f.view.Picture()).bounds, QRect(0, 0, 400, 300));
        f.tool.Invert();
        QCOMPARE(f.tool.Selection(f.view.Picture()).bounds, QRect(0, 0, 50, 50));
    }
};

HB_TEST_MAIN(TestHBSelectionTool)
#include "tst_HBSelectionTool.moc"
