// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLogCapture.h"
#include "HBLostTiles.h"
#include "HBPanelChecks.h"
#include "HBTestMain.h"

#include <HBColorEnhancerTransformation.h>
#include <HBColorEnhancerWidget.h>
#include <HBIterativeAdjustmentTransformation.h>
#include <HBParallel.h>
#include <KMTileManager64.h>

#include <QThreadPool>

#include <algorithm>

namespace {

struct Fixture : HBPanelFixture<HBColorEnhancerWidget> {
    using HBPanelFixture::HBPanelFixture;

    QImage Adjusted() const { return panel.AdjustedImage().ToQImage(); }

    QSpinBox* amount = Find<QSpinBox>("m_pAmount");
    QSpinBox* affected = Find<QSpinBox>("m_pAffected");
};

using Points = int[3][2]; // black and white of red, green and blue

/// A picture whose channels keep to these ranges, each level black, middle and white in a third of it.
HBImage<> Photo(const Points& points) {
    return HBTestPicture(150, 140, [&](int x, int y) {
        const auto level = [&](int c) { return points[c][0] + (points[c][1] - points[c][0]) * ((x + y) % 3) / 2; };
        return qRgba(level(0), level(1), level(2), (x + 2 * y) & 255);
    });
}

constexpr Points PointsA = {{20, 240}, {40, 200}, {60, 160}};
constexpr Points PointsB = {{100, 150}, {110, 140}, {90, 180}};
constexpr Points PointsB40 = {
    {103, 147}, {107, 143}, {99, 159}}; ///< two fifths of the way from luma's 106 and 145

/// The enhancement with the points that the panel must find.
QImage Enhanced(const HBImage<>& photo, int amount, const Points& points) {
    HBLevelsSettings settings;
    for (int c = 0; c < 3; ++c) std::copy_n(points[c], 2, settings.input[c + 1]);
    HBColorEnhancerTransformation enhancer;
    enhancer.SetLevels(HBLevelsTransformation(settings));
    enhancer.SetAmountData(amount);
    return HBTransformed(photo, HBIterativeAdjustmentTransformation(enhancer)).ToQImage();
}

const HBImage<>& PhotoA() {
    static const HBImage<> photo = Photo(PointsA);
    return photo;
}

const HBImage<>& PhotoB() {
    static const HBImage<> photo = Photo(PointsB);
    return photo;
}

} // namespace

