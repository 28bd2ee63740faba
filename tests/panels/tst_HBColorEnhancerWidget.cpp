// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLogCapture.h"
#include "HBLostTiles.h"
#include "HBPanelChecks.h"
#include "HBTestMain.h"

#include <HBColorEnhancerTransformation.h>
#include <HBColorEnhancerWidget.h>
#include <HBHistogrammCalculator.h>
#include <HBIterativeAdjustmentTransformation.h>
#include <KMTileManager64.h>

#include <QRunnable>
#include <QSemaphore>
#include <QThreadPool>

#include <algorithm>

namespace {

using Values = QVector<int>; // amount, affected

struct Fixture : HBPanelFixture<HBColorEnhancerWidget> {
    using HBPanelFixture::HBPanelFixture;

    Values Record() const { return {panel.GetValue().amount, panel.GetValue().affected}; }
    Values Shown() const { return {amount->value(), affected->value()}; }
    Values Sliders() const { return {amountSlider->value(), affectedSlider->value()}; }
    QImage Adjusted() const { return panel.AdjustedImage().ToQImage(); }

    QSlider* amountSlider = Find<QSlider>("horizontalSlider");
    QSlider* affectedSlider = Find<QSlider>("horizontalSlider_2");
    QSpinBox* amount = Find<QSpinBox>("m_pAmount");
    QSpinBox* affected = Find<QSpinBox>("m_pAffected");
};

/// A picture whose channels keep to ranges of their own, each level `low`, `middle` and `high` in a third of it.
HBImage<> Photo(const int (&low)[3], const int (&high)[3], int width = 150, int height = 140) {
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto level = [&](int c) { return low[c] + (high[c] - low[c]) * ((x + y) % 3) / 2; };
            image.setPixel(x, y, qRgba(level(0), level(1), level(2), (x + 2 * y) & 255));
        }
    }
    return HBImage<>::FromQImage(image);
}

/// The enhancement with these black and white points of red, green and blue.
QImage Stretched(const HBImage<>& photo, int amount, const int (&points)[3][2]) {
    int input[4][2] = {{0, 255}};
    for (int c = 0; c < 3; ++c) std::copy_n(points[c], 2, input[c + 1]);
    const int output[4][2] = {{0, 255}, {0, 255}, {0, 255}, {0, 255}};
    const double gamma[4] = {1.0, 1.0, 1.0, 1.0};
    HBColorEnhancerTransformation enhancer;
    enhancer.SetLevels(HBLevelsTransformation(input, output, gamma, 100));
    enhancer.SetAmountData(amount);
    return HBTransformed(photo, HBIterativeAdjustmentTransformation(enhancer)).ToQImage();
}

/// The same with the points that the panel must find.
QImage Enhanced(const HBImage<>& photo, int amount, int affected) {
    int counts[4][256] = {};
    const QImage image = photo.ToQImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const HBRGBA32i pixel = HBRGBA32i::FromRgba(image.pixel(x, y));
            ++counts[0][pixel.red];
            ++counts[1][pixel.green];
            ++counts[2][pixel.blue];
            ++counts[3][HBHistogrammCalculator::LumaOf(pixel)];
        }
    }
    int points[3][2];
    for (int c = 0; c < 3; ++c) {
        for (std::size_t end = 0; end < 2; ++end) {
            const int own = HBHistogrammCalculator::Threshold(counts[c])[end];
            const int common = HBHistogrammCalculator::Threshold(counts[3])[end];
            points[c][end] = ((own - common) * affected + common * 100) / 100;
        }
    }
    return Stretched(photo, amount, points);
}

const HBImage<>& PhotoA() {
    static const HBImage<> photo = Photo({20, 40, 60}, {240, 200, 160});
    return photo;
}

const HBImage<>& PhotoB() {
    static const HBImage<> photo = Photo({100, 110, 90}, {150, 140, 180});
    return photo;
}

