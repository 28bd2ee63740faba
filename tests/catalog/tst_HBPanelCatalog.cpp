// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBAdjustmentWidget.h>
#include <HBPanelCatalog.h>

#include <QJsonArray>
#include <QSet>

#include <memory>

namespace
{

QJsonObject WithRecord(const QByteArray& record)
{
    return {{"record", QString::fromLatin1(record.toBase64())}};
}

QByteArray RecordOf(const QJsonObject& values)
{
    return QByteArray::fromBase64(values["record"].toString().toLatin1());
}

} // namespace

/// What holds for every panel there is.
class tst_HBPanelCatalog : public QObject
{
    Q_OBJECT
private slots:
    void Rows_data()
    {
        QTest::addColumn<QString>("name");
        QVERIFY(!HBPanelCatalog().isEmpty());
        for (const HBPanelEntry& entry : HBPanelCatalog())
            QTest::newRow(entry.className) << QString(entry.className);
    }
    void Rows()
    {
        QFETCH(QString, name);
        const HBPanelEntry* entry = HBFindPanel(name);
        QVERIFY(entry);
        QVERIFY(!entry->Group().isEmpty() && !entry->Title().isEmpty());
        for (bool dialog : {false, true}) {
            const std::unique_ptr<HBAdjustmentWidget> panel(entry->create(dialog, nullptr));
            QCOMPARE(QString(panel->metaObject()->className()), name);
        }
    }

    void NamesAndTagsAreUnique()
    {
        QSet<QString> names, tags;
        for (const HBPanelEntry& entry : HBPanelCatalog()) {
            QVERIFY2(!names.contains(entry.className), entry.className);
            names.insert(entry.className);
            if (entry.tag) {
                QVERIFY2(!tags.contains(entry.tag), entry.tag);
                tags.insert(entry.tag);
            }
        }
        QVERIFY(!HBFindPanel("HBNoSuchWidget"));
        QVERIFY(!HBFindPanel({}));
    }

    void RecordsSurvive_data() { Rows_data(); }
    void RecordsSurvive()
    {
        QFETCH(QString, name);
        const HBPanelEntry* entry = HBFindPanel(name);
        const std::unique_ptr<HBAdjustmentWidget> panel(entry->create(false, nullptr));
        const QJsonObject defaults = entry->save(*panel);
        QString reason;
        QVERIFY2(entry->restore(*panel, defaults, &reason), qPrintable(reason));
        QCOMPARE(entry->save(*panel), defaults);
        if (entry->tag)
            QVERIFY(RecordOf(defaults).startsWith(entry->tag));
    }

    void HostileRecordsAreRefused_data() { Rows_data(); }
    void HostileRecordsAreRefused()
    {
        QFETCH(QString, name);
        const HBPanelEntry* entry = HBFindPanel(name);
        if (!entry->tag)
            return;
        const std::unique_ptr<HBAdjustmentWidget> panel(entry->create(false, nullptr));
        const QJsonObject defaults = entry->save(*panel);
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
        for (int size = 0; size < record.size(); ++size)
            hostile.append(WithRecord(record.left(size)));
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
