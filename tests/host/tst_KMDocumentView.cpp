// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBChangedTiles.h>
#include <HBTileImageItem.h>
#include <KMDocumentView.h>

#include <QPaintEvent>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>

#include <limits>

namespace {

HBImage<> Filled(int width, int height, HBRGBA32i pixel) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(pixel.ToRgba());
    return HBImage<>::FromQImage(image);
}

/// A view of 400 x 300 pixels without scroll bars.
struct Window {
    KMDocumentView view;

    explicit Window(const HBImage<>& picture) {
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.resize(400, 300);
        view.show();
        view.SetPicture(picture);
    }
    QPointF ToScene(const QPointF& position) const { return view.viewportTransform().inverted().map(position); }
    void Wheel(const QPoint& at, int delta, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(at, view.mapToGlobal(at), {}, {0, delta}, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(view.viewport(), &event);
    }
    void Mouse(QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, view.viewport()->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    }
};

/// What of a widget is painted while this lives.
struct PaintedRegion : QObject {
    QRegion region;

    explicit PaintedRegion(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

} // namespace

class TestKMDocumentView : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// A new picture of which most is shared costs its changed tiles, and looks as if all had been painted.
    void paintsOnlyWhatHasChanged() {
        QImage ramp(600, 450, QImage::Format_RGB32);
        for (int y = 0; y < ramp.height(); ++y) {
            for (int x = 0; x < ramp.width(); ++x)
                ramp.setPixel(x, y, qRgb(x * 3 & 255, y * 5 & 255, (x ^ y) & 255));
        }
        const HBImage<> before = HBImage<>::FromQImage(ramp);
        HBImage<> after = before;
        for (int x = 0; x < 300; ++x)
            after.SetPixel(x, 130, HBRGBA32i(255, 0, 0)); // three tiles of the second row
        QCOMPARE(HBChangedTiles(before, before), QRegion());
        QCOMPARE(HBChangedTiles(before, after), QRegion(0, 128, 384, 128));
        after.SetPixel(599, 449, HBRGBA32i(255, 0, 0)); // and the last one, which is cut off
        QCOMPARE(HBChangedTiles(before, after), QRegion(0, 128, 384, 128) + QRect(512, 384, 88, 66));
        QCOMPARE(HBChangedTiles(HBImage<>(), after), QRegion(0, 0, 600, 450));
        QCOMPARE(HBChangedTiles(after, HBImage<>()), QRegion());

        for (const double zoom : {0.13, 0.4, 0.66, 1.0, 1.5, 3.0}) {
            Window w(before), whole(after);
            for (KMDocumentView* view : {&w.view, &whole.view}) {
                view->PictureItem()->SetPatience(std::numeric_limits<int>::max());
                view->SetZoom(zoom);
                view->centerOn(300, 180);
            }
            QVERIFY(QTest::qWaitForWindowExposed(&w.view));
            PaintedRegion painted(w.view.viewport());
            do { // until all is painted that has been asked for
                painted.region = QRegion();
                QTest::qWait(20);
            } while (!painted.region.isEmpty());
            w.view.SetPicture(after);
            QTRY_VERIFY(!painted.region.isEmpty());
            const auto toView = [&](const QRectF& rect) {
                return w.view.viewportTransform().mapRect(rect).toAlignedRect();
            };
            for (const QRect& rect : painted.region)
                QVERIFY((toView({0, 128, 384, 128}).adjusted(-3, -3, 3, 3) & w.view.viewport()->rect())
                            .contains(rect) ||
                        toView({512, 384, 88, 66}).adjusted(-3, -3, 3, 3).contains(rect));
            const QImage shown = w.view.screen()->grabWindow(w.view.winId()).toImage();
            QCOMPARE(shown.convertToFormat(QImage::Format_RGB32),
                     whole.view.grab().toImage().convertToFormat(QImage::Format_RGB32));
        }
    }

    void fitsAndKeepsTheZoomForTheSameSize() {
        Window w(Filled(800, 300, HBRGBA32i(1, 1, 1)));
        QCOMPARE(w.view.Zoom(), 0.5);
        w.view.resize(200, 300);
        QCOMPARE(w.view.Zoom(), 0.25); // still fitted
        w.view.resize(400, 300);
        w.view.SetZoom(2);
        w.view.horizontalScrollBar()->setValue(333);
        w.view.SetPicture(Filled(800, 300, HBRGBA32i(2, 2, 2)));
        QCOMPARE(w.view.Zoom(), 2.0);
        QCOMPARE(w.view.horizontalScrollBar()->value(), 333);
        w.view.SetPicture(Filled(80, 30, HBRGBA32i(2, 2, 2)));
        QCOMPARE(w.view.Zoom(), 1.0); // another size is fitted in, but not blown up
        w.view.ZoomToFit();
        QCOMPARE(w.view.Zoom(), 5.0);
    }

