// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBCurvesFixture.h"
#include "HBTestMain.h"

#include <HBCurveScene.h>
#include <HBCurvesTransformation.h>

#include <limits>

namespace {

struct Curve {
    HBPoints list;
    HBCurveScene editor{&list};
};

/// The editor alone, and what it tells.
struct Fixture : Curve, HBCurveUser {
    explicit Fixture(const HBPoints& points = Default) : Curve{points}, HBCurveUser(&editor) {
        QObject::connect(&editor, &HBCurveScene::PointsChanged, [this] { ++changes; });
        QObject::connect(&editor, &HBCurveScene::PointTouched, [this](const QPoint& point) {
            touched = QString("%1 %2").arg(point.x()).arg(point.y());
        });
        QObject::connect(&editor, &HBCurveScene::EndMoving, [this](uint end, int input) { ends[end] = input; });
    }
    HBPoints Points() const override { return list; }

    int changes = 0;        ///< how often it told of one
    QString touched;        ///< the point that it named last
    int ends[2] = {-1, -1}; ///< where it last said that an end goes
};

} // namespace

class tst_HBCurveScene : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// What is drawn is what is applied.
    void path() {
        const HBPoints rows[] = {Default,
                                 {{50, 10}, {200, 240}}, // with flat ends
                                 {{20, 30}, {100, 200}, {230, 250}},
                                 {{0, 255}, {100, 0}, {101, 255}, {102, 0}, {255, 255}},
                                 {{0, 0}, {50, 60}, {50, 60}, {50, 200}, {255, 255}}};
        for (const HBPoints& points : rows) {
            const Fixture f(points);
            const HBPoints curves[4] = {points, {}, {}, {}};
            const HBCurvesTransformation applied(curves, 100);
            QVector<int> levels;
            for (const QPointF& corner : f.Drawn()) {
                levels += int(corner.x());
                QCOMPARE(255 - corner.y(), double(applied.red[std::size_t(levels.last())]));
            }
            QVERIFY(std::is_sorted(levels.begin(), levels.end()));
            QCOMPARE(levels.first(), 0);
            QCOMPARE(levels.last(), 255);
            // A straight line needs no corner at each level.
            const int first = points.first().x(), last = points.last().x();
            for (int x = first; x <= last; x += points.size() > 2 ? 1 : last - first) QVERIFY(levels.contains(x));
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
            Fixture f(points);
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
                QCOMPARE(f.touched, QString("%1 %2").arg(at.x()).arg(at.y()));
            }
            QCOMPARE(f.Points(), expected);
            QVERIFY(f.NodesFit());
            // An insertion changes no pixel, nearly, and tells nobody.
            QCOMPARE(f.changes, 0);
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
        Fixture f(Bent);
        const auto select = [&] {
            HBClickScene(f.scene, f.View({100, 120}));
            QCOMPARE(f.Selected(), HBPoints({{100, 120}}));
        };
        select();
        QCOMPARE(f.touched, QString("100 120"));
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
        QCOMPARE(f.changes, 0);
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
            Fixture f(points);
            f.Press(from);
            const QString before = f.touched;
            f.Drag(to);
            HBPoints expected = points;
            if (moved) expected[points.indexOf(from)] = to;
            QCOMPARE(f.Points(), expected);
            QVERIFY(f.NodesFit());
            QCOMPARE(f.Selected(), HBPoints{moved ? to : from});
            QCOMPARE(f.touched, moved ? QString("%1 %2").arg(to.x()).arg(to.y()) : before);
            QCOMPARE(f.changes, int(moved));
            const int end = from.x() == 0 ? 0 : 1;
            if (moved) QCOMPARE(f.ends[end], from.x() % 255 == 0 ? to.x() : -1);
            // The line follows.
            QVERIFY(f.Drawn().contains(f.View(moved ? to : from)));
        }
    }

    void dragNeedsTheLeftButtonAndASelection() {
        Fixture f(Bent);
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
        Fixture f(Bent);
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

    /// An S-curve without a mouse.
    void keyboard() {
        Fixture f;
        f.Key(Qt::Key_PageUp);
        QCOMPARE(f.Selected(), HBPoints({{0, 0}}));
        f.Key(Qt::Key_PageDown); // no further
        QCOMPARE(f.Selected(), HBPoints({{0, 0}}));
        f.Key(Qt::Key_Insert);
        QCOMPARE(f.Selected(), HBPoints({{127, 127}}));
        QCOMPARE(f.touched, QString("127 127"));
        f.Key(Qt::Key_Insert);
        QCOMPARE(f.Selected(), HBPoints({{191, 191}}));
        QCOMPARE(f.changes, 0);
        f.Key(Qt::Key_Up, Qt::ShiftModifier);
        f.Key(Qt::Key_Up);
        f.Key(Qt::Key_Left);
        QCOMPARE(f.touched, QString("190 202"));
        f.Key(Qt::Key_PageDown);
        f.Key(Qt::Key_Down, Qt::ShiftModifier);
        f.Key(Qt::Key_Right, Qt::ShiftModifier);
        f.Key(Qt::Key_Left);
        f.Key(Qt::Key_Down);
        QCOMPARE(f.Points(), HBPoints({{0, 0}, {136, 116}, {190, 202}, {255, 255}}));
        QCOMPARE(f.touched, QString("136 116"));
        QCOMPARE(f.changes, 7);
        for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
            for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Insert, Qt::Key_Plus})
                f.Key(key, modifier | Qt::ShiftModifier);
        }
        QCOMPARE(f.Selected(), HBPoints({{136, 116}}));
        QCOMPARE(f.changes, 7);
        f.Key(Qt::Key_Delete);
        QCOMPARE(f.Points(), HBPoints({{0, 0}, {190, 202}, {255, 255}}));
        QVERIFY(f.NodesFit());
        f.Key(Qt::Key_Left); // nothing is selected
        QCOMPARE(f.Points().size(), 3);
    }

    void keyboardLimits() {
        Fixture f({{0, 0}, {8, 250}, {13, 13}, {255, 255}});
        f.Key(Qt::Key_PageUp);
        f.Key(Qt::Key_PageUp);
        f.Key(Qt::Key_Up, Qt::ShiftModifier); // as far as the square goes
        QCOMPARE(f.Points()[1], QPoint(8, 255));
        f.Key(Qt::Key_Right, Qt::ShiftModifier); // as near as the neighbours allow
        QCOMPARE(f.Points()[1], QPoint(9, 255));
        f.Key(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(f.Points()[1], QPoint(4, 255));
        f.Key(Qt::Key_Insert); // no room
        QCOMPARE(f.Points().size(), 4);
        Fixture g({{0, 0}, {2, 2}, {3, 3}, {255, 255}}); // no way to move at all
        g.Key(Qt::Key_PageUp);
        g.Key(Qt::Key_PageUp);
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Insert}) g.Key(key);
        QCOMPARE(g.Points(), HBPoints({{0, 0}, {2, 2}, {3, 3}, {255, 255}}));
        for (int i = 0; i < 10; ++i) g.Key(Qt::Key_PageUp);
        QCOMPARE(g.Selected(), HBPoints({{255, 255}}));
        g.Key(Qt::Key_Insert); // behind the last: in the gap before it
        QCOMPARE(g.Points().size(), 5);
    }
};

HB_TEST_MAIN(tst_HBCurveScene)
#include "tst_HBCurveScene.moc"
