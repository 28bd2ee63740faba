// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
// The curves panel but for its editor: record, channels, pickers, job.
#include "HBCurvesFixture.h"
#include "HBJobLog.h"
#include "HBLogCapture.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBAdjustment.h>
#include <HBIterativeCurvesTransformation.h>
#include <KMDocumentView.h>
#include <KMPixelRatioRound.h>
#include <KMTheme.h>

#include <QDataStream>
#include <QTemporaryFile>

#include <limits>
#include <stdexcept>
#include <unistd.h>

Q_DECLARE_METATYPE(QVector<QPoint>)

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
    void setValue_data();
    void setValue();
    void hostileCounts();
    void channels();
    void results_data();
    void results();
    void exceptionLines();

    void pickerButtons();
    void pickDrag();
    void pickByMouse();
    void picks_data();
    void picks();
    void pickRectangles_data();
    void pickRectangles();
    void hugePick();
    void pickPrecedence();
    void pendingPick();
    void resetCancelsPicks();
    void unpickedInMidDrag();
    void ownSceneIsNoDocument();
    void views();
    void deletedWhilePicking();
    void deletedAtOnce();
};

void tst_HBCurvesWidget::setValue_data() {
    QTest::addColumn<HBPoints>("points");
    QTest::addColumn<HBPoints>("kept");
    constexpr int Least = std::numeric_limits<int>::min();
    constexpr int Most = std::numeric_limits<int>::max();
    HBPoints many;
    for (int i = 0; i < 256; ++i) many += QPoint(i, 255 - i);
    const auto same = [](const char* name, const HBPoints& points) { QTest::newRow(name) << points << points; };
    same("default", Default);
    same("as many as there are levels", many);
    same("closer than the editor allows", {{0, 0}, {1, 9}, {2, 3}});
    same("at one level", {{9, 9}, {9, 3}, {9, 200}}); // in their order
    QTest::newRow("one too many") << many + HBPoints{{255, 0}} << Default;
    QTest::newRow("none") << HBPoints() << Default;
    QTest::newRow("one") << HBPoints{{100, 100}} << Default;
    QTest::newRow("unsorted") << HBPoints{{200, 1}, {100, 2}, {100, 1}} << HBPoints{{100, 2}, {100, 1}, {200, 1}};
    QTest::newRow("far away") << HBPoints{{Most, Most}, {Least, Least}, {300, -1}}
                              << HBPoints{{0, 0}, {255, 255}, {255, 0}};
}

void tst_HBCurvesWidget::setValue() {
    QFETCH(HBPoints, points);
    QFETCH(HBPoints, kept);
    for (const int channel : {0, 2, 3, 4, -1, std::numeric_limits<int>::max()}) {
        HBCurvesFixture f;
        Params params;
        params.channel = channel;
        for (HBPoints& list : params.points) list = points;
        f.panel.SetValue(params);
        Params expected;
        expected.channel = channel >= 0 && channel <= 3 ? channel : 0;
        for (HBPoints& list : expected.points) list = kept;
        QCOMPARE(HBStore(f.panel.GetValue()), HBStore(expected));
        const HBImage<> photo = HBTestRamp(9, 9);
        QCOMPARE(HBAdjust(params, {photo}).image.ToQImage(), HBAdjust(expected, {photo}).image.ToQImage());
        Params copy;
        for (const HBFieldInfo& field : HBDescribeFields<Params>()) field.set(&copy, field.get(&params));
        QCOMPARE(HBStore(copy), HBStore(params));
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
        f.panel.SetImage(HBTestRamp(9, 9), {}, {}, {});
        HBSettle();
        QVERIFY(f.NodesFit());
    }
}

