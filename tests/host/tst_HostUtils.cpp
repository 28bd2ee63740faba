// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBTestMain.h>
#include <KMPixelRatioRound.h>
#include <KMStringHelper.h>
#include <KMTheme.h>

#include <QPixmap>

/// The test runs once on a plain and once on a doubled screen.
static bool Doubled() { return qEnvironmentVariable("QT_SCALE_FACTOR") == QLatin1String("2"); }

class TestHostUtils : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { KMTheme::Install(); }

    void Ratio() {
        QCOMPARE(KMPixelRatioRound::GetPixelRatio(), Doubled() ? 2.0 : 1.0);
        KMPixelRatioRound::SetPixelRatio(3.0);
        QCOMPARE(KMPixelRatioRound::GetPixelRatio(), 3.0);
        QCOMPARE(KMPixelRatioRound::GetScreenRatio(), Doubled() ? 2.0 : 1.0);
        KMPixelRatioRound::SetPixelRatio(0.0);
    }

    void HighDpiNames() {
        const QString picker = "theme:picker_gray.png";
        QCOMPARE(KMStringHelper::DPIAdjustImageName(picker), Doubled() ? "theme:picker_gray@2x.png" : picker);
        for (const char* kept :
             {"theme:nothing.png", "theme:picker_gray@2x.png", "theme:picker_gray", "/a.b/c", ""})
            QCOMPARE(KMStringHelper::DPIAdjustImageName(kept), QString(kept));
    }

    void Pictures() {
        for (const char* name : {"cursor", "black", "gray", "white"}) {
            const QPixmap pixmap(KMStringHelper::DPIAdjustImageName(QString("theme:picker_%1.png").arg(name)));
            const int scale = Doubled() ? 2 : 1;
            QCOMPARE(pixmap.devicePixelRatio(), double(scale));
            QCOMPARE(pixmap.size() / scale, QSize(16, 16));
            // The tip, where the picker points, is drawn; the corner across it is not.
            const QImage image = pixmap.toImage();
            QVERIFY(qAlpha(image.pixel(2 * scale, 14 * scale - 1)) > 128);
            QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
        }
    }

    void HostFoldersComeFirst() {
        const QTemporaryDir folder;
        QDir::setSearchPaths(QStringLiteral("theme"), {folder.path()});
        KMTheme::Install();
        KMTheme::Install();
        QCOMPARE(QDir::searchPaths(QStringLiteral("theme")),
                 (QStringList{folder.path(), QStringLiteral(":/theme")}));
    }
};

HB_TEST_MAIN(TestHostUtils)
#include "tst_HostUtils.moc"
