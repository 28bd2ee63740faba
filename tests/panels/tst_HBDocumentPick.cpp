// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPickedDocument.h"
#include "HBTestMain.h"

#include <HBDocumentPick.h>
#include <KMTheme.h>

#include <QElapsedTimer>
#include <QToolButton>

#include <memory>

namespace {

enum { Gray, Black, White };
/// Which button's colour came, and its level.
using Picked = QVector<QPair<int, int>>;

struct Fixture : HBPickedDocument {
    Fixture() {
        for (int i = Gray; i <= White; ++i) {
            buttons[i].setCheckable(true);
            pick->Add(&buttons[i], HBRGBA32i::FromRgba(qRgb(9, 9, 9)));
            QObject::connect(&buttons[i], &QToolButton::toggled, pick.get(), [=] { Toggled(i); });
            QObject::connect(pick->Watcher(i), &QFutureWatcherBase::finished, pick.get(), [=] {
                if (const auto color = pick->Result(i)) picked += qMakePair(i, int(color->red));
                pick->StartNext(i);
            });
        }
        pick->SetView(&view);
    }
    void Toggled(int i) { pick->Toggle(i, buttons[i].isChecked()); }
    Picked Take() {
        HBSettle();
        return std::exchange(picked, {});
    }

    HBImage<> photo = Photo({20, 20, 10, 10}, qRgb(80, 80, 80));
    QToolButton buttons[3];
    Picked picked;
    std::unique_ptr<HBDocumentPick> pick = std::make_unique<HBDocumentPick>([this] { return photo; });
};

/// White, and so large that it takes no memory but for one tile.
HBImage<> Plain(int side) {
    QImage white(128, 128, QImage::Format_RGB32);
    white.fill(Qt::white);
    const HBImage<> tile = HBImage<>::FromQImage(white);
    HBImage<> photo(side, side);
    for (int i = 0; i < photo.Tiles().size(); ++i) photo.ShareTile(i, tile.Tile(0));
    return photo;
}

} // namespace

