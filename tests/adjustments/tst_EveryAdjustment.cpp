// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRunTest.h"
#include "HBTestControl.h"
#include "HBTestImages.h"
#include "HBTestRecords.h"

#include <QJsonArray>

#include <atomic>
#include <cmath>
#include <set>
#include <thread>

namespace {

QJsonObject WithRecord(const QByteArray& record) { return {{"record", QString::fromLatin1(record.toBase64())}}; }

QByteArray RecordOf(const QJsonObject& values) {
    return QByteArray::fromBase64(values["record"].toString().toLatin1());
}

/// Needs an application object to lay out its text.
bool IsText(const HBAdjustment& adjustment) { return qstrcmp(adjustment.className, "HBWatermarkWidget") == 0; }

QVector<const HBAdjustment*> WithoutText() {
    QVector<const HBAdjustment*> list;
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        if (!IsText(adjustment)) list.append(&adjustment);
    }
    return list;
}

/// Through a recipe, in as few passes as go.
QImage InOnePass(const QVector<HBRecipeStep>& steps, const HBTarget& target) {
    QString error;
    const HBImage<> result = HBApplyRecipe(target, {steps}, &error, nullptr);
    if (!error.isEmpty()) qWarning("%s", qPrintable(error));
    return result.ToQImage();
}

/// What both select, pixel by pixel; all, if neither does.
HBTarget SelectedBy(const HBSelectionShape& shape, const HBImage<>& photo, HBTarget target) {
    if (shape.IsNone()) return target;
    const int width = target.source.Width(), height = target.source.Height();
    const HBSelection selection = shape.Rasterize(photo);
    const HBImage<> mask = HBTestPicture(width, height, [&](int x, int y) {
        int coverage = selection.mask.PixelAt(x - selection.offset.x(), y - selection.offset.y()).alpha;
        if (target.bounds.isValid()) {
            const QPoint at = QPoint(x, y) - target.offset;
            const int own = target.bounds.contains(at) ? target.selection.PixelAt(at.x(), at.y()).alpha : 0;
            coverage = (coverage * own + 127) / 255;
        }
        return QRgb(coverage) * 0x01010101u;
    });
    return {target.source, mask, {}, QRect(0, 0, width, height)};
}

HBImage<> InPart(const HBImage<>& before, const HBImage<>& after, int amount) {
    return HBTestPicture(before.Width(), before.Height(), [&](int x, int y) {
        const HBRGBA32i a = before.PixelAt(x, y), b = after.PixelAt(x, y);
        const auto mean = [=](int from, int to) {
            return std::uint8_t(std::floor((from * (100 - amount) + to * amount) / 100.0 + 0.5));
        };
        return HBRGBA32i(mean(a.red, b.red), mean(a.green, b.green), mean(a.blue, b.blue), mean(a.alpha, b.alpha))
            .ToRgba();
    });
}

QImage StepAfterStep(const QVector<HBRecipeStep>& steps, HBTarget target) {
    const HBImage<> photo = target.source;
    for (const HBRecipeStep& step : steps) {
        if (!step.on) continue;
        const HBAdjustment& adjustment = *HBFindAdjustment(step.panel);
        std::any record;
        QString reason;
        if (!adjustment.restore(step.values, &record, &reason)) qWarning("%s", qPrintable(reason));
        const HBImage<> after = HBRun(adjustment, record, SelectedBy(step.selection, photo, target)).image;
        target.source = step.amount < 100 ? InPart(target.source, after, step.amount) : after;
    }
    return target.source.ToQImage();
}

