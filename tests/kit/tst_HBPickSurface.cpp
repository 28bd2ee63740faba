// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestImages.h"
#include "HBTestMain.h"
#include "HBTestPool.h"

#include <HBCurvesWidget.h>
#include <HBPanelSession.h>
#include <HBPanelSetup.h>
#include <HBPickSurface.h>
#include <KMDocumentView.h>
#include <KMPixelRatioRound.h>

#include <QGraphicsView>
#include <QRubberBand>
#include <QScrollArea>
#include <QSignalSpy>
#include <QToolButton>

namespace {

/// Counts the mouse events that reach it.
class Canvas : public QWidget {
public:
    int events = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++events; }
    void mouseMoveEvent(QMouseEvent*) override { ++events; }
    void mouseReleaseEvent(QMouseEvent*) override { ++events; }
};

/// Of 40 x 40 pixels, black but for one square of the colour, at (10, 20).
HBImage<> Photo() {
    return HBTestPicture(40, 40, [](int x, int y) {
        return QRect(10, 20, 5, 5).contains(x, y) ? qRgb(60, 70, 80) : qRgb(0, 0, 0);
    });
}

} // namespace

class tst_HBPickSurface : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// From a view of another's and from a plain widget, each at a scale of 3.
    void PicksFromAnyWidget_data() {
        QTest::addColumn<bool>("isView");
        QTest::newRow("graphics view") << true;
        QTest::newRow("plain widget") << false;
    }
    void PicksFromAnyWidget() {
        QFETCH(bool, isView);
        HBSetUpPanels();
        QCOMPARE(KMPixelRatioRound::GetPixelRatio(), 1.0); // at any ratio of the screen
        HBPanelSession session(*HBFindPanel("HBCurvesWidget"));
        session.SetTarget({Photo()});
        QGraphicsScene scene(0, 0, 40, 40);
        QGraphicsView view(&scene);
        view.setAlignment(Qt::AlignTop | Qt::AlignLeft);
        view.setFrameShape(QFrame::NoFrame);
        view.scale(3, 3);
        Canvas canvas;
        QWidget* const target = isView ? view.viewport() : &canvas;
        HBPickSurface surface(&canvas, [](const QPoint& position) { return QPointF(position) / 3; });
        if (isView)
            session.SetView(&view);
        else
            session.SetSurface(&surface);
        for (QWidget* widget : {static_cast<QWidget*>(&view), static_cast<QWidget*>(&canvas)})
            widget->resize(120, 120);
        target->setCursor(Qt::SizeAllCursor);

        auto* button = session.Panel()->findChild<QToolButton*>("m_pWhite");
        QVERIFY(!button->icon().isNull());
        QSignalSpy picking(&session, &HBPanelSession::PickingChanged);
        button->setChecked(true);
        QVERIFY(session.IsPicking() && !target->cursor().pixmap().isNull());
        target->setCursor(Qt::CrossCursor); // as a view does over an item
        QVERIFY(!target->cursor().pixmap().isNull());
        const QPoint from(31, 61), to(43, 73);
        QTest::mouseMove(target, from);
        const int before = canvas.events; // a program may follow the mouse
        QTest::mousePress(target, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(target, &move);
        const auto* band = target->findChild<QRubberBand*>();
        QVERIFY(band && band->geometry() == QRect(from, to));
        QTest::mouseRelease(target, Qt::LeftButton, {}, to);
        QVERIFY(!target->findChild<QRubberBand*>());
        QCOMPARE(canvas.events, before);

        const auto red = [&] { return qobject_cast<HBCurvesWidget*>(session.Panel())->GetValue().points[1]; };
        QTRY_COMPARE(red().last(), QPoint(60, 255));
        QTRY_VERIFY(session.IsUpToDate());
        QCOMPARE(session.Preview().PixelAt(12, 22).ToRgba(), qRgb(255, 255, 255));
        button->setChecked(false);
        QCOMPARE(picking, (QList<QVariantList>{{true}, {false}}));
        QCOMPARE(target->cursor().shape(), Qt::CrossCursor);
        button->setChecked(true);
        session.SetView(nullptr);
        QVERIFY(!session.IsPicking() && !button->isChecked());
        QCOMPARE(target->cursor().shape(), Qt::CrossCursor);
        QTest::mouseClick(&canvas, Qt::LeftButton);
        QVERIFY(canvas.events > before);
    }

    /// With the session, or with the widget.
    void LeavesNothingBehind() {
        for (const bool widgetFirst : {false, true}) {
            QWidget window;
            auto* canvas = new Canvas;
            canvas->setParent(&window);
            auto* session = new HBPanelSession(*HBFindPanel("HBCurvesWidget"));
            auto* surface = new HBPickSurface(
                canvas, [](const QPoint& position) { return position; }, session);
            session->SetSurface(surface);
            session->SetTarget({Photo()});
            session->Panel()->findChild<QToolButton*>("m_pBlack")->setChecked(true);
            QTest::mousePress(canvas, Qt::LeftButton);
            if (widgetFirst) delete canvas;
            delete session;
            QVERIFY(widgetFirst || !canvas->testAttribute(Qt::WA_SetCursor));
            QVERIFY(!window.findChild<QRubberBand*>());
        }
    }

    /// The program's own tasks fill the global pool for good.
    void WorksInAPoolOfItsOwn() {
        HBPoolBlock block;
        QThreadPool pool;
        HBSetUpPanels(nullptr, &pool);
        for (const char* name : {"HBLevelsWidget", "HBWatermarkWidget"}) {
            HBPanelSession session(*HBFindPanel(name));
            session.SetTarget({HBTestRamp(300, 300)});
            QTRY_VERIFY(session.IsUpToDate());
        }
        HBSetUpPanels();
    }
};

HB_TEST_MAIN(tst_HBPickSurface)
#include "tst_HBPickSurface.moc"
