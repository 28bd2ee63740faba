// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <KMApplication.h>

#include <QSettings>
#include <QStandardPaths>

class TestKMApplication : public QObject {
    Q_OBJECT
private slots:
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
        KMApplication::SetPathOpen(m_Folder.filePath("gone"));
        QCOMPARE(KMApplication::GetPathOpen(), pictures);
    }

    void progressTimeout() {
        QCOMPARE(KMApplication::GetProgressTimeout(), 500);
        KMApplication::SetProgressTimeout(-1);
        QCOMPARE(KMApplication::GetProgressTimeout(), 0);
        KMApplication::SetProgressTimeout(500);
    }

    void tileMemory() {
        KMApplication::SetTileMemory(64 << 20);
        QCOMPARE(KMApplication::GetTileMemory(), qint64(64 << 20));
        KMApplication::SetTileMemory(0);
        QVERIFY(KMApplication::GetTileMemory() > 64 << 20); // half of the RAM
    }

private:
    QTemporaryDir m_Folder;
};

HB_TEST_MAIN(TestKMApplication)
#include "tst_KMApplication.moc"
