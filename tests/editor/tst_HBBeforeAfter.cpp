// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBBeforeAfter.h>
#include <KMDocumentView.h>

#include <QMouseEvent>
#include <QPainter>

class TestHBBeforeAfter : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void clipsTheOldPhoto() {
        KMDocumentView view;
        QImage white(400, 300, QImage::Format_ARGB32);
        white.fill(Qt::white);
        QImage black = white;
        black.fill(Qt::black);
        view.SetPicture(HBImage<>::FromQImage(black));
        HBBeforeAfter beforeAfter(&view);
        beforeAfter.SetBefore(HBImage<>::FromQImage(white));
        auto pixel = [&](int x) {
            QImage image(400, 300, QImage::Format_RGB32);
            QPainter painter(&image);
            view.scene()->render(&painter, QRectF(), QRectF(0, 0, 400, 300));
            return image.pixelColor(x, 10);
        };
        QCOMPARE(pixel(5), QColor(Qt::black));
        beforeAfter.SetHeld(true);
        QCOMPARE(pixel(5), QColor(Qt::white));
        QCOMPARE(pixel(395), QColor(Qt::white));
        beforeAfter.SetHeld(false);
        beforeAfter.SetSplit(true);
        beforeAfter.SetSplitAt(0.75);
        QCOMPARE(pixel(250), QColor(Qt::white));
        QCOMPARE(pixel(350), QColor(Qt::black));
        beforeAfter.SetSplitAt(-3);
        QCOMPARE(beforeAfter.SplitAt(), 0.0);
        QCOMPARE(pixel(50), QColor(Qt::black));
    }

    void lineCanBeDragged() {
        KMDocumentView view;
        view.resize(400, 300);
        view.show();
        view.SetPicture(HBImage<>(400, 300));
        HBBeforeAfter beforeAfter(&view);
        beforeAfter.SetBefore(view.Picture());
        beforeAfter.SetSplit(true);
        auto mouse = [&](QEvent::Type type, const QPointF& scenePosition, Qt::MouseButtons buttons) {
            const QPoint at = view.mapFromScene(scenePosition);
            QMouseEvent event(type, at, view.viewport()->mapToGlobal(at),
                              type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
            QApplication::sendEvent(view.viewport(), &event);
        };
        mouse(QEvent::MouseButtonPress, {205, 50}, Qt::LeftButton); // as wide as its grip all along
        mouse(QEvent::MouseMove, {300, 250}, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, {300, 250}, Qt::NoButton);
        mouse(QEvent::MouseMove, {100, 250}, Qt::NoButton);
        QCOMPARE(beforeAfter.SplitAt(), 0.75);
    }

    /// Wherever the photo is moved; seen whole again, it is where it was.
    void lineStaysInSight() {
        KMDocumentView view;
        view.resize(400, 300);
        view.show();
        view.SetPicture(HBImage<>(4000, 3000));
        HBBeforeAfter beforeAfter(&view);
        beforeAfter.SetBefore(view.Picture());
        beforeAfter.SetSplit(true);
        QCOMPARE(beforeAfter.LineAt(), 2000.0);
        for (const QPointF& place : {QPointF(0, 0), QPointF(399, 299)}) {
            view.SetZoom(1, place);
            view.SetZoom(4, place);
            const QRect seen = view.SightArea();
            QVERIFY(!seen.contains(2000, seen.top()));
            QVERIFY(beforeAfter.LineAt() > seen.left() && beforeAfter.LineAt() < seen.right());
            view.ZoomToFit();
        }
        QCOMPARE(beforeAfter.LineAt(), 2000.0);
    }
};

HB_TEST_MAIN(TestHBBeforeAfter)
#include "tst_HBBeforeAfter.moc"
