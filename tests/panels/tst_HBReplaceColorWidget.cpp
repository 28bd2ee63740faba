// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorDialogUser.h"
#include "HBTestMain.h"

#include <HBReplaceColorWidget.h>

#include <QPainter>
#include <QSlider>
#include <QSpinBox>

#include <limits>

namespace {

using Panel = HBReplaceColorWidget;
using Params = Panel::Params;
constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

struct Fixture : HBPanelFixture<Panel> {
    using HBPanelFixture::HBPanelFixture;
    Params Value() const { return panel.GetValue(); }
    /// The job's result for a record.
    QImage Run(const Params& params, const QImage& photo) {
        panel.SetValue(params);
        panel.SetImage(HBImage<>::FromQImage(photo), {}, {}, {});
        return Finish() ? panel.AdjustedImage().ToQImage() : QImage();
    }

    QSlider* tolerance = Find<QSlider>("m_pSourceTolerance");
    QSpinBox* toleranceSpin = Find<QSpinBox>("spinBox");
    QPushButton* color = Find<QPushButton>("m_pSelectDestinationColor");
};

QImage Plain(int width, int height, const QColor& color) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

} // namespace

class tst_HBReplaceColorWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// The sliders are listened to: a spin box that is not tied to one is not heard.
    void controls() {
        Fixture f;
        f.toleranceSpin->setValue(40);
        QCOMPARE(f.Value().tolerance, 40);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        f.toleranceSpin->disconnect(f.tolerance);
        f.toleranceSpin->setValue(99);
        QCOMPARE(f.recorder.Take(), QStringList());
    }

    /// Every accepted dialog is heard, changed or not; a cancelled one only if the user has tried another colour.
    void dialog() {
        const QColor old("#102030"), red("#ff0000"), blue("#0000ff");
        const QColor hsv = QColor::fromHsv(120, 255, 255);
        Fixture f;
        HBCheckColorVisits(
            f, f.color, "Select replacement color",
            {
                {"accept at once", old, {}, {}, true, old, 1},
                {"accept what was tried", old, {red}, {}, true, red, 2},
                {"accept what was not tried", old, {}, red, true, red, 1},
                {"accept another than was tried", old, {red}, blue, true, blue, 2},
                {"accept another colour model", hsv, {}, {}, true, hsv, 1},
                {"cancel at once", old, {}, {}, false, old, 0},
                {"cancel what was tried", old, {red, blue}, {}, false, old, 3},
                {"back by hand, then cancel", old, {red, old}, {}, false, old, 2},
            },
            [&] { return f.Value().color; },
            [&](const QColor& color) {
                f.panel.SetValue({0, Panel::LeftTop, color, 100});
            });
    }

    void lostDialog() { HBCheckLostDialog<Panel>("m_pSelectDestinationColor"); }

    /// Four fields of one colour, parted by a black cross: each corner fills its own.
    void corners() {
        QImage photo = Plain(301, 270, Qt::yellow);
        QPainter painter(&photo);
        painter.fillRect(150, 0, 1, 270, Qt::black);
        painter.fillRect(0, 130, 301, 1, Qt::black);
        painter.end();
        const QRect fields[] = {{0, 0, 150, 130}, {151, 0, 150, 130}, {0, 131, 150, 139}, {151, 131, 150, 139}};
        Fixture f;
        for (const int position : {0, 1, 2, 3, 4, -1, Most, Least}) {
            QImage expected = photo;
            QPainter(&expected).fillRect(fields[position >= 0 && position < 4 ? position : 0], Qt::red);
            QCOMPARE(f.Run({0, Panel::PositionType(position), Qt::red, 100}, photo), expected);
            QCOMPARE(f.panel.SourceImage().ToQImage(), photo);
        }
    }

    /// Each channel by itself, against the corner, not against the pixel beside; alpha is a channel too.
    void tolerance() {
        QImage photo = Plain(7, 1, QColor(100, 100, 100));
        const QColor row[] = {{100, 100, 100}, {110, 100, 100},      {110, 90, 110}, {110, 90, 110, 245},
                              {111, 90, 110},  {100, 100, 100, 255}, {100, 100, 100}};
        for (int x = 0; x < 7; ++x) photo.setPixelColor(x, 0, row[x]);
        Fixture f;
        const QPair<int, int> rows[] = {{0, 1}, {9, 1}, {10, 4}, {11, 7}, {255, 7}};
        for (const auto& [tolerance, filled] : rows) {
            QImage expected = photo;
            for (int x = 0; x < filled; ++x) expected.setPixelColor(x, 0, Qt::red);
            QCOMPARE(f.Run({tolerance, Panel::LeftTop, Qt::red, 100}, photo), expected);
        }
    }

    /// Over nothing, the replacement's own alpha is left: the opacity alone, whatever that of the colour.
    void opacity() {
        Fixture f;
        for (const int own : {255, 10, 0}) {
            for (const auto& [opacity, alpha] :
                 {std::pair{100, 255}, {50, 127}, {1, 2}, {0, 0}, {101, 255}, {-1, 0}, {Most, 255}, {Least, 0}}) {
                const QImage filled =
                    f.Run({0, Panel::LeftTop, QColor(200, 100, 50, own), opacity}, Plain(3, 2, Qt::transparent));
                QCOMPARE(filled, Plain(3, 2, alpha ? QColor(200, 100, 50, alpha) : QColor(Qt::transparent)));
            }
        }
        // White on white, the default, ends, and so does a replacement within the tolerance.
        QCOMPARE(f.Run({}, Plain(300, 300, Qt::white)), Plain(300, 300, Qt::white));
        QCOMPARE(
            f.Run({200, Panel::RightBottom, QColor(120, 120, 120), 50}, Plain(300, 300, QColor(100, 100, 100))),
            Plain(300, 300, QColor(110, 110, 110)));
    }

    void smallPictures() {
        Fixture f;
        for (int position = -1; position < 5; ++position) {
            const Params params{0, Panel::PositionType(position), Qt::red, 100};
            QCOMPARE(f.Run(params, Plain(1, 1, Qt::blue)), Plain(1, 1, Qt::red));
            QCOMPARE(f.Run(params, Plain(1, 300, Qt::blue)), Plain(1, 300, Qt::red));
            QCOMPARE(f.Run(params, Plain(129, 1, Qt::blue)), Plain(129, 1, Qt::red));
        }
    }

    /// The four bytes of the tolerance are those of the number or'd with itself three times, a byte further each
    /// time.
    void hostileRecords() {
        Fixture f;
        QImage row = Plain(3, 1, QColor(0, 0, 0));
        row.setPixelColor(1, 0, QColor(3, 3, 255));
        const auto filled = [&](int tolerance) {
            return f.Run({tolerance, Panel::LeftTop, Qt::red, 100}, row).pixelColor(1, 0) == QColor(Qt::red);
        };
        QVERIFY(filled(-1)); // all bytes 255
        QVERIFY(!filled(254));
        QVERIFY(filled(255));
        QVERIFY(!filled(256)); // blue 0
        QVERIFY(!filled(Least));
        QVERIFY(filled(Most));
    }

    /// The selection is carried along, but neither limits the fill nor weighs it; tiles that it does not reach
    /// stay shared.
    void selectionDoesNotLimit() {
        QImage photo = Plain(300, 150, Qt::blue);
        QPainter(&photo).fillRect(100, 0, 200, 150, Qt::green);
        QImage expected = photo;
        QPainter(&expected).fillRect(0, 0, 100, 150, Qt::red);
        Panel::RCData job;
        job.source = HBImage<>::FromQImage(photo);
        job.selection = HBTestMask(50, 50);
        job.offset = QPoint(10, 10);
        job.bounds = QRect(5, 5, 20, 20);
        job.replacement = HBRGBA32i(255, 0, 0);
        job.seed = QPoint(0, 149);
        const HBImage<> filled = Panel::Process(job);
        QCOMPARE(filled.ToQImage(), expected);
        QVERIFY(filled.Tile(1) == job.source.Tile(1) && filled.Tile(5) == job.source.Tile(5));

        Fixture f;
        f.panel.SetValue({0, Panel::LeftBottom, Qt::red, 100});
        f.panel.SetImage(job.source, job.selection, job.offset, job.bounds);
        QVERIFY(f.Finish());
        QCOMPARE(f.panel.AdjustedImage().ToQImage(), expected);
    }
};

HB_TEST_MAIN(tst_HBReplaceColorWidget)
#include "tst_HBReplaceColorWidget.moc"
