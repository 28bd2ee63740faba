// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"
#include "HBTestProfiles.h"

#include <HBAdjustmentWidget.h>
#include <HBBeforeAfter.h>
#include <HBColorTransform.h>
#include <HBEditorActions.h>
#include <HBEditorWindow.h>
#include <HBPanelHead.h>
#include <HBPhotoPicks.h>
#include <HBSideBySide.h>
#include <HBTemperature.h>
#include <HBTestRecords.h>
#include <HBViewAids.h>
#include <HBViewColors.h>
#include <KMDocumentView.h>

#include <QAction>
#include <QCheckBox>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolButton>

class TestHBViewAids : public QObject {
    Q_OBJECT

    /// A photo of 400 x 300 of one colour, with that profile.
    QString Photo(QRgb color, const QByteArray& icc = {}) {
        QImage picture(400, 300, QImage::Format_RGB32);
        picture.fill(color);
        HBImage<> image = HBImage<>::FromQImage(picture);
        image.SetProfile(KMCMSProfile(icc));
        QString error;
        const QString path = m_Folder.filePath("a.png");
        return HBWritePhoto(path, image, {}, &error) ? path : error;
    }
    /// In the middle of the view, where a slow machine shows it a little later.
    static QRgb Seen(const HBEditorWindow& window) {
        QWidget* viewport = window.View()->viewport();
        return viewport->grab().toImage().pixel(viewport->rect().center());
    }

private Q_SLOTS:
    void colorsAreConverted() {
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(Photo(qRgb(200, 100, 50), HBWideProfile())));
        const QRgb expected = HBThroughProfiles({qRgb(200, 100, 50)}, TYPE_BGRA_8, HBWideProfile(), {}).first();
        QTRY_COMPARE(Seen(window), expected);
        window.Actions()->showBefore->pressed();
        QTRY_COMPARE(Seen(window), expected);
        QCOMPARE(window.Document().Image().PixelAt(9, 9).ToRgba(), qRgb(200, 100, 50));
        // On a monitor of that profile, from a file.
        QFile file(m_Folder.filePath("monitor.icc"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(HBWideProfile()) > 0);
        file.close();
        QString reason;
        QVERIFY(window.ViewAids()->Colors()->SetMonitorFile(file.fileName(), &reason));
        QTRY_COMPARE(Seen(window), qRgb(200, 100, 50));
        QVERIFY(!window.ViewAids()->Colors()->SetMonitorFile(Photo(0), &reason) && !reason.isEmpty());
        QCOMPARE(window.ViewAids()->Colors()->MonitorFile(), file.fileName());
        QVERIFY(window.Open(Photo(qRgb(1, 2, 3))));
        QVERIFY(window.ViewAids()->Colors()->PhotoProfileName().startsWith("sRGB ("));
    }

    /// Preview off, side by side, and the pixel under the mouse.
    void beforeIsShown() {
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(Photo(qRgb(100, 100, 100))));
        QVERIFY(window.OpenPanel(*HBFindPanel("HBBrightnessContrastWidget")));
        window.Session()->Panel()->findChild<QSpinBox*>("m_pBrightnessSpin")->setValue(20);
        QTRY_VERIFY(window.Session()->IsUpToDate());
        QTRY_COMPARE(Seen(window), qRgb(120, 120, 120));
        window.ViewAids()->Head()->PreviewBox()->setChecked(false);
        QTRY_COMPARE(Seen(window), qRgb(100, 100, 100));
        Q_EMIT window.View()->PixelHovered({5, 6});
        QCOMPARE(window.ViewAids()->PixelText(), QString("5, 6:  100 100 100 → 120 120 120"));

        HBSideBySide* both = window.ViewAids()->SideBySide();
        window.ViewAids()->SideBySideAction()->trigger();
        QCOMPARE(both->BeforeView()->Picture().PixelAt(0, 0).ToRgba(), qRgb(100, 100, 100));
        window.View()->SetZoom(4);
        window.View()->horizontalScrollBar()->setValue(77);
        QCOMPARE(both->BeforeView()->Zoom(), 4.0);
        QCOMPARE(both->BeforeView()->horizontalScrollBar()->value(), 77);
        both->BeforeView()->SetZoom(3);
        QCOMPARE(window.View()->Zoom(), 3.0);

