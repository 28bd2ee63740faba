// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBCurvesFixture.h"
#include "HBLogCapture.h"
#include "HBTestMain.h"

#include <KMTheme.h>

using Fixture = HBCurvesFixture;

class tst_HBCurvesWidgetEditing : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { KMTheme::Install(); }
    /// The square fills the view, whatever its shape, also while it is resized.
    void fits() {
        const HBShowsWindows quiet;
        Fixture f(false);
        f.panel.show();
        for (const QSize& size : {QSize(400, 500), QSize(700, 400), QSize(300, 380)}) {
            f.panel.resize(size);
            QCoreApplication::processEvents();
            const QSize inner = f.view->viewport()->size();
            QVERIFY(inner.width() > 100 && inner.height() > 100);
            QCOMPARE(f.view->transform().m11(), (inner.width() - 4) / 255.0);
            QCOMPARE(f.view->transform().m22(), (inner.height() - 4) / 255.0);
            QCOMPARE(f.view->geometry(), f.histogram->rect());
        }
    }

    /// A handle takes its end of the curve along, and selects it until it is released.
    void slider() {
        Fixture f;
        f.Set({{0, 30}, {100, 120}, {255, 200}});
        f.slider->SetValue(0, 250); // no nearer to its neighbour; the output stays
        QCOMPARE(f.Points().first(), QPoint(96, 30));
        QCOMPARE(f.Edits(), QString("96 30"));
        QCOMPARE(f.Selected(), HBPoints({{96, 30}}));
        Q_EMIT f.slider->ValueChanged(2, 50);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        Q_EMIT f.slider->NodeReleased();
        QCOMPARE(f.Selected(), HBPoints());
    }

    /// The handles' limits follow a moved neighbour and a change of the channel, but no insertion and no deletion.
    void sliderLimits() {
        Fixture f;
        const auto limits = [&] { return QPoint(f.slider->Maximum(0), f.slider->Minimum(1)); };
        QCOMPARE(limits(), QPoint(251, 4));
        f.Press({100, 100});
        QCOMPARE(limits(), QPoint(251, 4));
        f.Drag({110, 100}); // the only inner point is the neighbour of both
        QCOMPARE(limits(), QPoint(106, 114));
        f.Release({110, 100});
        f.channel->setCurrentIndex(2);
        QCOMPARE(limits(), QPoint(251, 4));
        f.channel->setCurrentIndex(0);
        QCOMPARE(limits(), QPoint(106, 114));

        Fixture two;
        two.Press({255, 255});
        two.Drag({200, 255}); // with two points, each is the other's neighbour
        QCOMPARE(two.slider->Maximum(0), 196);
        two.Release({200, 255});
        two.Press({0, 0});
        two.Drag({50, 0});
        QCOMPARE(two.slider->Minimum(1), 54);
    }

    /// A handle that could be pushed beyond a new point comes back, with its end of the curve, when that point is
    /// moved.
    void staleSliderHandle() {
        Fixture f;
        f.Press({100, 100});
        f.Release({100, 100});
        f.slider->SetValue(0, 120);
        QCOMPARE(f.slider->Value(0), 120);
        QCOMPARE(f.Points(), HBPoints({{0, 0}, {100, 100}, {255, 255}}));
        QCOMPARE(f.recorder.Take(), QStringList());
        f.Press({100, 100});
        f.Drag({90, 100});
        QCOMPARE(f.Points(), HBPoints({{86, 0}, {90, 100}, {255, 255}}));
        QCOMPARE(f.slider->Value(0), 86);
        QCOMPARE(f.recorder.Take(), HBClosingCalls(2));
        f.Release({90, 100});

        // The same, with a host that answers the end's move with another curve.
        Fixture g;
        g.Press({100, 100});
        g.Release({100, 100});
        g.slider->SetValue(0, 120);
        g.Press({100, 100});
        g.recorder.Once("ValueChanged()", [&] { g.Set({{0, 9}, {255, 9}}, 2); });
        g.Drag({90, 100});
        QCOMPARE(g.Points(), HBPoints({{0, 9}, {255, 9}}));
        QVERIFY(g.NodesFit());
    }

    void deletion() {
        const HBShowsWindows quiet;
        Fixture f;
        f.panel.show();
        f.panel.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.panel));
        f.view->setFocus();
        const auto pressDelete = [&](bool byView) {
            if (byView)
                QTest::keyClick(f.view, Qt::Key_Delete); // by the action
            else
                f.Key(Qt::Key_Delete);
        };
        for (const bool byView : {true, false}) {
            f.Set({{0, 0}, {50, 60}, {100, 120}, {255, 255}});
            f.recorder.Take();
            pressDelete(byView); // nothing is selected
            HBClickScene(f.scene, f.View({0, 0}));
            pressDelete(byView);
            HBClickScene(f.scene, f.View({255, 255}));
            pressDelete(byView);
            QCOMPARE(f.Points().size(), 4); // the ends stay
            QCOMPARE(f.Selected(), HBPoints({{255, 255}}));
            QCOMPARE(f.recorder.Take(), QStringList());
            HBClickScene(f.scene, f.View({50, 60}));
            pressDelete(byView);
            QCOMPARE(f.Points(), Bent);
            QCOMPARE(f.Selected(), HBPoints());
            QVERIFY(f.NodesFit());
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
            pressDelete(byView);
            QCOMPARE(f.Points(), Bent);
        }
        // Gone from the line, too.
        QVERIFY(!f.Drawn().contains(QPointF(50, 255 - 60)));
    }

    void noDeletionInMidDrag() {
        const HBShowsWindows quiet;
        Fixture f(false);
        f.Set(Bent);
        f.panel.show();
        f.panel.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.panel));
        f.view->setFocus();
        const QPoint at = f.view->mapFromScene(f.View({100, 120}));
        QTest::mousePress(f.view->viewport(), Qt::LeftButton, {}, at);
        QCOMPARE(f.Selected(), HBPoints({{100, 120}}));
        QTest::keyClick(f.view, Qt::Key_Delete);
        QCOMPARE(f.Points(), Bent);
        QTest::mouseRelease(f.view->viewport(), Qt::LeftButton, {}, at);
        QTest::keyClick(f.view, Qt::Key_Delete);
        QCOMPARE(f.Points(), Default);
    }

    void selectionEnds() {
        Fixture f;
        const auto select = [&] {
            f.Set(Bent);
            HBClickScene(f.scene, f.View({100, 120}));
            QCOMPARE(f.Selected().size(), 1);
        };
        const std::function<void()> ends[] = {[&] {
                                                  QFocusEvent event(QEvent::FocusOut);
                                                  QApplication::sendEvent(f.scene, &event);
                                              },
                                              [&] { Q_EMIT f.slider->NodeReleased(); },
                                              [&] { f.channel->setCurrentIndex(1); }, [&] { f.panel.OnReset(); },
                                              [&] { f.panel.SetValue(f.panel.GetValue()); }};
        for (const auto& end : ends) {
            select();
            end();
            QCOMPARE(f.Selected(), HBPoints());
            QVERIFY(f.NodesFit());
        }
    }

    void hostSetsAnotherCurve() {
        const HBPoints other = {{10, 20}, {30, 40}, {200, 100}};
        for (const HBPoints& points : {Default, Bent, other}) {
            for (const int channel : {0, 3}) {
                Fixture f;
                const auto answer = [&] {
                    f.recorder.Once("ValueChanged()", [&, channel] { f.Set(points, channel); });
                };
                const auto check = [&] {
                    QCOMPARE(f.Points(), points);
                    QVERIFY(f.NodesFit());
                    QCOMPARE(f.panel.GetValue().channel, channel);
                };
                f.Set({{0, 0}, {50, 60}, {100, 120}, {200, 210}, {255, 255}});
                f.Press({200, 210}); // in mid-drag
                answer();
                f.Drag({190, 210});
                check();
                f.Drag({180, 210}); // the node is gone, so nothing is dragged
                check();
                f.Release({180, 210});

                for (const uint control : {0u, 1u}) {
                    f.Set({{0, 0}, {50, 60}, {100, 120}, {200, 210}, {255, 255}});
                    answer();
                    f.slider->SetValue(control, control ? 250 : 5);
                    QCOMPARE(f.Points(), points);
                    QVERIFY(f.NodesFit());
                }
                f.Set({{0, 0}, {50, 60}, {100, 120}, {200, 210}, {255, 255}});
                HBClickScene(f.scene, f.View({200, 210}));
                answer();
                f.Key(Qt::Key_Delete);
                check();
            }
        }
    }
};

HB_TEST_MAIN(tst_HBCurvesWidgetEditing)
#include "tst_HBCurvesWidgetEditing.moc"
