// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestImages.h"
#include "HBTestMain.h"

#include <HBBeforeAfter.h>
#include <HBSelectionOutline.h>
#include <HBSelectionTool.h>
#include <KMDocumentView.h>

#include <QGraphicsSceneMouseEvent>
#include <QJsonObject>
#include <QScrollBar>
#include <QSignalSpy>

#include <cmath>

Q_DECLARE_METATYPE(HBSelectionTool::Tool)
Q_DECLARE_METATYPE(HBSelectionTool::Mode)
Q_DECLARE_METATYPE(Qt::KeyboardModifiers)
Q_DECLARE_METATYPE(QVector<int>)

using Kind = HBSelectionTool::Tool;
using Mode = HBSelectionTool::Mode;

namespace {

constexpr QSize PhotoSize(400, 300);
constexpr int Shift = int(Qt::ShiftModifier); // of a key

/// Null: nothing is selected.
QRect RectOf(const HBSelectionTool& tool) {
    return tool.Shape().IsNone() ? QRect() : tool.Shape().shapes.first().PixelRect(PhotoSize);
}

HBSelectionShape Rectangle(const QRect& rect, int feather = 0) {
    return {{HBShape::OfPixels(HBShape::Kind::Rectangle, rect, feather, PhotoSize)}};
}

} // namespace

class TestHBSelectionTool : public QObject {
    Q_OBJECT

    struct Fixture {
        KMDocumentView view;
        HBSelectionTool tool{&view};

        Fixture() {
            const HBImage<> photo = HBTestRamp(PhotoSize.width(), PhotoSize.height());
            tool.SetPhoto(photo);
            view.SetPicture(photo);
            view.SetZoom(1); // so that a pixel of the screen is one of the photo
        }

        bool Mouse(QEvent::Type type, const QPointF& at, Qt::KeyboardModifiers modifiers = {}) {
            QGraphicsSceneMouseEvent event(type);
            event.setScenePos(at);
            event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : Qt::LeftButton);
            event.setButtons(type == QEvent::GraphicsSceneMouseRelease ? Qt::NoButton : Qt::LeftButton);
            event.setModifiers(modifiers);
            return QApplication::sendEvent(view.scene(), &event);
        }
        void Drag(const QPointF& from, const QPointF& to, Qt::KeyboardModifiers later = {},
                  Qt::KeyboardModifiers first = {}) {
            Mouse(QEvent::GraphicsSceneMousePress, from, first);
            Mouse(QEvent::GraphicsSceneMouseMove, (from + to) / 2, later);
            Mouse(QEvent::GraphicsSceneMouseRelease, to, later);
        }
        void Click(const QPointF& at) {
            Mouse(QEvent::GraphicsSceneMousePress, at);
            Mouse(QEvent::GraphicsSceneMouseRelease, at);
        }
        bool Key(int key, Qt::KeyboardModifiers modifiers = {}) {
            QKeyEvent event(QEvent::KeyPress, key, modifiers);
            event.ignore();
            QApplication::sendEvent(&view, &event);
            return event.isAccepted();
        }
        void Keys(const QVector<int>& keys) {
            for (const int key : keys) Key(key & ~Shift, key & Shift ? Qt::ShiftModifier : Qt::NoModifier);
        }
        int At(int x, int y) const { return tool.Shape().CoverageAt(view.Picture(), x, y); }
    };