/// No count is believed before its points have been read.
void tst_HBCurvesWidget::hostileCounts() {
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

void tst_HBCurvesWidget::channels() {
    HBCurvesFixture f;
    f.panel.SetImage(HBTestRamp(9, 9), {}, {}, {});
    QVERIFY(f.Finish());
    Params params;
    for (int c = 0; c < 4; ++c) params.points[c] = {{60 * c, c}, {60 * c + 20, 100}, {60 * c + 40, 200}};
    f.panel.SetValue(params);
    f.recorder.Take();
    for (const int c : {3, 0, 2, 1, 3}) {
        f.channel->setCurrentIndex(c);
        QCOMPARE(f.panel.GetValue().channel, c);
        QCOMPARE(f.histogram->Channel(), HBCurvesWidget::IndexToHistogrammChannel(c));
        QCOMPARE(f.Points(), params.points[c]);
        QVERIFY(f.NodesFit());
        QCOMPARE(qMakePair(f.slider->Value(0), f.slider->Value(1)), qMakePair(60 * c, 60 * c + 40));
        QCOMPARE(qMakePair(f.slider->Maximum(0), f.slider->Minimum(1)), qMakePair(60 * c + 16, 60 * c + 24));
        QCOMPARE(f.Edits(), QString("%1 %2").arg(60 * c).arg(c));
        // The image stays as it is.
        QCOMPARE(f.recorder.Take(), QStringList({"AboutUserParamsChanged()", "ValueChanged()"}));
    }
    QVERIFY(HBIsIdle(f.panel));
    f.channel->setCurrentIndex(-1);
    QCOMPARE(f.panel.GetValue().channel, 3);
    QCOMPARE(f.recorder.Take(), QStringList());
    f.slider->SetValue(0, 190); // the shown channel only
    params.channel = 3;
    params.points[3][0].setX(190);
    QCOMPARE(HBStore(f.panel.GetValue()), HBStore(params));
    QCOMPARE(f.recorder.Take(), HBClosingCalls());
}

void tst_HBCurvesWidget::results_data() {
    QTest::addColumn<QVector<HBPoints>>("lists");
    QTest::newRow("neutral") << QVector<HBPoints>{Default, Default, Default, Default};
    QTest::newRow("all") << QVector<HBPoints>{{{0, 10}, {100, 50}, {250, 240}},
                                              {{5, 0}, {255, 250}},
                                              {{0, 255}, {255, 0}},
                                              {{0, 0}, {60, 90}, {62, 100}, {200, 210}}};
}

void tst_HBCurvesWidget::results() {
    QFETCH(QVector<HBPoints>, lists);
    const HBImage<> photo = HBTestRamp(257, 130);
    const HBImage<> mask = HBTestMask(150, 90);
    Params params;
    std::copy(lists.begin(), lists.end(), params.points);
    HBCurvesFixture f;
    f.panel.SetValue(params);
    for (const QRect& bounds : {QRect(), QRect(20, 10, 120, 70)}) {
        f.panel.SetImage(photo, bounds.isValid() ? mask : HBImage<>(), QPoint(30, 40), bounds);
        QVERIFY(f.Finish());
        QCOMPARE(
            f.panel.AdjustedImage().ToQImage(),
            HBTransformed(photo, HBIterativeCurvesTransformation(params.points, 100), mask, QPoint(30, 40), bounds)
                .ToQImage());
    }
    if (lists[0] == Default) QCOMPARE(f.panel.AdjustedImage().ToQImage(), photo.ToQImage());
    f.slider->SetValue(0, 50); // by the debounce
    QVERIFY(f.recorder.WaitFor("ImageReady", 3));
    const Params now = f.panel.GetValue();
    QCOMPARE(f.panel.AdjustedImage().ToQImage(),
             HBTransformed(photo, HBIterativeCurvesTransformation(now.points, 100), mask, QPoint(30, 40),
                           QRect(20, 10, 120, 70))
                 .ToQImage());
}

void tst_HBCurvesWidget::exceptionLines() {
    HBLogCapture log;
    HB_LOG_JOB_EXCEPTION(nullptr);
    QVERIFY(log.Take().isEmpty());
    HB_LOG_JOB_EXCEPTION(std::make_exception_ptr(std::runtime_error("no more tiles")));
    HB_LOG_JOB_EXCEPTION(std::make_exception_ptr(42));
    const QVector<HBLogCapture::Line> lines = log.Take();
    QCOMPARE(lines.size(), 2);
    const QString head = QString("\"Build date=%1, time=").arg(__DATE__);
    // Quoted and escaped, as Qt writes a string to its debug stream.
    const QString place = "line=851, file=\\\"ImagingLib\\\\HBTransformImageColors.h\\\"";
    for (const HBLogCapture::Line& line : lines) QVERIFY2(line.text.startsWith(head), qPrintable(line.text));
    const QString known = ". Unexpected exception: " + place + ". Exception content:\\\"no more tiles\\\"\"";
    QVERIFY2(lines[0].text.endsWith(known), qPrintable(lines[0].text));
    QVERIFY2(lines[1].text.endsWith(". Unexpected unknown exception: " + place + '"'), qPrintable(lines[1].text));

    // A handler that runs out of memory must not end the process, nor keep the line.
    QTemporaryFile file;
    QVERIFY(file.open());
    const int terminal = dup(STDERR_FILENO);
    dup2(file.handle(), STDERR_FILENO);
    const QtMessageHandler handler = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) { throw std::bad_alloc(); });
    HB_LOG_JOB_EXCEPTION(std::make_exception_ptr(std::runtime_error(std::string(5000, 'x'))));
    qInstallMessageHandler(handler);
    dup2(terminal, STDERR_FILENO);
    close(terminal);
    QVERIFY(file.seek(0));
    const QByteArray raw = file.readAll();
    QVERIFY2(raw.contains(". Unexpected exception: line=851, file=\"ImagingLib\\"), raw.constData());
    QVERIFY(raw.endsWith("xxx\n") && raw.size() == 1024);
}