/// Keeps the only thread of the pool busy until it is opened, so that jobs wait in their order.
class Barrier {
public:
    Barrier() {
        QThreadPool::globalInstance()->start(QRunnable::create([this] { m_Open.acquire(); }));
    }
    void Open() { m_Open.release(); }

private:
    const HBPoolSize m_Pool{1};
    QSemaphore m_Open;
};

} // namespace

class tst_HBColorEnhancerWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void controls();
    void result();
    void shareOfTheChannels();
    void selectionDoesNotCount();
    void thresholdsAreKept();
    void newSourceStartsBeforeItIsTold();
    void obsoleteJobLeavesNothing();
    void unreadableSource();
};

void tst_HBColorEnhancerWidget::controls() {
    Fixture f;
    const struct {
        QObject* control;
        int value;
        Values record;
        int changes;
    } moves[] = {{f.amountSlider, 40, {40, 100}, 1},
                 {f.amount, 40, {40, 100}, 0},
                 {f.amount, -3, {0, 100}, 1},
                 {f.affected, 70, {0, 70}, 1},
                 {f.affectedSlider, 101, {0, 100}, 1}};
    for (const auto& move : moves) {
        Values seen;
        f.recorder.Once("ValueChanged()", [&] { seen = f.Record(); });
        QVERIFY(move.control->setProperty("value", move.value));
        QCOMPARE(f.Record(), move.record);
        QCOMPARE(f.Shown(), move.record);
        QCOMPARE(f.Sliders(), move.record);
        QCOMPARE(f.recorder.Take(), HBClosingCalls(move.changes));
        if (move.changes) QCOMPARE(seen, move.record);
    }
}

/// From the record, brought into its range.
void tst_HBColorEnhancerWidget::result() {
    const HBImage<> ramp = HBTestRamp(257, 130);
    for (const Values& v :
         {Values{100, 100}, {100, 0}, {60, 33}, {0, 100}, {MostInt, LeastInt}, {LeastInt, MostInt}, {101, 1000}}) {
        for (const HBImage<>& photo : {PhotoA(), ramp}) {
            Fixture f(false);
            f.panel.SetValue({v[0], v[1]});
            f.panel.SetImage(photo, {}, {}, {});
            QVERIFY(f.Finish());
            QCOMPARE(f.Adjusted(), Enhanced(photo, qBound(0, v[0], 100), qBound(0, v[1], 100)));
        }
    }
}

void tst_HBColorEnhancerWidget::shareOfTheChannels() {
    // Thirds of the picture: red 20..240, and a luma of 10..250 between its green and blue.
    const HBImage<> photo = Photo({20, 8, 0}, {240, 253, 250});
    const auto luma = [](int r, int g, int b) {
        return HBHistogrammCalculator::LumaOf({std::uint8_t(r), std::uint8_t(g), std::uint8_t(b)});
    };
    QCOMPARE(luma(20, 8, 0), 10);
    QCOMPARE(luma(240, 253, 250), 250);
    const int common[3][2] = {{10, 250}, {10, 250}, {10, 250}};
    const int half[3][2] = {{15, 245}, {9, 251}, {5, 250}};
    const int own[3][2] = {{20, 240}, {8, 253}, {0, 250}};
    Fixture f(false);
    for (const auto& [affected, points] : {qMakePair(0, &common), qMakePair(50, &half), qMakePair(100, &own)}) {
        f.panel.SetValue({100, affected});
        f.panel.SetImage(photo, {}, {}, {});
        QVERIFY(f.Finish());
        QCOMPARE(f.Adjusted(), Stretched(photo, 100, *points));
    }
}

void tst_HBColorEnhancerWidget::selectionDoesNotCount() {
    // Only the first tile is selected, which has no light part.
    QImage image = PhotoA().ToQImage();
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x) image.setPixel(x, y, qRgb(90, 90, 90));
    }
    const HBImage<> photo = HBImage<>::FromQImage(image);
    const QImage whole = Enhanced(photo, 100, 100);
    Fixture f;
    f.panel.SetImage(photo, HBTestMask(100, 100, 255), {5, 6}, {0, 0, 100, 100});
    QVERIFY(f.Finish());
    const QRect selected(5, 6, 100, 100);
    QCOMPARE(f.Adjusted().copy(selected), whole.copy(selected));
    QVERIFY(whole.copy(selected) != image.copy(selected));
    QCOMPARE(f.Adjusted().pixel(4, 6), image.pixel(4, 6));
    QCOMPARE(f.Adjusted().pixel(140, 130), image.pixel(140, 130));
}

