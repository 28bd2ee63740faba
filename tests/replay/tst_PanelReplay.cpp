// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayTest.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBBrightnessContrast.h>
#include <HBPhotoFile.h>

#include <QRandomGenerator>

#include <cerrno>
#include <cmath>
#include <csignal>

namespace {

constexpr char brightnessRecipe[] = SAMPLE_RECIPES "/HBBrightnessContrastWidget.json";

} // namespace

class tst_PanelReplay : public HBReplayTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { MakeFolder({"a.png", "b.png", "sub/a.png"}); }
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
        for (const char* word : {"Examples:", "\n  apply ", "\n  merge ", "Exit code"})
            QVERIFY2(help.out.contains(word), word);
        const Outcome apply = Replay({"apply", "--help"});
        QCOMPARE(apply.code, 0);
        QVERIFY(apply.out.startsWith("Examples:\n  panel-replay apply "));
        for (const char* word : {"apply RECIPE [FILE", "-o, --output DIR", "\n  --overwrite "})
            QVERIFY2(apply.out.contains(word), word);
        QVERIFY(!Replay({"diff", "--help"}).out.contains("--output"));
        const Outcome version = Replay({"--version"});
        QCOMPARE(version.code, 0);
        QVERIFY(QRegularExpression("^panel-replay \\d+\\.\\d+\\.\\d+\n$").match(version.out).hasMatch());
    }

    /// Colours and progress are for terminals, and colours for those who want them.
    void Terminal() {
        if (Shell("script -qec true /dev/null").code != 0) QSKIP("no terminal can be made here");
        const QByteArray run = "script -qec '" PANEL_REPLAY " apply none.json a.png -o out' /dev/null\n";
        const QString out = Shell("export TERM=xterm\n" + run + "NO_COLOR=1 " + run + "TERM=dumb " + run).out;
        QCOMPARE(out.count("none.json: There is no such file"), 3);
        QCOMPARE(out.count("\x1b[31m"), 1);
        const Outcome good = Shell("script -qec '" PANEL_REPLAY " apply " SAMPLE_RECIPES
                                   "/HBGammaCorrectionWidget.json a.png -o out' /dev/null");
        QVERIFY2(good.out.contains("[1/1] a.png"), qPrintable(good.out));
    }

    /// A report that is cut short must not look whole.
    void OutputThatCannotBeWritten() {
        const Outcome outcome = Shell(PANEL_REPLAY " apply " SAMPLE_RECIPES
                                                   "/HBGammaCorrectionWidget.json a.png -o out --json >/dev/full");
        QCOMPARE(outcome.code, 1);
        QVERIFY2(outcome.err.contains("standard output"), qPrintable(outcome.err));
    }

    void WrongUsage_data() {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("message");
        const char* const rows[][2] = {
            {"", "--help"},
            {"frobnicate", "--help"},
            {"list a", "--help"},
            {"apply RECIPE -o out", "--files-from"},
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
            {"apply newer.json a.png -o out", "version 3"},
            {"list -o out", "--help"},
            {"list --quality 9", "--help"},
            {"verify RECIPE a.png -o out --resume", "--help"},
            {"apply RECIPE a.png -o out --on-conflict maybe", "fail, skip"},
            {"apply RECIPE a.png -o out --on-conflict skip --overwrite", "contradict"},
            {"apply RECIPE a.png -o out --keep-going --fail-fast", "contradict"},
            {"apply RECIPE a.png -o out --name {nam}.png", "{nam}"},
            {"apply RECIPE a.png -o out --name x/{name}.png", "folders"},
            {"apply RECIPE a.png -o out --jobs 0", "--jobs"},
            {"apply RECIPE a.png -o out --quality 9.5", "whole"},
            {"apply RECIPE a.png -o out --memory 3X", "800M"},
            {"apply RECIPE a.png -o out --shard 4/3", "I/N"},
            {"apply RECIPE a.png -o out --shard 1/3 --on-conflict rename", "rename"},
            {"apply RECIPE a.png -o out --null", "--files-from"},
            {"apply RECIPE --files-from none.txt -o out", "none.txt"},
            {"apply RECIPE a.png -o out --base sub", "--base"},
            {"merge a.png", "not a report"},
            {"merge none.jsonl", "none.jsonl"},
            {"explain a.png", "not JSON"},
        };
        for (const auto& [arguments, message] : rows) QTest::newRow(arguments) << arguments << message;
    }
    void WrongUsage() {
        QFETCH(QString, arguments);
        QFETCH(QString, message);
        QVERIFY(HBWriteBytes(Path("newer.json"), HBBytesOf(brightnessRecipe).replace(": 1\n", ": 3\n")));
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
        HBRecipe recipe{{HBStepOf(*HBFindAdjustment("HBBrightnessContrastWidget"), params)}};
        QVERIFY(recipe.Save(Path("own.json"), &error));
        const Outcome outcome = Replay({"apply", "own.json", "a.png", "-o", "out"});
        QCOMPARE(outcome.code, 0);
        QCOMPARE(outcome.err, QString());
        const HBImage<> expected = HBAdjust(params, {HBTestRamp(150, 140)}).image;
        HBPhoto written;
        QVERIFY2(HBReadPhoto(Path("out/a.png"), &written, &error), qPrintable(error));
        QCOMPARE(written.image.ToQImage(), expected.ToQImage());

        recipe.steps.append(recipe.steps.first());
        HBShape shape = HBShape::OfPixels(HBShape::Kind::Ellipse, {20, 30, 70, 60}, 5, {150, 140});
        recipe.steps[0].selection.shapes = {shape};
        recipe.steps[0].amount = 40;
        recipe.steps[1].on = false;
        QVERIFY(recipe.Save(Path("part.json"), &error));
        QCOMPARE(Replay({"apply", "part.json", "a.png", "-o", "part"}).code, 0);
        QVERIFY2(HBReadPhoto(Path("part/a.png"), &written, &error), qPrintable(error));
        QCOMPARE(written.image.ToQImage(), HBApplyRecipe(HBTestRamp(150, 140), recipe, &error).ToQImage());
        QCOMPARE(written.image.PixelAt(0, 0).ToRgba(), HBTestRamp(150, 140).PixelAt(0, 0).ToRgba());

        const Outcome words = Replay({"explain", "part.json"});
        for (const char* line :
             {"\n   amount: 40 %\n",
              "\n   selection: ellipse from 13.33 %, 21.43 % to 60 %, 64.29 %, feather 3.571 % of "
              "the shorter side\n",
              "\n   switched off\n"})
            QVERIFY2(words.out.contains(line), qPrintable(words.out));
        QCOMPARE(Replay({"explain", "part.json", "--json"}).Json().first()["amount"].toInt(), 40);
        const Outcome diff = Replay({"diff", "own.json", "part.json"});
        QVERIFY2(diff.out.startsWith(" 1. Brightness") && diff.out.contains("\n+   amount: 40 %\n"),
                 qPrintable(diff.out));
    }

    void BadFilesDoNotStopTheRest() {
        QVERIFY(HBWriteBytes(Path("cut.png"), HBBytesOf(Path("a.png")).left(500)));
        QVERIFY(HBWriteBytes(Path("kind.xyz"), HBBytesOf(Path("a.png"))));
        const Outcome outcome =
            Replay({"apply", brightnessRecipe, "cut.png", "a.png", "none.png", "kind.xyz", "b.png", "-o", "out"});
        QCOMPARE(outcome.code, 1);
        for (const char* message : {"panel-replay: cut.png: the file is cut short", "panel-replay: none.png: ",
                                    "panel-replay: kind.xyz: ", "2 written, 0 skipped, 3 failed"})
            QVERIFY2(outcome.err.contains(message), qPrintable(outcome.err));
        QCOMPARE(Results("out"), QStringList({"a.png", "b.png"}));
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
            QCOMPARE(photo.encoding.format, QByteArray("jpeg"));
        }
    }

    /// Bytes that are no UTF-8, in names and folders, come out as they went in. Two such names are two. What a
    /// terminal would obey is not printed.
    void NamesOfAnyBytes() {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        // Qt 6 cannot open them. Each is told; the others go on.
        const Outcome refused = Shell(
            "mkdir -p 'd/\xfc' && ln a.png d/ok.png && ln a.png 'd/\xff.png' || exit 9\n" PANEL_REPLAY
            " apply " SAMPLE_RECIPES "/HBGammaCorrectionWidget.json -o out --recursive d; code=$?\n" PANEL_REPLAY
            " apply " SAMPLE_RECIPES "/HBGammaCorrectionWidget.json -o 'o\xfc' a.png; test $? = 2 || exit 8\n"
            "rm -r d; exit $code");
        QCOMPARE(refused.code, 1);
        for (const char* line : {"d/\\xff.png: its name is not UTF-8", "d/\\xfc/: its name is not UTF-8",
                                 "o\\xfc is not UTF-8, which Qt 6 needs"})
            QVERIFY2(refused.err.contains(line), qPrintable(refused.err));
        QCOMPARE(Results("out"), QStringList("ok.png"));
#else
        const Outcome outcome =
            Shell("set -- '\xff.png' '\xe4\xc3\xa4\xfe.png' '\xed\xa0\x80.png' '\xf0\x9f\x98\x80\xf0.png' "
                  "'\x1b[31m\nred\xe2\x80\xae.png'\n"
                  "for name; do ln a.png \"$name\" || exit 9; done\n" PANEL_REPLAY " apply " SAMPLE_RECIPES
                  "/HBGammaCorrectionWidget.json -o 'o\xfc' \"$@\" || exit\n"
                  "for name; do test -s 'o\xfc'/\"$name\" || exit 8; done\n" PANEL_REPLAY " apply " SAMPLE_RECIPES
                  "/HBGammaCorrectionWidget.json -o 'o\xfc' \"$@\" --json && exit 7\n"
                  "rm -r 'o\xfc' \"$@\"");
        QVERIFY2(outcome.code == 0, qPrintable(outcome.err));
        for (const char* name : {"\\xff.png", "\\xe4ä\\xfe.png", "\\xed\\xa0\\x80.png",
                                 "\xf0\x9f\x98\x80\\xf0.png", "\\x1b[31m\\nred\\u202e.png"})
            QVERIFY2(outcome.err.contains(QString("panel-replay: %1: o\\xfc/%1 is there").arg(name)),
                     qPrintable(outcome.err));
        // As Python's os.fsencode() wants it.
        QVERIFY2(outcome.out.contains("\"output\":\"o\\udcfc/\\udce4ä\\udcfe.png\""), qPrintable(outcome.out));
#endif
    }

    /// A file over the limit on sizes fails by itself.
    void SizeLimit() {
        QVERIFY(QImage(2, 2, QImage::Format_RGB32).save(Path("small.png")));
        const Outcome outcome = Shell("ulimit -f 1; " PANEL_REPLAY " apply " SAMPLE_RECIPES
                                      "/HBGammaCorrectionWidget.json a.png small.png -o out --format tif");
        QCOMPARE(outcome.code, 1);
        QVERIFY2(outcome.err.contains("a.tif: " + qt_error_string(EFBIG)), qPrintable(outcome.err));
        QCOMPARE(Results("out"), QStringList("small.tif"));
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
        QStringList arguments = {"apply", brightnessRecipe, "-o", "out", "--json"};
        QVERIFY(HBTestRamp(1200, 1200).ToQImage().save(Path("large.png")));
        for (int i = 0; i < 60; ++i) {
            arguments.append(QString("%1.png").arg(i));
            QVERIFY(QFile::link(Path("large.png"), Path(arguments.last())));
        }
        QProcess process;
        process.setWorkingDirectory(m_pFolder->path());
        process.start(PANEL_REPLAY, arguments);
        QVERIFY(process.waitForReadyRead()); // the first photo's line
        ::kill(pid_t(process.processId()), SIGINT);
        QVERIFY(process.waitForFinished());
        const QByteArray err = process.readAllStandardError();
        QCOMPARE(process.exitCode(), 130);
        QVERIFY(process.readAllStandardOutput().contains("\"interrupted\":true"));
        const QStringList files = Results("out");
        QVERIFY(!files.isEmpty() && files.size() < 60);
        QVERIFY2(err.contains(QString("interrupted; %1 written, 0 skipped, 0 failed, %2 not tried")
                                  .arg(files.size())
                                  .arg(60 - files.size())
                                  .toUtf8()),
                 err.constData());
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
        while (!err.contains("none.png") && process.waitForReadyRead()) err += process.readAllStandardError();
        QTest::qWait(500); // the second photo would take many seconds
        QCOMPARE(process.state(), QProcess::Running);
        QElapsedTimer timer;
        timer.start();
        ::kill(pid_t(process.processId()), SIGTERM);
        QVERIFY(process.waitForFinished());
        QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed()))); // alone: 0.1 s
        err += process.readAllStandardError();
        QCOMPARE(process.exitCode(), 130);
        QVERIFY2(err.contains("interrupted; 0 written, 0 skipped, 1 failed, 1 not tried"), err.constData());
        QCOMPARE(Results("out"), QStringList());
    }
};

HB_TEST_MAIN(tst_PanelReplay)
#include "tst_PanelReplay.moc"
