// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRunTest.h"
#include "HBTestImages.h"

#include <HBSelectionShape.h>

#include <KMTileManager64.h>

#include <QCryptographicHash>
#include <QJsonObject>

#include <cmath>

using Kind = HBShape::Kind;
using Combination = HBShape::Combination;

namespace {

constexpr QSize PhotoSize(400, 300);

HBShape Pixels(Kind kind, const QRect& rect, int feather = 0, bool inverted = false) {
    HBShape shape = HBShape::OfPixels(kind, rect, feather, PhotoSize);
    shape.inverted = inverted;
    return shape;
}
HBShape Points(Kind kind, const QVector<QPointF>& points, double feather = 0, bool inverted = false) {
    HBShape shape;
    shape.kind = kind;
    shape.points = points;
    shape.feather = feather;
    shape.inverted = inverted;
    return shape;
}
HBShape Like(QRgb color, int tolerance) {
    HBShape shape;
    shape.kind = Kind::Color;
    shape.color = color;
    shape.tolerance = tolerance;
    return shape;
}
HBShape With(Combination combination, HBShape shape) {
    shape.combination = combination;
    return shape;
}

/// A star that crosses itself five times, open in the middle.
QVector<QPointF> Star() {
    QVector<QPointF> points;
    for (int i = 0; i < 5; ++i)
        points.append({0.5 + 0.45 * std::sin(i * 4 * M_PI / 5), 0.5 - 0.45 * std::cos(i * 4 * M_PI / 5)});
    return points;
}

QByteArray Sum(const HBSelection& selection) {
    QCryptographicHash hash(QCryptographicHash::Md5);
    const QImage mask = selection.mask.ToQImage();
    for (int y = 0; y < mask.height(); ++y)
        hash.addData(reinterpret_cast<const char*>(mask.constScanLine(y)), mask.width() * 4);
    hash.addData(QByteArray::number(selection.offset.x()) + ',' + QByteArray::number(selection.offset.y()));
    return hash.result().toHex().left(8);
}

} // namespace

class TestHBSelectionShape : public QObject {
    Q_OBJECT

    const HBImage<> m_Photo = HBTestRamp(PhotoSize.width(), PhotoSize.height());

private Q_SLOTS:
    void maskIsTheCoverageInItsBoundingRectangle() {
        const QRect all(QPoint(0, 0), PhotoSize);
        const HBShape ellipse = Pixels(Kind::Ellipse, {40, 40, 320, 220}, 30);
        const HBShape box = Pixels(Kind::Rectangle, {10, 20, 300, 200});
        const struct {
            const char* name;
            HBSelectionShape selection;
            QRect area;
            const char* sum; // of the mask: what a stored selection covers never changes
        } rows[] = {
            {"rectangle", {{box}}, {10, 20, 300, 200}, "b4612cb0"},
            {"soft rectangle",
             {{Pixels(Kind::Rectangle, {50, 60, 290, 180}, 15)}},
             {35, 45, 320, 210},
             "7bb4e8ee"},
            {"cut off by the photo",
             {{Pixels(Kind::Rectangle, {-50, 280, 100, 200}, 5)}},
             {0, 275, 55, 25},
             "7e0fb7ce"},
            {"ellipse", {{Pixels(Kind::Ellipse, {7, 9, 380, 280})}}, {7, 9, 380, 280}, "33e2b586"},
            {"soft ellipse", {{ellipse}}, {10, 10, 380, 280}, "cd1d0348"},
            {"one pixel", {{Pixels(Kind::Ellipse, {399, 299, 1, 1})}}, {399, 299, 1, 1}, "394067b1"},
            {"feather beyond the shape",
             {{Pixels(Kind::Ellipse, {200, 100, 4, 4}, 50)}},
             {150, 50, 104, 104},
             "573f853c"},
            {"inverted rectangle", {{Pixels(Kind::Rectangle, {100, 100, 200, 20}, 3, true)}}, all, "9a62a415"},
            {"inverted ellipse", {{Pixels(Kind::Ellipse, {10, 10, 380, 280}, 0, true)}}, all, "7b8f578b"},
            {"star", {{Points(Kind::Polygon, Star())}}, {}, "da233943"},
            {"soft star", {{Points(Kind::Polygon, Star(), 0.1, true)}}, all, "5eaffd8d"},
            {"gradient", {{Points(Kind::Gradient, {{0.2, 0.9}, {0.4, 0.1}})}}, all, "8bde11cc"},
            {"colour", {{Like(qRgb(100, 90, 80), 40)}}, all, "063ccd48"},
            {"all together",
             {{ellipse, With(Combination::Subtract, Points(Kind::Gradient, {{0.5, 0.0}, {0.5, 1.0}})),
               Points(Kind::Polygon, Star(), 0.02), With(Combination::Intersect, box),
               With(Combination::Subtract, Like(qRgb(0, 0, 0), 60))}},
             {10, 20, 300, 200},
             "90ad5b7a"},
        };
        for (const auto& [name, shape, wanted, sum] : rows) {
            for (const bool inverted : {false, true}) {
                const HBSelection selection = (inverted ? shape.Inverted() : shape).Rasterize(m_Photo);
                const QRect area = selection.bounds.translated(selection.offset);
                QCOMPARE(QSize(selection.mask.Width(), selection.mask.Height()), area.size());
                for (int y = 0; y < 300; ++y) {
                    for (int x = 0; x < 400; ++x) {
                        const int coverage = shape.CoverageAt(m_Photo, x, y);
                        const int expected = inverted ? 255 - coverage : coverage;
                        // Nothing that is selected is left out.
                        const QRgb bytes = selection.mask.PixelAt(x - area.left(), y - area.top()).ToRgba();
                        if (bytes != QRgb(expected) * 0x01010101u)
                            QFAIL(qPrintable(QString("%1: %2, %3: %4").arg(name).arg(x).arg(y).arg(expected)));
                    }
                }
                if (inverted) continue;
                if (!wanted.isNull()) QVERIFY2(area == wanted, name);
                QVERIFY2(Sum(selection) == sum, qPrintable(QString("%1: %2").arg(name, QString(Sum(selection)))));
            }
        }
    }

