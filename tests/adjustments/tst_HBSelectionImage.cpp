// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRunTest.h"
#include "HBTestImages.h"

#include <HBAdjustment.h>
#include <HBBrightnessContrast.h>
#include <HBSelectionImage.h>

#include <functional>

namespace {

const HBBrightnessContrastParams brighter{40, 0};

HBImage<> Brighter(const HBTarget& target) { return HBAdjust(brighter, target).image; }

} // namespace

class tst_HBSelectionImage : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void Rectangles() {
        HBTarget target{HBTestRamp(300, 140), {}, {}, {}};
        const QImage before = target.source.ToQImage(), all = Brighter(target).ToQImage();
        for (const QRect& rectangle : {QRect(0, 0, 300, 140), QRect(127, 3, 2, 130), QRect(-50, -50, 60, 70),
                                       QRect(299, 139, INT_MAX - 299, INT_MAX - 139)}) {
            QString reason;
            QVERIFY2(HBSelectRectangle(rectangle, &target, &reason), qPrintable(reason));
            const QImage after = Brighter(target).ToQImage();
            for (int y = 0; y < 140; ++y) {
                for (int x = 0; x < 300; ++x)
                    QCOMPARE(after.pixel(x, y), (rectangle.contains(x, y) ? all : before).pixel(x, y));
            }
        }
    }

    void Masks() {
        HBTarget target{HBTestRamp(257, 130), {}, {}, {}};
        const QImage coverages = HBTestMask(257, 130).ToQImage();
        QImage grey(257, 130, QImage::Format_Grayscale8);
        for (int y = 0; y < 130; ++y) {
            for (int x = 0; x < 257; ++x) grey.scanLine(y)[x] = uchar(qAlpha(coverages.pixel(x, y)));
        }
        const HBImage<> painted = Brighter({target.source, HBTestMask(257, 130), {}, QRect(0, 0, 257, 130)});
        QImage alpha = grey;
        QVERIFY(alpha.reinterpretAsFormat(QImage::Format_Alpha8));
        for (const QImage& mask : {grey, alpha, grey.convertToFormat(QImage::Format_RGB32),
                                   grey.convertToFormat(QImage::Format_Indexed8)}) {
            QString reason;
            QVERIFY2(HBSelectMask(mask, &target, &reason), qPrintable(reason));
            QCOMPARE(Brighter(target).ToQImage(), painted.ToQImage());
        }
        grey.fill(0);
        QString reason;
        QVERIFY(HBSelectMask(grey, &target, &reason));
        QCOMPARE(Brighter(target).ToQImage(), target.source.ToQImage());
    }

    void Refusals() {
        HBTarget target{HBTestRamp(20, 10), {}, {}, {}};
        HBTarget nothing;
        QImage red(20, 10, QImage::Format_RGB32), clear(20, 10, QImage::Format_ARGB32);
        red.fill(Qt::red);
        clear.fill(Qt::transparent);
        QString reason;
        const auto refused = [&](bool done, const char* words) {
            const bool told = reason.contains(words);
            reason.clear();
            return !done && told && !target.bounds.isValid() && target.selection.IsEmpty();
        };
        for (const QRect& rectangle : {QRect(20, 0, 5, 5), QRect(), QRect(QPoint(9, 9), QPoint(3, 3)),
                                       QRect(QPoint(INT_MAX, INT_MAX), QPoint(INT_MIN, INT_MIN))})
            QVERIFY(refused(HBSelectRectangle(rectangle, &target, &reason), "does not lie on the picture"));
        QVERIFY(refused(HBSelectRectangle(QRect(0, 0, 1, 1), &nothing, &reason), "does not lie on the picture"));
        QVERIFY(refused(HBSelectMask(QImage(), &nothing, &reason), "0 × 0"));
        QVERIFY(refused(HBSelectMask(QImage(10, 20, QImage::Format_Grayscale8), &target, &reason),
                        "the mask is 10 × 20 pixels, the picture 20 × 10"));
        QVERIFY(refused(HBSelectMask(red, &target, &reason), "gray alone"));
        QVERIFY(refused(HBSelectMask(clear, &target, &reason), "gray alone"));
    }
};

HB_TEST_MAIN_WITHOUT_APPLICATION(tst_HBSelectionImage)
#include "tst_HBSelectionImage.moc"
