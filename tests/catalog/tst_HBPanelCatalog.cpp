// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSignalRecorder.h"
#include "HBTestImages.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBAdjustmentWidget.h>
#include <HBPanelCatalog.h>
#include <MavuCustomSlider.h>

#include <QDoubleSpinBox>
#include <QMetaMethod>
#include <QRadioButton>

#include <algorithm>
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

/// Whether a box of the panel has that range when the panel is given the records of both ends, and shows these, if
/// it shows its record.
bool HasBox(const HBPanelEntry& entry, HBAdjustmentWidget& panel, const HBRange& range, const std::any (&ends)[2],
            bool shows) {
    const auto boxes = panel.findChildren<QAbstractSpinBox*>();
    return std::any_of(boxes.begin(), boxes.end(), [&](const QAbstractSpinBox* box) {
        const auto* real = qobject_cast<const QDoubleSpinBox*>(box);
        if (real && real->decimals() != range.decimals) return false;
        const auto number = [box](const char* property) { return box->property(property).toDouble(); };
        for (const std::any& end : ends) {
            entry.set(panel, end);
            if (number("minimum") != range.minimum || number("maximum") != range.maximum) return false;
            if (shows && number("value") != (&end == ends ? range.minimum : range.maximum)) return false;
        }
        return true;
    });
}

