// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayTests.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBAdjustment.h>
#include <HBSign.h>
#include <HBWatermark.h>

#include <atomic>
#include <thread>

/// What holds without an application object; there is none here.
class tst_HBOverlayRecords : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// Also with a selection, which overlays ignore.
    void SignOnSeveralThreads() {
        const QTemporaryDir folder;
        const HBTarget target{HBImage<>::FromQImage(HBHalfOpaque(700, 500)), {}, {}, {}};
        HBTarget selected = target;
        selected.selection = HBImage<>::FromQImage(HBPlain(10, 10, Qt::black));
        selected.bounds = QRect(0, 0, 10, 10);
        QVector<HBSignParams> records;
        QVector<QImage> expected;
        for (int i = 0; i < 3; ++i) {
            HBSignParams params;
            params.fileName = folder.filePath(QString("%1.png").arg(i));
            QVERIFY(HBHalfOpaque(200 + 100 * i, 300).save(params.fileName));
            records.append(params);
            expected.append(HBAdjust(params, target).image.ToQImage());
            QVERIFY(expected.last() != target.source.ToQImage());
            QCOMPARE(HBAdjust(params, selected).image.ToQImage(), expected.last());
            // Another file, which nobody has read yet.
            records[i].fileName = folder.filePath(QString("again%1.png").arg(i));
            QVERIFY(QFile::copy(params.fileName, records[i].fileName));
        }
        std::atomic<int> wrong{0};
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([&, t] {
                for (int i = t; i < t + 6; ++i) {
                    const HBOutcome outcome = HBAdjust(records.at(i % 3), target);
                    wrong += outcome.IsWhole() && outcome.image.ToQImage() == expected.at(i % 3) ? 0 : 1;
                }
            });
        }
        for (std::thread& thread : threads) thread.join();
        QCOMPARE(wrong.load(), 0);
    }

    void TextNeedsAnApplication() {
        const HBTarget target{HBImage<>::FromQImage(HBHalfOpaque(300, 200)), {}, {}, {}};
        HBWatermarkParams params;
        QCOMPARE(params.text, QString("Watermark"));
        const HBOutcome outcome = HBAdjust(params, target);
        QCOMPARE(outcome.status, HBOutcome::Failed);
        QCOMPARE(HBFailureReason(outcome),
                 QString("A text needs a program with a graphical application object (QGuiApplication)"));
        params.text = " ";
        QVERIFY(HBAdjust(params, target).IsWhole());
    }

    /// Two records that Qt 5 has written, one with names that are tried before the family. Qt 5 and Qt 6 read them
    /// alike and write the same bytes, whatever the version of the stream.
    void FontOfEitherQt() {
        const struct {
            const char* further;
            QStringList names;
        } rows[] = {{"00000000", {"DejaVu Sans"}},
                    {"00000002000000020041000000020042", {"A", "B", "DejaVu Sans"}}};
        for (const auto& row : rows) {
            const QByteArray record =
                "KMWatermark 1.00000" +
                QByteArray::fromHex("0000000000000005000000050000000500000005000000020048"
                                    "0000001600440065006a006100560075002000530061006e0073ffffffff"
                                    "403e000000000000ffffffff050001004b1100000100000000000000000000") +
                QByteArray::fromHex(row.further) +
                QByteArray::fromHex("01ffffffffffffffff000000000000000000640000000100000001");
            const auto params = HBLoad<HBWatermarkParams>(record);
            QStringList names = params.font.families();
            if (!names.contains(params.font.family())) names += params.font.family();
            QCOMPARE(names, row.names);
            QVERIFY(params.font.bold() && params.font.italic() && params.font.pointSizeF() == 30);
            QCOMPARE(HBStore(params).toHex(), record.toHex());
            const HBAdjustment& watermark = *HBFindAdjustment("HBWatermarkWidget");
            QCOMPARE(QByteArray::fromBase64(watermark.save(params)["record"].toString().toLatin1()), record);
        }
        HBWatermarkParams made;
        made.font = QFont("DejaVu Sans", 30, QFont::Bold, true);
        QVERIFY(HBStore(made).contains(QByteArray::fromHex("403e000000000000ffffffff050001004b1100000100")));
        made.font = QFont();
        QCOMPARE(HBStore(HBLoad<HBWatermarkParams>(HBStore(made))), HBStore(made));
    }

    void Fields() {
        const HBAdjustment* sign = HBFindAdjustment("HBSignWidget");
        QVERIFY(sign && HBFindAdjustment("HBWatermarkWidget"));
        HBSignParams params;
        const auto field = [&](const char* key) {
            for (const HBFieldInfo& info : sign->fields) {
                if (info.key == key) return info;
            }
            return HBFieldInfo();
        };
        const struct {
            const char* key;
            QVariant value, stored; // stored is invalid: nothing changes
        } rows[] = {{"alignment", "right bottom", {}},
                    {"alignment", "hcenter vcenter", {}},
                    {"alignment", 0, {}},
                    {"alignment", 0x118, {}},
                    {"alignment", "up", 0x118},
                    {"alignment", 33, "left top"},
                    {"alignment", QVariant(), "left top"},
                    {"margins.left", -7, {}},
                    {"margins.bottom", 20, {}},
                    {"margins.bottom", "x", 20},
                    {"blending", 13, {}}};
        for (const auto& row : rows) {
            const HBFieldInfo info = field(row.key);
            info.set(&params, row.value);
            QCOMPARE(info.get(&params), row.stored.isValid() ? row.stored : row.value);
        }
        QVERIFY(params.margins == HBMargins(-7, 5, 5, 20));
        QCOMPARE(field("blending").values.at(params.blendingMode), QString("multiply"));
        QCOMPARE(int(field("blending").values.size()), 24); // after exclusion there is none
    }
};

int main(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    tst_HBOverlayRecords test;
    return HBRunTest(&test, arguments);
}
#include "tst_HBOverlayRecords.moc"