class tst_HBColorEnhancerWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shareOfTheChannels() {
        // Thirds of the picture: red 20..240, and a luma of 10..250 between its green and blue.
        const HBImage<> photo = Photo({{20, 240}, {8, 253}, {0, 250}});
        const Points common = {{10, 250}, {10, 250}, {10, 250}};
        const Points half = {{15, 245}, {9, 251}, {5, 250}};
        const Points own = {{20, 240}, {8, 253}, {0, 250}};
        const struct {
            int amount, affected, amountTaken;
            const Points& points;
        } rows[] = {{100, 0, 100, common},
                    {100, 50, 100, half},
                    {60, 100, 60, own},
                    {0, 100, 0, own},
                    {MostInt, LeastInt, 100, common},
                    {101, 1000, 100, own}};
        Fixture f(false);
        for (const auto& row : rows) {
            f.panel.SetValue({row.amount, row.affected});
            f.panel.SetImage(photo, {}, {}, {});
            QVERIFY(f.Finish());
            QCOMPARE(f.Adjusted(), Enhanced(photo, row.amountTaken, row.points));
        }
    }

    void selectionDoesNotCount() {
        // Only the first tile is selected, which has no light part.
        QImage image = PhotoA().ToQImage();
        for (int y = 0; y < 128; ++y) {
            for (int x = 0; x < 128; ++x) image.setPixel(x, y, qRgb(90, 90, 90));
        }
        const HBImage<> photo = HBImage<>::FromQImage(image);
        const QImage whole = Enhanced(photo, 100, PointsA);
        Fixture f;
        f.panel.SetImage(photo, HBTestMask(100, 100, 255), {5, 6}, {0, 0, 100, 100});
        QVERIFY(f.Finish());
        const QRect selected(5, 6, 100, 100);
        QCOMPARE(f.Adjusted().copy(selected), whole.copy(selected));
        QVERIFY(whole.copy(selected) != image.copy(selected));
        QCOMPARE(f.Adjusted().pixel(4, 6), image.pixel(4, 6));
        QCOMPARE(f.Adjusted().pixel(140, 130), image.pixel(140, 130));
    }

    /// Seen by changing the source's pixels behind the panel's back, as nothing may: a job that measured them
    /// again would stretch them otherwise.
    void thresholdsAreKept() {
        Fixture f;
        const HBImage<> photo = Photo(PointsA);
        f.panel.SetImage(photo, {}, {}, {});
        QVERIFY(f.Finish());
        f.amount->setValue(90); // the first job's thresholds may have come before the cache was emptied
        QVERIFY(f.Finish());
        for (const KMTileRef& tile : photo.Tiles()) {
            const KMTilePin<HBRGBA32i> pin(tile, true);
            std::fill_n(pin.Pixels(), HBImage<>::TilePixels, HBRGBA32i(100, 100, 100));
        }
        f.amount->setValue(80);
        QVERIFY(f.Finish());
        QCOMPARE(f.Adjusted(), Enhanced(photo, 80, PointsA));
        f.panel.SetImage(PhotoB(), {}, {}, {});
        QVERIFY(f.Finish());
        QCOMPARE(f.Adjusted(), Enhanced(PhotoB(), 80, PointsB));
    }

    /// SetImage starts the job, then tells of the source: here the job is over before the panel has heard of it.
    void newSourceStartsBeforeItIsTold() {
        Fixture f;
        QVERIFY(QObject::disconnect(&f.panel, SIGNAL(SourceChanged()), &f.panel, SLOT(OnSourceChanged())));
        QObject::connect(&f.panel, &HBAdjustmentWidget::SourceChanged, [] { HBThreadPool().waitForDone(); });
        QObject::connect(&f.panel, SIGNAL(SourceChanged()), &f.panel, SLOT(OnSourceChanged()));
        for (const bool first : {true, false, true}) {
            const HBImage<>& photo = first ? PhotoA() : PhotoB();
            for (int amount : {100, 70, 100}) {
                f.panel.SetImage(photo, {}, {}, {});
                f.amount->setValue(amount);
                QVERIFY(f.Finish());
                QCOMPARE(f.Adjusted(), Enhanced(photo, amount, first ? PointsA : PointsB));
            }
        }
    }

    /// A job that waits for its turn while the source changes measures the old one after the cache was emptied.
    void obsoleteJobLeavesNothing() {
        Fixture f;
        for (int round = 0; round < 2; ++round) {
            {
                HBPoolBlock block;
                f.panel.SetImage(PhotoA(), {}, {}, {});
                f.panel.SetImage(PhotoB(), {}, {}, {});
                block.Release();
                QVERIFY(f.Finish());
            }
            QCOMPARE(f.Adjusted(), Enhanced(PhotoB(), 100, PointsB));
            f.affected->setValue(40);
            QVERIFY(f.Finish());
            QCOMPARE(f.Adjusted(), Enhanced(PhotoB(), 100, PointsB40));
            f.panel.OnReset();
            QVERIFY(f.Finish());
        }
    }

    void cancelledLook() { HBVerifyCancelledLook(HBColorEnhancerWidget::Params()); }

    /// The source's pixels are gone before its thresholds are counted.
    void unreadableSource() {
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

        // The job of a panel that is gone reads nothing.
        HBPoolBlock block;
        Fixture(false).panel.SetImage(photo, {}, {}, {});
        block.Release();
        HBThreadPool().waitForDone();
        QCOMPARE(log.Take().size(), 0);
    }
};

HB_TEST_MAIN(tst_HBColorEnhancerWidget)
#include "tst_HBColorEnhancerWidget.moc"