/// Off, in part, on a selection, or none of it.
void RandomManner(HBRecipeStep* step, QRandomGenerator& random) {
    step->on = random.bounded(6) > 0;
    step->amount = random.bounded(2) ? 100 : random.bounded(101);
    for (int i = random.bounded(4) - 1; i > 0; --i) {
        const auto share = [&] { return random.bounded(1.4) - 0.2; };
        HBShape shape;
        shape.kind = HBShape::Kind(random.bounded(5));
        shape.combination = HBShape::Combination(step->selection.IsNone() ? 0 : random.bounded(3));
        shape.inverted = random.bounded(3) == 0;
        shape.rect = QRectF(share(), share(), random.bounded(0.9) + 0.01, random.bounded(0.9) + 0.01);
        shape.points = {{share(), share()}, {share(), share()}};
        if (shape.kind == HBShape::Kind::Polygon) shape.points += {{share(), share()}, {share(), share()}};
        shape.feather = shape.HasFeather() && random.bounded(2) ? random.bounded(0.3) : 0;
        shape.color = random.generate() | 0xff000000u;
        shape.tolerance = random.bounded(256);
        step->selection.shapes.append(shape);
    }
}

#ifdef __SANITIZE_THREAD__
constexpr int RandomRecipes = 100; // races need no more, and each takes ten times as long
#else
constexpr int RandomRecipes = 500;
#endif

} // namespace

