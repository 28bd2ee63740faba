// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "../HBLostTiles.h"
#include "HBRunTest.h"
#include "HBTestImages.h"
#include "HBTestRecords.h"

#include <HBBrightnessContrast.h>
#include <HBParallel.h>
#include <HBPictureCorrection.h>
#include <HBSign.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QThreadPool>

#include <thread>

namespace {

/// A file once written; must be read as this for ever: brightness 10, contrast -20.
constexpr char frozen[] = "{\n"
                          "    \"format\": \"adjustment-recipe\",\n"
                          "    \"steps\": [\n"
                          "        {\n"
                          "            \"panel\": \"HBBrightnessContrastWidget\",\n"
                          "            \"record\": \"S01CcmlnaHRuZXNzQ29udHJhc3QgMS4wMDAwMAAAAAr////s\"\n"
                          "        }\n"
                          "    ],\n"
                          "    \"version\": 1\n"
                          "}\n";

/// JSON written with apostrophes. Not in raw strings, in which moc gets lost.
QByteArray Quoted(QByteArray json) { return json.replace('\'', '"'); }

/// The same with all that version 2 can tell.
const QByteArray frozen2 = Quoted(
    "{'format':'adjustment-recipe','steps':[{'amount':60,'on':false,'panel':'HBBrightnessContrastWidget','record':"
    "'S01CcmlnaHRuZXNzQ29udHJhc3QgMS4wMDAwMAAAAAr////s','selection':["
    "{'feather':0.02,'inverted':true,'kind':'ellipse','rect':[-0.1,0.25,0.5,0.5]},"
    "{'combine':'subtract','kind':'rectangle','rect':[0,0,0.3,1]},"
    "{'kind':'polygon','points':[[0,0],[1,0.5],[0.25,1]]},"
    "{'combine':'intersect','from':[0.5,0],'kind':'gradient','to':[0.5,0.75]},"
    "{'color':'#1a2b3c','kind':'color','tolerance':20}]}],'version':2}");

HBRecipeStep Step(int brightness, int contrast) {
    return HBStepOf(*HBFindAdjustment("HBBrightnessContrastWidget"),
                    HBBrightnessContrastParams{brightness, contrast});
}

HBRecipeStep Sign() {
    const HBAdjustment& sign = *HBFindAdjustment("HBSignWidget");
    return HBStepOf(sign, sign.defaults());
}

HBImage<> ByHand(const HBImage<>& image, int brightness, int contrast) {
    return HBAdjust(HBBrightnessContrastParams{brightness, contrast}, {image, {}, {}, {}}).image;
}

/// The frozen recipe with one thing changed.
QByteArray Changed(const char* key, const QJsonValue& value) {
    QJsonObject head = QJsonDocument::fromJson(frozen).object();
    head[key] = value;
    return QJsonDocument(head).toJson();
}

QByteArray WithSteps(const QJsonArray& steps) { return Changed("steps", steps); }

} // namespace

class tst_HBRecipe : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void FrozenFile() {
        HBRecipe recipe;
        QString error;
        QVERIFY2(HBRecipe::FromJson(frozen, &recipe, &error), qPrintable(error));
        QCOMPARE(recipe.steps.size(), 1);
        QCOMPARE(recipe.steps[0].values, Step(10, -20).values);
        QCOMPARE(recipe.ToJson(), QByteArray(frozen));

