// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayTest.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBAdjustment.h>
#include <HBRecipe.h>

#include <QRandomGenerator>
#include <QSet>

namespace {

constexpr char recipe[] = SAMPLE_RECIPES "/HBLevelsWidget.json";
const QStringList photos = {"photos/a.png", "photos/b.JPG", "photos/sub/a.png", "photos/sub/deep/c.png"};

QStringList Split(const QString& line) { return line.split(' ', Qt::SkipEmptyParts); }

} // namespace

/// Many photos, many runs, many machines.
class tst_PanelReplayBatch : public HBReplayTest {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        MakeFolder(photos + QStringList{"photos/.hidden.png"});
        QVERIFY(HBWriteBytes(Path("photos/notes.txt"), "no photo"));
        QVERIFY(HBWriteBytes(Path("list.txt"), "photos/sub/a.png\nphotos/a.png\n"));
        QVERIFY(HBWriteBytes(Path("windows.txt"), "\xef\xbb\xbfphotos/sub/a.png\r\nphotos/a.png\r\n\r\n"));
        QVERIFY(HBWriteBytes(Path("list.nul"), QByteArray("photos/a.png\0list.txt\0", 22)));
        QVERIFY(QFile::link(Path("photos"), Path("photos/sub/round"))); // must not be followed
    }
    void cleanup() { m_pFolder.reset(); }

    void Inputs_data() {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("outputs");
        const char* const rows[][2] = {
            {"photos", "a.png b.JPG"},
            {"photos -r", "a.png b.JPG sub/a.png sub/deep/c.png"},
            {"photos/a.png photos/sub", "a.png - "},                // two of one name
            {"photos/b.JPG photos ./photos//a.png", "b.JPG a.png"}, // each once
            {"photos/a.png photos/sub --base photos", "a.png sub/a.png"},
            {"photos/a.png photos/sub --on-conflict rename", "a.png a-1.png"},
            {"--files-from list.txt", "photos/sub/a.png photos/a.png"},
            {"--files-from windows.txt", "photos/sub/a.png photos/a.png"},
            {"--files-from list.txt --base photos", "sub/a.png a.png"},
            {"--files-from list.nul -0 --include *.png", "photos/a.png"},
            {"photos -r --include *.jpg", "b.JPG"},
            {"photos -r --exclude sub/* --format webp", "a.webp b.webp"},
            {"photos -r --include c.* --include b.* --name {name}-{recipe}.{ext}",
             "b-HBLevelsWidget.JPG sub/deep/c-HBLevelsWidget.png"},
            {"photos --name same.png", "same.png -"},
        };
        for (const auto& [arguments, outputs] : rows) QTest::newRow(arguments) << arguments << outputs;
    }
    void Inputs() {
        QFETCH(QString, arguments);
        QFETCH(QString, outputs);
        const Outcome outcome = Replay(QStringList{"apply", recipe, "-o", "out", "--dry-run"} + Split(arguments));
        QStringList planned;
        for (const QString& line : outcome.out.split('\n', Qt::SkipEmptyParts))
            planned.append(line.section('\t', 1).mid(4));
        const bool collides = outputs.contains('-') && outputs.trimmed().endsWith('-');
        QCOMPARE(planned, Split(collides ? outputs.section('-', 0, 0) : outputs));
        QCOMPARE(outcome.code, collides ? 1 : 0);
        QVERIFY(!QFile::exists(Path("out")));
    }

    void NothingMatches() {
        QCOMPARE(Replay({"apply", recipe, "photos", "--include", "*.gif", "-o", "out"}).code, 3);
        QVERIFY(!QFile::exists(Path("out")));
    }

    /// What lies in the results' folder is no photo of the folder around it.
    void ResultsWithinThePhotos() {
        for (int i = 0; i < 2; ++i) {
            const Outcome outcome = Replay({"apply", recipe, "photos", "-r", "-o", "photos/out", "--overwrite"});
            QVERIFY2(outcome.code == 0, qPrintable(outcome.err));
        }
        QCOMPARE(Results("photos/out"), QStringList({"a.png", "b.JPG", "sub"}));
    }

    void Conflicts_data() {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<bool>("replaces");
        QTest::addColumn<QStringList>("files");
        QTest::newRow("fail") << "photos" << 1 << false << QStringList{"a.png", "b.JPG"};
        QTest::newRow("fail fast") << "photos --fail-fast" << 1 << false << QStringList{"a.png"};
        QTest::newRow("skip") << "photos --on-conflict skip" << 0 << false << QStringList{"a.png", "b.JPG"};
        QTest::newRow("overwrite") << "photos --on-conflict overwrite" << 0 << true
                                   << QStringList{"a.png", "b.JPG"};
        QTest::newRow("rename") << "photos --on-conflict rename" << 0 << false
                                << QStringList{"a-1.png", "a.png", "b.JPG"};
        // The result would be of a photo that is adjusted already, or not, as it happens.
        QTest::newRow("another photo") << "photos out/a.png --base . -o . --overwrite --name {name}.png" << 0
                                       << true << QStringList{"a.png"};
        QTest::newRow("over an input") << "photos/a.png out/a.png --overwrite" << 1 << false
                                       << QStringList{"a.png"};
    }
    void Conflicts() {
        QFETCH(QString, arguments);
        QDir(m_pFolder->path()).mkdir("out");
        QVERIFY(QFile::copy(Path("photos/a.png"), Path("out/a.png")));
        const QByteArray before = HBBytesOf(Path("out/a.png"));
        const QStringList folder = arguments.contains("-o ") ? QStringList() : QStringList{"-o", "out"};
        const Outcome outcome = Replay(QStringList{"apply", recipe} + folder + Split(arguments));
        QTEST(outcome.code, "code");
        QTEST(HBBytesOf(Path("out/a.png")) != before, "replaces");
        QTEST(Results("out"), "files");
    }

    void Report() {
        QVERIFY(HBWriteBytes(Path("photos/bad.png"), "no picture"));
        const Outcome outcome = Replay({"apply", recipe, "photos", "-r", "-o", "out", "--json"});
        QCOMPARE(outcome.code, 1);
        const QVector<QJsonObject> lines = outcome.Json();
        QCOMPARE(lines.size(), 6);
        QCOMPARE(lines[0]["output"].toString(), QString("out/a.png"));
        QCOMPARE(lines[0]["width"].toInt(), 150);
        QCOMPARE(lines[0]["steps"].toInt(), 1);
        QCOMPARE(lines[0]["result"].toString().toLatin1(),
                 QCryptographicHash::hash(HBBytesOf(Path("out/a.png")), QCryptographicHash::Sha256).toHex());
        QCOMPARE(lines[0]["seconds"].toObject().keys(), QStringList({"adjust", "read", "write"}));
        QCOMPARE(lines[2]["status"].toString(), QString("failed"));
        QVERIFY(lines[2]["error"].toString().startsWith("photos/bad.png: "));
        QCOMPARE(lines[5]["type"].toString(), QString("summary"));
        QCOMPARE(lines[5]["done"].toInt(), 4);
        QCOMPARE(lines[5]["failed"].toInt(), 1);
    }

    void Verifies() {
        const QStringList rest = {recipe, "photos", "-r", "-o", "out"};
        QCOMPARE(Replay(QStringList{"apply"} + rest).code, 0);
        QCOMPARE(Replay(QStringList{"verify"} + rest).code, 0);
        QVERIFY(QFile::remove(Path("out/sub/a.png")));
        QVERIFY(HBWriteBytes(Path("out/a.png"), HBBytesOf(Path("photos/a.png"))));
        const Outcome outcome = Replay(QStringList{"verify"} + rest);
        QCOMPARE(outcome.code, 1);
        for (const char* message :
             {"photos/a.png: out/a.png is not what", "out/sub/a.png is not there", "2 are the same"})
            QVERIFY2(outcome.err.contains(message), qPrintable(outcome.err));
        QVERIFY(!QFile::exists(Path("out/sub/a.png")));
    }

    /// Every photo in one share, and the merged report tells whose is missing.
    void Shards() {
        QSet<QString> seen;
        for (const char* shard : {"1/3", "2/3", "3/3"}) {
            const Outcome outcome =
                Replay({"apply", recipe, "photos", "-r", "-o", "out", "--json", "--shard", shard});
            QCOMPARE(outcome.code, 0);
            QVERIFY(HBWriteBytes(Path(QString(shard).left(1) + ".jsonl"), outcome.out.toUtf8()));
            for (const QJsonObject& line : outcome.Json()) {
                if (line["type"] == "file") {
                    QVERIFY(!seen.contains(line["name"].toString()));
                    seen.insert(line["name"].toString());
                }
            }
        }
        QCOMPARE(seen.size(), 4);
        QCOMPARE(Replay({"verify", recipe, "photos", "-r", "-o", "out"}).code, 0);

        QVERIFY(HBWriteBytes(Path("all.txt"), photos.join('\n').toUtf8()));
        const Outcome whole = Replay({"merge", "1.jsonl", "2.jsonl", "3.jsonl", "--files-from", "all.txt"});
        QVERIFY2(whole.code == 0 && whole.err.isEmpty(), qPrintable(whole.err));
        QCOMPARE(whole.Json().last()["done"].toInt(), 4);

        // One worker twice, one killed before its last line was whole, one line of two meanings, one file that
        // nobody knows.
        const QByteArray first = HBBytesOf(Path("1.jsonl"));
        const QByteArray ambiguous =
            R"({"type":"file","input":"photos/two.png","status":"failed","status":"done"})"
            "\n";
        QVERIFY(HBWriteBytes(Path("2.jsonl"), first));
        QVERIFY(HBWriteBytes(Path("3.jsonl"), ambiguous + HBBytesOf(Path("3.jsonl")).chopped(20)));
        QVERIFY(HBWriteBytes(Path("all.txt"), photos.join('\n').toUtf8() + "\nphotos/never.png\n"));
        const Outcome torn = Replay({"merge", "1.jsonl", "2.jsonl", "3.jsonl", "--files-from", "all.txt"});
        QCOMPARE(torn.code, 1);
        for (const char* message : {"photos/never.png: missing", "3.jsonl: its run", "share 2/3", "share 3/3"})
            QVERIFY2(torn.err.contains(message), qPrintable(torn.err));
        QVERIFY2(!torn.out.contains("two.png"), qPrintable(torn.out));
        QCOMPARE(torn.Json().last()["twice"].toArray().size(), int(first.count("\"done\",")));
    }

    /// A plan is no work.
    void MergesDryRun() {
        const Outcome plan = Replay({"apply", recipe, "photos", "-o", "out", "--json", "--dry-run"});
        QCOMPARE(plan.Json().last()["planned"].toInt(), 2);
        QCOMPARE(plan.Json().last()["done"].toInt(), 0);
        QVERIFY(HBWriteBytes(Path("plan.jsonl"), plan.out.toUtf8()));
        const Outcome done = Replay({"apply", recipe, "photos/a.png", "--base", "photos", "-o", "out", "--json"});
        QVERIFY(HBWriteBytes(Path("done.jsonl"), done.out.toUtf8()));
        for (const QStringList& reports :
             {QStringList{"plan.jsonl", "done.jsonl"}, {"done.jsonl", "plan.jsonl"}}) {
            const Outcome outcome = Replay(QStringList{"merge"} + reports);
            QCOMPARE(outcome.code, 1);
            QCOMPARE(outcome.err, QString("panel-replay: plan.jsonl: this is the report of a dry run, which does "
                                          "nothing\npanel-replay: photos/b.JPG: missing: no report but a dry "
                                          "run's names it\n"));
            QCOMPARE(outcome.Json().last()["done"].toInt(), 1);
            QCOMPARE(outcome.Json().last()["missing"].toArray(), QJsonArray{"photos/b.JPG"});
        }
    }

    void JobArrays_data() {
        QTest::addColumn<QString>("environment");
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("shard"); // or the error
        const char* const rows[][3] = {
            {"SLURM_ARRAY_TASK_ID=5 SLURM_ARRAY_TASK_MIN=1 SLURM_ARRAY_TASK_MAX=8 SLURM_ARRAY_TASK_STEP=1 "
             "SLURM_ARRAY_TASK_COUNT=8",
             "auto", "5/8"},
            {"SLURM_ARRAY_TASK_ID=4 SLURM_ARRAY_TASK_MIN=0 SLURM_ARRAY_TASK_MAX=6 SLURM_ARRAY_TASK_STEP=2 "
             "SLURM_ARRAY_TASK_COUNT=4",
             "auto", "3/4"},
            {"SLURM_ARRAY_TASK_ID=7 SLURM_ARRAY_TASK_MIN=3 SLURM_ARRAY_TASK_MAX=7 SLURM_ARRAY_TASK_COUNT=2",
             "auto", "even distance"},
            {"SGE_TASK_ID=3 SGE_TASK_FIRST=1 SGE_TASK_LAST=9 SGE_TASK_STEPSIZE=2", "auto", "2/5"},
            {"SGE_TASK_ID=undefined", "auto", "no task"},
            {"AWS_BATCH_JOB_ARRAY_INDEX=0 AWS_BATCH_JOB_ARRAY_SIZE=3", "auto", "1/3"},
            {"AWS_BATCH_JOB_ARRAY_INDEX=0 AWS_BATCH_JOB_ARRAY_SIZE=3", "auto/4", "not 4"},
            {"JOB_COMPLETION_INDEX=7", "auto/8", "8/8"},
            {"JOB_COMPLETION_INDEX=7", "auto", "auto/N"},
            {"PBS_ARRAY_INDEX=8", "auto/8",
             "1/8"}, // whether they count from 0 or from 1, each share is there once
            {"PBS_ARRAYID=1", "auto/8", "2/8"},
            {"PBS_ARRAY_INDEX=10", "auto/8", "without gaps"}, // as of -J 0-14:2
            {"JOB_COMPLETION_INDEX=8", "auto/8", "without gaps"},
            {"", "auto", "no task"},
        };
        for (const auto& [environment, option, shard] : rows)
            QTest::newRow(qPrintable(QString(environment) + ' ' + option)) << environment << option << shard;
    }
    void JobArrays() {
        QFETCH(QString, environment);
        QFETCH(QString, option);
        QFETCH(QString, shard);
        QProcessEnvironment variables;
        for (const QString& pair : Split(environment))
            variables.insert(pair.section('=', 0, 0), pair.section('=', 1));
        const Outcome outcome =
            Replay({"apply", recipe, "photos", "-o", "out", "-n", "--json", "--shard", option}, variables);
        if (outcome.code == 0)
            QCOMPARE(outcome.Json().last()["shard"].toString(), shard);
        else
            QVERIFY2(outcome.code == 2 && outcome.err.contains(shard), qPrintable(outcome.err));
    }

    void Resumed_data() {
        QTest::addColumn<bool>("inPlace");
        QTest::newRow("beside") << false;
        QTest::newRow("in place") << true;
    }
    /// What --resume takes for done. Runs that are killed at any moment: killed.sh.
    void Resumed() {
        QFETCH(bool, inPlace);
        const QString out = inPlace ? "photos" : "out";
        const QStringList arguments = {"apply", recipe, "photos", "-o", out, "--overwrite", "--json", "--resume"};
        QCOMPARE(Replay(arguments).code, 0);
        // What a run that was killed leaves of a file goes; what only looks like it stays.
        const QByteArray result = HBBytesOf(Path(out + "/a.png"));
        const QString leftover = Path(out + "/a.png.aBcDeF");
        QVERIFY(HBWriteBytes(leftover, inPlace ? result : result.left(100)));
        QVERIFY(inPlace || QFile::remove(Path(out + "/a.png")));
        QVERIFY(HBWriteBytes(Path(out + "/a.png.backup"), "mine"));
        const Outcome again = Replay(arguments);
        QVERIFY2(!QFile::exists(leftover) && QFile::exists(Path(out + "/a.png.backup")), qPrintable(again.err));
        QCOMPARE(again.Json().last()["skipped"].toInt(), inPlace ? 2 : 1);
        QCOMPARE(HBBytesOf(Path(out + "/a.png")), result);

        // Another recipe is another job; so is a photo that has changed.
        QVERIFY(HBTestRamp(100, 100).ToQImage().save(Path("photos/a.png")));
        const Outcome changed = Replay(arguments);
        QVERIFY2(changed.err.contains("1 written, 1 skipped"), qPrintable(changed.err));
        QCOMPARE(QImage(Path(out + "/a.png")).width(), 100);
        QVERIFY(QFile::copy(recipe, Path("r.json")));
        QCOMPARE(Replay(QStringList(arguments).replaceInStrings(recipe, "r.json")).Json().last()["done"].toInt(),
                 2);
    }

    void Bounds_data() {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("message");
        const char* const rows[][2] = {
            {"large.bmp --format png --max-megapixels 3", "4.0 megapixels, more than 3.0"},
            {"large.bmp --format png --memory 20M", "about 30 MB"},
            {"large.bmp --format png --max-seconds-per-file 0.02", "would take about"},
            {"large.bmp --max-seconds-per-file 0.5 --jobs 1 --quality 100 --format webp", "given up after 0.5 s"},
            {"bomb.png", "400 megapixels, in a file of"},
        };
        for (const auto& [arguments, message] : rows) QTest::newRow(arguments) << arguments << message;
    }
    void Bounds() {
        QFETCH(QString, arguments);
        QFETCH(QString, message);
        const HBAdjustment& hue = *HBFindAdjustment("HBHueSaturationWidget");
        QString error;
        const int steps = arguments.contains("0.02") ? 1000 : 1;
        QVERIFY(HBRecipe{QVector<HBRecipeStep>(steps, HBStepOf(hue, HBDemonstration(hue)))}.Save(Path("r.json"),
                                                                                                 &error));
        QImage large(2000, 2000, QImage::Format_RGB32);
        QRandomGenerator(1).generate(reinterpret_cast<quint32*>(large.bits()),
                                     reinterpret_cast<quint32*>(large.bits()) + 4000000);
        QVERIFY(large.save(Path("large.bmp")));
        QVERIFY(QImage(1, 1, QImage::Format_RGB32).save(Path("bomb.png")));
        QByteArray bomb = HBBytesOf(Path("bomb.png"));
        bomb.replace(16, 17,
                     QByteArray::fromHex(
                         "00004e2000004e2008020000006c12d16e")); // the head's values and its CRC: 20000 x 20000
        QVERIFY(HBWriteBytes(Path("bomb.png"), bomb));
        QElapsedTimer timer;
        timer.start();
        const Outcome outcome =
            Replay(QStringList{"apply", "r.json", "-o", "out", "photos/a.png"} + Split(arguments));
        QVERIFY2(outcome.err.contains(message), qPrintable(outcome.err));
        QCOMPARE(outcome.code, 1);
        QCOMPARE(Results("out").filter(QRegularExpression("large|bomb")), QStringList());
        QVERIFY(timer.elapsed() < 20000);
    }

    /// What explain says of each panel's demonstration is what the schema describes.
    void RecipesAsText() {
        const QJsonObject schema = QJsonDocument::fromJson(Replay({"schema"}).out.toUtf8()).object();
        const QJsonObject definitions = schema["$defs"].toObject();
        QCOMPARE(definitions.size(), HBAdjustments().size() + 1); // and the selection
        QStringList everywhere;
        for (const QJsonValue& step : schema["properties"]["steps"]["items"]["oneOf"].toArray()) {
            if (step["properties"]["selection"] == QJsonValue(false))
                everywhere.append(step["properties"]["panel"]["const"].toString());
        }
        QCOMPARE(everywhere, QStringList({"HBReplaceColorWidget", "HBSignWidget", "HBWatermarkWidget"}));
        for (const HBAdjustment& adjustment : HBAdjustments()) {
            const QString path = QString(SAMPLE_RECIPES "/%1.json").arg(adjustment.className);
            const QJsonObject step = Replay({"explain", path, "--json"}).Json().first();
            const QJsonObject values = step["values"].toObject();
            const QJsonObject properties = definitions[adjustment.className].toObject()["properties"].toObject();
            QCOMPARE(step["panel"].toString(), QString(adjustment.className));
            QCOMPARE(values.keys(), properties.keys());
            for (const QString& key : values.keys()) {
                const QJsonObject property = properties[key].toObject();
                const QByteArray field = (QString(adjustment.className) + '.' + key).toUtf8();
                const char* where = field.constData();
                if (property.contains("minimum"))
                    QVERIFY2(values[key].toDouble() >= property["minimum"].toDouble() &&
                                 values[key].toDouble() <= property["maximum"].toDouble(),
                             where);
                else if (property.contains("enum"))
                    QVERIFY2(property["enum"].toArray().contains(values[key]), where);
                else
                    QVERIFY2(!values[key].isNull(), where);
            }
        }
        const Outcome words = Replay({"explain", recipe});
        QVERIFY2(
            words.out.startsWith("1. Levels (HBLevelsWidget)\n   channel: all\n   input all black: 15 levels\n"),
            qPrintable(words.out));
        QCOMPARE(Replay({"validate", recipe, "list.txt"}).code, 2);

        QCOMPARE(Replay({"diff", recipe, recipe}).code, 0);
        HBRecipe changed;
        QString error;
        QVERIFY(HBRecipe::Load(recipe, &changed, &error));
        const HBAdjustment& contrast = *HBFindAdjustment("HBBrightnessContrastWidget");
        std::any record = HBDemonstration(contrast);
        changed.steps.prepend(HBStepOf(contrast, record));
        contrast.fields[0].set(contrast.mutableData(record), 300);
        changed.steps.append(HBStepOf(contrast, record));
        QVERIFY(changed.Save(Path("changed.json"), &error));
        const Outcome diff = Replay({"diff", recipe, "changed.json"});
        QCOMPARE(diff.code, 1);
        QVERIFY2(diff.out.startsWith("+1. Brightness") &&
                     diff.out.contains("+   brightness: 300 levels (counts as 127") &&
                     !diff.out.contains("Levels"),
                 qPrintable(diff.out));
    }
};

HB_TEST_MAIN(tst_PanelReplayBatch)
#include "tst_PanelReplayBatch.moc"
