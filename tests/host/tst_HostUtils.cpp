// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBTestMain.h>
#include <KMPixelRatioRound.h>
#include <KMStringHelper.h>
#include <KMTheme.h>

#include <QPixmap>

class TestHostUtils : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { KMTheme::Install(); }
    void Ratio();
    void HighDpiNames_data();
    void HighDpiNames();
    void Pictures_data();
    void Pictures();
    void HostFoldersComeFirst();
};

/// The test runs once on a plain and once on a doubled screen.
static bool Doubled() { return qEnvironmentVariable("QT_SCALE_FACTOR") == QLatin1String("2"); }

void TestHostUtils::Ratio() {
    QCOMPARE(KMPixelRatioRound::GetPixelRatio(), Doubled() ? 2.0 : 1.0);
    KMPixelRatioRound::SetPixelRatio(3.0);
    QCOMPARE(KMPixelRatioRound::GetPixelRatio(), 3.0);
    QCOMPARE(KMPixelRatioRound::GetScreenRatio(), Doubled() ? 2.0 : 1.0);
    KMPixelRatioRound::SetPixelRatio(0.0);
}

void TestHostUtils::HighDpiNames_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("doubled");
    QTest::newRow("there is one") << "theme:picker_gray.png"
                                  << "theme:picker_gray@2x.png";
    QTest::newRow("there is none") << "theme:nothing.png"
                                   << "theme:nothing.png";
    QTest::newRow("already") << "theme:picker_gray@2x.png"
                             << "theme:picker_gray@2x.png";
    QTest::newRow("no suffix") << "theme:picker_gray"
                               << "theme:picker_gray";
    QTest::newRow("dot in a folder") << "/a.b/c"
                                     << "/a.b/c";
    QTest::newRow("empty") << ""
                           << "";
}

void TestHostUtils::HighDpiNames() {
    QFETCH(QString, name);
    QFETCH(QString, doubled);
    QCOMPARE(KMStringHelper::DPIAdjustImageName(name), Doubled() ? doubled : name);
}

void TestHostUtils::Pictures_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"cursor", "black", "gray", "white"})
        QTest::newRow(name) << QStringLiteral("theme:picker_%1.png").arg(QLatin1String(name));
}

void TestHostUtils::Pictures() {
    QFETCH(QString, name);
    const QPixmap pixmap(KMStringHelper::DPIAdjustImageName(name));
    QCOMPARE(pixmap.devicePixelRatio(), Doubled() ? 2.0 : 1.0);
    QCOMPARE(pixmap.size() / pixmap.devicePixelRatio(), QSize(16, 16));
    // The tip, where the picker points, is drawn; the corner across it is not.
    const QImage image = pixmap.toImage();
    const int scale = int(pixmap.devicePixelRatio());
    QVERIFY(qAlpha(image.pixel(2 * scale, 14 * scale - 1)) > 128);
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
}

void TestHostUtils::HostFoldersComeFirst() {
    const QTemporaryDir folder;
    QDir::setSearchPaths(QStringLiteral("theme"), {folder.path()});
    KMTheme::Install();
    KMTheme::Install();
    QCOMPARE(QDir::searchPaths(QStringLiteral("theme")), (QStringList{folder.path(), QStringLiteral(":/theme")}));
}

HB_TEST_MAIN(TestHostUtils)
#include "tst_HostUtils.moc"
