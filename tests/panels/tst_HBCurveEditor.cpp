// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBCurvesFixture.h"
#include "HBLogCapture.h"
#include "HBTestMain.h"

#include <HBCurvesTransformation.h>
#include <KMTheme.h>

#include <limits>

namespace {

using Fixture = HBCurvesFixture;

const HBPoints Default = {{0, 0}, {255, 255}};
const HBPoints Bent = {{0, 0}, {100, 120}, {255, 255}};

QVector<QPointF> Elements(const QPainterPath& path) {
    QVector<QPointF> elements;
    for (int i = 0; i < path.elementCount(); ++i) elements += path.elementAt(i);
    return elements;
}

} // namespace

class tst_HBCurveEditor : public QObject {
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

    /// What is drawn is what is applied.
    void path() {
        const HBPoints rows[] = {Default,
                                 {{50, 10}, {200, 240}}, // with flat ends
                                 {{20, 30}, {100, 200}, {230, 250}},
                                 {{0, 255}, {100, 0}, {101, 255}, {102, 0}, {255, 255}},
                                 {{0, 0}, {50, 60}, {50, 60}, {50, 200}, {255, 255}}};
        for (const HBPoints& points : rows) {
            Fixture f;
            f.Set(points);
            const QPoint first = points.first();
            const QPoint last = points.last();
            QPainterPath expected(QPointF(0, 255 - first.y()));
            expected.lineTo(first.x(), 255 - first.y());
            if (points.size() > 2) {
                QVector<double> a, b, c;
                HBCurvesTransformation::BuildSplineParts(points, a, b, c);
                for (int x = first.x(); x <= last.x(); ++x)
                    expected.lineTo(x, 255 - HBCurvesTransformation::SplineValue(x, points, a, b, c));
            }
            expected.lineTo(last.x(), 255 - last.y());
            expected.lineTo(255, 255 - last.y());
            QCOMPARE(Elements(f.Items<QGraphicsPathItem>()[0]->path()), Elements(expected));
            QVERIFY(f.NodesFit());
        }
    }

    void click() {
        const struct {
            HBPoints points;
            QPoint at;
            bool inserted;
        } rows[] = {{Default, {100, 100}, true},
                    {Default, {100, 98}, true}, // within the stroke
                    {Default, {100, 95}, false},
                    // Strictly more than 4 from both neighbours.
                    {Default, {3, 3}, false},
                    {Default, {4, 4}, false},
                    {Default, {5, 5}, true},
                    {Default, {250, 250}, true},
                    {Default, {251, 251}, false},
                    {{{0, 0}, {100, 100}, {109, 109}, {255, 255}}, {104, 104}, false},
                    {{{0, 0}, {100, 100}, {110, 110}, {255, 255}}, {105, 105}, true},
                    // Beside the ends.
                    {{{50, 20}, {200, 200}}, {20, 20}, false},
                    {{{50, 20}, {200, 200}}, {230, 200}, false}};
        for (const auto& [points, at, inserted] : rows) {
            Fixture f;
            f.Set(points);
            HBClickScene(f.scene, f.View(at), Qt::RightButton);
            QCOMPARE(f.Points(), points);
            f.Press(at);
            f.Release(at);
            HBPoints expected = points;
            if (inserted) {
                expected += at;
                std::sort(expected.begin(), expected.end(),
                          [](const QPoint& a, const QPoint& b) { return a.x() < b.x(); });
                QCOMPARE(f.Selected(), HBPoints{at});
                QCOMPARE(f.Edits(), QString("%1 %2").arg(at.x()).arg(at.y()));
            }
            QCOMPARE(f.Points(), expected);
            QVERIFY(f.NodesFit());
            // An insertion changes no pixel, nearly, and tells nobody.
            QCOMPARE(f.recorder.Take(), QStringList());
        }
    }

    void clickPositions() {
        const struct {
            QPointF at;
            QPoint point;
        } rows[] = {{{99.5, 155.4}, {100, 100}}, {{99.49, 155.5}, {99, 99}}, {{100.4, 154.6}, {100, 100}}};
        for (const auto& row : rows) {
            Fixture f;
            HBClickScene(f.scene, row.at);
            QCOMPARE(f.Points(), HBPoints({{0, 0}, row.point, {255, 255}}));
        }
    }

