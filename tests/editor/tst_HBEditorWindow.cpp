// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBAdjustmentWidget.h>
#include <HBEditorActions.h>
#include <HBEditorWindow.h>
#include <HBMessageBar.h>
#include <HBPanelCatalog.h>
#include <HBSelectionTool.h>
#include <HBTileWarnings.h>
#include <KMDocumentView.h>

#include <QAction>
#include <QActionGroup>
#include <QDialog>
#include <QDragEnterEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTimer>

#include <algorithm>
#include <memory>
#include <thread>

class TestHBEditorWindow : public QObject {
    Q_OBJECT

    /// A photo file of that size, a ramp.
    QString Photo(const QString& name, int width = 300, int height = 200) {
        QImage image(width, height, QImage::Format_RGB32);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgb(x & 255, y & 255, 100));
        }
        image.save(m_Folder.filePath(name));
        return m_Folder.filePath(name);
    }

    static const HBPanelEntry& Entry() { return *HBFindPanel("HBBrightnessContrastWidget"); }
    static QSpinBox* Brightness(const HBEditorWindow& window) {
        return window.Session()->Panel()->findChild<QSpinBox*>("m_pBrightnessSpin");
    }

    void OpenWithPanel(HBEditorWindow* window) {
        window->show();
        QVERIFY(window->Open(Photo("a.png")));
        QVERIFY(window->OpenPanel(Entry()));
    }
    static void Apply(const HBEditorWindow& window, int brightness) {
        Brightness(window)->setValue(brightness);
        Q_EMIT window.Session()->Panel()->Ok();
        QTRY_VERIFY(!window.Session());
    }

    /// Presses a button of the next message box.
    static void Answer(QMessageBox::StandardButton button) {
        QTimer::singleShot(0, qApp, [=] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box)
                box->button(button)->click();
            else
                Answer(button); // not there yet
        });
    }

