// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
// The curves panel but for its editor: record, channels, pickers, job.
#include "HBCurvesFixture.h"
#include "HBLogCapture.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBAdjustment.h>
#include <KMDocumentView.h>
#include <KMPixelRatioRound.h>
#include <KMTheme.h>

#include <QDataStream>

#include <limits>

namespace {

using Params = HBCurvesWidget::Params;

const HBPoints Default = {{0, 0}, {255, 255}};

/// Delivers, too, what the released jobs have posted.
struct PoolBlock : HBPoolBlock {
    ~PoolBlock() { Release(); }
    void Release() {
        HBPoolBlock::Release();
        HBSettle();
    }
};

/// 100 × 80 black pixels, with one block of a colour.
HBImage<> Photo(const QRect& block, const QColor& color) {
    QImage image(100, 80, QImage::Format_ARGB32);
    image.fill(Qt::black);
    for (int y = block.top(); y <= block.bottom(); ++y) {
        for (int x = block.left(); x <= block.right(); ++x) image.setPixelColor(x, y, color);
    }
    return HBImage<>::FromQImage(image);
}

/// With a document to pick from. Scene coordinates times the screen's ratio are pixels of the photo.
struct Fixture : HBCurvesFixture {
    explicit Fixture(bool dialog = true) : HBCurvesFixture(dialog) {
        document.setScene(&photoScene);
        panel.SetView(&document);
    }

    void SetImage(const HBImage<>& image) {
        panel.SetImage(image, {}, {}, {});
        Finish();
        recorder.Take();
    }
    QPoint InScene(const QPoint& pixel) const { return QPoint(pixel.x() / ratio, pixel.y() / ratio); }
    void Start(const QPoint& pixel, Qt::MouseButton button = Qt::LeftButton) {
        HBSceneMouse(document.scene(), QEvent::GraphicsSceneMousePress, InScene(pixel), button);
    }
    void End(const QPoint& pixel, Qt::MouseButton button = Qt::LeftButton) {
        HBSceneMouse(document.scene(), QEvent::GraphicsSceneMouseRelease, InScene(pixel), button);
    }
    /// Drags over these pixels, corners included.
    void Pick(const QRect& pixels) {
        Start(pixels.topLeft());
        End(pixels.bottomRight());
    }
    HBPoints Red() const { return panel.GetValue().points[1]; }
    bool HasPickerCursor() const {
        const QCursor cursor = document.viewport()->cursor();
        return !cursor.pixmap().isNull() && cursor.hotSpot() == QPoint(2, 14);
    }

    const int ratio = int(KMPixelRatioRound::GetPixelRatio());
    QGraphicsScene photoScene{0, 0, 100, 80};
    KMDocumentView document;
};

} // namespace

