// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayTests.h"
#include "HBTestMain.h"

#include <HBAdjustment.h>
#include <HBOverlay.h>

#include <QDataStream>
#include <QTranslator>

#include <climits>
#include <limits>

namespace {

/// Without margins, in units that are pixels of a picture of 1000.
HBWatermarkParams Text(const QString& text, int pixels) {
    HBWatermarkParams params;
    params.text = text;
    params.font.setPixelSize(pixels);
    params.color = Qt::black;
    params.margins = HBMargins(0, 0, 0, 0);
    return params;
}

QImage Drawn(const QImage& picture, const HBWatermarkParams& params) {
    QString error;
    const QImage drawn = HBDrawWatermark(HBImage<>::FromQImage(picture), params, &error).ToQImage();
    return error.isEmpty() ? drawn : QImage();
}

/// The text in one piece: at its size, in the middle of each of as many columns as it has copies, standing on its
/// end as 90 degrees put it.
QImage Columns(const QSize& picture, const HBWatermarkParams& params) {
    constexpr int Large = 256; // outlines do not depend on a size that needs no hints
    QFont font = params.font;
    font.setPixelSize(Large);
    font.setHintingPreference(QFont::PreferNoHinting);
    QPainterPath text;
    text.setFillRule(Qt::WindingFill); // letters may overlap
    text.addText(0, 0, font, params.text);
    text = QTransform().rotate(-90).map(text);
    const double scale = params.font.pixelSize() / 1000.0 * qMin(picture.width(), picture.height()) / Large;
    QImage coverage(picture, QImage::Format_ARGB32_Premultiplied);
    coverage.fill(Qt::transparent);
    QPainter painter(&coverage);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int column = 0; column < params.horizontalTiles; ++column) {
        painter.resetTransform();
        painter.translate((column + 0.5) * picture.width() / params.horizontalTiles, picture.height() / 2.0);
        painter.scale(scale, scale);
        painter.translate(-text.boundingRect().center());
        painter.fillPath(text, Qt::black);
    }
    painter.end();
    // Not premultiplied.
    QImage layer(picture, QImage::Format_ARGB32);
    for (int y = 0; y < layer.height(); ++y) {
        for (int x = 0; x < layer.width(); ++x) {
            QColor color = params.color;
            color.setAlpha(qRound(color.alpha() * qAlpha(coverage.pixel(x, y)) / 255.0));
            layer.setPixel(x, y, color.rgba());
        }
    }
    return layer;
}

/// Where the ink is heavier, seen from the middle of what has changed: -1, 0 or 1 each way.
QPoint HeavySide(const QImage& before, const QImage& after) {
    const QRect box = HBChangedRect(before, after);
    QPointF sum;
    double weight = 0;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x) {
            const double ink = qRed(before.pixel(x, y)) - qRed(after.pixel(x, y));
            sum += QPointF(x, y) * ink;
            weight += ink;
        }
    }
    auto side = [](double offset, int size) { return offset < -0.05 * size ? -1 : offset > 0.05 * size ? 1 : 0; };
    const QPointF offset = sum / weight - QRectF(box).center();
    return {side(offset.x(), box.width()), side(offset.y(), box.height())};
}

/// A font with a size that no function of Qt would set, as a record may hold it.
QFont WithSize(double points, qint32 pixels) {
    QByteArray bytes;
    QDataStream writer(&bytes, QIODevice::WriteOnly);
    writer.setVersion(QDataStream::Qt_5_0); // the family, then the sizes
    const QFont font;
    writer << font;
    QByteArray sizes;
    QDataStream patch(&sizes, QIODevice::WriteOnly);
    patch << points << pixels;
    int offset = 4 + 2 * font.family().size();
    QDataStream(bytes.mid(offset)) >> pixels; // the style's name, as a length of bytes or of none
    bytes.replace(offset, sizes.size(), sizes);
    QDataStream reader(bytes);
    reader.setVersion(QDataStream::Qt_5_0);
    QFont read;
    reader >> read;
    return read;
}

} // namespace