private Q_SLOTS:

    void everyPanelOpensAndCloses() {
        for (const bool docked : {true, false}) {
            HBEditorWindow window(false);
            window.show();
            window.Actions()->docked->setChecked(docked);
            QVERIFY(!window.Actions()->panels->isEnabled()); // no photo yet
            QVERIFY(!window.OpenPanel(Entry()));
            QVERIFY(window.Open(Photo("a.png")));
            QVERIFY(window.Actions()->panels->isEnabled());
            QCOMPARE(window.Actions()->panels->actions().size(), HBPanelCatalog().size());
            for (const HBPanelEntry& entry : HBPanelCatalog()) {
                QVERIFY(window.OpenPanel(entry));
                const QPointer<HBAdjustmentWidget> panel = window.Session()->Panel();
                QVERIFY(panel->isVisible());
                QCOMPARE(qobject_cast<QDialog*>(panel->window()) != nullptr, !docked);
                window.Actions()->docked->toggle(); // moves the panel
                QVERIFY(panel->isVisible());
                QCOMPARE(qobject_cast<QDialog*>(panel->window()) != nullptr, docked);
                window.Actions()->docked->toggle();
                if (docked)
                    Q_EMIT panel->Cancel();
                else
                    panel->window()->close();
                QVERIFY(!window.Session());
                QTRY_VERIFY(!panel);
            }
            QVERIFY(!window.Document().IsModified());
        }
    }

    void previewOkUndoRecipe() {
        HBEditorWindow window(false);
        OpenWithPanel(&window);
        Brightness(window)->setValue(50);
        QTRY_VERIFY(window.View()->Picture().PixelAt(0, 0) == HBRGBA32i(50, 50, 150));
        QVERIFY(window.Document().Image().PixelAt(0, 0) == HBRGBA32i(0, 0, 100));
        Apply(window, 60);
        QVERIFY(window.Document().Image().PixelAt(0, 0) == HBRGBA32i(60, 60, 160));
        QVERIFY(window.isWindowModified());
        const QImage adjusted = window.Document().Image().ToQImage();
        const QString recipe = m_Folder.filePath("recipe.json");
        QString error;
        QVERIFY2(window.Document().Recipe(nullptr).Save(recipe, &error), qPrintable(error));
        window.Actions()->undo->trigger();
        QVERIFY(window.Document().Recipe(nullptr).steps.isEmpty());
        QVERIFY(window.View()->Picture().PixelAt(0, 0) == HBRGBA32i(0, 0, 100));
        QVERIFY(!window.isWindowModified());
        QVERIFY(window.ApplyRecipe(recipe));
        QCOMPARE(window.Document().Image().ToQImage(), adjusted);
        QVERIFY(!window.ApplyRecipe(Photo("norecipe.png")));
        QVERIFY(window.MessageBar()->Text().contains("norecipe.png"));
    }

    void selectionReachesAnOpenPanelAndStaysOutOfTheRecipe() {
        HBEditorWindow window(false);
        OpenWithPanel(&window);
        Brightness(window)->setValue(50);
        window.SelectionTool()->SetShape({HBSelectionShape::Kind::Rectangle, QRect(0, 0, 10, 10), 0, false});
        Q_EMIT window.Session()->Panel()->Ok();
        QTRY_VERIFY(!window.Session());
        QVERIFY(window.Document().Image().PixelAt(9, 9) == HBRGBA32i(59, 59, 150));
        QVERIFY(window.Document().Image().PixelAt(10, 9) == HBRGBA32i(10, 9, 100));
        int leftOut = 0;
        QVERIFY(window.Document().Recipe(&leftOut).steps.isEmpty());
        QCOMPARE(leftOut, 1);
    }

    void badFilesLeaveThePhotoAlone() {
        HBEditorWindow window(false);
        QVERIFY(window.Open(Photo("good.png")));
        QFile text(m_Folder.filePath("text.jpg"));
        QVERIFY(text.open(QIODevice::WriteOnly) && text.write("no photo") > 0);
        text.close();
        for (const char* name : {"text.jpg", "missing.png"}) {
            QVERIFY(!window.Open(m_Folder.filePath(name)));
            QVERIFY2(window.MessageBar()->Text().contains(name), qPrintable(window.MessageBar()->Text()));
            QCOMPARE(window.Document().FileName(), QString("good.png"));
        }
        QVERIFY(window.Open(Photo("good.png")));
        QVERIFY(window.MessageBar()->Text().isEmpty());
    }

    void failedSaveLosesNothing() {
        HBEditorWindow window(false);
        OpenWithPanel(&window);
        Apply(window, 50);
        QVERIFY(window.Actions()->save->isEnabled());
        QVERIFY(!window.SaveTo(m_Folder.filePath("nowhere/b.png")));
        QVERIFY(window.MessageBar()->Text().contains("nowhere/b.png"));
        QVERIFY(window.Document().IsModified());
        QCOMPARE(window.Document().FileName(), QString("a.png"));
        QVERIFY(window.SaveTo(m_Folder.filePath("b.png")));
        QVERIFY(!window.Document().IsModified());
        QVERIFY(!window.Actions()->save->isEnabled());
        QCOMPARE(QImage(m_Folder.filePath("b.png")).pixel(0, 0), qRgb(50, 50, 150));
    }

    void anotherPhotoWithAPanelOpen_data() {
        HBColumns<int, int, bool>("answer", "second", "opens"); // second: to the question whether to save
        QTest::newRow("stay") << int(QMessageBox::Cancel) << 0 << false;
        QTest::newRow("discard") << int(QMessageBox::Discard) << 0 << true;
        QTest::newRow("apply, do not save") << int(QMessageBox::Apply) << int(QMessageBox::Discard) << true;
        QTest::newRow("apply, stay") << int(QMessageBox::Apply) << int(QMessageBox::Cancel) << false;
    }
    void anotherPhotoWithAPanelOpen() {
        QFETCH(int, answer);
        QFETCH(int, second);
        QFETCH(bool, opens);
        HBEditorWindow window(false);
        OpenWithPanel(&window);
        QVERIFY(window.Open(Photo("b.png"))); // nothing is changed: no question
        QVERIFY(!window.Session());
        window.OpenPanel(Entry());
        Brightness(window)->setValue(50); // younger than the debounce
        QTimer::singleShot(0, this, [=] {
            Answer(QMessageBox::StandardButton(answer));
            if (second) QTimer::singleShot(0, qApp, [=] { Answer(QMessageBox::StandardButton(second)); });
        });
        QCOMPARE(window.Open(Photo("c.png", 10, 10)), opens);
        QCOMPARE(window.Document().FileName(), QString(opens ? "c.png" : "b.png"));
        if (answer == QMessageBox::Apply && !opens)
            QVERIFY(window.Document().Image().PixelAt(0, 0) == HBRGBA32i(50, 50, 150));
    }

    void droppedFileIsOpened() {
        HBEditorWindow window(false);
        window.show();
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(Photo("dropped.png"))});
        QWidget* photo = window.View()->viewport();
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(photo, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(photo, &drop);
        QTRY_COMPARE(window.Document().FileName(), QString("dropped.png"));
    }

    void tellsOfAFullScratchDisk() {
        HBEditorWindow window(false);
        HBShowTileWarnings(window.MessageBar());
        const char* text =
            "Image data cannot be moved to the scratch file (is the disk full?): it stays in memory";
        QTest::ignoreMessage(QtWarningMsg, text);
        std::thread([=] { qWarning("%s", text); }).join();
        QTRY_VERIFY(window.MessageBar()->Text().contains("Save your work"));
    }

    void aRecipeCanBeStopped() {
        HBEditorWindow window(false);
        window.Open(Photo("large.png", 3000, 2000));
        const QString recipe = m_Folder.filePath("stopped.json");
        HBRecipe steps{QVector<HBRecipeStep>(50)};
        const std::unique_ptr<HBAdjustmentWidget> panel(Entry().create(false, nullptr));
        steps.steps.fill({Entry().className, Entry().save(*panel)});
        QString error;
        QVERIFY(steps.Save(recipe, &error));
        QTimer::singleShot(0, qApp, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        QVERIFY(!window.ApplyRecipe(recipe));
        QVERIFY(!window.Document().IsModified());
        QCOMPARE(window.MessageBar()->Text(), QString());
    }

    void destroyedWithAPanelAtWork() {
        auto window = std::make_unique<HBEditorWindow>(false);
        window->show();
        window->Open(Photo("large.png", 3000, 2000));
        window->OpenPanel(Entry());
        const QPointer<HBAdjustmentWidget> panel = window->Session()->Panel();
        window.reset();
        QVERIFY(!panel);
    }

    void tabReachesAllControls_data() {
        HBColumns<QString, bool>("panel", "moved"); // moved: from one arrangement to the other while it is open
        for (const char* panel : {"HBBrightnessContrastWidget", "HBLevelsWidget", "HBWatermarkWidget"}) {
            QTest::addRow("%s", panel) << panel << false;
            QTest::addRow("%s, moved", panel) << panel << true;
        }
    }
    /// Round a docked panel and the rest of the window, and back to where it began.
    void tabReachesAllControls() {
        QFETCH(QString, panel);
        QFETCH(bool, moved);
        HBEditorWindow window(false);
        window.show();
        window.Actions()->docked->setChecked(!moved);
        QVERIFY(window.Open(Photo("a.png")));
        QVERIFY(window.OpenPanel(*HBFindPanel(panel)));
        if (moved) window.Actions()->docked->setChecked(true);
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCoreApplication::processEvents();
        QWidgetList left = window.Session()->Widget()->findChildren<QWidget*>();
        left.erase(std::remove_if(left.begin(), left.end(),
                                  [](const QWidget* widget) {
                                      return !(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisible() ||
                                             !widget->isEnabled() || widget->focusProxy() ||
                                             qobject_cast<QAbstractSpinBox*>(widget->parentWidget());
                                  }),
                   left.end());
        QWidget* first = window.focusWidget();
        QVERIFY(left.contains(first));
        for (int i = 0; i < 60; ++i) {
            left.removeOne(window.focusWidget());
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
            if (window.focusWidget() == first) break;
        }
        QCOMPARE(window.focusWidget(), first);
        QVERIFY2(left.isEmpty(), qPrintable(left.value(0) ? left.value(0)->objectName() : QString()));
    }

    void returnAndEscape_data() {
        HBColumns<QString, QString, bool, int, bool>("panel", "control", "moved", "key", "applied");
        struct Row {
            const char* panel;
            const char* control; // none: the photo
            int key;
            bool applied;
        };
        const Row rows[] = {{"HBLevelsWidget", "m_pLowInput", Qt::Key_Return, true},
                            {"HBLevelsWidget", "m_pChannel", Qt::Key_Enter, true},
                            {"HBLevelsWidget", "m_pInputSlider", Qt::Key_Return, true},
                            {"HBLevelsWidget", "m_pLowInput", Qt::Key_Escape, false},
                            {"HBLevelsWidget", "m_pChannel", Qt::Key_Escape, false},
                            {"HBWatermarkWidget", "m_pText", Qt::Key_Return, true},
                            {"HBWatermarkWidget", "m_pText", Qt::Key_Escape, false},
                            {"HBWatermarkWidget", "", Qt::Key_Return, true},
                            {"HBLevelsWidget", "", Qt::Key_Escape, false}};
        for (const Row& row : rows) {
            // As it opens, and docked or undocked while it is open.
            for (const bool moved : {false, true}) {
                const bool undocked = moved && *row.control;
                QTest::addRow("%s %s %x %d", row.panel, row.control, row.key, moved)
                    << row.panel << row.control << undocked << row.key << row.applied;
            }
        }
    }
    void returnAndEscape() {
        QFETCH(QString, panel);
        QFETCH(QString, control);
        QFETCH(bool, moved);
        QFETCH(int, key);
        QFETCH(bool, applied);
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(Photo("a.png")));
        window.SelectionTool()->SetShape({HBSelectionShape::Kind::Rectangle, QRect(0, 0, 10, 10), 0, false});
        QVERIFY(window.OpenPanel(*HBFindPanel(panel)));
        if (moved) window.Actions()->docked->setChecked(false);
        QWidget* content = window.Session()->Widget();
        content->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(content->window()));
        QCoreApplication::processEvents();
        auto* widget = control.isEmpty() ? window.View() : content->findChild<QWidget*>(control);
        widget->setFocus();
        if (control == "m_pLowInput") {
            qobject_cast<QSpinBox*>(widget)->selectAll();
            QTest::keyClicks(widget, "30"); // younger than the debounce
        }
        QTest::keyClick(widget, Qt::Key(key));
        QTRY_VERIFY(!window.Session());
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(window.Document().IsModified(), applied);
        if (control == "m_pLowInput" && applied)
            QVERIFY(window.Document().Image().PixelAt(9, 9) == HBRGBA32i(0, 0, 79)); // what was typed, not Auto
        QVERIFY(!window.SelectionTool()->Shape().IsNone());
    }

    void keys() {
        HBEditorWindow window(false);
        OpenWithPanel(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QSpinBox* spin = Brightness(window);
        spin->setFocus();
        spin->selectAll();
        const double zoom = window.View()->Zoom();
        QTest::keyClicks(spin, "-40"); // typing is no command
        QCOMPARE(spin->value(), -40);
        QCOMPARE(window.View()->Zoom(), zoom);
        spin->setValue(100);
        QTRY_VERIFY(window.View()->Picture().PixelAt(0, 0) == HBRGBA32i(100, 100, 200));
        auto middle = [&] {
            const QImage image = window.View()->viewport()->grab().toImage();
            return image.pixelColor(image.rect().center()).blue();
        };
        QCOMPARE(middle(), 200);
        QTest::keyPress(window.View(), Qt::Key_Backslash);
        QCOMPARE(middle(), 100);
        QTest::keyRelease(window.View(), Qt::Key_Backslash);
        QCOMPARE(middle(), 200);
    }

private:
    QTemporaryDir m_Folder;
};

HB_TEST_MAIN(TestHBEditorWindow)
#include "tst_HBEditorWindow.moc"
