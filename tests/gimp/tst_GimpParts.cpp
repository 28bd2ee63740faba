// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpArguments.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"
#include <HBPresets.h>

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

/// What scripts may write, and what is remembered.
class tst_GimpParts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryFormOfAStep() {
        for (const HBAdjustment& adjustment : HBAdjustments()) {
            const QJsonObject stored = HBDemonstrationStep(adjustment);
            QJsonObject named = stored;
            named.insert("panel", adjustment.className);
            QList<QByteArray> texts{QJsonDocument(stored).toJson(), QJsonDocument(named).toJson()};
            if (adjustment.tag) {
                const QByteArray record = QByteArray::fromBase64(stored["record"].toString().toLatin1());
                texts << record.toHex() << ' ' + record.toHex(' ').toUpper() + '\n';
            }
            for (const QByteArray& text : qAsConst(texts)) {
                HBRecipeStep step;
                QString reason;
                QVERIFY2(HBReadStepArgument(adjustment, text, &step, &reason), qPrintable(reason));
                QCOMPARE(step.panel, QString(adjustment.className));
                QCOMPARE(step.values, stored);
            }
            HBRecipeStep step;
            QString reason;
            QVERIFY(HBReadStepArgument(adjustment, " ", &step, &reason));
            QCOMPARE(step.values, adjustment.save(adjustment.defaults()));
        }
    }

    void FieldsByTheirKeys_data() {
        QTest::addColumn<QString>("panel");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("keys"); // what must have the value given, or the reason it is refused
        QTest::newRow("whole numbers") << "HBBrightnessContrastWidget"
                                       << R"({"brightness": 20, "contrast": -7})"
                                       << "";
        QTest::newRow("real number") << "HBExposureWidget"
                                     << R"({"exposure": 0.5})"
                                     << "";
        QTest::newRow("one of many") << "HBLevelsWidget"
                                     << R"({"input.red.black": 12, "gamma.all": 1.5})"
                                     << "";
        QTest::newRow("choice") << "HBReplaceColorWidget"
                                << R"({"position": "rightTop", "tolerance": 9})"
                                << "";
        QTest::newRow("text") << "HBSignWidget"
                              << R"({"file": "/stamp.png", "alignment": "left top"})"
                              << "";
        QTest::newRow("out of range") << "HBBrightnessContrastWidget"
                                      << R"({"brightness": 128})"
                                      << "goes from -127 to 127";
        QTest::newRow("not whole") << "HBBrightnessContrastWidget"
                                   << R"({"brightness": 0.5})"
                                   << "whole number";
        QTest::newRow("not a number") << "HBBrightnessContrastWidget"
                                      << R"({"brightness": "1"})"
                                      << "must be a number";
        QTest::newRow("unknown key") << "HBBrightnessContrastWidget"
                                     << R"({"Brightness": 1})"
                                     << "brightness, contrast";
        QTest::newRow("unknown choice") << "HBReplaceColorWidget"
                                        << R"({"position": "top"})"
                                        << "leftTop, rightTop";
        QTest::newRow("no colour") << "KMFillColorWidget"
                                   << R"({"color": "rot"})"
                                   << "must be a color";
        QTest::newRow("unknown alignment") << "HBSignWidget"
                                           << R"({"alignment": "up"})"
                                           << "cannot be";
        QTest::newRow("record alone") << "HBCurvesWidget"
                                      << R"({"all": [[0, 0]]})"
                                      << "there is no";
        QTest::newRow("another panel") << "HBLevelsWidget"
                                       << R"({"panel": "HBCurvesWidget"})"
                                       << "a step of HBCurvesWidget";
        QTest::newRow("another record") << "HBLevelsWidget"
                                        << "4b4d43757276657320312e3030303030"
                                        << "not one of this panel";
        QTest::newRow("cut short") << "HBLevelsWidget"
                                   << R"({"record": "S01M"})"
                                   << "record";
        QTest::newRow("half a byte") << "HBLevelsWidget"
                                     << "4b4"
                                     << "neither JSON nor";
        QTest::newRow("no JSON") << "HBLevelsWidget"
                                 << "{\"gamma"
                                 << "not JSON";
        QTest::newRow("key twice") << "HBBrightnessContrastWidget"
                                   << R"({"brightness": 1, "brightness": 2})"
                                   << "\"brightness\" stands twice";
        QTest::newRow("bytes without a record") << "HBExposureWidget"
                                                << "4b4d"
                                                << "no record";
    }
    void FieldsByTheirKeys() {
        QFETCH(QString, panel);
        QFETCH(QString, text);
        QFETCH(QString, keys);
        const HBAdjustment& adjustment = *HBFindAdjustment(panel);
        HBRecipeStep step;
        QString reason;
        const bool read = HBReadStepArgument(adjustment, text, &step, &reason);
        QVERIFY2(read == keys.isEmpty() && reason.contains(keys), qPrintable(reason));
        if (!read) {
            QVERIFY(step.panel.isEmpty());
            return;
        }
        std::any record;
        QVERIFY(adjustment.restore(step.values, &record, &reason));
        const QJsonObject given = QJsonDocument::fromJson(text.toUtf8()).object();
        for (const HBFieldInfo& field : adjustment.fields) {
            QVariant expected = given.value(field.key).toVariant();
            if (!given.contains(field.key))
                expected = field.get(adjustment.data(adjustment.defaults()));
            else if (field.type == HBFieldInfo::Choice)
                expected = int(std::find(field.values.begin(), field.values.end(), expected.toString()) -
                               field.values.begin());
            QCOMPARE(field.get(adjustment.data(record)), expected);
        }
    }

    void Recipes() {
        HBRecipe recipe;
        QString reason;
        const QString file = SAMPLE_RECIPES "/HBLevelsWidget.json";
        QVERIFY(HBReadRecipeArgument(file, &recipe, &reason));
        const HBRecipe loaded = recipe;
        QVERIFY(HBReadRecipeArgument(loaded.ToJson(), &recipe, &reason));
        QCOMPARE(recipe.ToJson(), loaded.ToJson());
        QVERIFY(HBReadRecipeArgument(R"({"panel": "HBExposureWidget", "exposure": 1})", &recipe, &reason));
        QCOMPARE(recipe.steps.size(), 1);
        for (const char* wrong : {"", "missing.json", "{}", R"({"panel": "HBNothing"})", "[1]"}) {
            QVERIFY2(!HBReadRecipeArgument(wrong, &recipe, &reason), wrong);
            QVERIFY(!reason.isEmpty());
            QCOMPARE(recipe.steps.size(), 1);
        }
    }

    void PresetsAreOrderedByUse() {
        const QTemporaryDir folder;
        const HBAdjustment& adjustment = *HBFindAdjustment("HBExposureWidget");
        const auto values = [&](double exposure) {
            return QJsonObject{{"values", QJsonObject{{"exposure", exposure}, {"offset", 0}}}};
        };
        QString reason;
        HBPresets presets(folder.filePath("a/b"), adjustment);
        QVERIFY(presets.Last().isEmpty() && presets.Names().isEmpty());
        for (int i = 1; i <= 3; ++i)
            QVERIFY2(presets.Keep(QString("P%1").arg(i), values(i), &reason), qPrintable(reason));
        QVERIFY(presets.SetLast(values(9), &reason));
        QVERIFY(presets.SetUsed("P1", &reason));
        QCOMPARE(presets.Names(), (QStringList{"P1", "P3", "P2"}));
        QVERIFY(presets.Keep("P2", values(7), &reason));
        QVERIFY(presets.Remove("P3", &reason));
        QVERIFY(presets.SetUsed("P3", &reason)); // another GIMP may have deleted it
        QVERIFY(!presets.Rename("P1", "P2", &reason) && !reason.isEmpty());
        QVERIFY(presets.Rename("P1", "P4", &reason) && presets.Rename("P4", "P1", &reason));
        const HBPresets again(folder.filePath("a/b"), adjustment);
        QCOMPARE(again.Names(), (QStringList{"P2", "P1"}));
        QCOMPARE(again.Values("P2"), values(7));
        QCOMPARE(again.Last(), values(9));
    }

    void ForeignFilesAreKept() {
        const QTemporaryDir folder;
        const HBAdjustment& adjustment = *HBFindAdjustment("HBLevelsWidget");
        const QString path = folder.filePath("HBLevelsWidget.json");
        const auto write = [&](const QByteArray& bytes) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        };
        HBPresets presets(folder.path(), adjustment);
        QString reason;
        for (const char* foreign : {"nonsense", R"({"format": "adjustment-presets", "version": 2})",
                                    R"({"format": "adjustment-presets", "version": 1, "last": 1, "last": 2})"}) {
            write(foreign);
            QVERIFY(presets.Names().isEmpty());
            QVERIFY(presets.SetLast(HBDemonstrationStep(adjustment), &reason));
            QFile aside(path + '~');
            QVERIFY(aside.open(QIODevice::ReadOnly));
            QCOMPARE(aside.readAll(), QByteArray(foreign));
            QVERIFY(aside.remove());
        }
        // What one cannot read another version may.
        write(R"({"format": "adjustment-presets", "version": 1, "presets": [{"name": "New", "record": "?"}]})");
        QVERIFY(presets.Names().isEmpty());
        QVERIFY(presets.Keep("Mine", HBDemonstrationStep(adjustment), &reason));
        QCOMPARE(presets.Names(), QStringList{"Mine"});
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll().contains("\"New\""));
        HBPresets nowhere("/proc/none", adjustment);
        QVERIFY(!nowhere.SetLast(HBDemonstrationStep(adjustment), &reason) && reason.contains("/proc/none"));
    }
};

HB_TEST_MAIN(tst_GimpParts)
#include "tst_GimpParts.moc"