/// From one end to the other and between, whatever is shown.
void MoveAll(const QWidget& panel) {
    for (QWidget* control : panel.findChildren<QWidget*>()) {
        for (const int value : {255, 0, 128, 10, 1}) {
            if (auto* handles = qobject_cast<MavuCustomSlider*>(control)) {
                for (uint i = 0; i < handles->ControlCount(); ++i) handles->SetValue(i, value);
            } else {
                for (const char* name : {"value", "currentIndex"}) {
                    if (control->property(name).isValid()) control->setProperty(name, value);
                }
            }
        }
    }
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
            QCOMPARE(entry.save(*panel), entry.adjustment->save(entry.adjustment->defaults()));
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

    /// The panel and the core, and so a recipe, give the same bytes, whatever the record.
    void PanelsAreTheirAdjustments_data() { Rows_data(); }
    void PanelsAreTheirAdjustments() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        const HBAdjustment& adjustment = *entry.adjustment;
        QVector<std::any> records = {adjustment.defaults(), HBDemonstration(adjustment)};
        for (int i = 0; i < HBHostileRecords; ++i) records.append(HBHostileRecord(adjustment, i));
        const Panel panel(entry.create(false, nullptr));
        for (int i = 0; i < records.size(); ++i) {
            for (const QSize& size :
                 {QSize(1, 1), QSize(127, 3), QSize(128, 128), QSize(129, 130), QSize(257, 140)}) {
                for (const bool selected : {false, true}) {
                    const HBTarget target = HBTestTarget(size, selected);
                    const HBOutcome outcome = HBRun(adjustment, records[i], target);
                    QString reason;
                    const bool behind = i % 2 == 1 && !entry.draw;
                    const QImage byPanel = Adjusted(entry, *panel, target, records[i], behind, &reason).ToQImage();
                    QCOMPARE(reason, HBFailureReason(outcome)); // of an overlay without room
                    const QImage expected = (outcome.IsWhole() ? outcome.image : target.source).ToQImage();
                    const auto row = [&] {
                        return QString("record %1, %2 wide").arg(i).arg(size.width()).toUtf8();
                    };
                    QVERIFY2(byPanel == expected, row().constData());
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
        // A threshold of 0 or 256, which leaves one tone, is a recipe's alone; boxes of levels stay two apart.
        QHash<QString, HBRange> narrower = {{"HBThresholdWidget.level", {1, 255}}};
        for (const char* channel : {"all", "red", "green", "blue"}) {
            narrower.insert(QString("HBLevelsWidget.input.%1.black").arg(channel), {0, 253});
            narrower.insert(QString("HBLevelsWidget.input.%1.white").arg(channel), {2, 255});
        }
        for (const HBFieldInfo& field : adjustment.fields) {
            if (field.type != HBFieldInfo::Number) continue;
            const QString path = name + '.' + field.key;
            const HBRange range = narrower.value(path, field.range);
            const bool shows = path != "HBTemperatureWidget.strength"; // on purpose
            QVector<std::any> starts = {adjustment.defaults()};
            for (const HBFieldInfo& choice : adjustment.fields) {
                for (int value = 0; value < int(choice.values.size()); ++value) {
                    starts.append(adjustment.defaults());
                    choice.set(adjustment.mutableData(starts.last()), value);
                }
            }
            bool found = false;
            for (const std::any& start : starts) {
                std::any ends[] = {start, start};
                field.set(adjustment.mutableData(ends[0]), range.minimum);
                field.set(adjustment.mutableData(ends[1]), range.maximum);
                found = found || HasBox(entry, *panel, range, ends, shows);
            }
            QVERIFY2(found, qPrintable(field.key));
        }
    }

    /// Loading is silent and starts nothing, not even later; resetting tells and works as a change by hand does.
    void LoadedAndReset_data() { Rows_data(); }
    void LoadedAndReset() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        const QJsonObject defaults = entry.adjustment->save(entry.adjustment->defaults());
        const std::any demonstration = HBDemonstration(*entry.adjustment);
        for (const bool dialog : {true, false}) {
            const Panel panel(entry.create(dialog, nullptr));
            HBSignalRecorder recorder(panel.get());
            panel->SetImage(HBTestRamp(20, 20), {}, {}, {});
            HBSettle();
            recorder.Take();
            entry.set(*panel, demonstration);
            if (name != "HBExposureWidget") QCOMPARE(recorder.Take(), QStringList()); // tells, on purpose
            QCOMPARE(entry.save(*panel), entry.adjustment->save(demonstration));
            QVERIFY(HBIsIdle(*panel) || name == "HBExposureWidget");
            for (int again = 0; again < 2; ++again) {
                panel->OnReset();
                QCOMPARE(entry.save(*panel), defaults);
                const bool told = recorder.Count("DataChanged()") > 0;
                QVERIFY(told || again);
                QCOMPARE(HBIsIdle(*panel), !told || !dialog || entry.draw);
                QVERIFY(HBIsIdle(*panel) || recorder.WaitFor("ProgressValueChanged(100)"));
                HBSettle();
                QVERIFY(HBIsIdle(*panel));
                recorder.Take();
            }
        }
    }

    /// What each box shows is what it stores, before it is told: the user changes it and changes it back.
    void Boxes_data() { Rows_data(); }
    void Boxes() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        const Panel panel(entry.create(true, nullptr));
        HBSignalRecorder recorder(panel.get());
        entry.set(*panel, HBDemonstration(*entry.adjustment));
        const QJsonObject stored = entry.save(*panel);
        for (auto* box : panel->findChildren<QAbstractSpinBox*>()) {
            if (name == "HBTemperatureWidget" && box->objectName() == "m_pStrength") continue; // shows no record
            const QVariant value = box->property("value");
            QJsonObject seen;
            recorder.Take();
            recorder.Once("AboutUserParamsChanged()", [&] { seen = entry.save(*panel); });
            box->stepUp();
            if (box->property("value") == value) box->stepDown();
            QVERIFY(box->property("value") != value || !box->isEnabled());
            if (recorder.Count("DataChanged()") == 1) QCOMPARE(seen, entry.save(*panel));
            QVERIFY(box->setProperty("value", value));
            QCOMPARE(entry.save(*panel), stored);
        }
    }

    /// Sources with nothing to measure or to transform. Each comes back with its size and, if not painted, its
    /// alpha.
    void OddSources_data() { Rows_data(); }
    void OddSources() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        const bool paints = name == "HBReplaceColorWidget" || name == "KMFillColorWidget";
        const auto plain = [](int width, int height, QRgb color) {
            QImage image(width, height, QImage::Format_ARGB32);
            image.fill(color);
            return HBImage<>::FromQImage(image);
        };
        const Panel panel(entry.create(true, nullptr));
        HBSignalRecorder recorder(panel.get());
        entry.set(*panel, HBDemonstration(*entry.adjustment));
        for (const HBImage<>& source :
             {HBImage<>(), plain(1, 1, qRgba(200, 100, 0, 255)), plain(1, 1, 0), plain(130, 3, qRgb(0, 0, 0)),
              plain(130, 3, qRgb(255, 255, 255)), plain(130, 3, qRgba(0, 0, 255, 128))}) {
            recorder.Take();
            panel->SetImage(source, {}, {}, {});
            QVERIFY(QTest::qWaitFor([&] { return HBIsIdle(*panel); }));
            HBSettle();
            if (entry.draw) continue;
            QVERIFY(recorder.Count("ImageReady") > 0);
            const HBImage<> result = panel->AdjustedImage();
            QCOMPARE(QSize(result.Width(), result.Height()), QSize(source.Width(), source.Height()));
            if (!source.IsEmpty() && !paints)
                QCOMPARE(qAlpha(result.ToQImage().pixel(0, 0)), qAlpha(source.ToQImage().pixel(0, 0)));
            QVERIFY(!panel->HasJobFailed());
        }
    }

    /// Bytes of any content in a record: it is refused, or shown and worked with, and every control still answers.
    void HostileFields_data() { Rows_data(); }
    void HostileFields() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        if (!entry.tag) return;
        const QByteArray record = QByteArray::fromBase64(
            entry.adjustment->save(HBDemonstration(*entry.adjustment))["record"].toString().toLatin1());
        for (const char* pattern : {"00", "01", "7f", "80", "ff", "7fffffff", "80000000", "0fffffff"}) {
            for (const int kept : {0, 4, 8, int(record.size() / 2 - qstrlen(entry.tag))}) {
                QByteArray bytes = record.left(int(qstrlen(entry.tag)) + qMax(0, kept));
                while (bytes.size() < record.size()) bytes += QByteArray::fromHex(pattern);
                const QString text = bytes.left(record.size()).toBase64();
                const Panel panel(entry.create(true, nullptr));
                HBSignalRecorder recorder(panel.get());
                QString reason;
                if (!entry.restore(*panel, {{"record", text}}, &reason)) continue;
                QCOMPARE(recorder.Take(), QStringList());
                panel->SetImage(HBTestRamp(20, 20), {}, {}, {});
                HBSettle();
                QCOMPARE(recorder.Count("ImageReady"), entry.draw ? 0 : 1);
                MoveAll(*panel);
                HBSettle();
            }
        }
    }

    /// Panels whose job has just been started, and ones in the midst of it.
    void Destruction_data() { Rows_data(); }
    void Destruction() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        const HBImage<> photo = HBTestRamp(1500, 1500);
        for (const bool running : {false, true, false, true}) {
            const Panel panel(entry.create(true, nullptr));
            HBSignalRecorder recorder(panel.get());
            entry.set(*panel, HBDemonstration(*entry.adjustment));
            panel->SetImage(photo, {}, {}, {});
            if (running && !entry.draw) QVERIFY(recorder.WaitFor("Progress"));
        }
    }

    /// Buttons of the host beside an embedded panel are left alone, and leave the panel's alone.
    void HostsRadios_data() { Rows_data(); }
    void HostsRadios() {
        QFETCH(QString, name);
        const HBPanelEntry& entry = *HBFindPanel(name);
        QWidget host;
        HBAdjustmentWidget* panel = entry.create(false, &host); // first: Qt asks the buttons in their order
        QRadioButton first(&host), second(&host);
        first.setChecked(true);
        entry.set(*panel, HBDemonstration(*entry.adjustment));
        QVERIFY(first.isChecked());
        second.setChecked(true);
        QVERIFY(!first.isChecked());
        const auto own = panel->findChildren<QRadioButton*>();
        QVERIFY(own.isEmpty() || std::any_of(own.begin(), own.end(), [](auto* b) { return b->isChecked(); }));
    }

    /// The size that a form has at first, and what looks like a slip but is not.
    void Forms() {
        const QHash<QString, QSize> sizes = {{"HBBrightnessContrastWidget", {208, 103}},
                                             {"HBGammaCorrectionWidget", {208, 105}},
                                             {"HBExposureWidget", {212, 93}},
                                             {"HBPosterizeWidget", {267, 63}},
                                             {"HBHueSaturationWidget", {223, 165}},
                                             {"HBColorBalanceWidget", {254, 341}},
                                             {"HBWBWidget", {438, 288}},
                                             {"HBTemperatureWidget", {310, 96}},
                                             {"HBColorEnhancerWidget", {390, 109}},
                                             {"HBTintWidget", {276, 228}},
                                             {"HBPhotoFilterWidget", {276, 172}},
                                             {"HBColorizeWidget", {229, 101}},
                                             {"KMFillColorWidget", {522, 116}},
                                             {"HBReplaceColorWidget", {300, 246}},
                                             {"HBSignWidget", {261, 311}},
                                             {"HBWatermarkWidget", {276, 353}}};
        for (auto row = sizes.begin(); row != sizes.end(); ++row)
            QCOMPARE(Panel(HBFindPanel(row.key())->create(false, nullptr))->size(), row.value());
        const struct {
            const char *panel, *control, *property;
            int value;
        } rows[] = {{"HBHueSaturationWidget", "m_pHueSpin", "minimumWidth", 50},
                    {"HBTemperatureWidget", "labelContrast", "alignment", Qt::AlignRight | Qt::AlignVCenter},
                    {"HBWatermarkWidget", "m_pAngleSldr", "maximumWidth", 36},
                    {"HBWatermarkWidget", "m_pAngleSldr", "minimumHeight", 36},
                    {"HBWatermarkWidget", "m_pHrzTiles", "maximumWidth", 40}};
        for (const auto& row : rows) {
            const Panel panel(HBFindPanel(row.panel)->create(false, nullptr));
            const int value = panel->findChild<QWidget*>(row.control)->property(row.property).toInt();
            QCOMPARE(value & row.value, row.value);
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
