// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayTest.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBAdjustment.h>
#include <HBRecipe.h>
#include <HBSign.h>
#include <HBWatermark.h>

#include <QBuffer>
#include <QRandomGenerator>

#include <cerrno>

namespace {

template <class Params>
HBRecipeStep Step(const char* panel, const Params& params) {
    return HBStepOf(*HBFindAdjustment(panel), std::any(params));
}

HBRecipeStep Stamp(const QString& file) {
    HBSignParams sign;
    sign.fileName = file;
    return Step("HBSignWidget", sign);
}

/// A PNG whose head says another size, by its values and their check sum, than there are pixels.
QByteArray PngThatSays(const char* head) {
    QBuffer buffer;
    QImage(1, 1, QImage::Format_RGB32).save(&buffer, "png");
    return QByteArray(buffer.data()).replace(16, 17, QByteArray::fromHex(head));
}

} // namespace

/// Hostile files of a few kilobytes, and limits of the system's: each ends soon, with what is wrong.
class tst_PanelReplayBounds : public HBReplayTest {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        MakeFolder({"photo.png"});
        HBWatermarkParams text;
        text.text = "x";
        QStringList names;
        for (int i = 0; i < 100000; ++i) names.append(QString("no such font %1").arg(i));
        text.font.setFamilies(names);
        text.font.setFamily("no such font");
        Save("families.json", {Step("HBWatermarkWidget", text)});

        QVERIFY(HBWriteBytes(Path("deep.png"), PngThatSays("0000270f0000270f1006000000cefbd44f")));
        Save("deep.json", {Stamp("deep.png")});
        QImage mono(9000, 9000, QImage::Format_Mono);
        mono.fill(1);
        QVERIFY(mono.save(Path("one.png")) && mono.copy(0, 0, 8000, 9000).save(Path("other.png")));
        QVector<HBRecipeStep> alternating;
        for (int i = 0; i < 10; ++i) alternating << Stamp("one.png") << Stamp("other.png");
        Save("alternating.json", alternating);
        Save("kernel.json", {Stamp("/proc/version")});
        QVERIFY(QFile::link("/proc/version", Path("kernel.jpg")));

        QVERIFY(QImage(16, 16, QImage::Format_RGB32).save(Path("bomb.jpg")));
        QByteArray bomb = HBBytesOf(Path("bomb.jpg"));
        bomb.replace(bomb.indexOf("\xff\xc0") + 5, 4, QByteArray::fromHex("65144530")); // 25876 x 17712
        QVERIFY(HBWriteBytes(Path("bomb.jpg"), bomb));

        QImage noise(900, 900, QImage::Format_RGB32);
        auto* pixels = reinterpret_cast<quint32*>(noise.bits());
        QRandomGenerator(1).generate(pixels, pixels + 900 * 900);
        QVERIFY(noise.save(Path("noise.png")));
    }

    void Attacks_data() {
        HBColumns<QString, int, QString>("arguments", "code", "message");
        const QString levels = SAMPLE_RECIPES "/HBLevelsWidget.json ";
        QTest::newRow("100,000 font names") << "families.json photo.png" << 1 << "is not installed";
        QTest::newRow("deep stamp") << "deep.json photo.png" << 1 << "more than 400 MB of memory";
        QTest::newRow("deep stamp, less memory")
            << "deep.json photo.png --memory 512M" << 1 << "it needs about 1144 MB of memory, more than 512 MB";
        QTest::newRow("stamps in turn") << "alternating.json photo.png" << 0 << "";
        QTest::newRow("stamps in turn, less time")
            << "alternating.json photo.png --max-seconds-per-file 0.5" << 1 << "the recipe would take about";
        QTest::newRow("stamp of the kernel's") << "kernel.json photo.png" << 1 << "the file is empty";
        QTest::newRow("recipe of the kernel's") << "/proc/version photo.png" << 2 << "The file is empty";
        QTest::newRow("photo of the kernel's") << levels + "kernel.jpg" << 1 << "the file is empty";
        QTest::newRow("458 megapixels") << levels + "bomb.jpg" << 1 << "458 megapixels, in a file of";
        QTest::newRow("458 megapixels, allowed and read")
            << levels + "bomb.jpg --max-megapixels 500 --max-seconds-per-file 0.1" << 1 << "allow it";
    }
    void Attacks() {
        QFETCH(QString, arguments);
        QFETCH(int, code);
        QFETCH(QString, message);
        QElapsedTimer timer;
        timer.start();
        const Outcome outcome =
            Replay(QStringList{"apply", "-o", "out"} + arguments.split(' ', Qt::SkipEmptyParts));
        QVERIFY2(outcome.err.contains(message), qPrintable(outcome.err));
        QCOMPARE(outcome.code, code);
        QCOMPARE(Results("out").size(), code == 0 ? 1 : 0);
        QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
    }

    /// Only the file that is too large fails, and no limit on memory keeps the program from ending.
    void Limits() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        QSKIP("A sanitizer takes terabytes of addresses.");
#endif
        const QByteArray command =
            PANEL_REPLAY " apply " SAMPLE_RECIPES "/HBLevelsWidget.json noise.png photo.png";
        const Outcome small = Shell("ulimit -f 200; " + command + " -o small");
        QVERIFY2(small.err.contains("noise.png: " + qt_error_string(EFBIG)), qPrintable(small.err));
        QCOMPARE(small.code, 1);
        QCOMPARE(Results("small"), QStringList("photo.png"));
        for (const int kilobytes : {400000, 330000, 300000, 270000, 240000, 210000}) {
            const QByteArray limit = QByteArray::number(kilobytes);
            const Outcome tight = Shell("ulimit -v " + limit + "; " + command + " --format jpg -o out" + limit);
            QVERIFY2(tight.code == 0 || tight.code == 1 || tight.err.contains("shared libraries"),
                     qPrintable(limit + ' ' + QByteArray::number(tight.code) + tight.err));
            QVERIFY2(tight.code == 0 || tight.err.contains("memory"), qPrintable(tight.err));
        }
    }

    /// What a result depends on is also what its stamp's file holds.
    void ChangedStampIsAnotherJob() {
        QVERIFY(QFile::copy(Path("photo.png"), Path("stamp.png")));
        Save("sign.json", {Stamp("stamp.png")});
        const QStringList arguments{"apply", "sign.json", "photo.png", "noise.png",     "bomb.jpg",
                                    "-o",    "out",       "--resume",  "--on-conflict", "overwrite"};
        QVERIFY2(Replay(arguments).err.contains("2 written, 0 skipped, 1 failed"), "first");
        QVERIFY2(Replay(arguments).err.contains("0 written, 2 skipped, 1 failed"), "again");
        QVERIFY(QImage(9, 9, QImage::Format_RGB32).save(Path("stamp.png")));
        QVERIFY2(Replay(arguments).err.contains("2 written, 0 skipped, 1 failed"), "changed");
    }

private:
    void Save(const QString& name, const QVector<HBRecipeStep>& steps) const {
        QString error;
        QVERIFY2(HBRecipe{steps}.Save(Path(name), &error), qPrintable(error));
    }
};

HB_TEST_MAIN(tst_PanelReplayBounds)
#include "tst_PanelReplayBounds.moc"
