// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <KMImageFileManager.h>

class TestKMImageFileManager : public QObject {
    Q_OBJECT
private slots:
    void suffixes() {
        for (const QStringList& suffixes :
             {KMImageFileManager::SuffixesForRead(), KMImageFileManager::SuffixesForWrite()}) {
            for (const char* photo : {"jpg", "jpeg", "png"}) QVERIFY2(suffixes.contains(photo), photo);
            for (const char* drawing : {"svg", "ico", "pdf"}) QVERIFY2(!suffixes.contains(drawing), drawing);
            QStringList sorted = suffixes;
            sorted.sort();
            QCOMPARE(suffixes, sorted);
            QCOMPARE(sorted.removeDuplicates(), 0);
        }
    }

    void filters() {
        for (const QString& filter :
             {KMImageFileManager::GetFilterForRead(), KMImageFileManager::GetFilterForWrite()}) {
            const QStringList entries = filter.split(";;");
            QVERIFY(entries.size() >= 4);
            QVERIFY(entries.first().contains("*.jpg") && entries.first().contains("*.png"));
            QVERIFY(entries.contains("JPEG (*.jpg *.jpeg)"));
            QVERIFY(entries.contains("PNG (*.png)"));
            QCOMPARE(entries.last(), QString("All files (*)"));
        }
    }
};

HB_TEST_MAIN(TestKMImageFileManager)
#include "tst_KMImageFileManager.moc"