private Q_SLOTS:
    void drags_data() {
        HBColumns<Kind, QPointF, QPointF, bool, QRect>("kind", "from", "to", "shift",
                                                       "rect"); // rect: null: all, as it was
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
        QTest::newRow("click") << Kind::Rectangle << QPointF(50, 50) << QPointF(51, 51) << false << QRect();
        QTest::newRow("far away") << Kind::Ellipse << QPointF(-1e6, -1e6) << QPointF(1e6, 1e6) << false
                                  << QRect(-4000, -3000, 8000, 6000);
    }
    void drags() {
        QFETCH(Kind, kind);
        QFETCH(QPointF, from);
        QFETCH(QPointF, to);
        QFETCH(bool, shift);
        QFETCH(QRect, rect);
        Fixture f;
        f.tool.SetFeather(3);
        f.tool.SelectAll();
        const HBSelectionShape all = f.tool.Shape();
        QSignalSpy changed(&f.tool, &HBSelectionTool::Changed);
        f.tool.SetTool(kind);
        f.Drag(from, to, shift ? Qt::ShiftModifier : Qt::NoModifier);
        QCOMPARE(changed.count(), rect.isNull() ? 0 : 1); // at its end, not while it goes on
        if (rect.isNull()) {
            QVERIFY(f.tool.Shape() == all);
            return;
        }
        QCOMPARE(RectOf(f.tool), rect);
        for (const HBShape& shape : f.tool.Shape().shapes) {
            QCOMPARE(shape.kind == HBShape::Kind::Ellipse, kind == Kind::Ellipse);
            QCOMPARE(shape.PixelFeather(PhotoSize), 3);
        }
    }

    void modes_data() {
        HBColumns<Mode, Qt::KeyboardModifiers, QString>("mode", "modifiers", "covered"); // of old, both, new
        using M = Qt::KeyboardModifiers;
        QTest::newRow("new") << Mode::New << M(Qt::NoModifier) << ".xx";
        QTest::newRow("add") << Mode::Add << M(Qt::NoModifier) << "xxx";
        QTest::newRow("subtract") << Mode::Subtract << M(Qt::NoModifier) << "x..";
        QTest::newRow("intersect") << Mode::Intersect << M(Qt::NoModifier) << ".x.";
        QTest::newRow("Shift") << Mode::New << M(Qt::ShiftModifier) << "xxx";
        QTest::newRow("Alt") << Mode::Add << M(Qt::AltModifier) << "x..";
        QTest::newRow("Ctrl") << Mode::New << M(Qt::ControlModifier) << "x..";
        QTest::newRow("Shift and Alt") << Mode::New << M(Qt::ShiftModifier | Qt::AltModifier) << ".x.";
    }
    /// By the mouse and by keys.
    void modes() {
        QFETCH(Mode, mode);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        for (const bool byKeys : {false, true}) {
            Fixture f;
            f.tool.SetShape(Rectangle({100, 100, 100, 100}));
            f.tool.SetTool(Kind::Rectangle);
            f.tool.SetMode(mode);
            if (byKeys) {
                f.view.SetZoom(1);
                for (int i = 0; i < 40; ++i) f.Keys({Qt::Key_Left | Shift, Qt::Key_Up | Shift}); // a corner
                for (int i = 0; i < 25; ++i) f.Keys({Qt::Key_Right | Shift, Qt::Key_Down | Shift});
                f.Key(Qt::Key_Return, modifiers);
                for (int i = 0; i < 10; ++i) f.Keys({Qt::Key_Left | Shift, Qt::Key_Up | Shift});
                f.Key(Qt::Key_Return);
            } else {
                f.Drag({250, 250}, {150, 150}, modifiers, modifiers);
            }
            QString covered;
            for (const int at : {120, 170, 220}) covered += f.At(at, at) ? 'x' : '.';
            QTEST(covered, "covered");
            QCOMPARE(f.At(260, 260), 0);
        }
    }
    void ofNothing() {
        Fixture f;
        f.tool.SetTool(Kind::Rectangle);
        f.tool.SetMode(Mode::Subtract); // from all of it
        f.Drag({10, 10}, {20, 20});
        QCOMPARE(f.At(15, 15), 0);
        QCOMPARE(f.At(200, 200), 255);
        f.tool.SetShape(Rectangle({100, 100, 100, 100}));
        QSignalSpy told(&f.tool, &HBSelectionTool::Told);
        f.Drag({90, 90}, {210, 210});
        QVERIFY(told.last().first().toString().contains("Nothing"));
        QCOMPARE(RectOf(f.tool), QRect(100, 100, 100, 100));
        HBSelectionShape many;
        many.shapes.fill(Rectangle({0, 0, 9, 9}).shapes.first(), HBSelectionShape::MaximumShapes);
        f.tool.SetShape(many);
        f.Drag({90, 90}, {210, 210});
        QVERIFY(told.last().first().toString().contains("64"));
        QVERIFY(f.tool.Shape() == many);
        // What lies beside the photo is no reason to work on all of it.
        f.tool.SetShape(Rectangle({-100, 0, 50, 50}));
        QVERIFY(f.tool.SelectIn(f.view.Picture(), f.view.Picture()).bounds.isValid());
    }

    void moves() {
        Fixture f;
        f.tool.SetShape(Rectangle({100, 100, 100, 100}, 5));
        f.tool.SetTool(Kind::Ellipse);
        f.Drag({150, 150}, {170, 140}); // within it
        QCOMPARE(RectOf(f.tool), QRect(120, 90, 100, 100));
        f.tool.SetTool(Kind::Move);
        f.Drag({10, 10}, {0, 20});
        QCOMPARE(RectOf(f.tool), QRect(110, 100, 100, 100));
        QSignalSpy changed(&f.tool, &HBSelectionTool::Changed);
        f.Keys({Qt::Key_Left, Qt::Key_Left, Qt::Key_Down | Shift});
        QCOMPARE(RectOf(f.tool), QRect(108, 110, 100, 100));
        QCOMPARE(changed.count(), 3);
        QVERIFY(changed.at(0).first().toInt() >= 0); // one gesture
        QCOMPARE(changed.at(0), changed.at(2));
        f.Drag({10, 10}, {500, 10}); // out of sight
        QCOMPARE(RectOf(f.tool), QRect(108, 110, 100, 100));
        f.tool.SetTool(Kind::Gradient);
        f.Drag({50, 20}, {50, 120}); // straight down
        const QPointF start = f.tool.Shape().shapes.first().points.first();
        f.tool.SetTool(Kind::Move);
        f.Keys({Qt::Key_Right});
        QVERIFY(f.tool.Shape().shapes.first().points.first().x() > start.x());
        f.tool.SelectNothing();
        QSignalSpy told(&f.tool, &HBSelectionTool::Told);
        f.Drag({10, 10}, {50, 10});
        QVERIFY(told.last().first().toString().contains("no selection"));
    }

    void lasso() {
        Fixture f;
        f.tool.SetTool(Kind::Lasso);
        // Free hand; it is closed as the button is let go.
        f.Mouse(QEvent::GraphicsSceneMousePress, {200, 50});
        for (int i = 1; i <= 9000; ++i) {
            const double turn = i * 2 * M_PI / 9000;
            const double radius = i % 2 ? 100 : 98;
            f.Mouse(QEvent::GraphicsSceneMouseMove,
                    {200 + radius * std::sin(turn), 150 - radius * std::cos(turn)});
        }
        f.Mouse(QEvent::GraphicsSceneMouseRelease, {200, 50});
        QCOMPARE(f.tool.Shape().shapes.size(), 1);
        QVERIFY(f.tool.Shape().shapes.first().points.size() <= HBSelectionShape::MaximumPoints);
        QVERIFY(f.At(200, 150) == 255 && f.At(200, 60) == 255 && f.At(110, 60) == 0);
        HBSelectionShape read;
        QString reason;
        QVERIFY2(HBSelectionShape::FromJson(f.tool.Shape().ToJson(), &read, &reason), qPrintable(reason));
        // Corner by corner, of which one is taken back; until a double click, the first again, or Return.
        for (const int end : {0, 1, 2}) {
            f.tool.SelectNothing();
            for (const QPointF& at : {QPointF(10, 10), QPointF(100, 10), QPointF(300, 290)}) {
                f.Click(at);
                QVERIFY(f.tool.Shape().IsNone());
            }
            f.Key(Qt::Key_Backspace);
            f.Click({100, 100});
            f.Click({10, 100});
            if (end == 0)
                f.Mouse(QEvent::GraphicsSceneMouseDoubleClick, {10, 100});
            else if (end == 1)
                f.Click({12, 11});
            else if (f.Mouse(QEvent::GraphicsSceneMouseMove, {300, 290})) // no corner
                f.Key(Qt::Key_Return);
            f.Mouse(QEvent::GraphicsSceneMouseRelease, {10, 100});
            QCOMPARE(f.tool.Shape().shapes.size(), 1);
            QCOMPARE(f.tool.Shape().shapes.first().points.size(), 4);
            QVERIFY(f.At(50, 50) == 255 && f.At(150, 150) == 0);
        }
    }

    void keys_data() {
        HBColumns<Kind, QVector<int>, QString>("kind", "keys", "shape");
        const int right = Qt::Key_Right | Shift, down = Qt::Key_Down | Shift, enter = Qt::Key_Return;
        QTest::newRow("rectangle") << Kind::Rectangle << QVector<int>{right, enter, right, right, down, enter}
                                   << "rectangle 20x10";
        QTest::newRow("by Space") << Kind::Ellipse
                                  << QVector<int>{right, Qt::Key_Space, right, down, Qt::Key_Right, Qt::Key_Space}
                                  << "ellipse 11x10";
        QTest::newRow("nothing begun") << Kind::Rectangle << QVector<int>{enter, Qt::Key_Space} << "";
        QTest::newRow("given up") << Kind::Rectangle << QVector<int>{right, enter, down, right, Qt::Key_Escape}
                                  << "";
        QTest::newRow("lasso") << Kind::Lasso
                               << QVector<int>{right,        enter,         right, Qt::Key_Space,
                                               down,         Qt::Key_Space, down,  Qt::Key_Backspace,
                                               Qt::Key_Left, enter}
                               << "polygon 3";
        QTest::newRow("gradient") << Kind::Gradient << QVector<int>{down, enter, down, enter} << "gradient 2";
        QTest::newRow("colour") << Kind::Color << QVector<int>{down, enter} << "color 0";
    }
    void keys() {
        QFETCH(QVector<int>, keys);
        QFETCH(Kind, kind);
        Fixture f;
        f.tool.SetTool(kind);
        f.Keys(keys);
        QString shape;
        for (const QJsonValue& json : f.tool.Shape().ToJson()) {
            shape = json["kind"].toString() + ' ';
            const HBShape& drawn = f.tool.Shape().shapes.first();
            shape += drawn.rect.isEmpty()
                         ? QString::number(drawn.points.size())
                         : QString("%1x%2").arg(RectOf(f.tool).width()).arg(RectOf(f.tool).height());
        }
        QTEST(shape, "shape");
    }

    void color() {
        Fixture f;
        f.tool.SetTool(Kind::Color);
        f.tool.SetTolerance(10);
        f.Click({57.5, 33.5});
        const HBShape& shape = f.tool.Shape().shapes.first();
        QCOMPARE(shape.tolerance, 10);
        QCOMPARE(shape.color, f.view.Picture().PixelAt(57, 33).ToRgba() | 0xff000000);
        QCOMPARE(f.At(57, 33), 255);
        f.tool.SetTolerance(50);
        QCOMPARE(f.tool.Shape().shapes.first().tolerance, 50);
        QSignalSpy told(&f.tool, &HBSelectionTool::Told);
        f.tool.SetTool(Kind::Move);
        f.Drag({10, 10}, {50, 50});
        QVERIFY(told.last().first().toString().contains("color"));
        // What is shown next brings its own.
        QSignalSpy options(&f.tool, &HBSelectionTool::OptionsChanged);
        f.tool.SetShape(Rectangle({0, 0, 9, 9}, 7));
        QCOMPARE(options.count(), 1);
        QCOMPARE(f.tool.Feather(), 7);
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
        f.Key(Qt::Key_Escape); // the drag only
        f.Mouse(QEvent::GraphicsSceneMouseMove, {210, 210});
        QCOMPARE(RectOf(f.tool), QRect(10, 10, 40, 40));
        QCOMPARE(changed.count(), 0);
        f.Key(Qt::Key_Right);
        f.Key(Qt::Key_Escape); // the crosshair
        QVERIFY(!f.tool.Shape().IsNone());
        f.Key(Qt::Key_Escape);
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
        QCOMPARE(f.tool.SelectIn(f.view.Picture(), f.view.Picture()).bounds, QRect(0, 0, 400, 300));
        f.tool.Invert();
        QCOMPARE(f.tool.SelectIn(f.view.Picture(), f.view.Picture()).bounds, QRect(0, 0, 50, 50));
    }

    /// On the edge and on both ends of the soft edge, at any zoom; moving while it can be seen.
    void outline() {
        Fixture f;
        QImage grey(PhotoSize, QImage::Format_RGB32);
        grey.fill(qRgb(128, 128, 128));
        f.tool.SetPhoto(HBImage<>::FromQImage(grey));
        f.view.SetPicture(HBImage<>::FromQImage(grey));
        f.tool.SetShape(Rectangle({100, 100, 200, 100}, 20));
        QVERIFY(!f.tool.Outline()->IsMoving()); // nobody sees it
        f.view.resize(420, 320);
        f.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f.view));
        QTRY_VERIFY(f.tool.Outline()->IsMoving());
        for (const double zoom : {1.0, 0.5, 3.0}) {
            f.view.SetZoom(zoom);
            f.view.centerOn(100, 150);
            const QImage seen = f.view.grab().toImage();
            const auto isMarked = [&](double x) {
                int marked = 0;
                const QPoint at = f.view.mapFromScene(QPointF(x, 150));
                for (int dy = -4; dy < 4; ++dy)
                    for (int dx = -2; dx <= 2; ++dx) marked += seen.pixelColor(at + QPoint(dx, dy)).red() != 128;
                return marked;
            };
            for (const double x : {81.0, 100.5, 119.0})
                QVERIFY2(isMarked(x) >= 4, qPrintable(QString("%1 at %2").arg(x).arg(zoom)));
            if (zoom >= 1)
                for (const double x : {70.0, 90.0, 110.0, 130.0}) QCOMPARE(isMarked(x), 0);
        }
        const QImage before = f.view.grab().toImage();
        QTRY_VERIFY(f.view.grab().toImage() != before);
        f.view.hide();
        QTRY_VERIFY(!f.tool.Outline()->IsMoving());
        f.view.show();
        QTRY_VERIFY(f.tool.Outline()->IsMoving());
        f.tool.SelectNothing();
        QVERIFY(!f.tool.Outline()->IsMoving());
    }
};

HB_TEST_MAIN(TestHBSelectionTool)
#include "tst_HBSelectionTool.moc"