class tst_HBCurvesWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { KMTheme::Install(); }
    void setValue() {
        constexpr int Least = std::numeric_limits<int>::min();
        constexpr int Most = std::numeric_limits<int>::max();
        HBPoints many;
        for (int i = 0; i < 256; ++i) many += QPoint(i, 255 - i);
        const HBPoints close = {{0, 0}, {1, 9}, {2, 3}}, oneLevel = {{9, 9}, {9, 3}, {9, 200}};
        const QPair<HBPoints, HBPoints> rows[] = {
            {Default, Default},
            {many, many},
            {close, close},       // closer than the editor allows
            {oneLevel, oneLevel}, // in their order
            {many + HBPoints{{255, 0}}, Default},
            {{}, Default},
            {{{100, 100}}, Default},
            {{{200, 1}, {100, 2}, {100, 1}}, {{100, 2}, {100, 1}, {200, 1}}},
            {{{Most, Most}, {Least, Least}, {300, -1}}, {{0, 0}, {255, 255}, {255, 0}}}};
        for (const auto& [points, kept] : rows) {
            for (const int channel : {0, 3, 4, -1, Most}) {
                HBCurvesFixture f;
                Params params, expected;
                params.channel = channel;
                for (HBPoints& list : params.points) list = points;
                f.panel.SetValue(params);
                expected.channel = channel >= 0 && channel <= 3 ? channel : 0;
                for (HBPoints& list : expected.points) list = kept;
                QCOMPARE(HBStore(f.panel.GetValue()), HBStore(expected));
                const HBImage<> photo = HBTestRamp(9, 9);
                QCOMPARE(HBAdjust(params, {photo}).image.ToQImage(), HBAdjust(expected, {photo}).image.ToQImage());
                QVERIFY(f.NodesFit());
                QCOMPARE(f.channel->currentIndex(), expected.channel);
                QCOMPARE(f.Edits(), QString("%1 %2").arg(kept[0].x()).arg(kept[0].y()));
                QCOMPARE(f.recorder.Take(), QStringList());
                // Whatever is done to them.
                for (const int value : {0, 128, 255}) {
                    f.slider->SetValue(0, value);
                    f.slider->SetValue(1, value);
                    HBClickScene(f.scene, QPointF(value, 128));
                    HBClickScene(f.scene, QPointF(value, value));
                }
                f.panel.SetImage(photo, {}, {}, {});
                HBSettle();
                QVERIFY(f.NodesFit());
            }
        }
    }

    /// No count is believed before its points have been read.
    void hostileCounts() {
        for (const quint32 count : {0xFFFFFFFFu, 0x80000000u, 0x7FFFFFFFu, 0x3FFFFFFFu, 0x0FFFFFFFu, 3u}) {
            QByteArray bytes("KMCurves 1.00000");
            QDataStream writer(&bytes, QIODevice::Append);
            writer << 3 << HBPoints{{1, 2}, {30, 40}} << count << QPoint(5, 6) << QPoint(7, 8);
            Params params;
            QDataStream reader(bytes);
            QVERIFY(!params.Read(reader));
            QCOMPARE(reader.status(), QDataStream::ReadPastEnd);
            QCOMPARE(params.channel, 3);
            QCOMPARE(params.points[0], HBPoints({{1, 2}, {30, 40}}));
            for (int c = 1; c < 4; ++c) QCOMPARE(params.points[c], HBPoints());
            HBCurvesFixture f;
            f.panel.SetValue(params);
            QCOMPARE(f.Points(), Default);
        }
    }

    void pickerButtons() {
        Fixture f;
        QVERIFY(!f.HasPickerCursor());
        const QVector<QToolButton*> buttons = {f.black, f.gray, f.white};
        for (QToolButton* first : buttons) {
            for (QToolButton* second : buttons) {
                first->click();
                if (second != first) second->click();
                for (const QToolButton* button : buttons) QCOMPARE(button->isChecked(), button == second);
                QVERIFY(f.HasPickerCursor());
                second->click();
                for (const QToolButton* button : buttons) QVERIFY(!button->isChecked());
                QVERIFY(!f.HasPickerCursor());
                f.Start({5, 5}); // nobody listens any more
                QCOMPARE(f.document.dragMode(), QGraphicsView::NoDrag);
                f.End({5, 5});
            }
        }
        QCOMPARE(f.recorder.Take(), QStringList());
    }

    void pickDrag() {
        Fixture f;
        f.SetImage(Photo({20, 20, 10, 10}, QColor(40, 50, 60)));
        f.black->click();
        f.Start({0, 0}, Qt::RightButton);
        QCOMPARE(f.document.dragMode(), QGraphicsView::NoDrag);
        f.End({8, 8}); // without a start
        f.Start({20, 20});
        QCOMPARE(f.document.dragMode(), QGraphicsView::RubberBandDrag);
        f.Start({0, 0}); // one drag at a time
        f.End({0, 0}, Qt::RightButton);
        QCOMPARE(f.document.dragMode(), QGraphicsView::RubberBandDrag);
        f.End({28, 28});
        QCOMPARE(f.document.dragMode(), QGraphicsView::NoDrag);
        HBSettle();
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        const Params params = f.panel.GetValue();
        QCOMPARE(params.points[0], Default); // never touched
        QCOMPARE(params.points[1], HBPoints({{40, 0}, {255, 255}}));
        QCOMPARE(params.points[2], HBPoints({{50, 0}, {255, 255}}));
        QCOMPARE(params.points[3], HBPoints({{60, 0}, {255, 255}}));
        QVERIFY(f.black->isChecked()); // for the next pick
        QCOMPARE(params.channel, 0);
    }

    /// By the view's own mouse events, in a zoomed view.
    void pickByMouse() {
        const HBShowsWindows quiet;
        Fixture f(false);
        f.SetImage(Photo({20, 20, 30, 20}, QColor(200, 210, 220)));
        f.document.scale(4, 4);
        f.document.resize(600, 500);
        f.document.show();
        f.white->click();
        const auto pixel = [&](int x, int y) { return f.document.mapFromScene(f.InScene({x, y})); };
        QTest::mousePress(f.document.viewport(), Qt::LeftButton, {}, pixel(22, 22));
        QCOMPARE(f.document.dragMode(), QGraphicsView::RubberBandDrag);
        QTest::mouseRelease(f.document.viewport(), Qt::LeftButton, {}, pixel(40, 36));
        QCOMPARE(f.document.dragMode(), QGraphicsView::NoDrag);
        HBSettle();
        QCOMPARE(f.Red(), HBPoints({{0, 0}, {200, 255}}));
        QCOMPARE(f.panel.GetValue().points[3], HBPoints({{0, 0}, {220, 255}}));
    }

    void picks() {
        const HBPoints bent = {{0, 0}, {90, 30}, {255, 255}}, inverted = {{0, 255}, {255, 0}};
        const HBPoints level = {{0, 100}, {255, 100}}, narrow = {{0, 0}, {30, 255}};
        const struct {
            const char* picker;
            int level; ///< of the picked colour
            HBPoints before, after;
        } rows[] = {{"m_pBlack", 40, bent, {{40, 0}, {90, 30}, {255, 255}}},
                    {"m_pBlack", 40, inverted, {{0, 255}, {40, 0}}},
                    {"m_pBlack", 40, level, {{40, 0}, {255, 100}}},          // a tie
                    {"m_pBlack", 40, narrow, {{30, 255}, {40, 0}}},          // past the other end
                    {"m_pBlack", 99, bent, {{90, 30}, {99, 0}, {255, 255}}}, // past a point
                    {"m_pWhite", 200, bent, {{0, 0}, {90, 30}, {200, 255}}},
                    {"m_pWhite", 200, inverted, {{200, 255}, {255, 0}}},
                    {"m_pWhite", 200, level, {{0, 100}, {200, 255}}},      // a tie
                    {"m_pWhite", 50, bent, {{0, 0}, {50, 255}, {90, 30}}}, // past a point
                    {"m_pGray", 100, bent, {{0, 0}, {100, 128}, {255, 255}}},
                    {"m_pGray", 100, narrow, {{0, 0}, {30, 255}, {100, 128}}}}; // outside the ends
        for (const auto& row : rows) {
            Fixture f;
            f.SetImage(Photo({20, 20, 10, 10}, QColor(row.level, row.level, row.level)));
            Params params;
            params.channel = 1;
            for (HBPoints& list : params.points) list = row.before;
            f.panel.SetValue(params);
            f.Find<QToolButton>(row.picker)->click();
            f.Pick({20, 20, 10, 10});
            HBSettle();
            for (int c = 1; c < 4; ++c) params.points[c] = row.after;
            QCOMPARE(HBStore(f.panel.GetValue()), HBStore(params));
            QVERIFY(f.NodesFit());
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
            QVERIFY(f.recorder.WaitFor("ImageReady")); // by the debounce
        }
    }

    void pickRectangles() {
        struct Row {
            QPoint from, to;
            int average; ///< of a block of 101 at (50, 40), 20 × 20; the fallback is 128
        };
        QVector<Row> rows = {{{52, 42}, {60, 50}, 101}, // inside
                             {{60, 42}, {52, 50}, 101},
                             {{52, 42}, {52, 42}, 101},
                             {{80, 60}, {900, 900}, 0},
                             {{-50, -50}, {900, 900}, 101 * 400 / 8000},
                             {{200, 10}, {300, 20}, 128}, // beside
                             {{-2000000000, -2000000000}, {-1900000000, 2000000000}, 128}};
        if (int(KMPixelRatioRound::GetPixelRatio()) == 1)
            rows += {{{45, 35}, {50, 40}, 101 / 36}, {{49, 42}, {50, 43}, 50}}; // corners included, truncated
        for (const Row& row : rows) {
            Fixture f;
            const auto pick = [&] {
                f.Start(row.from);
                f.End(row.to);
                HBSettle();
                return f.Red();
            };
            f.SetImage(Photo({50, 40, 20, 20}, QColor(101, 101, 101)));
            f.gray->click();
            QCOMPARE(pick(), HBPoints({{0, 0}, {row.average, 128}, {255, 255}}));
            // Without an image there is the fallback only.
            f.SetImage(HBImage<>());
            f.panel.OnReset();
            for (QToolButton* button : {f.gray, f.black, f.white}) {
                if (!button->isChecked()) button->click();
                QCOMPARE(pick(), HBPoints({{0, 0}, {128, 128}, {255, 255}}));
            }
        }
    }

    /// The sums have 32 bits and wrap: 25 million white pixels average to 83.
    void hugePick() {
        QImage white(128, 128, QImage::Format_RGB32);
        white.fill(Qt::white);
        const HBImage<> tile = HBImage<>::FromQImage(white);
        HBImage<> photo(5000, 5000);
        for (int i = 0; i < photo.Tiles().size(); ++i) photo.ShareTile(i, tile.Tile(0));
        Fixture f;
        f.panel.SetCancelProcessing(true); // no job of the panel's own
        f.panel.SetImage(photo, {}, {}, {});
        f.white->click();
        f.Pick(QRect(-10, -10, 6000, 6000));
        HBSettle();
        QCOMPARE(f.Red(), HBPoints({{0, 0}, {83, 255}}));
    }

    void pickPrecedence() {
        Fixture f;
        f.SetImage(Photo({20, 20, 10, 10}, QColor(100, 100, 100)));
        f.white->click();
        // As no click can bring it about: all three, then black and white.
        for (QToolButton* other : {f.black, f.gray}) {
            const QSignalBlocker silent(other);
            other->setChecked(true);
        }
        f.Pick({20, 20, 10, 10});
        HBSettle();
        QCOMPARE(f.Red(), HBPoints({{0, 0}, {100, 128}, {255, 255}}));
        {
            const QSignalBlocker silent(f.gray);
            f.gray->setChecked(false);
        }
        f.Pick({20, 20, 10, 10});
        HBSettle();
        QCOMPARE(f.Red(), HBPoints({{100, 0}, {100, 128}, {255, 255}}));
    }

    /// While one pick runs, the latest of those that follow is remembered.
    void pendingPick() {
        Fixture f;
        f.SetImage(Photo({20, 20, 10, 10}, QColor(80, 80, 80)));
        f.black->click();
        PoolBlock block;
        f.Pick({20, 20, 10, 10});
        f.Pick({0, 0, 10, 10});
        f.Pick({20, 10, 10, 20}); // half of it black; the other half 80
        QCOMPARE(f.recorder.Take(), QStringList());
        HBPoints first;
        f.recorder.Once("ValueChanged()", [&] { first = f.Red(); });
        block.Release();
        QCOMPARE(first, HBPoints({{80, 0}, {255, 255}}));
        QCOMPARE(f.recorder.Take(), HBClosingCalls(2));
        if (f.ratio == 1) QCOMPARE(f.Red(), HBPoints({{40, 0}, {255, 255}}));
        HBSettle();
        QCOMPARE(f.recorder.Take(), QStringList());
    }

    void resetCancelsPicks() {
        Fixture f(false);
        f.SetImage(Photo({20, 20, 10, 10}, QColor(80, 80, 80)));
        for (QToolButton* button : {f.black, f.gray, f.white}) {
            button->click();
            {
                PoolBlock block;
                f.Pick({20, 20, 10, 10});
                f.Pick({20, 20, 10, 10}); // pending
                f.panel.OnReset();
                QCOMPARE(f.recorder.Take(), HBClosingCalls());
            }
            QCOMPARE(HBStore(f.panel.GetValue()), HBStore(Params()));
            QCOMPARE(f.recorder.Take(), QStringList());
            {
                PoolBlock block;
                f.Pick({20, 20, 10, 10});
                f.panel.OnReset();
                f.Pick({20, 20, 10, 10}); // after it: has its turn
                f.recorder.Take();
            }
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
            QVERIFY(f.Red() != Default);
        }
    }

    void unpickedInMidDrag() {
        Fixture f;
        f.SetImage(Photo({20, 20, 10, 10}, QColor(80, 80, 80)));
        f.black->click();
        f.Start({20, 20});
        f.black->click();
        QCOMPARE(f.document.dragMode(), QGraphicsView::NoDrag);
        f.End({29, 29});
        f.gray->click();
        f.End({29, 29}); // of a drag that is over
        HBSettle();
        QCOMPARE(f.recorder.Take(), QStringList());
        // Another picker in mid-drag takes the drag over.
        f.Start({20, 20});
        f.white->click();
        QCOMPARE(f.document.dragMode(), QGraphicsView::RubberBandDrag);
        f.End({28, 28});
        HBSettle();
        QCOMPARE(f.Red(), HBPoints({{0, 0}, {80, 255}}));
    }

    /// Clicks in the curve's scene pick nothing.
    void ownSceneIsNoDocument() {
        Fixture f;
        f.SetImage(HBTestRamp(300, 300));
        f.black->click();
        f.Press({100, 50});
        QCOMPARE(f.document.dragMode(), QGraphicsView::NoDrag);
        f.Release({150, 60});
        HBSettle();
        QCOMPARE(f.recorder.Take(), QStringList());
        QCOMPARE(f.Red(), Default);
    }

    void views() {
        Fixture f;
        f.SetImage(Photo({20, 20, 10, 10}, QColor(80, 80, 80)));
        f.black->click();
        f.Start({20, 20});
        QVERIFY(f.HasPickerCursor());
        KMDocumentView other;
        QGraphicsScene otherScene(0, 0, 100, 80);
        other.setScene(&otherScene);
        f.panel.SetView(&other);
        QVERIFY(!f.black->isChecked());
        QVERIFY(!f.HasPickerCursor());
        QCOMPARE(f.document.dragMode(), QGraphicsView::NoDrag);
        f.End({29, 29});
        HBSceneMouse(&otherScene, QEvent::GraphicsSceneMousePress, {5, 5});
        QCOMPARE(other.dragMode(), QGraphicsView::NoDrag);

        // No view, and one without a scene.
        KMDocumentView empty;
        for (KMDocumentView* view : {static_cast<KMDocumentView*>(nullptr), &empty}) {
            f.panel.SetView(view);
            for (QToolButton* button : {f.black, f.gray, f.white, f.white}) button->click();
            f.gray->click();
        }
        f.panel.SetView(&empty);
        // Views that die, or lose their scene, while a picker is on.
        auto* mortal = new KMDocumentView;
        mortal->setScene(&otherScene);
        f.panel.SetView(mortal);
        f.black->click();
        HBSceneMouse(&otherScene, QEvent::GraphicsSceneMousePress, {5, 5});
        delete mortal;
        HBSceneMouse(&otherScene, QEvent::GraphicsSceneMouseRelease, {9, 9});
        f.gray->click();
        f.gray->click();
        f.panel.SetView(&other);
        f.white->click();
        HBSceneMouse(&otherScene, QEvent::GraphicsSceneMousePress, {5, 5});
        other.setScene(nullptr);
        HBSceneMouse(&otherScene, QEvent::GraphicsSceneMouseRelease, {9, 9});
        f.white->click();
        f.panel.SetView(nullptr);
        HBSettle();
        QCOMPARE(f.recorder.Take(), QStringList());
        QCOMPARE(f.Red(), Default);
    }

    void deletedWhilePicking() {
        KMDocumentView document;
        QGraphicsScene scene(0, 0, 2000, 2000);
        document.setScene(&scene);
        for (const bool queued : {true, false}) {
            std::unique_ptr<PoolBlock> block; // longer than the panel, which must not wait for it
            HBCurvesFixture f;
            f.panel.SetView(&document);
            f.panel.SetImage(HBTestRamp(1500, 1500), {}, {}, {});
            f.Finish();
            if (queued) block = std::make_unique<PoolBlock>();
            for (QToolButton* button : {f.black, f.gray, f.white}) {
                button->click();
                for (int i = 0; i < 2; ++i) {
                    HBSceneMouse(&scene, QEvent::GraphicsSceneMousePress, {0, 0});
                    HBSceneMouse(&scene, QEvent::GraphicsSceneMouseRelease, {1499, 1499});
                }
            }
            HBSceneMouse(&scene, QEvent::GraphicsSceneMousePress, {0, 0}); // and in mid-drag
        }
        // Nothing of the panel stays with the document.
        QCOMPARE(document.viewport()->cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(document.dragMode(), QGraphicsView::NoDrag);
        HBSceneMouse(&scene, QEvent::GraphicsSceneMousePress, {0, 0});
    }
};

// ---- Pickers ----

HB_TEST_MAIN(tst_HBCurvesWidget)
#include "tst_HBCurvesWidget.moc"
