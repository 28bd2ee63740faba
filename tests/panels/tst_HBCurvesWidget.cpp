// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
// The curves panel but for its editor: record, channels, pickers, job.
#include "HBCurvesFixture.h"
#include "HBLogCapture.h"
#include "HBPickedDocument.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBAdjustment.h>
#include <KMTheme.h>

#include <QDataStream>

#include <limits>

namespace {

using Params = HBCurvesWidget::Params;

/// With a document to pick from.
struct Fixture : HBCurvesFixture {
    explicit Fixture(bool dialog = true, QRgb color = qRgb(80, 80, 80)) : HBCurvesFixture(dialog) {
        panel.SetView(&document.view);
        panel.SetImage(document.Photo({20, 20, 10, 10}, color), {}, {}, {});
        Finish();
        recorder.Take();
    }
    void Pick() { document.Pick({20, 20, 10, 10}); }
    HBPoints Red() const { return panel.GetValue().points[1]; }

    HBPickedDocument document;
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

    /// By the view's own mouse events, in a zoomed view.
    void pickByMouse() {
        const HBShowsWindows quiet;
        Fixture f(false, qRgb(200, 210, 220));
        f.document.view.scale(4, 4);
        f.document.view.resize(600, 500);
        f.document.view.show();
        f.white->click();
        const auto pixel = [&](int x, int y) { return f.document.view.mapFromScene(f.document.InScene({x, y})); };
        QTest::mousePress(f.document.view.viewport(), Qt::LeftButton, {}, pixel(22, 22));
        QCOMPARE(f.document.view.dragMode(), QGraphicsView::RubberBandDrag);
        QTest::mouseRelease(f.document.view.viewport(), Qt::LeftButton, {}, pixel(28, 26));
        QCOMPARE(f.document.view.dragMode(), QGraphicsView::NoDrag);
        HBSettle();
        QCOMPARE(f.Red(), HBPoints({{0, 0}, {200, 255}}));
        QCOMPARE(f.panel.GetValue().points[3], HBPoints({{0, 0}, {220, 255}}));
        QCOMPARE(f.panel.GetValue().points[0], Default); // never touched
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
            Fixture f(true, qRgb(row.level, row.level, row.level));
            Params params;
            params.channel = 1;
            for (HBPoints& list : params.points) list = row.before;
            f.panel.SetValue(params);
            f.Find<QToolButton>(row.picker)->click();
            f.Pick();
            HBSettle();
            for (int c = 1; c < 4; ++c) params.points[c] = row.after;
            QCOMPARE(HBStore(f.panel.GetValue()), HBStore(params));
            QVERIFY(f.NodesFit());
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
            QVERIFY(f.recorder.WaitFor("ImageReady")); // by the debounce
        }
    }

    void resetCancelsPicks() {
        Fixture f(false);
        for (QToolButton* button : {f.black, f.gray, f.white}) {
            button->click();
            {
                const HBSettlingPoolBlock block;
                f.Pick();
                f.Pick(); // pending
                f.panel.OnReset();
                QCOMPARE(f.recorder.Take(), HBClosingCalls());
            }
            QCOMPARE(HBStore(f.panel.GetValue()), HBStore(Params()));
            QCOMPARE(f.recorder.Take(), QStringList());
            {
                const HBSettlingPoolBlock block;
                f.Pick();
                f.panel.OnReset();
                f.Pick(); // after it: has its turn
                f.recorder.Take();
            }
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
            QVERIFY(f.Red() != Default);
        }
    }

    /// Clicks in the curve's scene pick nothing.
    void ownSceneIsNoDocument() {
        Fixture f;
        f.black->click();
        f.Press({100, 50});
        QCOMPARE(f.document.view.dragMode(), QGraphicsView::NoDrag);
        f.Release({150, 60});
        HBSettle();
        QCOMPARE(f.recorder.Take(), QStringList());
        QCOMPARE(f.Red(), Default);
    }
};

HB_TEST_MAIN(tst_HBCurvesWidget)
#include "tst_HBCurvesWidget.moc"
