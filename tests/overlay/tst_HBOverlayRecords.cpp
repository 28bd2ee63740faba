// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayTests.h"
#include "HBTestMain.h"

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
        QCOMPARE(int(field("blending").values.size()), HBAllModes.at(5) + 1);
    }
};

int main(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    tst_HBOverlayRecords test;
    return HBRunTest(&test, arguments);
}
#include "tst_HBOverlayRecords.moc"
