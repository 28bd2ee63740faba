// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestImages.h"
#include "HBTestMain.h"

#include <HBAdjustmentWidget.h>
#include <HBEditorActions.h>
#include <HBEditorWindow.h>
#include <HBPanelController.h>
#include <HBPanelSession.h>
#include <HBPresetStrip.h>
#include <HBScreenshot.h>

#include <QAction>
#include <QSpinBox>

/// The picture of the window that the documents show, in light and dark colours.
class tst_HBScreenshot : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pictures() {
        const QTemporaryDir folder;
        const QString photo = folder.filePath("photo.png"), file = folder.filePath("window.png");
        QVERIFY(HBTestRamp(300, 200).ToQImage().save(photo));
        HBEditorWindow empty(false);
        QVERIFY(!HBTakeScreenshot(&empty, {file, "HBTintWidget", {}, {900, 600}, {}, {}})); // without a photo
        QVERIFY(!HBTakeScreenshot(&empty, {file, "HBNoWidget", {}, {900, 600}, {}, {}}));
        QVERIFY(!QFile::exists(file));
        const QPalette system = QApplication::palette();
        const QString recipe = SAMPLE_RECIPES "/HBBrightnessContrastWidget.json";
        for (const bool dark : {false, true}) {
            HBEditorWindow window(false);
            QVERIFY(window.Open(photo));
            window.Actions()->dark->setChecked(dark);
            QVERIFY(HBTakeScreenshot(&window,
                                     {file, "HBBrightnessContrastWidget", recipe, {900, 600}, recipe, {recipe}}));
            QCOMPARE(window.Document().StepCount(), 1);
            QCOMPARE(window.Panels()->Presets()->Presets().Names(), QStringList("HBBrightnessContrastWidget"));
            const auto* box = window.Session()->Panel()->findChild<QSpinBox*>("m_pBrightnessSpin");
            QCOMPARE(box->value(), 18); // of the recipe
            const QImage picture(file);
            QCOMPARE(picture.size(), QSize(900, 600));
            const QRect field(box->mapTo(&window, QPoint()), box->size());
            int light = 0;
            for (int x = field.left(); x < field.right(); ++x)
                light += qGray(picture.pixel(x, field.center().y())) > 127;
            QCOMPARE(light > field.width() / 2, !dark);
            QCOMPARE(box->palette().color(QPalette::Text).lightness() > 127, dark); // readable on it
            window.Actions()->dark->setChecked(false);
            QCOMPARE(QApplication::palette().color(QPalette::Base), system.color(QPalette::Base));
        }
        HBEditorWindow other(false);
        QVERIFY(other.Open(photo));
        QVERIFY(
            !HBTakeScreenshot(&other, {file, "HBTintWidget", {}, {900, 600}, {}, {recipe}})); // another panel's
        QVERIFY(!HBTakeScreenshot(&other, {file, {}, {}, {900, 600}, photo, {}}));
        QVERIFY(!HBTakeScreenshot(&empty, {folder.filePath("none/window.png"), {}, {}, {900, 600}, {}, {}}));
    }
};

HB_TEST_MAIN(tst_HBScreenshot)
#include "tst_HBScreenshot.moc"