    void clickAndSelection() {
        Fixture f;
        f.Set(Bent);
        const auto select = [&] {
            HBClickScene(f.scene, f.View({100, 120}));
            QCOMPARE(f.Selected(), HBPoints({{100, 120}}));
        };
        select();
        QCOMPARE(f.Edits(), QString("100 120"));
        HBClickScene(f.scene, {10, 10}); // off the curve
        QCOMPARE(f.Selected(), HBPoints());
        select();
        HBClickScene(f.scene, {0, 0}); // (0, 0) is a point, though not at this place: it is asked for unflipped
        QCOMPARE(f.Selected(), HBPoints({{100, 120}}));
        HBClickScene(f.scene, {100, 120});
        QCOMPARE(f.Selected(), HBPoints({{100, 120}}));
        HBClickScene(f.scene, {96.4, 255 - 115.6}); // on the curve, but too near, and beside the node
        QCOMPARE(f.Selected().size(), 1);
        QCOMPARE(f.Points(), Bent);
        HBClickScene(f.scene, {10, 10}, Qt::RightButton);
        QCOMPARE(f.Selected().size(), 1);
        HBClickScene(f.scene, f.View({0, 0}), Qt::RightButton); // on a node
        QCOMPARE(f.Selected(), HBPoints({{100, 120}}));
        HBClickScene(f.scene, f.View({0, 0}));
        QCOMPARE(f.Selected(), HBPoints({{0, 0}})); // one at a time
        QCOMPARE(f.recorder.Take(), QStringList());
    }

    void drag() {
        const struct {
            QPoint from, to;
            bool moved;
        } rows[] = {{{100, 120}, {60, 30}, true},
                    {{100, 120}, {100, 120}, false},
                    // To exactly 4 from a neighbour: nearer than a point may be inserted.
                    {{100, 120}, {4, 0}, true},
                    {{100, 120}, {3, 0}, false},
                    {{100, 120}, {196, 0}, true},
                    {{100, 120}, {197, 0}, false},
                    {{0, 0}, {96, 255}, true},
                    {{0, 0}, {97, 0}, false},
                    {{255, 255}, {204, 0}, true},
                    {{255, 255}, {203, 255}, false}};
        for (const auto& [from, to, moved] : rows) {
            const HBPoints points = {{0, 0}, {100, 120}, {200, 210}, {255, 255}};
            Fixture f;
            f.Set(points);
            f.Press(from);
            const QString before = f.Edits();
            f.Drag(to);
            HBPoints expected = points;
            if (moved) expected[points.indexOf(from)] = to;
            QCOMPARE(f.Points(), expected);
            QVERIFY(f.NodesFit());
            QCOMPARE(f.Selected(), HBPoints{moved ? to : from});
            QCOMPARE(f.Edits(), moved ? QString("%1 %2").arg(to.x()).arg(to.y()) : before);
            QCOMPARE(f.recorder.Take(), HBClosingCalls(moved));
            QCOMPARE(f.slider->Value(0), expected.first().x());
            QCOMPARE(f.slider->Value(1), expected.last().x());
            // The line follows.
            const QPainterPath curve = f.Items<QGraphicsPathItem>()[0]->path();
            QVERIFY(Elements(curve).contains(f.View(moved ? to : from)));
        }
    }

    void dragNeedsTheLeftButtonAndASelection() {
        Fixture f;
        f.Set(Bent);
        f.Drag({50, 50}); // nothing is selected
        QCOMPARE(f.Points(), Bent);
        f.Press({100, 120});
        f.Release({100, 120});
        HBSceneMouse(f.scene, QEvent::GraphicsSceneMouseMove, {50, 50}, Qt::RightButton);
        HBSceneMouse(f.scene, QEvent::GraphicsSceneMouseMove, {50, 50}, Qt::NoButton);
        QCOMPARE(f.Points(), Bent);
        f.Drag({50, 50});
        QCOMPARE(f.Points()[1], QPoint(50, 50));
    }

    /// Positions are clamped to the square before anything is compared.
    void farPositions() {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        Fixture f;
        f.Set(Bent);
        f.Press({255, 255});
        HBSceneMouse(f.scene, QEvent::GraphicsSceneMouseMove, {1e300, 1e300});
        QCOMPARE(f.Points().last(), QPoint(255, 0));
        HBSceneMouse(f.scene, QEvent::GraphicsSceneMouseMove, {1e9, -1e9});
        QCOMPARE(f.Points().last(), QPoint(255, 255));
        HBSceneMouse(f.scene, QEvent::GraphicsSceneMouseMove, {-1e300, nan}); // refused: before its neighbour
        QCOMPARE(f.Points(), Bent);
        f.Release({255, 255});
        for (const QPointF& far : {QPointF(-1e300, 1e300), QPointF(nan, nan), QPointF(-0.7, 300)})
            HBClickScene(f.scene, far);
        QCOMPARE(f.Points(), Bent);
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
            if (byView) {
                QTest::keyClick(f.view, Qt::Key_Delete); // by the action
            } else {
                QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, {});
                QApplication::sendEvent(f.scene, &key);
            }
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
        QVERIFY(!Elements(f.Items<QGraphicsPathItem>()[0]->path()).contains(QPointF(50, 255 - 60)));
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