// ---- Pickers ----

void tst_HBCurvesWidget::pickerButtons() {
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

void tst_HBCurvesWidget::pickDrag() {
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
void tst_HBCurvesWidget::pickByMouse() {
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

void tst_HBCurvesWidget::picks_data() {
    QTest::addColumn<QString>("picker");
    QTest::addColumn<int>("level"); // of the picked colour
    QTest::addColumn<HBPoints>("before");
    QTest::addColumn<HBPoints>("after");
    const HBPoints bent = {{0, 0}, {90, 30}, {255, 255}};
    const HBPoints inverted = {{0, 255}, {255, 0}};
    const HBPoints level = {{0, 100}, {255, 100}};
    const HBPoints narrow = {{0, 0}, {30, 255}};
    QTest::newRow("black") << "m_pBlack" << 40 << bent << HBPoints{{40, 0}, {90, 30}, {255, 255}};
    QTest::newRow("black, inverted") << "m_pBlack" << 40 << inverted << HBPoints{{0, 255}, {40, 0}};
    QTest::newRow("black, a tie") << "m_pBlack" << 40 << level << HBPoints{{40, 0}, {255, 100}};
    QTest::newRow("black, past the other end") << "m_pBlack" << 40 << narrow << HBPoints{{30, 255}, {40, 0}};
    QTest::newRow("black, past a point") << "m_pBlack" << 99 << bent << HBPoints{{90, 30}, {99, 0}, {255, 255}};
    QTest::newRow("white") << "m_pWhite" << 200 << bent << HBPoints{{0, 0}, {90, 30}, {200, 255}};
    QTest::newRow("white, inverted") << "m_pWhite" << 200 << inverted << HBPoints{{200, 255}, {255, 0}};
    QTest::newRow("white, a tie") << "m_pWhite" << 200 << level << HBPoints{{0, 100}, {200, 255}};
    QTest::newRow("white, past a point") << "m_pWhite" << 50 << bent << HBPoints{{0, 0}, {50, 255}, {90, 30}};
    QTest::newRow("gray") << "m_pGray" << 100 << bent << HBPoints{{0, 0}, {100, 128}, {255, 255}};
    QTest::newRow("gray, outside the ends")
        << "m_pGray" << 100 << narrow << HBPoints{{0, 0}, {30, 255}, {100, 128}};
}

void tst_HBCurvesWidget::picks() {
    QFETCH(QString, picker);
    QFETCH(int, level);
    QFETCH(HBPoints, before);
    QFETCH(HBPoints, after);
    Fixture f;
    f.SetImage(Photo({20, 20, 10, 10}, QColor(level, level, level)));
    Params params;
    params.channel = 1;
    for (HBPoints& list : params.points) list = before;
    f.panel.SetValue(params);
    f.Find<QToolButton>(qPrintable(picker))->click();
    f.Pick({20, 20, 10, 10});
    HBSettle();
    for (int c = 1; c < 4; ++c) params.points[c] = after;
    QCOMPARE(HBStore(f.panel.GetValue()), HBStore(params));
    QVERIFY(f.NodesFit());
    QCOMPARE(f.recorder.Take(), HBClosingCalls());
    QVERIFY(f.recorder.WaitFor("ImageReady")); // by the debounce
}

void tst_HBCurvesWidget::pickRectangles_data() {
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<int>("average"); // of a block of 101 at (50, 40), 20 × 20; the fallback is 128
    QTest::newRow("inside") << QPoint(52, 42) << QPoint(60, 50) << 101;
    QTest::newRow("from the other corners") << QPoint(60, 42) << QPoint(52, 50) << 101;
    QTest::newRow("one pixel") << QPoint(52, 42) << QPoint(52, 42) << 101;
    QTest::newRow("reaching outside") << QPoint(80, 60) << QPoint(900, 900) << 0;
    QTest::newRow("around the whole") << QPoint(-50, -50) << QPoint(900, 900) << 101 * 400 / 8000;
    QTest::newRow("beside") << QPoint(200, 10) << QPoint(300, 20) << 128;
    QTest::newRow("far beside") << QPoint(-2000000000, -2000000000) << QPoint(-1900000000, 2000000000) << 128;
    if (int(KMPixelRatioRound::GetPixelRatio()) == 1) {
        QTest::newRow("corners included") << QPoint(45, 35) << QPoint(50, 40) << 101 / 36;
        QTest::newRow("half a block, truncated") << QPoint(49, 42) << QPoint(50, 43) << 50;
    }
}

void tst_HBCurvesWidget::pickRectangles() {
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(int, average);
    Fixture f;
    f.SetImage(Photo({50, 40, 20, 20}, QColor(101, 101, 101)));
    f.gray->click();
    f.Start(from);
    f.End(to);
    HBSettle();
    HBPoints expected = Default + HBPoints{{average, 128}};
    std::sort(expected.begin(), expected.end(), [](const QPoint& a, const QPoint& b) { return a.x() < b.x(); });
    if (average == 0) expected = {{0, 0}, {0, 128}, {255, 255}};
    QCOMPARE(f.Red(), expected);

    // Without an image there is the fallback only.
    f.SetImage(HBImage<>());
    f.panel.OnReset();
    f.Start(from);
    f.End(to);
    HBSettle();
    QCOMPARE(f.Red(), HBPoints({{0, 0}, {128, 128}, {255, 255}}));
    for (const auto& [button, red] : {qMakePair(f.black, HBPoints{{0, 0}, {128, 128}, {255, 255}}),
                                      qMakePair(f.white, HBPoints{{0, 0}, {128, 128}, {255, 255}})}) {
        button->click();
        f.Start(from);
        f.End(to);
        HBSettle();
        QCOMPARE(f.Red(), red);
    }
}

/// The sums have 32 bits and wrap: 25 million white pixels average to 83.
void tst_HBCurvesWidget::hugePick() {
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

void tst_HBCurvesWidget::pickPrecedence() {
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
void tst_HBCurvesWidget::pendingPick() {
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

void tst_HBCurvesWidget::resetCancelsPicks() {
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

void tst_HBCurvesWidget::unpickedInMidDrag() {
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
void tst_HBCurvesWidget::ownSceneIsNoDocument() {
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

void tst_HBCurvesWidget::views() {
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

void tst_HBCurvesWidget::deletedWhilePicking() {
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

void tst_HBCurvesWidget::deletedAtOnce() {
    const HBShowsWindows quiet;
    for (const bool running : {false, true}) {
        HBCurvesFixture f;
        f.panel.show();
        f.panel.activateWindow();
        f.view->setFocus();
        HBClickScene(f.scene, f.View({100, 100}));
        f.panel.SetImage(HBTestRamp(1500, 1500), {}, {}, {});
        if (running) f.recorder.WaitFor("ProgressValueChanged");
    }
}

HB_TEST_MAIN(tst_HBCurvesWidget)
#include "tst_HBCurvesWidget.moc"