class tst_HBDocumentPick : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { KMTheme::Install(); }

    void buttons() {
        Fixture f;
        QVERIFY(!f.HasPickerCursor());
        for (QToolButton& first : f.buttons) {
            for (QToolButton& second : f.buttons) {
                first.click();
                if (&second != &first) second.click();
                for (const QToolButton& button : f.buttons) QCOMPARE(button.isChecked(), &button == &second);
                QVERIFY(f.HasPickerCursor());
                second.click();
                for (const QToolButton& button : f.buttons) QVERIFY(!button.isChecked());
                QVERIFY(!f.HasPickerCursor());
                f.Start({5, 5}); // nobody listens any more
                QCOMPARE(f.view.dragMode(), QGraphicsView::NoDrag);
                f.End({5, 5});
            }
        }
        QCOMPARE(f.Take(), Picked());
    }

    void drag() {
        Fixture f;
        f.buttons[Black].click();
        f.Start({0, 0}, Qt::RightButton);
        QCOMPARE(f.view.dragMode(), QGraphicsView::NoDrag);
        f.End({8, 8}); // without a start
        f.Start({20, 20});
        QCOMPARE(f.view.dragMode(), QGraphicsView::RubberBandDrag);
        f.Start({0, 0}); // one drag at a time
        f.End({0, 0}, Qt::RightButton);
        QCOMPARE(f.view.dragMode(), QGraphicsView::RubberBandDrag);
        f.End({28, 28});
        QCOMPARE(f.view.dragMode(), QGraphicsView::NoDrag);
        QCOMPARE(f.Take(), Picked({{Black, 80}}));
        QVERIFY(f.buttons[Black].isChecked()); // for the next pick
    }

    void rectangles() {
        struct Row {
            QPoint from, to;
            int average; ///< of a block of 101 at (50, 40), 20 × 20; the fallback is 9
        };
        QVector<Row> rows = {{{52, 42}, {60, 50}, 101}, // inside
                             {{60, 42}, {52, 50}, 101},
                             {{52, 42}, {52, 42}, 101},
                             {{80, 60}, {900, 900}, 0},
                             {{-50, -50}, {900, 900}, 101 * 400 / 8000},
                             {{200, 10}, {300, 20}, 9}, // beside
                             {{-2000000000, -2000000000}, {-1900000000, 2000000000}, 9}};
        Fixture f;
        if (f.ratio == 1)
            rows += {{{45, 35}, {50, 40}, 101 / 36}, {{49, 42}, {50, 43}, 50}}; // corners included, truncated
        for (const Row& row : rows) {
            for (const bool empty : {false, true}) { // without an image there is the fallback only
                f.photo = empty ? HBImage<>() : f.Photo({50, 40, 20, 20}, qRgb(101, 101, 101));
                for (const int i : {Gray, Black, White}) {
                    if (!f.buttons[i].isChecked()) f.buttons[i].click();
                    f.Start(row.from);
                    f.End(row.to);
                    QCOMPARE(f.Take(), Picked({{i, empty ? 9 : row.average}}));
                }
            }
        }
    }

    /// The sums have 32 bits and wrap: 25 million white pixels average to 83.
    void hugePick() {
        const HBRGBA32i average = HBDocumentPick::Average(Plain(5000), {-10, -10, 6000, 6000}, {});
        QCOMPARE(int(average.red), 83);
    }

    /// As no click can bring it about: several are checked.
    void precedence() {
        Fixture f;
        f.buttons[White].click();
        for (const int others : {2, 1}) {
            const QSignalBlocker silent[] = {QSignalBlocker(f.buttons[Gray]), QSignalBlocker(f.buttons[Black])};
            f.buttons[Black].setChecked(true);
            f.buttons[Gray].setChecked(others == 2);
            f.Pick({20, 20, 10, 10});
            QCOMPARE(f.Take(), Picked({{others == 2 ? Gray : Black, 80}}));
        }
    }

    /// While a count runs, the last rectangle of those that follow is remembered, unless all of it is cancelled.
    void pending() {
        for (const bool cancelled : {false, true}) {
            Fixture f;
            f.buttons[Black].click();
            HBSettlingPoolBlock block;
            f.Pick({20, 20, 10, 10});
            f.Pick({0, 0, 10, 10});
            if (cancelled) f.pick->Cancel();
            f.Pick({20, 10, 10, 20}); // half of it black
            QCOMPARE(f.picked, Picked());
            block.Release();
            const Picked taken = f.Take();
            QCOMPARE(taken.size(), cancelled ? 1 : 2);
            if (!cancelled) QCOMPARE(taken.first(), qMakePair(int(Black), 80));
            if (f.ratio == 1) QCOMPARE(taken.last(), qMakePair(int(Black), 40));
        }
    }

    void uncheckedInMidDrag() {
        Fixture f;
        f.buttons[Black].click();
        f.Start({20, 20});
        f.buttons[Black].click();
        QCOMPARE(f.view.dragMode(), QGraphicsView::NoDrag);
        f.End({29, 29});
        f.buttons[Gray].click();
        f.End({29, 29}); // of a drag that is over
        QCOMPARE(f.Take(), Picked());
        // Another picker in mid-drag takes the drag over.
        f.Start({20, 20});
        f.buttons[White].click();
        QCOMPARE(f.view.dragMode(), QGraphicsView::RubberBandDrag);
        f.End({28, 28});
        QCOMPARE(f.Take(), Picked({{White, 80}}));
    }

    void views() {
        Fixture f;
        f.buttons[Black].click();
        f.Start({20, 20});
        QVERIFY(f.HasPickerCursor());
        KMDocumentView other;
        QGraphicsScene otherScene(0, 0, 100, 80);
        other.setScene(&otherScene);
        f.pick->SetView(&other);
        QVERIFY(!f.buttons[Black].isChecked());
        QVERIFY(!f.HasPickerCursor());
        QCOMPARE(f.view.dragMode(), QGraphicsView::NoDrag);
        f.End({29, 29});
        HBSceneMouse(&otherScene, QEvent::GraphicsSceneMousePress, {5, 5});
        QCOMPARE(other.dragMode(), QGraphicsView::NoDrag);

        // No view, and one without a scene.
        KMDocumentView empty;
        for (KMDocumentView* view : {static_cast<KMDocumentView*>(nullptr), &empty}) {
            f.pick->SetView(view);
            for (const int i : {Black, Gray, White, White, Gray}) f.buttons[i].click();
        }
        f.pick->SetView(&empty);
        // Views that die, or lose their scene, while a picker is on.
        auto* mortal = new KMDocumentView;
        mortal->setScene(&otherScene);
        f.pick->SetView(mortal);
        f.buttons[Black].click();
        HBSceneMouse(&otherScene, QEvent::GraphicsSceneMousePress, {5, 5});
        delete mortal;
        HBSceneMouse(&otherScene, QEvent::GraphicsSceneMouseRelease, {9, 9});
        f.buttons[Gray].click();
        f.buttons[Gray].click();
        f.pick->SetView(&other);
        f.buttons[White].click();
        HBSceneMouse(&otherScene, QEvent::GraphicsSceneMousePress, {5, 5});
        other.setScene(nullptr);
        HBSceneMouse(&otherScene, QEvent::GraphicsSceneMouseRelease, {9, 9});
        f.buttons[White].click();
        f.pick->SetView(nullptr);
        QCOMPARE(f.Take(), Picked());
    }

    /// It neither finishes the counts nor leaves anything with the document.
    void destroyedWhileCounting() {
        const HBImage<> photo = Plain(12000);
        const QRect all(0, 0, 12000, 12000);
        QElapsedTimer timer;
        timer.start();
        HBDocumentPick::Average(photo, all, {});
        const qint64 one = timer.elapsed();
        for (const bool queued : {true, false}) {
            Fixture f;
            f.photo = photo;
            std::unique_ptr<HBSettlingPoolBlock> block;
            if (queued) block = std::make_unique<HBSettlingPoolBlock>();
            for (QToolButton& button : f.buttons) {
                button.click();
                f.Pick(all);
                f.Pick(all);
            }
            f.Start({0, 0}); // and in mid-drag
            timer.restart();
            f.pick.reset();
            QVERIFY2(timer.elapsed() < one, qPrintable(QString("%1 of %2 ms").arg(timer.elapsed()).arg(one)));
            QCOMPARE(f.view.viewport()->cursor().shape(), Qt::ArrowCursor);
            QCOMPARE(f.view.dragMode(), QGraphicsView::NoDrag);
            f.Start({0, 0});
        }
    }
};

HB_TEST_MAIN(tst_HBDocumentPick)
#include "tst_HBDocumentPick.moc"