    /// An S-curve without a mouse.
    void keyboard() {
        const HBShowsWindows quiet;
        Fixture f;
        f.panel.show();
        f.panel.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.panel));
        QVERIFY(f.view->focusPolicy() & Qt::TabFocus);
        f.view->setFocus();
        const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            QTest::keyClick(f.view, key, modifiers);
        };
        press(Qt::Key_PageUp);
        QCOMPARE(f.Selected(), HBPoints({{0, 0}}));
        press(Qt::Key_PageDown); // no further
        QCOMPARE(f.Selected(), HBPoints({{0, 0}}));
        press(Qt::Key_Insert);
        QCOMPARE(f.Selected(), HBPoints({{127, 127}}));
        QCOMPARE(f.Edits(), QString("127 127"));
        press(Qt::Key_Insert);
        QCOMPARE(f.Selected(), HBPoints({{191, 191}}));
        QCOMPARE(f.recorder.Take(), QStringList());
        press(Qt::Key_Up, Qt::ShiftModifier);
        press(Qt::Key_Up);
        press(Qt::Key_Left);
        QCOMPARE(f.Edits(), QString("190 202"));
        press(Qt::Key_PageDown);
        press(Qt::Key_Down, Qt::ShiftModifier);
        press(Qt::Key_Right, Qt::ShiftModifier);
        press(Qt::Key_Left);
        press(Qt::Key_Down);
        QCOMPARE(f.Points(), HBPoints({{0, 0}, {136, 116}, {190, 202}, {255, 255}}));
        QCOMPARE(f.Edits(), QString("136 116"));
        QCOMPARE(f.recorder.Take(), HBClosingCalls(7));
        for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
            for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Insert, Qt::Key_Plus})
                press(key, modifier | Qt::ShiftModifier);
        }
        QCOMPARE(f.Selected(), HBPoints({{136, 116}}));
        QCOMPARE(f.recorder.Take(), QStringList());
        press(Qt::Key_Delete);
        QCOMPARE(f.Points(), HBPoints({{0, 0}, {190, 202}, {255, 255}}));
        QVERIFY(f.NodesFit());
        press(Qt::Key_Left); // nothing is selected
        QCOMPARE(f.Points().size(), 3);
    }

    void keyboardLimits() {
        Fixture f;
        f.Set({{0, 0}, {8, 250}, {13, 13}, {255, 255}});
        const auto press = [&](int key, Qt::KeyboardModifiers modifiers = {}) {
            QKeyEvent event(QEvent::KeyPress, key, modifiers);
            QApplication::sendEvent(f.scene, &event);
        };
        press(Qt::Key_PageUp);
        press(Qt::Key_PageUp);
        press(Qt::Key_Up, Qt::ShiftModifier); // as far as the square goes
        QCOMPARE(f.Points()[1], QPoint(8, 255));
        press(Qt::Key_Right, Qt::ShiftModifier); // as near as the neighbours allow
        QCOMPARE(f.Points()[1], QPoint(9, 255));
        press(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(f.Points()[1], QPoint(4, 255));
        press(Qt::Key_Insert); // no room
        QCOMPARE(f.Points().size(), 4);
        f.Set({{0, 0}, {2, 2}, {3, 3}, {255, 255}}); // no way to move at all
        press(Qt::Key_PageUp);
        press(Qt::Key_PageUp);
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Insert}) press(key);
        QCOMPARE(f.Points(), HBPoints({{0, 0}, {2, 2}, {3, 3}, {255, 255}}));
        for (int i = 0; i < 10; ++i) press(Qt::Key_PageUp);
        QCOMPARE(f.Selected(), HBPoints({{255, 255}}));
        press(Qt::Key_Insert); // behind the last: in the gap before it
        QCOMPARE(f.Points().size(), 5);
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
                QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, {});
                QApplication::sendEvent(f.scene, &key);
                check();
            }
        }
    }
};

HB_TEST_MAIN(tst_HBCurveEditor)
#include "tst_HBCurveEditor.moc"