        QVERIFY2(HBRecipe::FromJson(frozen2, &recipe, &error), qPrintable(error));
        QCOMPARE(QJsonDocument::fromJson(recipe.ToJson()).toJson(QJsonDocument::Compact), frozen2);
        QCOMPARE(recipe.steps[0].selection.shapes.size(), 5);
        const HBRecipeStep first = recipe.steps[0];
        recipe.steps[0].selection = {};
        recipe.steps[0].on = true;
        recipe.steps[0].amount = 100;
        QCOMPARE(recipe.ToJson(), QByteArray(frozen)); // it needs no more
        // What version 1 has never looked at gets no meaning by the company of another step.
        const QByteArray unread = QByteArray(frozen).replace("\"panel\"", "\"amount\": 7, \"panel\"");
        QVERIFY2(HBRecipe::FromJson(unread, &recipe, &error), qPrintable(error));
        QCOMPARE(recipe.steps[0].amount, 100);
        recipe.steps.append(first);
        QVERIFY2(HBRecipe::FromJson(recipe.ToJson(), &recipe, &error), qPrintable(error));
        QCOMPARE(recipe.steps[0].amount, 100);
        // That of an overlay, which would not be read.
        recipe.steps = {Sign()};
        recipe.steps[0].selection = first.selection;
        QVERIFY(!recipe.ToJson().contains("selection"));
    }

    void SaveAndLoad() {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.json");
        QString error;
        HBRecipe recipe{{Step(1, 2), Step(-127, 127), Step(INT_MIN, INT_MAX)}};
        QVERIFY2(recipe.Save(path, &error), qPrintable(error));
        HBRecipe loaded;
        QVERIFY2(HBRecipe::Load(path, &loaded, &error), qPrintable(error));
        QCOMPARE(loaded.ToJson(), recipe.ToJson());

        QVERIFY(!recipe.Save(folder.filePath("a.json/b.json"), &error));
        QVERIFY(error.contains("b.json"));
        for (const QString& wrong :
             {folder.filePath("none.json"), folder.path(), QString("/dev/zero"), QString()}) {
            error.clear();
            QVERIFY(!HBRecipe::Load(wrong, &loaded, &error));
            QVERIFY2(error.startsWith(wrong + ": "), qPrintable(error));
        }
        QCOMPARE(loaded.steps.size(), 3);
    }

    /// Names of stamps that lie with a recipe begin there, in either version; of all others not a byte is changed.
    void FilesBesideARecipe_data() {
        HBColumns<QString, QString>("stamp", "stored"); // both below the folder; / is the folder's own path
        QTest::newRow("beside") << "/logo.png"
                                << "logo.png";
        QTest::newRow("below") << "/logos/one.png"
                               << "logos/one.png";
        QTest::newRow("above") << "/../logo.png"
                               << "/../logo.png";
        QTest::newRow("name like the folder's") << "/../ab/logo.png"
                                                << "/../ab/logo.png";
        QTest::newRow("of the process's folder") << "nowhere.png"
                                                 << "nowhere.png";
        QTest::newRow("a resource") << ":/logo.png"
                                    << ":/logo.png";
        QTest::newRow("none") << ""
                              << "";
    }
    void FilesBesideARecipe() {
        QFETCH(QString, stamp);
        QFETCH(QString, stored);
        const QTemporaryDir root;
        const auto whole = [&](const QString& name) {
            return name.startsWith('/') ? QDir::cleanPath(root.filePath("a") + name) : name;
        };
        QString error;
        for (const char* place : {"a/logos", "ab"}) QVERIFY(QDir(root.path()).mkpath(place));
        for (const char* file : {"a/logo.png", "a/logos/one.png", "logo.png", "ab/logo.png"})
            QVERIFY(QFile(root.filePath(file)).open(QIODevice::WriteOnly));
        const HBAdjustment& sign = *HBFindAdjustment("HBSignWidget");
        HBSignParams params;
        params.fileName = whole(stamp);
        const auto nameIn = [&](const HBRecipe& recipe) {
            std::any record;
            QString reason;
            if (!sign.restore(recipe.steps.last().values, &record, &reason)) return reason;
            return std::any_cast<HBSignParams>(record).fileName;
        };
        for (const int amount : {100, 50}) {
            HBRecipe recipe{{Step(1, 2), HBStepOf(sign, params)}};
            recipe.steps.last().amount = amount;
            QVERIFY2(recipe.Save(root.filePath("a/r.json"), &error), qPrintable(error));
            QFile file(root.filePath("a/r.json"));
            QVERIFY(file.open(QIODevice::ReadOnly));
            HBRecipe read;
            QVERIFY2(HBRecipe::FromJson(file.readAll(), &read, &error), qPrintable(error));
            QCOMPARE(nameIn(read), whole(stored));
            QVERIFY2(HBRecipe::Load(file.fileName(), &read, &error), qPrintable(error));
            QCOMPARE(read.ToJson(), recipe.ToJson());
        }
        QVERIFY(QDir(root.path()).rename("a", "moved"));
        HBRecipe moved;
        QVERIFY2(HBRecipe::Load(root.filePath("moved/r.json"), &moved, &error), qPrintable(error));
        QCOMPARE(nameIn(moved), QString(whole(stamp)).replace("/a/", "/moved/"));
    }

    void BadInput_data() {
        const QJsonObject good = QJsonDocument::fromJson(frozen).object()["steps"].toArray()[0].toObject();
        auto with = [&](const char* key, const QJsonValue& value) {
            QJsonObject step = good;
            step[key] = value;
            return WithSteps({good, step});
        };
        HBColumns<QByteArray, QString>("json", "message");
        QTest::newRow("empty") << QByteArray() << "not JSON";
        QTest::newRow("deep") << QByteArray(5000, '[') << "not JSON";
        QTest::newRow("key twice") << QByteArray(R"({"steps":[1],"s\u0074eps":[2]})")
                                   << "eps\" stands twice in one object";
        QTest::newRow("other format") << Changed("format", "curves") << "not a recipe";
        QTest::newRow("newer") << Changed("version", 3) << "version 3; this program reads versions up to 2";
        QTest::newRow("version half") << Changed("version", 0.5) << "no valid version";
        QTest::newRow("steps empty") << WithSteps({}) << "no steps";
        QJsonArray many;
        for (int i = 0; i < 1001; ++i) many.append(good);
        QTest::newRow("many steps") << WithSteps(many) << "1001 steps";
        QTest::newRow("step is text") << WithSteps({good, "x"}) << "Step 2: it is not an object";
        QTest::newRow("panel number") << with("panel", 7) << "Step 2: it does not name its panel";
        QTest::newRow("panel unknown") << with("panel", "HBFoo\nBar")
                                       << "Step 2 (HBFoo Bar): there is no such panel";
        QTest::newRow("panel long") << with("panel", QString(100000, 'x')) << "there is no such panel";
        QTest::newRow("record missing")
            << with("record", QJsonValue()) << "Step 2 (Brightness and Contrast): it has no record";
        QTest::newRow("record foreign") << with("record", "Zm9v") << "its record is not one of this panel";
        const QJsonObject head2 = QJsonDocument::fromJson(frozen2).object();
        auto with2 = [&](const char* key, const QJsonValue& value) {
            QJsonObject head = head2, step = head2["steps"].toArray()[0].toObject();
            step[key] = value;
            head["steps"] = QJsonArray{step};
            return QJsonDocument(head).toJson();
        };
        QJsonObject sign = head2;
        QJsonObject overlay = head2["steps"].toArray()[0].toObject();
        overlay["panel"] = "HBSignWidget";
        overlay["record"] = Sign().values["record"];
        sign["steps"] = QJsonArray{good, overlay};
        QTest::newRow("selection of an overlay")
            << QJsonDocument(sign).toJson() << "Step 2 (Sign): it works on all of the photo";
        auto shape = [&](const QByteArray& json) {
            return with2("selection", QJsonDocument::fromJson('[' + Quoted(json) + ']').array());
        };
        QTest::newRow("on") << with2("on", 1)
                            << "Step 1 (Brightness and Contrast): whether it is on is neither true nor false";
        for (const QJsonValue& amount :
             {QJsonValue(-1), QJsonValue(101), QJsonValue(50.5), QJsonValue("50"), QJsonValue()})
            QTest::newRow("amount") << with2("amount", amount) << "its amount is not a whole number from 0 to 100";
        QTest::newRow("selection") << with2("selection", "all") << "its selection is not a list of shapes";
        QTest::newRow("no shapes") << shape("") << "its selection is not a list of shapes";
        const QByteArray box = "{'kind':'rectangle','rect':[0,0,1,1]}";
        QTest::newRow("shapes") << shape((box + ',').repeated(64) + box) << "too many shapes";
        QTest::newRow("points") << shape("{\"kind\":\"polygon\",\"points\":[" +
                                         QByteArray("[0,0],").repeated(4000) + "[0,1]]}")
                                << "too many points";
        const struct {
            const char* json;
            const char* message;
        } shapes[] = {{"7", "without \"kind\""},
                      {"{'kind':'circle'}", "wrong \"kind\""},
                      {"{'kind':'ellipse'}", "without \"rect\""},
                      {"{'kind':'ellipse','rect':[0,0,1]}", "wrong \"rect\""},
                      {"{'kind':'ellipse','rect':[0,0,1,0]}", "wrong \"rect\""},
                      {"{'kind':'ellipse','rect':[0,0,1,1e9]}", "wrong \"rect\""},
                      {"{'kind':'ellipse','rect':[0,0,1,1],'feather':2}", "wrong \"feather\""},
                      {"{'kind':'ellipse','rect':[0,0,1,1],'inverted':1}", "wrong \"inverted\""},
                      {"{'kind':'ellipse','rect':[0,0,1,1],'combine':'subtract'}", "to be combined"},
                      {"{'kind':'ellipse','rect':[0,0,1,1],'angle':7}", "unknown \"angle\""},
                      {"{'kind':'polygon','points':[[0,0],[1,1]]}", "wrong \"points\""},
                      {"{'kind':'polygon','points':[[0,0],[1,1],[0,'1']]}", "wrong \"points\""},
                      {"{'kind':'gradient','from':[0,0]}", "without \"to\""},
                      {"{'kind':'gradient','from':[0,0],'to':[1,1],'feather':0.1}", "unknown \"feather\""},
                      {"{'kind':'color','color':'red','tolerance':20}", "wrong \"color\""},
                      {"{'kind':'color','color':'#ff0000','tolerance':256}", "wrong \"tolerance\""}};
        for (const auto& [json, message] : shapes) QTest::newRow(json) << shape(json) << message;
        QTest::newRow("record cut") << with("record", "S01CcmlnaHRuZXNzQ29udHJhc3QgMS4wMDAwMAAAAAr/")
                                    << "its record is cut short";
    }
    void BadInput() {
        QFETCH(QByteArray, json);
        QFETCH(QString, message);
        HBRecipe recipe{{Step(1, 1)}};
        QString error;
        QVERIFY(!HBRecipe::FromJson(json, &recipe, &error));
        QVERIFY2(error.contains(message), qPrintable(error));
        QVERIFY(error.size() < 200);
        QCOMPARE(recipe.steps.size(), 1);
    }

    void AppliesAsByHand() {
        HBImage<> image = HBTestRamp(300, 260);
        image.SetHostValue(0, 11811);
        image.SetProfile(KMCMSProfile("profile"));
        image.AddElement(new KMEXIFElement{"Exif.Image.Make", 2, QByteArray("Maker", 6)});
        QVector<int> progress;
        QString error;
        const HBRecipe recipe{{Step(10, -20), Step(-60, 70)}};
        const HBImage<> result = HBApplyRecipe(image, recipe, &error, [&](int value) {
            progress.append(value);
            return true;
        });
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(result.ToQImage(), ByHand(ByHand(image, 10, -20), -60, 70).ToQImage());
        QVERIFY(result.ToQImage() != image.ToQImage());
        QCOMPARE(result.HostValue(0), 11811);
        QVERIFY(result.Profile() == image.Profile());
        QCOMPARE(result.Elements().size(), 1);
        QVERIFY(std::is_sorted(progress.begin(), progress.end()));
        QCOMPARE(progress.last(), 1000);
    }

    void ImagesOfAnySize() {
        QString error;
        QThreadPool* pool = &HBThreadPool();
        const int threads = pool->maxThreadCount();
        pool->setMaxThreadCount(1); // a job must not wait for another thread
        const auto restore = qScopeGuard([=] { pool->setMaxThreadCount(threads); });
        for (const QSize& size : HBAwkwardSizes()) {
            const HBImage<> result =
                HBApplyRecipe(HBTestRamp(size.width(), size.height()), {{Step(5, 5)}}, &error);
            QCOMPARE(QSize(result.Width(), result.Height()), size);
        }
        QVERIFY(HBApplyRecipe({}, {{Step(5, 5)}}, &error).IsEmpty());
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }

    void FailsOrIsGivenUp() {
        QString error;
        QVERIFY(HBApplyRecipe(HBTestRamp(10, 10), {{Step(1, 1), {"HBFoo", {}}}}, &error).IsEmpty());
        QCOMPARE(error, QString("Step 2 (HBFoo): there is no such panel"));
        const HBRecipe recipe{{Step(10, -20), Step(-60, 70), Step(1, 1)}};
        for (const int last : {1, 2}) {
            int calls = 0;
            const auto thread = std::this_thread::get_id();
            bool elsewhere = false;
            const HBImage<> result = HBApplyRecipe(HBTestRamp(600, 600), recipe, &error, [&](int) {
                elsewhere = elsewhere || std::this_thread::get_id() != thread;
                return ++calls < last;
            });
            QVERIFY(result.IsEmpty() && !elsewhere);
            QCOMPARE(calls, last);
            QCOMPARE(error, QString());
        }
    }

    /// Whichever pass fails, its steps are named.
    void WithoutMemory() {
        QString error;
        HBRecipe recipe{{Step(10, -20), Step(-60, 70)}};
        const HBImage<> image = HBTestRamp(600, 600);
        QVERIFY(HBLoseTiles());
        QVERIFY(HBApplyRecipe(image, recipe, &error).IsEmpty());
        QCOMPARE(error, QString("Steps 1 (Brightness and Contrast) to 2 (Brightness and Contrast): there is "
                                "not enough memory"));
        // Which looks at the picture first.
        const HBAdjustment& correction = *HBFindAdjustment("HBWBWidget");
        recipe.steps = {HBStepOf(correction, HBPictureCorrectionParams())};
        QVERIFY(HBApplyRecipe(image, recipe, &error).IsEmpty());
        QCOMPARE(error, QString("Step 1 (Picture Correction): there is not enough memory"));
    }

    void OfASelection() {
        const HBTarget target = HBTestTarget({300, 260}, true);
        struct : HBJobControl {
            void SetRange(int minimum, int maximum) override {
                told += QString("%1..%2").arg(minimum).arg(maximum);
            }
            void SetProgress(int value) override { values.append(value); }
            QString told;
            QVector<int> values;
        } control;
        QString error;
        const HBImage<> result = HBApplyRecipe(target, {{Step(10, -20), Step(-60, 70)}}, &error, &control);
        HBTarget next = target;
        next.source = HBAdjust(HBBrightnessContrastParams{10, -20}, target).image;
        QCOMPARE(result.ToQImage(), HBAdjust(HBBrightnessContrastParams{-60, 70}, next).image.ToQImage());
        QCOMPARE(control.told, QString("0..1000"));
        QVERIFY(std::is_sorted(control.values.begin(), control.values.end()));
        QCOMPARE(control.values.last(), 1000);
    }

    /// Where Qt would reserve memory for as many names of a font as the file says that there are.
    void ABrokenFontIsRefused() {
        const HBAdjustment* const watermark = HBFindAdjustment("HBWatermarkWidget");
        QVERIFY(watermark);
        const QByteArray record =
            QByteArray::fromBase64(watermark->save(watermark->defaults())["record"].toString().toLatin1());
        for (int at = 19; at + 4 <= record.size(); ++at) {
            QByteArray hostile = record;
            hostile.replace(at, 4, QByteArray::fromHex("7fffffff"));
            std::any read;
            QString reason;
            if (!watermark->restore({{"record", QString::fromLatin1(hostile.toBase64())}}, &read, &reason))
                QVERIFY(!reason.isEmpty());
        }
    }
};

HB_TEST_MAIN_WITHOUT_APPLICATION(tst_HBRecipe)
#include "tst_HBRecipe.moc"
