// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayTests.h"
#include "HBTestMain.h"

#include <HBOverlay.h>

#include <climits>

namespace {

/// Opaque at the left, then every alpha, with transparent columns.
QImage TranslucentStamp() {
    QImage stamp(300, 280, QImage::Format_ARGB32);
    for (int y = 0; y < stamp.height(); ++y) {
        for (int x = 0; x < stamp.width(); ++x) {
            const int alpha = x % 50 == 7 ? 0 : x < 100 ? 255 : (x + y) % 256;
            stamp.setPixel(x, y, HBColor(y * 3, x * 2, x * y, alpha));
        }
    }
    return stamp;
}

} // namespace

class tst_HBDrawSign : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(m_Folder.isValid()); }

    void Modes() {
        // A pixel of the stamp is one of this picture; it lies across the borders of 16 tiles, in both halves.
        const QImage picture = HBHalfOpaque(1000, 1100);
        const QImage stamp = TranslucentStamp();
        HBSignParams params = Stamp("modes.png", stamp);
        params.alignment = Qt::AlignCenter;
        params.margins = HBMargins(20, 0, 0, 0);
        for (const auto& [text, mode] : HBTestModes) {
            for (const int opacity : {0, 37, 100}) {
                params.blendingMode = quint32(mode);
                params.opacity = opacity;
                QVERIFY(HBIsComposed(Drawn(picture, params), picture, stamp, QPoint(360, 410), mode, opacity));
            }
        }
    }

    void Place() {
        const QSize wide(750, 500), tall(500, 750), small(100, 60);
        const QRect margins = HBMargins(10, 20, 30, 40), none = HBMargins(0, 0, 0, 0); // twice as much as pixels
        const int left = Qt::AlignLeft, centre = Qt::AlignHCenter, right = Qt::AlignRight;
        const int top = Qt::AlignTop, middle = Qt::AlignVCenter, bottom = Qt::AlignBottom;
        const struct {
            const char* name;
            QSize picture, stamp;
            int alignment;
            QRect margins, expected;
        } rows[] = {
            {"left top", wide, small, left | top, margins, {5, 10, 50, 30}},
            {"right bottom", wide, small, right | bottom, margins, {685, 450, 50, 30}},
            {"centred between the margins", wide, small, centre | middle, margins, {345, 230, 50, 30}},
            {"portrait", tall, small, left | bottom, margins, {5, 700, 50, 30}},
            {"no flag", wide, small, 0, margins, {5, 10, 50, 30}},
            {"all flags", wide, small, -1, margins, {5, 10, 50, 30}},
            {"centre and right", wide, small, centre | right | middle | bottom, margins, {345, 230, 50, 30}},
            {"too wide", wide, {2920, 400}, left | bottom, margins, {5, 380, 730, 100}},
            {"too high", tall, {200, 2880}, right | top, margins, {435, 10, 50, 720}},
            {"a hair", wide, {3000, 1}, left | bottom, none, {0, 499, 750, 1}},
            {"one pixel", {1, 1}, small, right | bottom, HBMargins(5, 5, 5, 5), {0, 0, 1, 1}},
            {"a strip: 0.3 by 0.18 pixels", {500, 3}, small, right | bottom, none, {499, 2, 1, 1}},
        };
        for (const auto& row : rows) {
            HBSignParams params = Stamp("place.png", HBPlain(row.stamp.width(), row.stamp.height(), Qt::red));
            params.alignment = Qt::Alignment(QFlag(row.alignment));
            params.margins = row.margins;
            const QImage before = HBPlain(row.picture.width(), row.picture.height(), Qt::white);
            QVERIFY2(HBChangedRect(before, Drawn(before, params)) == row.expected, row.name);
        }
    }

    void LooksTheSameAtAnySize() {
        QImage stamp = HBPlain(500, 200, Qt::transparent);
        QPainter painter(&stamp);
        painter.setBrush(Qt::yellow);
        painter.drawEllipse(20, 20, 460, 160);
        painter.end();
        HBSignParams params = Stamp("same.png", stamp);
        params.alignment = Qt::AlignRight | Qt::AlignBottom;
        params.margins = HBMargins(5, 5, 60, 30);
        params.opacity = 80;
        QVERIFY(HBLooksTheSameAtAnySize([&](const QImage& picture) { return Drawn(picture, params); }));
    }

    /// Along a ramp that is four times as large as its file, no value may jump, not at the borders of tiles
    /// either.
    void EnlargesWithoutSeams() {
        QImage ramp(60, 3, QImage::Format_ARGB32);
        for (int x = 0; x < ramp.width(); ++x) {
            for (int y = 0; y < ramp.height(); ++y) ramp.setPixel(x, y, qRgb(x * 4, x * 4, x * 4));
        }
        const QImage before = HBPlain(4000, 4000, Qt::white);
        const QImage after = Drawn(before, Stamp("ramp.png", ramp));
        QCOMPARE(HBChangedRect(before.copy(0, 0, 400, 50), after.copy(0, 0, 400, 50)), QRect(0, 0, 240, 12));
        for (int x = 1; x < 240; ++x) {
            const int step = qRed(after.pixel(x, 5)) - qRed(after.pixel(x - 1, 5));
            QVERIFY2(step >= 0 && step <= 2, qPrintable(QString("%1 at %2").arg(step).arg(x)));
        }
        QCOMPARE(qRed(after.pixel(239, 5)), 59 * 4);
    }

    void TouchesNothingElse() {
        const QImage before = HBHalfOpaque(1000, 1000);
        HBImage<> picture = HBImage<>::FromQImage(before);
        picture.SetHostValue(0, 11811);
        // Transparent but for one corner, in the second column of tiles.
        QImage stamp = HBPlain(400, 300, Qt::transparent);
        stamp.setPixel(150, 10, qRgb(1, 2, 3));
        const HBSignParams params = Stamp("corner.png", stamp);
        QString error;
        const HBImage<> drawn = HBDrawSign(picture, params, &error);
        QCOMPARE(error, QString());
        for (int i = 0; i < picture.Tiles().size(); ++i) QCOMPARE(drawn.Tile(i) == picture.Tile(i), i != 1);
        QCOMPARE(picture.ToQImage(), before);
        QCOMPARE(HBChangedRect(before, drawn.ToQImage()), QRect(150, 10, 1, 1));
        QCOMPARE(drawn.HostValue(0), 11811);
    }

    void Nothing() {
        const QString stamp = Save("nothing.png", HBPlain(10, 10, Qt::red));
        const QString clear = Save("clear.png", HBPlain(10, 10, Qt::transparent));
        const HBImage<> picture = HBImage<>::FromQImage(HBHalfOpaque(300, 200));
        const std::pair<QString, int> rows[] = {{{}, 100}, {"", 100}, {stamp, 0}, {stamp, -1}, {clear, 100}};
        for (const auto& [file, opacity] : rows) {
            HBSignParams params;
            params.fileName = file;
            params.opacity = opacity;
            QString error = "left from before";
            QCOMPARE(HBDrawSign(picture, params, &error).Tiles(), picture.Tiles());
            QCOMPARE(error, QString());
            QVERIFY(HBDrawSign({}, params, nullptr).IsEmpty());
        }
    }

    void Failures_data() {
        HBColumns<QString, QRect, QString>("file", "margins", "message");
        const QRect none = HBMargins(0, 0, 0, 0);
        QFile text(m_Folder.filePath("text.png"));
        QVERIFY(text.open(QIODevice::WriteOnly) && text.write("no picture") == 10);
        QFile cut(m_Folder.filePath("cut.png"));
        QFile whole(Save("whole.png", HBPlain(50, 50, Qt::red)));
        QVERIFY(whole.open(QIODevice::ReadOnly) && cut.open(QIODevice::WriteOnly));
        cut.write(whole.read(40));
        // The head of a picture of 20000 by 20000 pixels.
        QFile bomb(m_Folder.filePath("bomb.ppm"));
        QVERIFY(bomb.open(QIODevice::WriteOnly) && bomb.write("P6 20000 20000 255\n") > 0);
        // The head of one of 8000 by 8000 pixels of four times 16 bits.
        QFile deep(m_Folder.filePath("deep.png"));
        QVERIFY(deep.open(QIODevice::WriteOnly));
        deep.write(
            QByteArray::fromHex("89504e470d0a1a0a0000000d4948445200001f4000001f401006000000566171b700000000"));
        deep.write("IDAT");

        const QString missing = m_Folder.filePath("a%1 b.png");
        QTest::newRow("missing")
            << missing << none
            << QString("The stamp %1 cannot be read: there is no such file").replace("%1", missing);
        QTest::newRow("a folder") << m_Folder.path() << none
                                  << m_Folder.path() + " cannot be read: this is not a file";
        QTest::newRow("a device") << QString("/dev/zero") << none
                                  << QString("/dev/zero cannot be read: this is not a file");
        // Others of the kernel's files, which say that they are empty, too, never end.
        QTest::newRow("empty by its entry") << QString("/proc/self/status") << none
                                            << QString("/proc/self/status cannot be read: the file is empty");
        QTest::newRow("no picture") << text.fileName() << none << text.fileName() + " cannot be read: ";
        QTest::newRow("cut short") << cut.fileName() << none << cut.fileName() + " cannot be read: ";
        QTest::newRow("a bomb") << bomb.fileName() << none
                                << bomb.fileName() + " cannot be read: it is larger than 100 megapixels";
        QTest::newRow("16 bits") << deep.fileName() << none
                                 << deep.fileName() + " cannot be read: it takes more than 400 MB of memory";
        QTest::newRow("no room") << whole.fileName() << HBMargins(500, 0, 500, 0)
                                 << QString("The margins leave no room");
        QTest::newRow("hostile margins") << whole.fileName() << HBMargins(INT_MAX, INT_MAX, INT_MAX, INT_MAX)
                                         << QString("The margins leave no room");
    }

    void Failures() {
        QFETCH(QString, file);
        QFETCH(QRect, margins);
        QFETCH(QString, message);
        const HBImage<> picture = HBImage<>::FromQImage(HBPlain(300, 300, Qt::gray));
        HBSignParams params;
        params.fileName = file;
        params.margins = margins;
        QString error;
        const HBImage<> drawn = HBDrawSign(picture, params, &error);
        QCOMPARE(drawn.Tiles(), picture.Tiles());
        QVERIFY2(error.contains(message), qPrintable(error));
        QVERIFY(error.size() > message.size() || !message.endsWith(' ')); // Qt's reason follows
        QCOMPARE(HBDrawSign(picture, params, nullptr).Tiles(), picture.Tiles());
    }

    void HostileValuesAreClamped() {
        const QImage picture = HBHalfOpaque(1500, 1000);
        HBSignParams usual = Stamp("hostile.png", TranslucentStamp());
        usual.margins = HBMargins(0, 999, 0, 0);
        HBSignParams hostile = usual;
        hostile.margins = HBMargins(INT_MIN, INT_MAX, -1, INT_MIN);
        hostile.opacity = INT_MAX;
        const QImage expected = Drawn(picture, usual);
        QVERIFY(!expected.isNull() && expected != picture);
        for (const quint32 mode : {1u, 2u, 11u, 24u, 37u, 0x80000000u, 0xffffffffu}) {
            hostile.blendingMode = mode;
            QCOMPARE(Drawn(picture, hostile), expected);
        }
    }

    void ReadsAFileAgainThatHasChanged() {
        const QImage picture = HBPlain(1000, 1000, Qt::white);
        HBSignParams params = Stamp("changing.png", HBPlain(10, 10, Qt::red));
        QCOMPARE(Drawn(picture, params).pixelColor(5, 5), QColor(Qt::red));
        QCOMPARE(Save("changing.png", HBPlain(20, 30, Qt::blue)), params.fileName);
        QCOMPARE(Drawn(picture, params).pixelColor(15, 25), QColor(Qt::blue));
        QVERIFY(QFile::remove(params.fileName));
        QVERIFY(Drawn(picture, params).isNull());
    }

    /// Two stamps in turn, at their own and at other sizes, are read once, and again only when their files differ.
    void KeepsTheStampsUsedLast() {
        QVector<HBSignParams> records;
        QVector<QImage> before;
        for (const auto& [name, color] : {std::pair("first.bmp", Qt::red), std::pair("second.bmp", Qt::blue)}) {
            records.append(Stamp(name, HBPlain(40, 30, color)));
            for (const int side : {1000, 500, 2000})
                before.append(Drawn(HBPlain(side, side, Qt::white), records.last()));
            // Looks the same from outside, and is no picture.
            QFile file(records.last().fileName);
            QVERIFY(file.open(QIODevice::ReadWrite));
            const QDateTime modified = file.fileTime(QFile::FileModificationTime);
            file.write(QByteArray(int(file.size()), 'x'));
            file.flush();
            QVERIFY(file.setFileTime(modified, QFile::FileModificationTime));
        }
        QVector<QImage> after;
        for (const HBSignParams& record : records) {
            for (const int side : {1000, 500, 2000}) after.append(Drawn(HBPlain(side, side, Qt::white), record));
        }
        QCOMPARE(after, before);
        QVERIFY(!after.contains(QImage()));
    }

private:
    const QTemporaryDir m_Folder;

    QString Save(const char* name, const QImage& stamp) const {
        const QString file = m_Folder.filePath(name);
        return stamp.save(file) ? file : QString();
    }
    /// Without margins, at the left and at the top.
    HBSignParams Stamp(const char* name, const QImage& stamp) const {
        HBSignParams params;
        params.fileName = Save(name, stamp);
        params.margins = HBMargins(0, 0, 0, 0);
        return params;
    }
    static QImage Drawn(const QImage& picture, const HBSignParams& params) {
        QString error;
        const QImage drawn = HBDrawSign(HBImage<>::FromQImage(picture), params, &error).ToQImage();
        return error.isEmpty() ? drawn : QImage();
    }
};

HB_TEST_MAIN(tst_HBDrawSign)
#include "tst_HBDrawSign.moc"
