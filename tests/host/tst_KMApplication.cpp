// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <KMApplication.h>
#include <KMImageFileManager.h>

#include <QSettings>
#include <QStandardPaths>

class TestKMApplication : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        // Never the settings of whoever runs the test.
        QVERIFY(m_Folder.isValid());
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_Folder.path());
        QCoreApplication::setOrganizationName("Test");
    }

    void folderIsKeptWhileItExists() {
        const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
        QCOMPARE(KMApplication::GetPathOpen(), pictures);
        KMApplication::SetPathOpen(m_Folder.path());
        QCOMPARE(KMApplication::GetPathOpen(), m_Folder.path());
        QVERIFY(QSettings().allKeys().isEmpty()); // the program's, not ours
        QSettings().setValue("files/pathOpen", m_Folder.path() + "/.");
        KMApplication::KeepPathOpen();
        QCOMPARE(KMApplication::GetPathOpen(), m_Folder.path() + "/.");
        KMApplication::SetPathOpen(m_Folder.path());
        QCOMPARE(QSettings().value("files/pathOpen").toString(), m_Folder.path());
        KMApplication::SetPathOpen(m_Folder.filePath("gone"));
        QCOMPARE(KMApplication::GetPathOpen(), pictures);
    }

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

private:
    QTemporaryDir m_Folder;
};

HB_TEST_MAIN(TestKMApplication)
#include "tst_KMApplication.moc"
