// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestImages.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBAdjustmentWidget.h>
#include <HBPanelCatalog.h>

#include <QDoubleSpinBox>
#include <QMetaMethod>

#include <memory>

namespace {

using Panel = std::unique_ptr<HBAdjustmentWidget>;

/// What the panel makes of the target with the record; for one without a job, what is drawn.
/// \param behind the values come after the image
HBImage<> Adjusted(const HBPanelEntry& entry, HBAdjustmentWidget& panel, const HBTarget& target,
                   const std::any& record, bool behind, QString* error) {
    error->clear();
    if (!behind) entry.set(panel, record);
    if (entry.draw) return entry.draw(panel)(target.source, error);
    panel.SetImage(target.source, target.selection, target.offset, target.bounds);
    if (behind) entry.set(panel, record);
    panel.ProcessNow();
    while (panel.IsProcessing()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return panel.HasPendingChange() ? HBImage<>() : panel.AdjustedImage();
}

/// Whether a box of the panel has that range and shows those values when the panel is given the records.
bool HasBox(const HBPanelEntry& entry, HBAdjustmentWidget& panel, const HBRange& range, const std::any& lowest,
            const std::any& highest) {
    for (auto* box : panel.findChildren<QAbstractSpinBox*>()) {
        if (box->property("minimum").toDouble() != range.minimum ||
            box->property("maximum").toDouble() != range.maximum)
            continue;
        const auto* real = qobject_cast<QDoubleSpinBox*>(box);
        if (real && range.decimals != real->decimals()) continue;
        entry.set(panel, lowest);
        const double low = box->property("value").toDouble();
        entry.set(panel, highest);
        if (low == range.minimum && box->property("value").toDouble() == range.maximum) return true;
    }
    return false;
}

} // namespace

/// What holds for every panel there is.
class tst_HBPanelCatalog : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void Rows_data() {
        QTest::addColumn<QString>("name");
        QCOMPARE(HBPanelCatalog().size(), HBAdjustments().size());
        for (const HBPanelEntry& entry : HBPanelCatalog())
            QTest::newRow(entry.className) << QString(entry.className);
    }
    void Rows() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        QCOMPARE(&entry - HBPanelCatalog().data(), entry.adjustment - HBAdjustments().data());
        QVERIFY(!HBFindPanel(name + "x"));
        for (bool dialog : {false, true}) {
            const Panel panel(entry.create(dialog, nullptr));
            QCOMPARE(QString(panel->metaObject()->className()), name);
            QCOMPARE(entry.save(*panel), entry.adjustment->save(entry.adjustment->defaults));
        }
    }

    /// A host connects its own controls to a panel's slots: only these panels keep theirs to themselves.
    void SlotsAreTheHostsToo_data() { Rows_data(); }
    void SlotsAreTheHostsToo() {
        QFETCH(QString, name);
        const bool closed = QStringList{"HBLevelsWidget", "HBCurvesWidget",        "HBThresholdWidget",
                                        "HBWBWidget",     "HBColorEnhancerWidget", "HBTintWidget"}
                                .contains(name);
        const Panel panel(HBFindPanel(name)->create(false, nullptr));
        const QMetaObject* meta = panel->metaObject();
        for (int index = meta->methodOffset(); index < meta->methodCount(); ++index) {
            const QMetaMethod method = meta->method(index);
            if (method.methodType() == QMetaMethod::Slot)
                QCOMPARE(method.access(), closed ? QMetaMethod::Private : QMetaMethod::Public);
        }
    }

    /// The panel, a recipe and the core give the same bytes, whatever the record.
    void PanelsAreTheirAdjustments_data() { Rows_data(); }
    void PanelsAreTheirAdjustments() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        const HBAdjustment& adjustment = *entry.adjustment;
        QVector<std::any> records = {adjustment.defaults, HBDemonstration(adjustment)};
        for (int i = 0; i < HBHostileRecords; ++i) records.append(HBHostileRecord(adjustment, i));
        const Panel panel(entry.create(false, nullptr));
        for (int i = 0; i < records.size(); ++i) {
            for (const QSize& size :
                 {QSize(1, 1), QSize(127, 3), QSize(128, 128), QSize(129, 130), QSize(257, 140)}) {
                for (const bool selected : {false, true}) {
                    const HBTarget target = HBTestTarget(size, selected);
                    const HBOutcome outcome = HBRun(adjustment, records[i], target);
                    QString reason, error;
                    const bool behind = i % 2 == 1 && !entry.draw;
                    const QImage byPanel = Adjusted(entry, *panel, target, records[i], behind, &reason).ToQImage();
                    QCOMPARE(reason, HBFailureReason(outcome)); // of an overlay without room
                    const QImage expected = (outcome.IsWhole() ? outcome.image : target.source).ToQImage();
                    const auto row = [&] {
                        return QString("record %1, %2 wide").arg(i).arg(size.width()).toUtf8();
                    };
                    QVERIFY2(byPanel == expected, row().constData());
                    const HBImage<> byRecipe =
                        HBApplyRecipe(target, {{HBStepOf(adjustment, records[i])}}, &error, nullptr);
                    QCOMPARE(error.isEmpty(), outcome.IsWhole());
                    QVERIFY2(!outcome.IsWhole() || byRecipe.ToQImage() == expected, row().constData());
                }
            }
        }
    }

    void RefusedRecordsLeaveThePanelAlone_data() { Rows_data(); }
    void RefusedRecordsLeaveThePanelAlone() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        const Panel panel(entry.create(false, nullptr));
        entry.set(*panel, HBDemonstration(*entry.adjustment));
        const QJsonObject before = entry.save(*panel);
        for (const QJsonObject& values : {QJsonObject(), QJsonObject{{"record", "Zm9v"}, {"values", 5}}}) {
            QString reason;
            QVERIFY(!entry.restore(*panel, values, &reason) && !reason.isEmpty());
            QCOMPARE(entry.save(*panel), before);
        }
    }

    /// What a field may be is what a box of the form allows; of a channel or mode that is chosen first, perhaps.
    void FormsAllowWhatFieldsSay_data() { Rows_data(); }
    void FormsAllowWhatFieldsSay() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        const HBAdjustment& adjustment = *entry.adjustment;
        const Panel panel(entry.create(false, nullptr));
        QStringList elsewhere = {"HBThresholdWidget.level",       // the box leaves both ends out
                                 "HBTemperatureWidget.strength"}; // the box does not show the record, on purpose
        for (const char* channel : {"all", "red", "green", "blue"}) { // these boxes keep two levels apart
            for (const char* end : {"black", "white"})
                elsewhere += QString("HBLevelsWidget.input.%1.%2").arg(channel, end);
        }
        for (const HBFieldInfo& field : adjustment.fields) {
            if (field.type != HBFieldInfo::Number || elsewhere.contains(name + '.' + field.key)) continue;
            QVector<std::any> starts = {adjustment.defaults};
            for (const HBFieldInfo& choice : adjustment.fields) {
                for (int value = 0; value < int(choice.values.size()); ++value) {
                    starts.append(adjustment.defaults);
                    choice.set(adjustment.mutableData(starts.last()), value);
                }
            }
            bool found = false;
            for (const std::any& start : starts) {
                std::any ends[] = {start, start};
                field.set(adjustment.mutableData(ends[0]), field.range.minimum);
                field.set(adjustment.mutableData(ends[1]), field.range.maximum);
                found = found || HasBox(entry, *panel, field.range, ends[0], ends[1]);
            }
            QVERIFY2(found, qPrintable(field.key));
        }
    }

    /// A setter of a panel without a record may miss a value by a step; a recipe must not.
    void PlainValuesComeBackExactly() {
        for (const double offset : {-0.5, -0.25, -0.0001, 0.1234, 0.5}) {
            const HBPanelEntry* entry = HBFindPanel("HBExposureWidget");
            const Panel panel(entry->create(false, nullptr));
            const QJsonObject values{{"values", QJsonObject{{"exposure", -offset}, {"offset", offset}}}};
            QString reason;
            QVERIFY2(entry->restore(*panel, values, &reason), qPrintable(reason));
            QCOMPARE(entry->save(*panel), values);
        }
    }
};

HB_TEST_MAIN(tst_HBPanelCatalog)
#include "tst_HBPanelCatalog.moc"
