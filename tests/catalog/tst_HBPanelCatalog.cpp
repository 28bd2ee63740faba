// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBAdjustmentWidget.h>
#include <HBPanelCatalog.h>

#include <QJsonArray>
#include <QMetaMethod>

#include <memory>

namespace {

QJsonObject WithRecord(const QByteArray& record) { return {{"record", QString::fromLatin1(record.toBase64())}}; }

QByteArray RecordOf(const QJsonObject& values) {
    return QByteArray::fromBase64(values["record"].toString().toLatin1());
}

} // namespace

/// What holds for every panel there is.
class tst_HBPanelCatalog : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void Rows_data() {
        QTest::addColumn<QString>("name");
        QVERIFY(!HBPanelCatalog().isEmpty());
        for (const HBPanelEntry& entry : HBPanelCatalog())
            QTest::newRow(entry.className) << QString(entry.className);
    }
    void Rows() {
        QFETCH(QString, name);
        const HBPanelEntry* entry = HBFindPanel(name);
        QVERIFY(entry);
        QVERIFY(!entry->Group().isEmpty() && !entry->Title().isEmpty());
        int same = 0; // as this one, itself included
        for (const HBPanelEntry& other : HBPanelCatalog())
            same += name == other.className || (entry->tag && qstrcmp(entry->tag, other.tag) == 0);
        QCOMPARE(same, 1);
        QVERIFY(!HBFindPanel(name + "x"));
        for (bool dialog : {false, true}) {
            const std::unique_ptr<HBAdjustmentWidget> panel(entry->create(dialog, nullptr));
            QCOMPARE(QString(panel->metaObject()->className()), name);
        }
    }

    /// A host connects its own controls to a panel's slots: only these panels keep theirs to themselves.
    void SlotsAreTheHostsToo_data() { Rows_data(); }
    void SlotsAreTheHostsToo() {
        QFETCH(QString, name);
        const bool closed = QStringList{"HBLevelsWidget", "HBCurvesWidget",        "HBThresholdWidget",
                                        "HBWBWidget",     "HBColorEnhancerWidget", "HBTintWidget"}
                                .contains(name);
        const std::unique_ptr<HBAdjustmentWidget> panel(HBFindPanel(name)->create(false, nullptr));
        const QMetaObject* meta = panel->metaObject();
        for (int index = meta->methodOffset(); index < meta->methodCount(); ++index) {
            const QMetaMethod method = meta->method(index);
            if (method.methodType() == QMetaMethod::Slot)
                QCOMPARE(method.access(), closed ? QMetaMethod::Private : QMetaMethod::Public);
        }
    }

    void RecordsSurvive_data() { Rows_data(); }
    void RecordsSurvive() {
        QFETCH(QString, name);
        const HBPanelEntry* entry = HBFindPanel(name);
        const std::unique_ptr<HBAdjustmentWidget> panel(entry->create(false, nullptr));
        const QJsonObject defaults = entry->save(*panel);
        QString reason;
        QVERIFY2(entry->restore(*panel, defaults, &reason), qPrintable(reason));
        // The levels panel derives one of its fields anew; what has been read once stays as it is.
        const QJsonObject read = entry->save(*panel);
        QVERIFY2(entry->restore(*panel, read, &reason), qPrintable(reason));
        QCOMPARE(entry->save(*panel), read);
        if (entry->tag) QVERIFY(RecordOf(defaults).startsWith(entry->tag));
    }

    /// A setter of a panel without a record may miss a value by a step; a recipe must not.
    void PlainValuesComeBackExactly() {
        for (const double offset : {-0.5, -0.25, -0.0001, 0.1234, 0.5}) {
            const HBPanelEntry* entry = HBFindPanel("HBExposureWidget");
            const std::unique_ptr<HBAdjustmentWidget> panel(entry->create(false, nullptr));
            const QJsonObject values{{"values", QJsonObject{{"exposure", -offset}, {"offset", offset}}}};
            QString reason;
            QVERIFY2(entry->restore(*panel, values, &reason), qPrintable(reason));
            QCOMPARE(entry->save(*panel), values);
        }
    }

    void HostileRecordsAreRefused_data() { Rows_data(); }
    void HostileRecordsAreRefused() {
        QFETCH(QString, name);
        const HBPanelEntry* entry = HBFindPanel(name);
        const std::unique_ptr<HBAdjustmentWidget> panel(entry->create(false, nullptr));
        const QJsonObject defaults = entry->save(*panel);
        if (!entry->tag) {
            QJsonObject text = defaults["values"].toObject();
            text.begin().value() = "1.5";
            for (const QJsonObject& values :
                 {QJsonObject{}, {{"values", 5}}, {{"values", QJsonObject{}}}, {{"values", text}}}) {
                QString reason;
                QVERIFY(!entry->restore(*panel, values, &reason) && !reason.isEmpty());
                QCOMPARE(entry->save(*panel), defaults);
            }
            return;
        }
        const QByteArray record = RecordOf(defaults);
        QByteArray foreign = record;
        foreign[0] = '?';

        QVector<QJsonObject> hostile = {
            {},
            {{"record", QJsonValue()}},
            {{"record", 5}},
            {{"record", QJsonArray{1}}},
            {{"record", "not base64!"}},
            {{"values", QJsonObject{{"brightness", 5}}}},
            WithRecord(foreign),
            WithRecord(record + '\0'),
            WithRecord(record + record),
            WithRecord(QByteArray(1 << 20, '\xff')),
        };
        for (int size = 0; size < record.size(); ++size) hostile.append(WithRecord(record.left(size)));
        for (const QJsonObject& values : hostile) {
            QString reason;
            QVERIFY2(!entry->restore(*panel, values, &reason), qPrintable(values["record"].toString()));
            QVERIFY(!reason.isEmpty());
            QCOMPARE(entry->save(*panel), defaults);
        }
    }
};

HB_TEST_MAIN(tst_HBPanelCatalog)
#include "tst_HBPanelCatalog.moc"