/// What holds for every adjustment there is.
class tst_EveryAdjustment : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void Rows_data() {
        QTest::addColumn<QString>("name");
        QVERIFY(!HBAdjustments().isEmpty());
        for (const HBAdjustment& adjustment : HBAdjustments())
            QTest::newRow(adjustment.className) << QString(adjustment.className);
    }
    void Rows() {
        QFETCH(QString, name);
        const HBAdjustment* adjustment = HBFindAdjustment(name);
        QVERIFY(adjustment);
        QVERIFY(!adjustment->Group().isEmpty() && !adjustment->Title().isEmpty());
        int same = 0; // as this one, itself included
        for (const HBAdjustment& other : HBAdjustments())
            same += name == other.className || (adjustment->tag && qstrcmp(adjustment->tag, other.tag) == 0);
        QCOMPARE(same, 1);
        QVERIFY(!HBFindAdjustment(name + "x"));
    }

    void Fields_data() { Rows_data(); }
    void Fields() {
        QFETCH(QString, name);
        const HBAdjustment& adjustment = *HBFindAdjustment(name);
        std::set<QString> keys;
        for (const HBFieldInfo& field : adjustment.fields) {
            QVERIFY2(keys.insert(field.key).second, qPrintable(field.key));
            std::any record = adjustment.defaults(), other = HBHostileRecord(adjustment, 1);
            void* const data = adjustment.mutableData(record);
            const QVariant value = field.get(data), changed = field.get(adjustment.data(other));
            field.set(data, changed);
            QVERIFY2(field.get(data) == changed || field.key.isEmpty(), qPrintable(field.key));
            for (const HBFieldInfo& another : adjustment.fields) {
                if (another.key != field.key)
                    QCOMPARE(another.get(data), another.get(adjustment.data(adjustment.defaults())));
            }
            field.set(data, value);
            QCOMPARE(adjustment.save(record), adjustment.save(adjustment.defaults()));
            if (field.type != HBFieldInfo::Number) continue;
            const HBRange& range = field.range;
            QVERIFY2(range.minimum < range.maximum, qPrintable(field.key));
            QVERIFY2(value.toDouble() >= range.minimum && value.toDouble() <= range.maximum,
                     qPrintable(field.key));
            QVERIFY2(std::isnan(range.neutral) ||
                         (range.neutral >= range.minimum && range.neutral <= range.maximum),
                     qPrintable(field.key));
        }
    }

    void RecordsSurvive_data() { Rows_data(); }
    void RecordsSurvive() {
        QFETCH(QString, name);
        const HBAdjustment& adjustment = *HBFindAdjustment(name);
        QRandomGenerator random(7);
        for (int i = 0; i < 20; ++i) {
            const QJsonObject saved =
                adjustment.save(i > 0 ? HBRandomRecord(adjustment, random) : adjustment.defaults());
            std::any record;
            QString reason;
            QVERIFY2(adjustment.restore(saved, &record, &reason), qPrintable(reason));
            // Levels derive one of their fields anew; what has been read once stays as it is.
            const QJsonObject read = adjustment.save(record);
            QVERIFY2(adjustment.restore(read, &record, &reason), qPrintable(reason));
            QCOMPARE(adjustment.save(record), read);
            if (adjustment.tag) QVERIFY(RecordOf(saved).startsWith(adjustment.tag));
        }
    }

    void HostileRecordsAreRefused_data() { Rows_data(); }
    void HostileRecordsAreRefused() {
        QFETCH(QString, name);
        const HBAdjustment& adjustment = *HBFindAdjustment(name);
        const QJsonObject defaults = adjustment.save(adjustment.defaults());
        QVector<QJsonObject> hostile = {{}, {{"values", 5}}, {{"record", QJsonValue()}}};
        if (!adjustment.tag) {
            QJsonObject text = defaults["values"].toObject();
            text.begin().value() = "1.5";
            hostile += {{{"values", QJsonObject{}}}, {{"values", text}}};
        } else {
            const QByteArray record = RecordOf(defaults);
            QByteArray foreign = record;
            foreign[0] = '?';
            hostile += {{{"record", 5}},
                        {{"record", QJsonArray{1}}},
                        {{"record", "not base64!"}},
                        {{"values", QJsonObject{{"brightness", 5}}}},
                        WithRecord(foreign),
                        WithRecord(record + '\0'),
                        WithRecord(record + record),
                        WithRecord(QByteArray(1 << 20, '\xff'))};
            for (int size = 0; size < record.size(); ++size) hostile.append(WithRecord(record.left(size)));
        }
        for (const QJsonObject& values : hostile) {
            std::any record = HBDemonstration(adjustment);
            const QJsonObject before = adjustment.save(record);
            QString reason;
            QVERIFY2(!adjustment.restore(values, &record, &reason), qPrintable(values["record"].toString()));
            QVERIFY(!reason.isEmpty());
            QCOMPARE(adjustment.save(record), before);
        }
    }

    void AnyRecordGivesAPicture_data() { Rows_data(); }
    void AnyRecordGivesAPicture() {
        QFETCH(QString, name);
        const HBAdjustment& adjustment = *HBFindAdjustment(name);
        QVector<std::any> records = {adjustment.defaults(), HBDemonstration(adjustment)};
        for (int i = 0; i < HBHostileRecords; ++i) records.append(HBHostileRecord(adjustment, i));
        for (const QSize& size : HBAwkwardSizes()) {
            for (const bool selected : {false, true}) {
                const HBTarget target = HBTestTarget(size, selected);
                for (int i = 0; i < records.size(); ++i) {
                    const HBOutcome outcome = HBRun(adjustment, records[i], target);
                    const QString reason = HBFailureReason(outcome);
                    QCOMPARE(outcome.IsWhole(), reason.isEmpty());
                    // Margins may leave no room for an overlay.
                    QVERIFY2(outcome.IsWhole() || (i > 1 && reason.contains("margins")) || IsText(adjustment),
                             qPrintable(reason));
                    if (IsText(adjustment) && i == 1) QVERIFY(!outcome.IsWhole());
                    QString error;
                    const HBImage<> byRecipe =
                        HBApplyRecipe(target, {{HBStepOf(adjustment, records[i])}}, &error, nullptr);
                    QCOMPARE(error,
                             reason.isEmpty() ? QString() : "Step 1 (" + adjustment.Title() + "): " + reason);
                    if (outcome.IsWhole()) QCOMPARE(byRecipe.ToQImage(), outcome.image.ToQImage());
                }
            }
        }
        QVERIFY(IsText(adjustment) || HBRun(adjustment, adjustment.defaults(), HBTarget()).IsWhole());
    }

    void PairsInOnePass_data() { Rows_data(); }
    void PairsInOnePass() {
        QFETCH(QString, name);
        const HBAdjustment& second = *HBFindAdjustment(name);
        if (IsText(second)) return;
#ifdef __SANITIZE_THREAD__
        QSKIP("The random recipes race as much.");
#endif
        for (const bool selected : {false, true}) {
            const HBTarget target = HBTestTarget({129, 130}, selected);
            for (const HBAdjustment* first : WithoutText()) {
                QVector<HBRecipeStep> steps = {HBStepOf(*first, HBDemonstration(*first)),
                                               HBStepOf(second, HBDemonstration(second))};
                QVERIFY2(InOnePass(steps, target) == StepAfterStep(steps, target), first->className);
                steps[1].amount = 35;
                QVERIFY2(InOnePass(steps, target) == StepAfterStep(steps, target), first->className);
            }
        }
    }

    void RandomRecipesInOnePass() {
        QRandomGenerator random(20260728);
        const QVector<const HBAdjustment*> all = WithoutText();
        const QVector<QSize> sizes = {{1, 1}, {127, 3}, {128, 128}, {129, 130}, {257, 140}, {3, 129}};
        for (int i = 0; i < RandomRecipes; ++i) {
            QVector<HBRecipeStep> steps(random.bounded(2, i % 50 ? 7 : 40));
            for (HBRecipeStep& step : steps) {
                const HBAdjustment& adjustment = *all[random.bounded(all.size())];
                step = HBStepOf(adjustment, HBRandomRecord(adjustment, random));
                if (i % 3 == 0) RandomManner(&step, random);
            }
            // As a file keeps them.
            HBRecipe stored;
            QString error;
            QVERIFY2(HBRecipe::FromJson(HBRecipe{steps}.ToJson(), &stored, &error), qPrintable(error));
            QCOMPARE(stored.ToJson(), HBRecipe{steps}.ToJson());
            if (i % 2) steps = stored.steps;
            const HBTarget target = HBTestTarget(sizes[random.bounded(sizes.size())], i % 4 == 0);
            QVERIFY2(InOnePass(steps, target) == StepAfterStep(steps, target),
                     ("recipe " + HBRecipe{steps}.ToJson()).constData());
        }
    }

    /// From eight threads that share the global pool.
    void EightThreads() {
        const HBTarget target = HBTestTarget({300, 260}, false);
        const QVector<const HBAdjustment*> all = WithoutText();
        QVector<HBRecipeStep> steps;
        QVector<QImage> expected;
        for (const HBAdjustment* adjustment : all) {
            steps.append(HBStepOf(*adjustment, HBDemonstration(*adjustment)));
            expected.append(InOnePass({steps.last()}, target));
        }
        const QImage together = InOnePass(steps, target);
        std::atomic<int> right{0};
        std::vector<std::thread> threads;
        // .at(): Qt's [] would detach a list that is shared.
        for (int t = 0; t < 8; ++t) {
            threads.emplace_back([&, t] {
                for (int i = 0; i < steps.size(); ++i) {
                    const int step = (i + t) % steps.size();
                    right += InOnePass({steps.at(step)}, target) == expected.at(step);
                }
                right += InOnePass(steps, target) == together;
            });
        }
        for (std::thread& thread : threads) thread.join();
        QCOMPARE(right.load(), 8 * (steps.size() + 1));
    }

    void Cancelled_data() { Rows_data(); }
    void Cancelled() {
        QFETCH(QString, name);
        const HBAdjustment& adjustment = *HBFindAdjustment(name);
        if (IsText(adjustment)) return;
        const HBTarget target = HBTestTarget({1000, 1000}, false);
        HBJobControl before;
        before.Cancel();
        QCOMPARE(HBRun(adjustment, HBDemonstration(adjustment), target, &before).status, HBOutcome::Cancelled);
        HBTestControl during;
        during.allowedProgress = 0;
        QString error = "left over";
        const QVector<HBRecipeStep> steps(30, HBStepOf(adjustment, HBDemonstration(adjustment)));
        QVERIFY(HBApplyRecipe(target, {steps}, &error, &during).IsEmpty());
        QCOMPARE(error, QString());
        QVERIFY2(during.told > 0 && during.told < 66, qPrintable(QString::number(during.told)));
    }
};

HB_TEST_MAIN_WITHOUT_APPLICATION(tst_EveryAdjustment)
#include "tst_EveryAdjustment.moc"