class tst_HBDrawWatermark : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// Tile by tile as in one piece.
    void Modes() {
        const QImage picture = HBHalfOpaque(600, 400);
        HBWatermarkParams params = Text("Water&mark", 100);
        params.color = QColor(200, 120, 30, 180);
        params.angle = 90;
        params.horizontalTiles = 3;
        const QImage layer = Columns(picture.size(), params);
        for (const auto& [text, mode] : HBTestModes) {
            for (const int opacity : {0, 37, 100}) {
                params.blendingMode = mode;
                params.opacity = opacity;
                QVERIFY(HBIsComposed(Drawn(picture, params), picture, layer, {}, mode, opacity));
            }
        }
    }

    void AngleTurnsCounterClockwise() {
        const struct {
            int angle;
            QPoint beginning; // of the text, seen from its middle
        } rows[] = {{0, {-1, 0}},  {90, {0, 1}},  {-90, {0, -1}},
                    {180, {1, 0}}, {45, {-1, 1}}, {90 + 360 * 1000000, {0, 1}}};
        const QImage before = HBPlain(500, 500, Qt::white);
        HBWatermarkParams params = Text("MMM----", 60);
        for (const auto& row : rows) {
            params.angle = row.angle;
            QCOMPARE(HeavySide(before, Drawn(before, params)), row.beginning);
        }
    }

    void NeverLeavesTheMargins() {
        const QRect none = HBMargins(0, 0, 0, 0);
        const struct {
            QSize picture;
            QRect margins; // in thousandths of the shorter side
            int angle, tiles;
            QRect room;
        } rows[] = {{{450, 300}, none, 0, 1, {0, 0, 450, 300}},
                    {{300, 450}, none, 0, 1, {0, 0, 300, 450}},
                    {{450, 300}, none, 90, 1, {0, 0, 450, 300}},
                    {{300, 450}, none, -37, 1, {0, 0, 300, 450}},
                    {{450, 300}, HBMargins(100, 200, 300, 400), 15, 1, {30, 60, 330, 120}},
                    {{450, 300}, HBMargins(50, 50, 50, 50), 100, 9, {15, 15, 420, 270}},
                    {{20, 9}, none, 3, 2, {0, 0, 20, 9}}};
        for (const auto& row : rows) {
            HBWatermarkParams params = Text("A text that is far too long, jÄgQ", 1000);
            params.margins = row.margins;
            params.angle = row.angle;
            params.horizontalTiles = params.verticalTiles = row.tiles;
            const QImage before = HBPlain(row.picture.width(), row.picture.height(), Qt::white);
            const QRect changed = HBChangedRect(before, Drawn(before, params));
            QVERIFY(row.room.contains(changed));
            // Not smaller than it must be: one way, it reaches from end to end.
            const double slack = 3 + 0.08 * qMin(row.room.width(), row.room.height());
            QVERIFY(row.room.width() - changed.width() < slack || row.room.height() - changed.height() < slack);
        }
    }

    /// A slanting text, too, looks alike wherever the tiles of the picture divide it.
    void Tiles() {
        HBWatermarkParams params = Text("tile", 40);
        params.angle = 30;
        params.horizontalTiles = 3;
        params.verticalTiles = 2;
        params.margins = HBMargins(50, 0, 50, 0);
        const QImage before = HBPlain(1000, 1000, Qt::white);
        const QImage after = Drawn(before, params);
        const QImage cell = after.copy(50, 0, 300, 500);
        const QRect changed = HBChangedRect(before.copy(0, 0, 300, 500), cell);
        QVERIFY((changed.center() - cell.rect().center()).manhattanLength() <= 2);
        for (const QPoint& corner : {QPoint(350, 0), QPoint(650, 0), QPoint(50, 500), QPoint(650, 500)})
            QCOMPARE(after.copy(QRect(corner, cell.size())), cell);
    }

    void SizeOfTheFont() {
        // 75 points are 100 units, which are 50 pixels of a picture of 500.
        HBWatermarkParams points = Text("H", 1);
        points.font.setPointSizeF(75);
        const QImage before = HBPlain(700, 500, Qt::white);
        QCOMPARE(Drawn(before, points), Drawn(before, Text("H", 100)));
        QFont font;
        font.setPixelSize(500);
        const double height = QFontMetricsF(font).tightBoundingRect("H").height() / 10;
        const QRect changed = HBChangedRect(before, Drawn(before, points));
        QVERIFY(qAbs(changed.height() - height) <= 2);

        HBWatermarkParams lines = Text("H\nH", 100);
        QVERIFY(HBChangedRect(before, Drawn(before, lines)).height() > 2 * changed.height());
    }

    void LooksTheSameAtAnySize() {
        HBWatermarkParams params = Text("Watermark", 120);
        params.color = Qt::yellow;
        params.angle = -20;
        params.verticalTiles = 2;
        params.margins = HBMargins(5, 100, 60, 30);
        params.opacity = 70;
        QVERIFY(HBLooksTheSameAtAnySize([&](const QImage& picture) { return Drawn(picture, params); }));
    }

    /// Of the tiles that the box around a slanting text reaches, those without ink stay shared.
    void TouchesNothingElse() {
        const QImage before = HBHalfOpaque(1280, 1280);
        const HBImage<> picture = HBImage<>::FromQImage(before);
        HBWatermarkParams params = Text("_____________________", 60);
        params.angle = 45;
        QString error;
        const HBImage<> drawn = HBDrawWatermark(picture, params, &error);
        QCOMPARE(error, QString());
        const QImage after = drawn.ToQImage();
        int changed = 0;
        for (int i = 0; i < picture.Tiles().size(); ++i) {
            const bool same = before.copy(picture.TileRect(i)) == after.copy(picture.TileRect(i));
            QCOMPARE(drawn.Tile(i) == picture.Tile(i), same);
            changed += same ? 0 : 1;
        }
        QVERIFY(changed > 5 && changed < 40);
        QCOMPARE(picture.ToQImage(), before);
    }

    void Nothing() {
        const struct {
            const char* text;
            QColor color;
            int opacity;
        } rows[] = {{"", Qt::red, 100},
                    {" \n\t ", Qt::red, 100},
                    {"text", Qt::red, 0},
                    {"text", Qt::red, INT_MIN},
                    {"text", QColor(255, 0, 0, 0), 100}};
        const HBImage<> picture = HBImage<>::FromQImage(HBHalfOpaque(300, 200));
        for (const auto& row : rows) {
            HBWatermarkParams params = Text(row.text, 100);
            params.color = row.color;
            params.opacity = row.opacity;
            QString error = "left from before";
            QCOMPARE(HBDrawWatermark(picture, params, &error).Tiles(), picture.Tiles());
            QCOMPARE(error, QString());
            QVERIFY(HBDrawWatermark({}, params, nullptr).IsEmpty());
        }
    }

    void NamesAFontThatIsMissing() {
        const HBImage<> picture = HBImage<>::FromQImage(HBPlain(300, 300, Qt::gray));
        HBWatermarkParams params = Text("text", 100);
        params.font.setFamily("No Such Font %2");
        QString error;
        QCOMPARE(HBDrawWatermark(picture, params, &error).Tiles(), picture.Tiles());
        QCOMPARE(error, QString("The font No Such Font %2 is not installed"));

        // Only so many names of a font are tried.
        QStringList names = QString("No Such Font,").repeated(31).split(',');
        names[31] = QFont().family();
        params.font.setFamilies(names);
        HBDrawWatermark(picture, params, &error);
        QCOMPARE(error, QString());
        params.font.setFamilies(QStringList("No Such Font %2") + names);
        HBDrawWatermark(picture, params, &error);
        QCOMPARE(error, QString("The font No Such Font %2 is not installed"));

        params.font = QFont();
        params.margins = HBMargins(0, 999, 0, 1); // of 1000
        QCOMPARE(HBDrawWatermark(picture, params, &error).Tiles(), picture.Tiles());
        QCOMPARE(error, QString("The margins leave no room"));
        params.margins = HBMargins(0, 999, 0, 0);
        HBDrawWatermark(picture, params, &error);
        QCOMPARE(error, QString());
    }

    void HostileFontSizes() {
        const double infinite = std::numeric_limits<double>::infinity();
        const struct {
            double points;
            int pixels, units;
        } rows[] = {{1e9, -1, 1000},        {infinite, -1, 1000}, {1e-9, -1, 1},
                    {std::nan(""), -1, 16}, {0, -1, 16},          {-1, -1, 16},
                    {-infinite, 0, 16},     {-1, INT_MAX, 1000},  {-1, INT_MIN, 16}};
        const QImage before = HBPlain(1000, 1000, Qt::white);
        for (const auto& row : rows) {
            HBWatermarkParams params = Text("text", 1);
            params.font = WithSize(row.points, row.pixels);
            QVERIFY(params.font.pixelSize() == row.pixels || params.font.pixelSize() == -1);
            QCOMPARE(Drawn(before, params), Drawn(before, Text("text", row.units)));
        }
    }

    void HostileValuesAreClamped() {
        const QImage picture = HBHalfOpaque(500, 400);
        HBWatermarkParams usual = Text("text", 200);
        usual.horizontalTiles = 9;
        usual.margins = HBMargins(0, 0, 999, 0);
        HBWatermarkParams hostile = usual;
        hostile.horizontalTiles = INT_MAX;
        hostile.verticalTiles = INT_MIN;
        hostile.margins = HBMargins(INT_MIN, -1, INT_MAX, INT_MIN);
        hostile.opacity = INT_MAX;
        const QImage expected = Drawn(picture, usual);
        QVERIFY(!expected.isNull() && expected != picture);
        for (const int mode : {1, 2, 11, 24, 37, INT_MIN, -1}) {
            hostile.blendingMode = mode;
            QCOMPARE(Drawn(picture, hostile), expected);
        }
        for (const int angle : {INT_MIN, INT_MAX}) {
            hostile.angle = angle;
            usual.angle = angle % 360;
            hostile.blendingMode = 0;
            QCOMPARE(Drawn(picture, hostile), Drawn(picture, usual));
        }
    }

    /// Whatever they were when the first record was made.
    void DefaultsAreOfThePresentLanguageAndFont() {
        const auto made = [] {
            return std::any_cast<HBWatermarkParams>(HBFindAdjustment("HBWatermarkWidget")->defaults());
        };
        QCOMPARE(made().text, QString("Watermark"));
        struct : QTranslator {
            bool isEmpty() const override { return false; }
            QString translate(const char*, const char*, const char*, int) const override { return "Mark"; }
        } language;
        const QFont before = QApplication::font();
        QFont font = before;
        font.setPointSize(33);
        QApplication::setFont(font);
        QCoreApplication::installTranslator(&language);
        const HBWatermarkParams params = made();
        QCoreApplication::removeTranslator(&language);
        QApplication::setFont(before);
        QCOMPARE(params.text, QString("Mark"));
        QCOMPARE(params.font.pointSize(), 33);
    }

    void HostileTexts() {
        for (const QString& text : {QString(1'000'000, 'W'), QString("W\n").repeated(1'000'000),
                                    QString(3, QChar(0)) + "x", QString("x") + QChar(0xd800) + "y" + QChar(0xdc00),
                                    QString::fromUtf8("abc \u202eאבג \u0627\u0644\u0639")}) {
            HBWatermarkParams params = Text(text, 100);
            params.horizontalTiles = params.verticalTiles = 9;
            params.angle = 33;
            QVERIFY(!Drawn(HBPlain(400, 300, Qt::white), params).isNull());
            QVERIFY(!Drawn(HBPlain(1, 1, Qt::white), params).isNull());
        }
    }
};

HB_TEST_MAIN(tst_HBDrawWatermark)
#include "tst_HBDrawWatermark.moc"