    void edges() {
        const HBSelectionShape hard{{Pixels(Kind::Rectangle, {10, 10, 20, 20})}};
        QCOMPARE(hard.CoverageAt(m_Photo, 9, 10), 0);
        QCOMPARE(hard.CoverageAt(m_Photo, 10, 10), 255);
        QCOMPARE(hard.CoverageAt(m_Photo, 29, 29), 255);
        QCOMPARE(hard.CoverageAt(m_Photo, 30, 29), 0);

        // Half at the edge, falling smoothly from all to nothing over twice the feather, the same inwards as
        // outwards; of a polygon as of a rectangle.
        const HBSelectionShape soft{{Pixels(Kind::Rectangle, {100, -500, 200, 1000}, 10)}};
        const HBSelectionShape polygon{
            {Points(Kind::Polygon, {{0.25, -1}, {0.75, -1}, {0.75, 2}, {0.25, 2}}, 10.0 / 300)}};
        for (const HBSelectionShape& shape : {soft, polygon}) {
            QCOMPARE(shape.CoverageAt(m_Photo, 89, 200), 0);
            QCOMPARE(shape.CoverageAt(m_Photo, 110, 200), 255);
            for (int i = 0; i < 10; ++i) {
                QCOMPARE(shape.CoverageAt(m_Photo, 100 + i, 200) + shape.CoverageAt(m_Photo, 99 - i, 200), 255);
                QVERIFY(shape.CoverageAt(m_Photo, 90 + i, 200) <= shape.CoverageAt(m_Photo, 91 + i, 200));
            }
        }

        const HBSelectionShape circle{{Pixels(Kind::Ellipse, {0, 0, 200, 200})}};
        QVector<QPointF> corners;
        for (int i = 0; i < 720; ++i)
            corners.append({0.25 + 0.25 * std::cos(i * M_PI / 360), 1 / 3.0 + std::sin(i * M_PI / 360) / 3});
        const HBSelectionShape many{{Points(Kind::Polygon, corners)}};
        for (const HBSelectionShape& round : {circle, many}) {
            const HBSelection selection = round.Rasterize(m_Photo);
            double covered = 0;
            for (int y = 0; y < selection.mask.Height(); ++y) {
                for (int x = 0; x < selection.mask.Width(); ++x)
                    covered += selection.mask.PixelAt(x, y).alpha / 255.0;
            }
            QVERIFY(qAbs(covered - 31415.9) < 10); // pi r^2: the border pixels count in part
            QVERIFY(round.CoverageAt(m_Photo, 29, 29) > 0 && round.CoverageAt(m_Photo, 29, 29) < 255);
        }
    }

    void nothingToSelect() {
        for (const HBSelectionShape& shape :
             {HBSelectionShape(), HBSelectionShape{{Pixels(Kind::Rectangle, {500, 0, 10, 10})}},
              HBSelectionShape{{Pixels(Kind::Ellipse, QRect(), 5)}},
              HBSelectionShape{{Pixels(Kind::Ellipse, {0, 0, 50, 50}),
                                With(Combination::Intersect, Pixels(Kind::Ellipse, {90, 90, 50, 50}))}}}) {
            const HBSelection selection = shape.Rasterize(m_Photo);
            QVERIFY(!selection.bounds.isValid());
            QVERIFY(selection.mask.IsEmpty());
        }
        QVERIFY(!(HBSelectionShape{{Pixels(Kind::Rectangle, {0, 0, 5, 5})}}.Rasterize({})).bounds.isValid());
    }

    void aHugeSelectionCostsItsEdgeOnly() {
        for (const Kind kind : {Kind::Rectangle, Kind::Ellipse, Kind::Polygon, Kind::Color}) {
            const int side = kind == Kind::Color ? 4096 : 16384; // a colour is looked for in all of the photo
            const HBImage<> photo(side, side);
            if (kind == Kind::Color) photo.ToQImage(); // a tile has its memory from the first look at it
            for (const bool inverted : {false, true}) {
                const qint64 before = KMTileManager64::Instance().CurrentUsage().resident;
                HBShape shape = HBShape::OfPixels(kind, {1000, 1000, 31000, 31000}, 8, {32768, 32768});
                shape.points = Star();
                shape.inverted = inverted;
                const HBSelection selection = HBSelectionShape{{shape}}.Rasterize(photo);
                for (const KMTileRef& tile : selection.mask.Tiles()) KMTilePin<HBRGBA32i>(tile, false); // a look
                const qint64 used = KMTileManager64::Instance().CurrentUsage().resident - before;
                QVERIFY(selection.mask.Width() > side * 27 / 32);
                QVERIFY2(used < qint64(side) * side / 10 * 4, qPrintable(QString::number(used)));
            }
        }
    }

    void onAPhotoOfAnotherSize() {
        const HBSelectionShape shape{{Pixels(Kind::Rectangle, {100, 60, 50, 30})}};
        const HBSelection twice = shape.Rasterize(HBImage<>(800, 600));
        QCOMPARE(twice.bounds.translated(twice.offset), QRect(200, 120, 100, 60));
    }
};

HB_TEST_MAIN_WITHOUT_APPLICATION(TestHBSelectionShape)
#include "tst_HBSelectionShape.moc"
