// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestImages.h"
#include "HBTestMain.h"

#include <HBBrightnessContrastWidget.h>
#include <HBPanelCatalog.h>
#include <HBRecipe.h>
#include <HBSignWidget.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QScopeGuard>
#include <QThreadPool>

#include <memory>

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

HBRecipeStep Step(int brightness, int contrast) {
    HBBrightnessContrastWidget panel(false, nullptr, {});
    HBBrightnessContrastWidget::Params params;
    params.brightness = brightness;
    params.contrast = contrast;
    panel.SetValue(params);
    return {"HBBrightnessContrastWidget", HBFindPanel("HBBrightnessContrastWidget")->save(panel)};
}

/// The picture as a user sees it who opens the panel with these values.
HBImage<> ByHand(const HBImage<>& image, int brightness, int contrast) {
    HBBrightnessContrastWidget panel(true, nullptr, {});
    HBFindPanel("HBBrightnessContrastWidget")->restore(panel, Step(brightness, contrast).values, nullptr);
    QSignalSpy ready(&panel, &HBAdjustmentWidget::ImageReady);
    panel.SetImage(image, {}, {}, {});
    return ready.wait() ? panel.AdjustedImage() : HBImage<>();
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
        QTest::newRow("other format") << Changed("format", "curves") << "not a recipe";
        QTest::newRow("newer") << Changed("version", 2) << "version 2; this program reads versions up to 1";
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
            << with("record", QJsonValue()) << "Step 2 (HBBrightnessContrastWidget): it has no record";
        QTest::newRow("record foreign") << with("record", "Zm9v") << "its record is not one of this panel";
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
        QThreadPool* pool = QThreadPool::globalInstance();
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
        int calls = 0;
        const HBRecipe recipe{{Step(10, -20), Step(-60, 70), Step(1, 1)}};
        QVERIFY(HBApplyRecipe(HBTestRamp(600, 600), recipe, &error, [&](int) { return ++calls < 2; }).IsEmpty());
        QCOMPARE(error, QString());
    }

    void OverlaysAreDrawn() {
        const HBPanelEntry* entry = HBFindPanel("HBWatermarkWidget");
        std::unique_ptr<HBAdjustmentWidget> panel(entry->create(true, nullptr));
        HBRecipe recipe;
        recipe.steps = {Step(10, -20), {"HBWatermarkWidget", entry->save(*panel)}};
        const HBImage<> image = HBTestRamp(600, 400);
        QString error;
        const HBImage<> result = HBApplyRecipe(image, recipe, &error);
        QCOMPARE(error, QString());
        // Drawn by values that were taken before the panel was gone, over the first step's result.
        const HBOverlayDrawing draw = entry->draw(*panel);
        panel.reset();
        const HBImage<> expected = draw(ByHand(image, 10, -20), &error);
        QCOMPARE(result.ToQImage(), expected.ToQImage());
        QVERIFY(result.ToQImage() != ByHand(image, 10, -20).ToQImage());
    }

    void AnOverlayThatCannotBeDrawnIsNamed() {
        HBSignWidget panel(nullptr, {});
        HBSignWidget::Params params;
        params.fileName = "/no/such/logo.png";
        panel.SetValue(params);
        HBRecipe recipe;
        recipe.steps = {Step(10, -20), {"HBSignWidget", HBFindPanel("HBSignWidget")->save(panel)}};
        QString error;
        QVERIFY(HBApplyRecipe(HBTestRamp(20, 20), recipe, &error).IsEmpty());
        QCOMPARE(error,
                 QString("Step 2 (HBSignWidget): The stamp /no/such/logo.png cannot be read: there is no such "
                         "file"));
    }

    /// Where Qt would reserve memory for as many names of a font as the file says that there are.
    void ABrokenFontIsRefused() {
        const HBPanelEntry* entry = HBFindPanel("HBWatermarkWidget");
        const std::unique_ptr<HBAdjustmentWidget> panel(entry->create(false, nullptr));
        const QJsonObject values = entry->save(*panel);
        const QByteArray record = QByteArray::fromBase64(values["record"].toString().toLatin1());
        for (int at = 19; at + 4 <= record.size(); ++at) {
            QByteArray hostile = record;
            hostile.replace(at, 4, QByteArray::fromHex("7fffffff"));
            QString reason;
            if (!entry->restore(*panel, {{"record", QString::fromLatin1(hostile.toBase64())}}, &reason))
                QVERIFY(!reason.isEmpty());
        }
    }
};

HB_TEST_MAIN(tst_HBRecipe)
#include "tst_HBRecipe.moc"