        // Without this step, or as opened.
        Q_EMIT window.Session()->Panel()->Ok();
        QTRY_VERIFY(!window.Session());
        QTRY_COMPARE(Seen(window), qRgb(120, 120, 120)); // the tick went with its panel
        QVERIFY(window.OpenPanel(*HBFindPanel("HBExposureWidget")));
        QCOMPARE(both->BeforeView()->Picture().PixelAt(0, 0).ToRgba(), qRgb(120, 120, 120));
        window.ViewAids()->CompareOpenedAction()->trigger();
        QCOMPARE(both->BeforeView()->Picture().PixelAt(0, 0).ToRgba(), qRgb(100, 100, 100));
    }

    /// The colour of the photo becomes what the button says.
    void valuesArePicked_data() {
        QTest::addColumn<QString>("panel");
        QTest::addColumn<QVector<int>>("buttons");
        QTest::addColumn<QRgb>("expected"); ///< alpha 0: any grey
        const QRgb grey = 0;
        QTest::newRow("neutral") << "HBTemperatureWidget" << QVector<int>{0} << grey;
        QTest::newRow("black") << "HBLevelsWidget" << QVector<int>{0} << qRgb(0, 0, 0);
        QTest::newRow("white") << "HBLevelsWidget" << QVector<int>{2} << qRgb(255, 255, 255);
        QTest::newRow("grey") << "HBLevelsWidget" << QVector<int>{1} << grey;
    }
    void valuesArePicked() {
        QFETCH(QString, panel);
        QFETCH(QVector<int>, buttons);
        QFETCH(QRgb, expected);
        for (const QRgb color : {qRgb(150, 120, 90), qRgb(90, 120, 160), qRgb(118, 128, 112)}) {
            HBEditorWindow window(false);
            window.show();
            QVERIFY(window.Open(Photo(color)));
            QVERIFY(window.OpenPanel(*HBFindPanel(panel)));
            QTRY_VERIFY(window.Session()->IsUpToDate());
            for (const int button : buttons) {
                window.ViewAids()->Head()->PickButtons().at(button)->click();
                QVERIFY(window.View()->HasOverrideCursor());
                QTest::mouseClick(window.View()->viewport(), Qt::LeftButton, {},
                                  window.View()->mapFromScene(200, 150));
                QVERIFY(!window.View()->HasOverrideCursor());
            }
            QTRY_VERIFY(window.Session()->IsUpToDate());
            const QRgb made = window.Session()->Preview().PixelAt(200, 150).ToRgba();
            const auto text = QString::number(made, 16).toLatin1();
            if (qAlpha(expected) == 255)
                QCOMPARE(made, expected);
            else // to the step of the values
                QVERIFY2(qAbs(qRed(made) - qGreen(made)) <= 2 && qAbs(qBlue(made) - qGreen(made)) <= 2,
                         text.constData());
        }
    }

    void aPickCanBeGivenUpOrFail() {
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(Photo(qRgb(255, 255, 255))));
        QVERIFY(window.OpenPanel(*HBFindPanel("HBTemperatureWidget")));
        const QByteArray values = window.Session()->SaveValues();
        QToolButton* button = window.ViewAids()->Head()->PickButtons().first();
        button->click();
        QTest::keyClick(window.View(), Qt::Key_Escape);
        QVERIFY(!window.View()->HasOverrideCursor() && !button->isChecked() && window.Session());
        button->click();
        QTest::mouseClick(window.View()->viewport(), Qt::LeftButton, {}, window.View()->mapFromScene(9, 9));
        QVERIFY(!button->isChecked());
        QCOMPARE(window.Session()->SaveValues(), values);
        for (const HBPhotoPick& pick : HBPhotoPicksOf("HBLevelsWidget")) {
            for (const QRgb color : {qRgb(0, 0, 0), qRgb(255, 255, 255)}) {
                std::any record = HBFindAdjustment("HBLevelsWidget")->defaults();
                pick.apply(HBRGBA32i::FromRgba(color), &record); // nothing that the record cannot hold
                QVERIFY(HBFindAdjustment("HBLevelsWidget")->save(record).size() > 0);
            }
        }
    }

private:
    QTemporaryDir m_Folder;
};

HB_TEST_MAIN(TestHBViewAids)
#include "tst_HBViewAids.moc"
