// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBSelectionShape.h>

#include <KMTileManager64.h>

using Kind = HBSelectionShape::Kind;

class TestHBSelectionShape : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void maskIsTheCoverageInItsBoundingRectangle() {
        const struct {
            const char* name;
            HBSelectionShape shape;
            QRect area; // of the mask on a photo of 400 x 300
        } rows[] = {
            {"rectangle", {Kind::Rectangle, {10, 20, 300, 200}, 0, false}, {10, 20, 300, 200}},
            {"soft rectangle", {Kind::Rectangle, {50, 60, 290, 180}, 15, false}, {35, 45, 320, 210}},
            {"cut off by the photo", {Kind::Rectangle, {-50, 280, 100, 200}, 5, false}, {0, 275, 55, 25}},
            {"ellipse", {Kind::Ellipse, {7, 9, 380, 280}, 0, false}, {7, 9, 380, 280}},
            {"soft ellipse", {Kind::Ellipse, {40, 40, 320, 220}, 30, false}, {10, 10, 380, 280}},
            {"one pixel", {Kind::Ellipse, {399, 299, 1, 1}, 0, false}, {399, 299, 1, 1}},
            {"feather beyond the shape", {Kind::Ellipse, {200, 100, 4, 4}, 50, false}, {150, 50, 104, 104}},
            {"inverted rectangle", {Kind::Rectangle, {100, 100, 200, 20}, 3, true}, {0, 0, 400, 300}},
            {"inverted ellipse", {Kind::Ellipse, {10, 10, 380, 280}, 0, true}, {0, 0, 400, 300}},
        };
        for (const auto& [name, shape, area] : rows) {
            const HBSelection selection = shape.Rasterize(QSize(400, 300));
            QVERIFY2(selection.offset == area.topLeft(), name);
            QCOMPARE(selection.bounds, QRect(QPoint(0, 0), area.size()));
            QCOMPARE(QSize(selection.mask.Width(), selection.mask.Height()), area.size());
            for (int y = 0; y < 300; ++y) {
                for (int x = 0; x < 400; ++x) {
                    const int coverage = shape.CoverageAt(x, y);
                    if (!area.contains(x, y)) {
                        QCOMPARE(coverage, 0); // nothing that is selected is left out
                        continue;
                    }
                    const HBRGBA32i pixel = selection.mask.PixelAt(x - area.left(), y - area.top());
                    QCOMPARE(pixel.ToRgba(), QRgb(coverage) * 0x01010101u);
                }
            }
        }
    }

    void edges() {
        const HBSelectionShape hard{Kind::Rectangle, {10, 10, 20, 20}, 0, false};
        QCOMPARE(hard.CoverageAt(9, 10), 0);
        QCOMPARE(hard.CoverageAt(10, 10), 255);
        QCOMPARE(hard.CoverageAt(29, 29), 255);
        QCOMPARE(hard.CoverageAt(30, 29), 0);

        // Half at the edge, falling smoothly from all to nothing over twice the feather, the same inwards as
        // outwards.
        const HBSelectionShape soft{Kind::Rectangle, {100, 0, 200, 1000}, 10, false};
        QCOMPARE(soft.CoverageAt(89, 500), 0);
        QCOMPARE(soft.CoverageAt(110, 500), 255);
        for (int i = 0; i < 10; ++i) {
            QCOMPARE(soft.CoverageAt(100 + i, 500) + soft.CoverageAt(99 - i, 500), 255);
            QVERIFY(soft.CoverageAt(90 + i, 500) <= soft.CoverageAt(91 + i, 500));
        }

        const HBSelectionShape circle{Kind::Ellipse, {0, 0, 200, 200}, 0, false};
        double covered = 0;
        for (int y = 0; y < 200; ++y) {
            for (int x = 0; x < 200; ++x) covered += circle.CoverageAt(x, y) / 255.0;
        }
        QVERIFY(qAbs(covered - 31415.9) < 10); // pi r^2: the border pixels count in part
        QVERIFY(circle.CoverageAt(29, 29) > 0 && circle.CoverageAt(29, 29) < 255);
    }

    void nothingToSelect() {
        for (const HBSelectionShape& shape :
             {HBSelectionShape(), HBSelectionShape{Kind::Rectangle, {500, 0, 10, 10}, 0, false},
              HBSelectionShape{Kind::Ellipse, QRect(), 5, false}}) {
            const HBSelection selection = shape.Rasterize(QSize(400, 300));
            QVERIFY(!selection.bounds.isValid());
            QVERIFY(selection.mask.IsEmpty());
        }
        QVERIFY(!(HBSelectionShape{Kind::Rectangle, {0, 0, 5, 5}, 0, false}.Rasterize(QSize())).bounds.isValid());
    }

    void aHugeSelectionCostsItsEdgeOnly() {
        for (const Kind kind : {Kind::Rectangle, Kind::Ellipse}) {
            for (const bool inverted : {false, true}) {
                const qint64 before = KMTileManager64::Instance().CurrentUsage().resident;
                const HBSelectionShape shape{kind, {1000, 1000, 30000, 30000}, 8, inverted};
                const HBSelection selection = shape.Rasterize(QSize(32768, 32768));
                const qint64 used = KMTileManager64::Instance().CurrentUsage().resident - before;
                QVERIFY(selection.mask.Width() > 30000);
                QVERIFY2(used < 256 << 20, qPrintable(QString::number(used))); // of 4 GiB
            }
        }
    }
};

HB_TEST_MAIN(TestHBSelectionShape)
#include "tst_HBSelectionShape.moc"