    void wheelZoomsToTheCursor() {
        Window w(Filled(4000, 3000, HBRGBA32i(1, 1, 1)));
        w.view.SetZoom(0.95);
        const QPoint cursor(123, 77);
        const QPointF before = w.ToScene(cursor);
        w.Wheel(cursor, 120, Qt::ControlModifier);
        QCOMPARE(w.view.Zoom(), 1.0); // not across it
        w.Wheel(cursor, 240, Qt::ControlModifier);
        QCOMPARE(w.view.Zoom(), 1.44);
        const QPointF moved = w.ToScene(cursor) - before;
        QVERIFY(qAbs(moved.x()) <= 1.5 && qAbs(moved.y()) <= 1.5); // scroll bars know whole pixels only
        const double zoom = w.view.Zoom();
        w.Wheel(cursor, 120, Qt::NoModifier);
        QCOMPARE(w.view.Zoom(), zoom);
    }

    void keysStopAtRoundValues() {
        Window w(Filled(4000, 3000, HBRGBA32i(1, 1, 1)));
        w.view.SetZoom(0.9);
        w.view.ZoomIn();
        QCOMPARE(w.view.Zoom(), 1.0);
        w.view.ZoomIn();
        QCOMPARE(w.view.Zoom(), 1.5);
        w.view.ZoomOut();
        w.view.ZoomOut();
        QCOMPARE(w.view.Zoom(), 2.0 / 3);
        for (int i = 0; i < 50; ++i) w.view.ZoomIn();
        QCOMPARE(w.view.Zoom(), double(KMDocumentView::MaximumZoom));
        for (int i = 0; i < 50; ++i) w.view.ZoomOut();
        QCOMPARE(w.view.Zoom(), double(KMDocumentView::MinimumZoom));
    }

    void panning() {
        for (const bool space : {false, true}) {
            const Qt::MouseButton used = space ? Qt::LeftButton : Qt::MiddleButton;
            Window w(Filled(4000, 3000, HBRGBA32i(1, 1, 1)));
            w.view.SetZoom(1);
            const QPoint from(w.view.horizontalScrollBar()->value(), w.view.verticalScrollBar()->value());
            if (space) QTest::keyPress(&w.view, Qt::Key_Space);
            w.Mouse(QEvent::MouseButtonPress, {100, 100}, used, used);
            w.Mouse(QEvent::MouseMove, {70, 120}, Qt::NoButton, used);
            w.Mouse(QEvent::MouseButtonRelease, {70, 120}, used, Qt::NoButton);
            if (space) QTest::keyRelease(&w.view, Qt::Key_Space);
            w.Mouse(QEvent::MouseMove, {0, 0}, Qt::NoButton, Qt::NoButton);
            QCOMPARE(QPoint(w.view.horizontalScrollBar()->value(), w.view.verticalScrollBar()->value()) - from,
                     QPoint(30, -20));
        }
    }

    void tellsThePixelUnderTheMouse() {
        Window w(Filled(400, 100, HBRGBA32i(1, 1, 1))); // at 100 %, in the middle of 300 rows
        QSignalSpy hovered(&w.view, &KMDocumentView::PixelHovered);
        w.Mouse(QEvent::MouseMove, {7, 103}, Qt::NoButton, Qt::NoButton);
        QCOMPARE(hovered.last().first().toPoint(), QPoint(7, 3));
        w.Mouse(QEvent::MouseMove, {7, 99}, Qt::NoButton, Qt::NoButton);
        QCOMPARE(hovered.last().first().toPoint(), QPoint(-1, -1));
    }

    void cursorOfPanelsGoesOverThatOfTools() {
        Window w(Filled(40, 40, HBRGBA32i(1, 1, 1)));
        w.view.SetToolCursor(Qt::CrossCursor);
        w.view.SetOverrideCursor(Qt::WhatsThisCursor);
        QVERIFY(w.view.HasOverrideCursor());
        QCOMPARE(w.view.viewport()->cursor().shape(), Qt::WhatsThisCursor);
        w.view.SetOverrideCursor(QCursor());
        QVERIFY(!w.view.HasOverrideCursor());
        QCOMPARE(w.view.viewport()->cursor().shape(), Qt::CrossCursor);
    }

    void noSeamWhereverItIsScrolled() {
        Window w(Filled(3000, 3000, HBRGBA32i(10, 200, 90)));
        w.view.PictureItem()->SetPatience(std::numeric_limits<int>::max());
        for (const double zoom : {0.26, 0.31, 0.47, 0.5, 0.61, 0.93, 1.0, 1.71, 2.0, 2.9}) {
            w.view.SetZoom(zoom);
            for (const int position : {0, 17, 101}) {
                w.view.horizontalScrollBar()->setValue(position);
                w.view.verticalScrollBar()->setValue(position);
                const QImage shown = w.view.viewport()->grab().toImage();
                for (int y = 0; y < shown.height(); ++y) {
                    for (int x = 0; x < shown.width(); ++x) QCOMPARE(shown.pixel(x, y), qRgb(10, 200, 90));
                }
            }
        }
    }

    void survivesHavingNoPicture() {
        Window w{HBImage<>()};
        w.view.SetPlaceholder("Nothing yet");
        w.view.ZoomToFit();
        w.Wheel({10, 10}, 120, Qt::ControlModifier);
        w.view.grab();
        w.view.SetPicture(Filled(1, 1, HBRGBA32i(1, 1, 1)));
        w.view.grab();
        w.view.SetPicture(HBImage<>());
        w.view.grab();
    }
};

HB_TEST_MAIN(TestKMDocumentView)
#include "tst_KMDocumentView.moc"
