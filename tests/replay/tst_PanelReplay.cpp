// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "../photo/HBTestFiles.h"
#include "HBTestImages.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBBrightnessContrast.h>
#include <HBPhotoFile.h>

#include <QProcess>
#include <QRandomGenerator>

#include <cerrno>
#include <cmath>
#include <csignal>
#include <memory>

namespace {

constexpr char brightnessRecipe[] = SAMPLE_RECIPES "/HBBrightnessContrastWidget.json";

struct Outcome {
    int code = -1;
    QString out;
    QString err;
};

} // namespace

class tst_PanelReplay : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_pFolder = std::make_unique<HBTestFolder>();
        QVERIFY(QDir(m_pFolder->path()).mkdir("sub"));
        for (const char* name : {"a.png", "b.png", "sub/a.png"})
            QVERIFY(HBTestRamp(150, 140).ToQImage().save(Path(name)));
    }
    void cleanup() { m_pFolder.reset(); }

    void Lists() {
        const Outcome outcome = Replay({"list"});
        QCOMPARE(outcome.code, 0);
        QCOMPARE(outcome.err, QString());
        const QStringList lines = outcome.out.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), HBAdjustments().size());
        QCOMPARE(
            lines[0],
            QString("HBBrightnessContrastWidget\tKMBrightnessContrast 1.00000\tTonal\tBrightness and Contrast"));
    }

    void HelpAndVersion() {
        const Outcome help = Replay({"--help"});
        QCOMPARE(help.code, 0);
        for (const char* word : {"apply RECIPE FILE", "--quality", "--overwrite", "Exit code"})
            QVERIFY2(help.out.contains(word), word);
        const Outcome version = Replay({"--version"});
        QCOMPARE(version.code, 0);
        QVERIFY(QRegularExpression("^panel-replay \\d+\\.\\d+\\.\\d+\n$").match(version.out).hasMatch());
    }

    void WrongUsage_data() {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("message");
        const char* const rows[][2] = {
            {"", "--help"},
            {"frobnicate", "--help"},
            {"list a", "--help"},
            {"apply RECIPE -o out", "--help"},
            {"sheet a.png b.png -o out", "--help"},
            {"apply RECIPE a.png -o out --frob", "frob"},
            {"apply RECIPE a.png", "-o DIR"},
            {"apply RECIPE a.png -o b.png/x", "b.png/x"},
            {"apply RECIPE a.png -o out --quality best", "0 to 100"},
            {"apply RECIPE a.png -o out --quality 101", "0 to 100"},
            {"apply RECIPE a.png -o out --format xyz", "\"xyz\""},
            {"apply none.json a.png -o out", "none.json: "},
            {"apply a.png a.png -o out", "a.png: This is not JSON"},
            // Others of the kernel's files, which say that they are empty, too, never end.
            {"apply /proc/self/status a.png -o out", "status: The file is empty"},
            {"apply newer.json a.png -o out", "version 2"},
            {"list -o out", "--help"},
            {"list --quality 9", "--help"},
        };
        for (const auto& [arguments, message] : rows) QTest::newRow(arguments) << arguments << message;
    }
    void WrongUsage() {
        QFETCH(QString, arguments);
        QFETCH(QString, message);
        QVERIFY(HBWriteBytes(Path("newer.json"), HBBytesOf(brightnessRecipe).replace(": 1\n", ": 2\n")));
        arguments.replace("RECIPE", brightnessRecipe);
        const Outcome outcome = Replay(arguments.split(' ', Qt::SkipEmptyParts));
        QCOMPARE(outcome.code, 2);
        QVERIFY2(outcome.err.startsWith("panel-replay: ") && outcome.err.contains(message),
                 qPrintable(outcome.err));
        QCOMPARE(outcome.out, QString());
        QVERIFY(!QFile::exists(Path("out/a.png")));
    }

    void WritesWhatTheRecipeSays() {
        const HBBrightnessContrastParams params{30, 40};
        QString error;
        QVERIFY(HBRecipe{{HBStepOf(*HBFindAdjustment("HBBrightnessContrastWidget"), params)}}.Save(
            Path("own.json"), &error));
        const Outcome outcome = Replay({"apply", "own.json", "a.png", "-o", "out"});
        QCOMPARE(outcome.code, 0);
        QCOMPARE(outcome.err, QString("[1/1] a.png\n"));
        const HBImage<> expected = HBAdjust(params, {HBTestRamp(150, 140)}).image;
        HBPhoto written;
        QVERIFY2(HBReadPhoto(Path("out/a.png"), &written, &error), qPrintable(error));
        QCOMPARE(written.image.ToQImage(), expected.ToQImage());
    }

    void BadFilesDoNotStopTheRest() {
        QVERIFY(HBWriteBytes(Path("cut.png"), HBBytesOf(Path("a.png")).left(500)));
        QVERIFY(HBWriteBytes(Path("kind.xyz"), HBBytesOf(Path("a.png"))));
        const Outcome outcome =
            Replay({"apply", brightnessRecipe, "cut.png", "a.png", "none.png", "kind.xyz", "b.png", "-o", "out"});
        QCOMPARE(outcome.code, 1);
        for (const char* message : {"panel-replay: cut.png: the file is cut short",
                                    "panel-replay: none.png: ", "panel-replay: kind.xyz: ", "[5/5] "})
            QVERIFY2(outcome.err.contains(message), qPrintable(outcome.err));
        QCOMPARE(m_pFolder->Files("out"), QStringList({"a.png", "b.png"}));
    }

    void NothingIsOverwrittenUnasked() {
        const QByteArray original = HBBytesOf(Path("a.png"));
        const Outcome own = Replay({"apply", brightnessRecipe, "a.png", "-o", "."});
        QCOMPARE(own.code, 1);
        QVERIFY2(own.err.contains("--overwrite"), qPrintable(own.err));
        QCOMPARE(HBBytesOf(Path("a.png")), original);

        // Two of the same name: the second is refused, also when files may be replaced.
        const Outcome two = Replay({"apply", brightnessRecipe, "a.png", "sub/a.png", "-o", "out", "--overwrite"});
        QCOMPARE(two.code, 1);
        QVERIFY2(two.err.contains("sub/a.png: out/a.png is written from a.png already"), qPrintable(two.err));

        const Outcome asked = Replay({"apply", brightnessRecipe, "a.png", "-o", ".", "--overwrite"});
        QCOMPARE(asked.code, 0);
        QCOMPARE(HBBytesOf(Path("a.png")), HBBytesOf(Path("out/a.png")));
        QVERIFY(HBBytesOf(Path("a.png")) != original);
    }

    void FormatAndNames() {
        const QStringList names = {"ä b.png", "-title.png", "no.suffix.but.dots.png", "plain"};
        for (const QString& name : names) QVERIFY(QFile::copy(Path("a.png"), Path(name)));
        const Outcome outcome = Replay(
            QStringList{"apply", "-o", "out", "--format", "JPG", "--quality", "50", "--", brightnessRecipe} +
            names);
        QVERIFY2(outcome.code == 0, qPrintable(outcome.err));
        for (const char* name : {"ä b.jpg", "-title.jpg", "no.suffix.but.dots.jpg", "plain.jpg"}) {
            HBPhoto photo;
            QString error;
            QVERIFY2(HBReadPhoto(Path("out/" + QString(name)), &photo, &error), qPrintable(error));
            QCOMPARE(photo.format, QByteArray("jpeg"));
        }
    }

    /// Bytes that are no UTF-8, in names and folders, come out as they went in. Two such names are two. What a
    /// terminal would obey is not printed.
    void NamesOfAnyBytes() {
        const Outcome outcome =
            Shell("set -- '\xff.png' '\xe4\xc3\xa4\xfe.png' '\xed\xa0\x80.png' '\xf0\x9f\x98\x80\xf0.png' "
                  "'\x1b[31m\nred\xe2\x80\xae.png'\n"
                  "for name; do ln a.png \"$name\" || exit 9; done\n" PANEL_REPLAY " apply " SAMPLE_RECIPES
                  "/HBGammaCorrectionWidget.json -o 'o\xfc' \"$@\" || exit\n"
                  "for name; do test -s 'o\xfc'/\"$name\" || exit 8; done\n"
                  "rm -r 'o\xfc' \"$@\"");
        QVERIFY2(outcome.code == 0, qPrintable(outcome.err));
        for (const char* line : {"[1/5] \\xff.png\n", "[2/5] \\xe4ä\\xfe.png\n", "[3/5] \\xed\\xa0\\x80.png\n",
                                 "[4/5] \xf0\x9f\x98\x80\\xf0.png\n", "[5/5] \\x1b[31m\\nred\\u202e.png\n"})
            QVERIFY2(outcome.err.contains(line), qPrintable(outcome.err));
    }

    /// A file over the limit on sizes fails by itself.
    void SizeLimit() {
        QVERIFY(QImage(2, 2, QImage::Format_RGB32).save(Path("small.png")));
        const Outcome outcome = Shell("ulimit -f 1; " PANEL_REPLAY " apply " SAMPLE_RECIPES
                                      "/HBGammaCorrectionWidget.json a.png small.png -o out --format tif");
        QCOMPARE(outcome.code, 1);
        QVERIFY2(outcome.err.contains("a.tif: " + qt_error_string(EFBIG)), qPrintable(outcome.err));
        QCOMPARE(m_pFolder->Files("out"), QStringList("small.tif"));
    }

    void EveryPanelHasItsDemonstration() {
        const Outcome outcome = Replay({"sheet", "a.png", "-o", "out", "--format", "png"});
        QVERIFY2(outcome.code == 0, qPrintable(outcome.err)); // names the missing samples/recipes/<panel>.json
        const QImage original(Path("a.png"));
        for (const HBAdjustment& panel : HBAdjustments()) {
            const QImage shown(Path(QString("out/a-%1.png").arg(panel.className)));
            QCOMPARE(shown.size(), original.size());
            QVERIFY2(shown != original, panel.className);
        }
        QVERIFY(QImage(Path("out/a-contact-sheet.png")).width() > 320);
        QCOMPARE(outcome.out.split('\n', Qt::SkipEmptyParts).size(), HBAdjustments().size() + 1);
    }

    /// Whole files or none, and an end that comes soon.
    void Interrupted() {
        QStringList arguments = {"apply", brightnessRecipe, "-o", "out"};
        QVERIFY(HBTestRamp(1200, 1200).ToQImage().save(Path("large.png")));
        for (int i = 0; i < 60; ++i) {
            arguments.append(QString("%1.png").arg(i));
            QVERIFY(QFile::link(Path("large.png"), Path(arguments.last())));
        }
        QProcess process;
        process.setWorkingDirectory(m_pFolder->path());
        process.setReadChannel(QProcess::StandardError);
        process.start(PANEL_REPLAY, arguments);
        QByteArray err;
        while (!err.contains("[1/60]") && process.waitForReadyRead()) err += process.readAllStandardError();
        QVERIFY2(err.contains("[1/60]"), err.constData());
        ::kill(pid_t(process.processId()), SIGINT);
        QVERIFY(process.waitForFinished());
        err += process.readAllStandardError();
        QCOMPARE(process.exitCode(), 1);
        QVERIFY2(err.contains("panel-replay: interrupted; "), err.constData());
        const QStringList files = m_pFolder->Files("out");
        QVERIFY(!files.isEmpty() && files.size() < 60);
        QVERIFY2(err.contains(QString("%1 of 60").arg(files.size()).toUtf8()), err.constData());
        for (const QString& file : files) {
            QString error;
            HBPhoto photo;
            QVERIFY2(HBReadPhoto(Path("out/" + file), &photo, &error), qPrintable(error));
        }
    }

    void InterruptedAtWork_data() {
        HBColumns<QString, QString>("recipe", "format");
        QTest::newRow("adjusting") << "long.json"
                                   << "png";
        QTest::newRow("encoding") << SAMPLE_RECIPES "/HBGammaCorrectionWidget.json"
                                  << "webp"; // lossless: slow
    }
    /// Also in the midst of a photo.
    void InterruptedAtWork() {
        QFETCH(QString, recipe);
        QFETCH(QString, format);
        // Not of tables, which would become one.
        const HBAdjustment& hue = *HBFindAdjustment("HBHueSaturationWidget");
        QString error;
        QVERIFY(HBRecipe{QVector<HBRecipeStep>(1000, HBStepOf(hue, HBDemonstration(hue)))}.Save(Path("long.json"),
                                                                                                &error));
        QImage large(2000, 2000, QImage::Format_RGB32);
        QRandomGenerator(1).generate(reinterpret_cast<quint32*>(large.bits()),
                                     reinterpret_cast<quint32*>(large.bits()) + 4000000);
        QVERIFY(large.save(Path("large.png")));
        QProcess process;
        process.setWorkingDirectory(m_pFolder->path());
        process.setReadChannel(QProcess::StandardError);
        process.start(PANEL_REPLAY, {"apply", recipe, "none.png", "large.png", "-o", "out", "--format", format,
                                     "--quality", "100"});
        QByteArray err;
        while (!err.contains("[1/2]") && process.waitForReadyRead()) err += process.readAllStandardError();
        QTest::qWait(500); // the second photo would take many seconds
        QCOMPARE(process.state(), QProcess::Running);
        QElapsedTimer timer;
        timer.start();
        ::kill(pid_t(process.processId()), SIGTERM);
        QVERIFY(process.waitForFinished());
        QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed()))); // alone: 0.1 s
        err += process.readAllStandardError();
        QCOMPARE(process.exitCode(), 1);
        QVERIFY2(err.contains("interrupted; 0 of 2"), err.constData());
        QCOMPARE(m_pFolder->Files("out"), QStringList());
    }

private:
    Outcome Replay(const QStringList& arguments) const { return Run(PANEL_REPLAY, arguments); }
    Outcome Shell(const QByteArray& script) const {
        return HBWriteBytes(Path("script"), script) ? Run("sh", {"script"}) : Outcome();
    }

    /// Without a display or a locale, as under cron.
    Outcome Run(const QString& program, const QStringList& arguments) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name :
             {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR", "LANG", "LANGUAGE", "LC_ALL"})
            environment.remove(name);
        // A sanitizer's list of what it left out is no message of the program's.
        environment.insert("LSAN_OPTIONS", environment.value("LSAN_OPTIONS") + ":print_suppressions=0");
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_pFolder->path());
        process.start(program, arguments);
        process.waitForFinished();
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    QString Path(const QString& name) const { return m_pFolder->filePath(name); }

    std::unique_ptr<HBTestFolder> m_pFolder;
};

HB_TEST_MAIN(tst_PanelReplay)
#include "tst_PanelReplay.moc"