/// Seen by changing the source's pixels behind the panel's back, as nothing may: a job that measured them again would
/// stretch them otherwise.
void tst_HBColorEnhancerWidget::thresholdsAreKept() {
    Fixture f;
    const HBImage<> photo = Photo({20, 40, 60}, {240, 200, 160});
    f.panel.SetImage(photo, {}, {}, {});
    QVERIFY(f.Finish());
    f.amount->setValue(90); // the first job's thresholds may have come before the cache was emptied
    QVERIFY(f.Finish());
    for (const KMTileRef& tile : photo.Tiles()) {
        const KMTilePin<HBRGBA32i> pin(tile, true);
        std::fill_n(pin.Pixels(), HBImage<>::TilePixels, HBRGBA32i(100, 100, 100));
    }
    const int points[3][2] = {{20, 240}, {40, 200}, {60, 160}};
    f.amount->setValue(80);
    QVERIFY(f.Finish());
    QCOMPARE(f.Adjusted(), Stretched(photo, 80, points));
    f.panel.SetImage(PhotoB(), {}, {}, {});
    QVERIFY(f.Finish());
    QCOMPARE(f.Adjusted(), Enhanced(PhotoB(), 80, 100));
}

/// SetImage starts the job, then tells of the source: here the job is over before the panel has heard of it.
void tst_HBColorEnhancerWidget::newSourceStartsBeforeItIsTold() {
    Fixture f;
    QVERIFY(QObject::disconnect(&f.panel, SIGNAL(SourceChanged()), &f.panel, SLOT(OnSourceChanged())));
    QObject::connect(&f.panel, &HBAdjustmentWidget::SourceChanged,
                     [] { QThreadPool::globalInstance()->waitForDone(); });
    QObject::connect(&f.panel, SIGNAL(SourceChanged()), &f.panel, SLOT(OnSourceChanged()));
    for (const HBImage<>& photo : {PhotoA(), PhotoB(), PhotoA()}) {
        for (int amount : {100, 70, 100}) {
            f.panel.SetImage(photo, {}, {}, {});
            f.amount->setValue(amount);
            QVERIFY(f.Finish());
            QCOMPARE(f.Adjusted(), Enhanced(photo, amount, 100));
        }
    }
}

/// A job that waits for its turn while the source changes measures the old one after the cache was emptied.
void tst_HBColorEnhancerWidget::obsoleteJobLeavesNothing() {
    Fixture f;
    for (int round = 0; round < 2; ++round) {
        {
            Barrier barrier;
            f.panel.SetImage(PhotoA(), {}, {}, {});
            f.panel.SetImage(PhotoB(), {}, {}, {});
            barrier.Open();
            QVERIFY(f.Finish());
        }
        QCOMPARE(f.Adjusted(), Enhanced(PhotoB(), 100, 100));
        f.affected->setValue(40);
        QVERIFY(f.Finish());
        QCOMPARE(f.Adjusted(), Enhanced(PhotoB(), 100, 40));
        f.panel.OnReset();
        QVERIFY(f.Finish());
    }
}

/// The source's pixels are gone before its thresholds are counted.
void tst_HBColorEnhancerWidget::unreadableSource() {
    Fixture f;
    const HBImage<> photo = PhotoA();
    QVERIFY(HBLoseTiles());
    HBLogCapture log;
    f.panel.SetImage(photo, {}, {}, {});
    QVERIFY(f.Finish());
    QVERIFY(f.panel.HasJobFailed());
    const auto lines = log.Take();
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines[0].text.contains(". Unexpected exception: line=851, file="), qPrintable(lines[0].text));
}

HB_TEST_MAIN(tst_HBColorEnhancerWidget)
#include "tst_HBColorEnhancerWidget.moc"
