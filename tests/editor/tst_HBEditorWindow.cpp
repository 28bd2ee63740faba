// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAnswers.h"
#include "HBTestMain.h"

#include <HBAdjustmentWidget.h>
#include <HBBusyDialog.h>
#include <HBEditorActions.h>
#include <HBEditorRecipes.h>
#include <HBEditorWindow.h>
#include <HBHueSaturation.h>
#include <HBLevels.h>
#include <HBMessageBar.h>
#include <HBPanelCatalog.h>
#include <HBPanelController.h>
#include <HBPhotoFiles.h>
#include <HBRecovery.h>
#include <HBSelectionTool.h>
#include <HBStepList.h>
#include <HBTestImages.h>
#include <HBTestRecords.h>
#include <HBTileWarnings.h>
#include <KMDocumentView.h>
#include <KMTileManager64.h>

#include <QAction>
#include <QActionGroup>
#include <QDialog>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QImageWriter>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <functional>
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

    /// Ten by ten pixels of Photo().
    static HBSelectionShape Corner() {
        return {{HBShape::OfPixels(HBShape::Kind::Rectangle, QRect(0, 0, 10, 10), 0, QSize(300, 200))}};
    }

    static QByteArray Bytes(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
                    QTest::keyClick(panel->window(), Qt::Key_Escape);
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
        QVERIFY2(window.Document().Recipe().Save(recipe, &error), qPrintable(error));
        window.Actions()->undo->trigger();
        QVERIFY(window.Document().Recipe().steps.isEmpty());
        QVERIFY(window.View()->Picture().PixelAt(0, 0) == HBRGBA32i(0, 0, 100));
        QVERIFY(!window.isWindowModified());
        QVERIFY(window.Recipes()->Apply(recipe));
        QCOMPARE(window.Document().Image().ToQImage(), adjusted);
        QVERIFY(!window.Recipes()->Apply(Photo("norecipe.png")));
        QVERIFY(window.MessageBar()->Text().contains("norecipe.png"));
    }

    void aStepOnASelectionIsPartOfTheRecipe() {
        HBEditorWindow window(false);
        OpenWithPanel(&window);
        Brightness(window)->setValue(50);
        window.SelectionTool()->SetShape(Corner());
        Q_EMIT window.Session()->Panel()->Ok();
        QTRY_VERIFY(!window.Session());
        QVERIFY(window.Document().Image().PixelAt(9, 9) == HBRGBA32i(59, 59, 150));
        QVERIFY(window.Document().Image().PixelAt(10, 9) == HBRGBA32i(10, 9, 100));
        // As the core and panel-replay give it from a file.
        HBRecipe recipe;
        QString error;
        QVERIFY(HBRecipe::FromJson(window.Document().Recipe().ToJson(), &recipe, &error));
        QCOMPARE(HBApplyRecipe(window.Document().Original(), recipe, &error).ToQImage(),
                 window.Document().Image().ToQImage());
        QVERIFY(recipe.steps.first().selection == Corner());
    }

    /// On the photo before it; OK changes it in place, and the steps behind it are done anew.
    void aStepIsOpenedAgain() {
        HBEditorWindow window(false);
        OpenWithPanel(&window);
        window.SelectionTool()->SetShape(Corner());
        Apply(window, 50);
        window.SelectionTool()->SelectNothing();
        window.OpenPanel(*HBFindPanel("HBBlackAndWhiteWidget"));
        Q_EMIT window.Session()->Panel()->Ok();
        QTRY_VERIFY(!window.Session());
        QCOMPARE(window.Document().StepCount(), 2);
        auto* list = window.StepList()->findChild<QListWidget*>();
        QCOMPARE(list->count(), 2);

        list->setCurrentRow(0);
        QTest::keyClick(list, Qt::Key_Return);
        QVERIFY(window.Session());
        QCOMPARE(Brightness(window)->value(), 50);
        QVERIFY(window.SelectionTool()->Shape() == Corner());
        QVERIFY(!list->isEnabled());
        Q_EMIT window.Session()->Panel()->Ok(); // as it was
        QTRY_VERIFY(!window.Session());
        QCOMPARE(window.Document().History().count(), 3);       // with the selection between them
        window.StepList()->findChild<QSlider*>()->setValue(50); // which counts while it is open, too
        QVERIFY(window.Panels()->OpenStep(0));
        QTRY_VERIFY(window.View()->Picture().PixelAt(0, 0) == HBRGBA32i(25, 25, 125));
        Apply(window, 80);
        QCOMPARE(window.Document().StepCount(), 2);
        QVERIFY(window.SelectionTool()->Shape().IsNone());
        QTRY_VERIFY(window.Document().Result().IsUpToDate());
        QString error;
        QCOMPARE(HBApplyRecipe(window.Document().Original(), window.Document().Recipe(), &error).ToQImage(),
                 window.View()->Picture().ToQImage());
        QVERIFY(window.Document().Original().PixelAt(0, 0) == HBRGBA32i(0, 0, 100));

        // The list by keys.
        list->setCurrentRow(1);
        QTest::keyClick(list, Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(window.Document().StepAt(0).panel, QString("HBBlackAndWhiteWidget"));
        QCOMPARE(list->currentRow(), 0);
        QTest::keyClick(list, Qt::Key_Space);
        QTRY_VERIFY(!window.Document().StepAt(0).on);
        QTest::keyClick(list, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(window.Document().StepCount(), 3);
        QTest::keyClick(list, Qt::Key_Delete);
        QTest::keyClick(list, Qt::Key_Delete);
        QCOMPARE(window.Document().StepCount(), 1);
        window.StepList()->findChild<QSlider*>()->setValue(30);
        QCOMPARE(window.Document().StepAt(0).amount, 30);
        for (int i = 0; i < 6; ++i) window.Actions()->undo->trigger();
        QCOMPARE(window.Document().StepCount(), 2);
        QCOMPARE(window.Document().StepAt(1).panel, QString("HBBlackAndWhiteWidget"));
    }

    void undoWhileAPanelIsOpen() {
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(Photo("a.png")) && window.OpenPanel(*HBFindPanel("HBLevelsWidget")));
        auto* low = window.Session()->Panel()->findChild<QSpinBox*>("m_pLowInput");
        const auto undo = window.Actions()->undo;
        QVERIFY(!undo->isEnabled());
        const auto pause = [] { QTest::qWait(350); };
        for (const int value : {5, 10, 20}) low->setValue(value); // one gesture
        pause();
        window.SelectionTool()->SetShape(Corner());
        QCoreApplication::processEvents();
        low->setValue(40);
        window.Session()->Reset(); // at once behind it
        pause();
        QCOMPARE(low->value(), 0);
        undo->trigger();
        QCOMPARE(low->value(), 20);
        QVERIFY(!window.SelectionTool()->Shape().IsNone());
        undo->trigger();
        QVERIFY(window.SelectionTool()->Shape().IsNone());
        QCOMPARE(low->value(), 20);
        undo->trigger();
        QCOMPARE(low->value(), 0);
        QVERIFY(!undo->isEnabled());
        window.Actions()->redo->trigger();
        QCOMPARE(low->value(), 20);
        low->setFocus();
        QTest::keyClick(low, Qt::Key_Z, Qt::ControlModifier); // of the panel, not of the box's text
        QCOMPARE(low->value(), 0);
        window.Actions()->redo->trigger();
        // Presets and picks set values without a word.
        window.Session()->SetStep(HBStepOf(*HBFindAdjustment("HBLevelsWidget"), HBLevelsParams()));
        QTRY_VERIFY(window.Session()->IsUpToDate());
        pause();
        undo->trigger();
        QCOMPARE(low->value(), 20);
        Q_EMIT window.Session()->Panel()->Ok();
        QTRY_VERIFY(!window.Session());
        QCOMPARE(window.Document().History().count(), 1); // all of it is one
        undo->trigger();
        QVERIFY(!window.Document().IsModified());
    }

    /// Without a panel, and with the step that has one.
    void selectionsAreUndone() {
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(Photo("a.png")));
        const HBSelectionShape& shape = window.SelectionTool()->Shape();
        const QUndoStack& history = window.Document().History();
        const auto undo = window.Actions()->undo;
        window.SelectionTool()->SetShape(Corner());
        window.SelectionTool()->SetTool(HBSelectionTool::Tool::Move);
        for (int i = 0; i < 5; ++i) QTest::keyClick(window.View(), Qt::Key_Right);
        window.Actions()->feather->setValue(4);
        window.SelectionTool()->SelectNothing();
        QCOMPARE(history.count(), 4); // the keys are one
        QVERIFY(!window.isWindowModified());
        undo->trigger();
        QCOMPARE(shape.shapes.first().PixelFeather({300, 200}), 4);
        undo->trigger();
        QCOMPARE(window.Actions()->feather->value(), 0);
        QCOMPARE(shape.shapes.first().PixelRect({300, 200}), QRect(5, 0, 10, 10));
        undo->trigger();
        QVERIFY(shape == Corner());
        // What a panel that is cancelled leaves behind, and one that is not.
        for (const bool ok : {false, true}) {
            QVERIFY(window.OpenPanel(Entry()));
            Brightness(window)->setValue(50);
            window.SelectionTool()->Invert();
            const int count = history.index();
            if (ok)
                Q_EMIT window.Session()->Panel()->Ok();
            else
                Q_EMIT window.Session()->Panel()->Cancel();
            QTRY_VERIFY(!window.Session());
            QCOMPARE(history.index(), count + 1);
            QVERIFY(shape == Corner().Inverted());
            QCOMPARE(window.Document().StepCount(), int(ok));
            undo->trigger();
            QVERIFY(shape == Corner());
            QCOMPARE(window.Document().StepCount(), 0);
        }
        window.Actions()->redo->trigger();
        QVERIFY(window.Panels()->OpenStep(0) && shape == Corner().Inverted());
        window.SelectionTool()->SelectAll();
        QTRY_VERIFY(undo->isEnabled());
        undo->trigger();
        QVERIFY(shape == Corner().Inverted());
        Q_EMIT window.Session()->Panel()->Cancel();
        undo->trigger();
        QVERIFY(!window.isWindowModified() && window.Open(Photo("b.png")));
        QVERIFY(shape.IsNone() && !undo->isEnabled());
    }

    void okOfANeutralPanelIsNoStep_data() {
        HBColumns<QString, int>("panel", "steps");
        QTest::newRow("neutral") << "HBBrightnessContrastWidget" << 0;
        QTest::newRow("an overlay of nothing") << "HBSignWidget" << 0;
        QTest::newRow("it acts") << "HBBlackAndWhiteWidget" << 1;
    }
    void okOfANeutralPanelIsNoStep() {
        QFETCH(QString, panel);
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(Photo("a.png")) && window.OpenPanel(*HBFindPanel(panel)));
        window.Session()->Accept();
        QTRY_VERIFY(!window.Session());
        QTEST(window.Document().StepCount(), "steps");
        QCOMPARE(window.isWindowModified(), window.Document().StepCount() > 0);
    }

    /// The cross of a panel's window or side bar asks where Escape does not.
    void theCrossAsks() {
        for (const bool docked : {true, false}) {
            HBEditorWindow window(false);
            window.Actions()->docked->setChecked(docked);
            OpenWithPanel(&window);
            const auto cross = [&] {
                QWidget* frame =
                    docked ? window.findChild<QDockWidget*>("PanelDock") : window.Session()->Panel()->window();
                frame->close();
            };
            Brightness(window)->setValue(50);
            {
                const Answers given({Answers::Press(QMessageBox::Cancel), Answers::Press(QMessageBox::Apply)});
                cross();
                QVERIFY(window.Session() && window.Session()->Panel()->isVisible());
                cross();
            }
            QVERIFY(!window.Session());
            QCOMPARE(window.Document().StepCount(), 1);
            window.OpenPanel(Entry());
            cross();
            QVERIFY(!window.Session());
        }
    }

    void lostStepsAreOffered() {
        const QString photo = Photo("a.png");
        const QString folder = m_Folder.filePath("unsaved");
        const auto lose = [&] {
            HBDocument document;
            HBRecovery recovery(folder, &document);
            HBPhoto read;
            QString error;
            QVERIFY(HBReadPhoto(photo, &read, &error));
            document.SetPhoto(photo, read);
            const HBAdjustment& tint = *HBFindAdjustment("HBTintWidget");
            document.Append({HBStepOf(tint, HBDemonstration(tint))}, "tint");
            const QString file = QDir(folder).entryInfoList({"*.json"}).value(0).filePath();
            QVERIFY(QFile::copy(file, m_Folder.filePath("kept")));
        };
        for (const char* answer : {"Later", "Restore", "Discard", ""}) {
            lose();
            QVERIFY(QFile::rename(m_Folder.filePath("kept"), folder + "/lost.json"));
            if (!*answer) QVERIFY(QFile::remove(folder + "/lost.json"));
            HBEditorWindow window(false);
            window.show();
            const Answers given(*answer ? QVector<Answers::Answer>{Answers::Press(QString(answer))}
                                        : QVector<Answers::Answer>());
            window.UseRecovery(folder);
            const bool isRestored = answer == QByteArray("Restore");
            QCOMPARE(window.Document().StepCount(), isRestored ? 1 : 0);
            QCOMPARE(window.isWindowModified(), isRestored);
            QCOMPARE(QFile::exists(folder + "/lost.json"), answer == QByteArray("Later"));
            QFile::remove(folder + "/lost.json");
        }
    }

    /// What an open panel has changed is kept with the steps; nothing of one that was only looked at.
    void openPanelIsKept() {
        const QString folder = m_Folder.filePath("open");
        const auto kept = [&] {
            QCoreApplication::processEvents(); // what is over is taken away behind it
            return QDir(folder).entryInfoList({"*.json"}).value(0).filePath();
        };
        const auto isKept = [&] { return !kept().isEmpty(); };
        {
            HBEditorWindow window(false);
            window.UseRecovery(folder);
            OpenWithPanel(&window);
            QTRY_VERIFY(window.Session()->IsUpToDate());
            QVERIFY(!isKept());
            window.OpenPanel(*HBFindPanel("HBBlackAndWhiteWidget"));
            QTRY_VERIFY(isKept()); // it acts as it opens
            Q_EMIT window.Session()->Panel()->Cancel();
            QVERIFY(!isKept());
            window.OpenPanel(Entry());
            Brightness(window)->setValue(40);
            QTRY_VERIFY(isKept());
            Q_EMIT window.Session()->Panel()->Ok();
            QTRY_VERIFY(!window.Session());
            QVERIFY(window.Panels()->OpenStep(0));
            Brightness(window)->setValue(70);
            QTest::qWait(350); // a gesture's end
            QVERIFY(QFile::copy(kept(), m_Folder.filePath("open.json")));
        }
        QVERIFY(QFile::rename(m_Folder.filePath("open.json"), folder + "/lost.json"));
        HBEditorWindow window(false);
        window.show();
        const Answers given({Answers::Press("Restore")});
        window.UseRecovery(folder);
        QCOMPARE(window.Document().StepCount(), 1);
        QTRY_VERIFY(window.View()->Picture().PixelAt(0, 0) == HBRGBA32i(70, 70, 170));
        window.Actions()->undo->trigger();
        QTRY_VERIFY(window.View()->Picture().PixelAt(0, 0) == HBRGBA32i(40, 40, 140));
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
        QVERIFY(!window.Files()->SaveTo(m_Folder.filePath("nowhere/b.png")));
        QVERIFY(window.MessageBar()->Text().contains("nowhere/b.png"));
        QVERIFY(window.Document().IsModified());
        QCOMPARE(window.Document().FileName(), QString("a.png"));
        QVERIFY(window.Files()->SaveTo(m_Folder.filePath("b.png")));
        QVERIFY(!window.Document().IsModified());
        QVERIFY(!window.Actions()->save->isEnabled());
        QCOMPARE(QImage(m_Folder.filePath("b.png")).pixel(0, 0), qRgb(50, 50, 150));
    }

    /// One question, about the panel and the photo at once.
    void anotherPhotoWithAPanelOpen_data() {
        HBColumns<int, bool, bool>("answer", "opens", "saved");
        QTest::newRow("stay") << int(QMessageBox::Cancel) << false << false;
        QTest::newRow("discard") << int(QMessageBox::Discard) << true << false;
        QTest::newRow("save") << int(QMessageBox::Save) << true << true;
    }
    void anotherPhotoWithAPanelOpen() {
        QFETCH(int, answer);
        QFETCH(bool, opens);
        QFETCH(bool, saved);
        HBEditorWindow window(false);
        OpenWithPanel(&window);
        QVERIFY(window.Open(Photo("b.png"))); // nothing is changed: no question
        QVERIFY(!window.Session());
        window.OpenPanel(Entry());
        Apply(window, 20);
        window.OpenPanel(Entry());
        Brightness(window)->setValue(30); // younger than the debounce
        const QString other = Photo("c.png", 10, 10);
        const Answers given({Answers::Press(QMessageBox::StandardButton(answer))});
        QCOMPARE(window.Open(other), opens);
        QCOMPARE(window.Document().FileName(), QString(opens ? "c.png" : "b.png"));
        QCOMPARE(QImage(m_Folder.filePath("b.png")).pixel(0, 0), saved ? qRgb(50, 50, 150) : qRgb(0, 0, 100));
    }

    void whatAPanelShowsIsAskedAbout_data() {
        HBColumns<QString, int, int>("panel", "answer", "steps"); // no answer: no question is expected
        QTest::newRow("nothing to see") << "HBBrightnessContrastWidget" << 0 << 0;
        QTest::newRow("an overlay of nothing") << "HBSignWidget" << 0 << 0;
        QTest::newRow("apply") << "HBBlackAndWhiteWidget" << int(QMessageBox::Apply) << 1;
        QTest::newRow("discard") << "HBBlackAndWhiteWidget" << int(QMessageBox::Discard) << 0;
        QTest::newRow("stay") << "HBBlackAndWhiteWidget" << int(QMessageBox::Cancel) << -1;
        QTest::newRow("an overlay") << "HBWatermarkWidget" << int(QMessageBox::Apply) << 1;
    }
    /// A panel that acts by the values that it opens with: nobody has touched it.
    void whatAPanelShowsIsAskedAbout() {
        QFETCH(QString, panel);
        QFETCH(int, answer);
        QFETCH(int, steps);
        for (const char* way : {"save", "panel", "close"}) {
            HBEditorWindow window(false);
            window.show();
            const QString photo = Photo("a.png");
            QVERIFY(window.Open(photo));
            QVERIFY(window.OpenPanel(*HBFindPanel(panel)));
            QSignalSpy previews(window.Session(), &HBPanelSession::PreviewReady);
            QVERIFY(previews.wait());
            const QByteArray before = Bytes(photo);
            QVector<Answers::Answer> answers;
            const bool isLeaving = way == QByteArray("close");
            const auto button = isLeaving && answer == QMessageBox::Apply ? int(QMessageBox::Save) : answer;
            if (answer) answers.append(Answers::Press(QMessageBox::StandardButton(button)));
            {
                const Answers given(answers);
                if (way == QByteArray("save"))
                    window.Actions()->save->trigger();
                else if (way == QByteArray("panel"))
                    window.OpenPanel(*HBFindPanel("HBLevelsWidget"));
                else
                    QCOMPARE(window.close(), steps >= 0);
            }
            const bool stays = steps < 0;
            QCOMPARE(window.Session() && window.Session()->Entry().className == panel.toLatin1(), stays);
            QCOMPARE(window.Document().StepCount(), qMax(0, steps));
            QCOMPARE(Bytes(photo) == before, steps < 1 || way == QByteArray("panel"));
        }
    }

    void closingWithUnsavedChanges_data() {
        HBColumns<int, bool, bool>("answer", "closes", "saved");
        QTest::newRow("save") << int(QMessageBox::Save) << true << true;
        QTest::newRow("discard") << int(QMessageBox::Discard) << true << false;
        QTest::newRow("stay") << int(QMessageBox::Cancel) << false << false;
    }
    void closingWithUnsavedChanges() {
        QFETCH(int, answer);
        QFETCH(bool, closes);
        QFETCH(bool, saved);
        HBEditorWindow window(false);
        OpenWithPanel(&window);
        Apply(window, 50);
        const Answers given({Answers::Press(QMessageBox::StandardButton(answer))});
        QCOMPARE(window.close(), closes);
        QCOMPARE(window.isVisible(), !closes);
        QCOMPARE(QImage(m_Folder.filePath("a.png")).pixel(0, 0) == qRgb(50, 50, 150), saved);
        QCOMPARE(window.Document().IsModified(), !saved);
    }

    /// The quality that was typed for another file is not that of this one.
    void saveKeepsTheQuality() {
        const QString fine = m_Folder.filePath("fine.jpg");
        const QString web = m_Folder.filePath("web.jpg");
        QImageWriter writer(fine);
        writer.setQuality(99);
        QVERIFY(writer.write(QImage(Photo("a.png"))));
        const auto tables = HBReadJpegCoding(Bytes(fine)).tables;
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(fine) && window.OpenPanel(Entry()));
        Apply(window, 20);
        {
            const Answers given({Answers::File(web), Answers::Number(10)});
            window.Actions()->saveAs->trigger();
        }
        QCOMPARE(window.Document().Path(), web);
        QVERIFY(QFileInfo(web).size() < QFileInfo(fine).size() / 3);
        const auto webTables = HBReadJpegCoding(Bytes(web)).tables;
        for (const QString& path : {web, fine}) {
            QVERIFY(window.Open(path) && window.OpenPanel(Entry()));
            Apply(window, 30);
            const Answers given({});
            window.Actions()->save->trigger();
            QVERIFY(!window.Document().IsModified());
            QCOMPARE(HBReadJpegCoding(Bytes(path)).tables, path == web ? webTables : tables);
        }
    }

    void saveAsksForWhatWouldBeLost() {
        const QString deep = m_Folder.filePath("deep.png");
        const QString other = m_Folder.filePath("other.png");
        QVERIFY(QImage(Photo("a.png")).convertToFormat(QImage::Format_RGBA64).save(deep));
        const QByteArray original = Bytes(deep);
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(deep) && window.OpenPanel(Entry()));
        Apply(window, 20);
        const QVector<QVector<Answers::Answer>> refusals = {
            {Answers::Press(QMessageBox::Cancel)},
            {Answers::Press("Save As"), [](QDialog* files) { files->reject(); }}};
        for (const auto& answers : refusals) {
            const Answers given(answers);
            window.Actions()->save->trigger();
            QVERIFY(window.Document().IsModified());
        }
        {
            const Answers given({Answers::Press("Save As"), Answers::File(other)});
            window.Actions()->save->trigger();
        }
        QCOMPARE(Bytes(deep), original);
        QVERIFY(window.Document().Path() == other && !window.Document().IsModified());

        QVERIFY(window.Open(deep));
        for (const bool first : {true, false}) { // then it has nothing more to lose
            window.OpenPanel(Entry());
            Apply(window, 20);
            const Answers given(first ? QVector<Answers::Answer>{Answers::Press("Save Over It")}
                                      : QVector<Answers::Answer>());
            window.Actions()->save->trigger();
            QVERIFY(!window.Document().IsModified());
        }
        QCOMPARE(QImage(deep).pixel(0, 0), qRgb(40, 40, 140));
    }

    /// A format that is only read.
    void saveOfAGifBecomesSaveAs() {
        const QString path = m_Folder.filePath("moving.gif");
        QFile gif(path);
        QVERIFY(gif.open(QIODevice::WriteOnly));
        gif.write(QByteArray::fromHex("47494638396101000100800000000000ffffff2c00000000010001000002024401003b"));
        gif.close();
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(path) && window.OpenPanel(Entry()));
        Apply(window, 20);
        const Answers given({Answers::Press("Save")}); // as the dialog proposes
        window.Actions()->save->trigger();
        QCOMPARE(window.Document().FileName(), QString("moving.png"));
        QCOMPARE(QImage(m_Folder.filePath("moving.png")).width(), 1);
    }

    void saveRecipe() {
        HBEditorWindow window(false);
        OpenWithPanel(&window);
        const QByteArray photo = Bytes(m_Folder.filePath("a.png"));
        window.Actions()->saveRecipe->trigger();
        QVERIFY(window.MessageBar()->Text().contains("no steps")); // and no dialog
        window.OpenPanel(Entry());
        Apply(window, 20);
        window.SelectionTool()->SelectAll();
        window.OpenPanel(Entry());
        Apply(window, 20);
        QString error;
        HBRecipe recipe;
        const QString path = m_Folder.filePath("r.json");
        QFile::remove(path);
        {
            const Answers given({Answers::File(m_Folder.filePath("r"))});
            window.Actions()->saveRecipe->trigger();
        }
        QVERIFY2(HBRecipe::Load(path, &recipe, &error), qPrintable(error));
        QCOMPARE(recipe.steps.size(), 2);
        // A photo's name is not taken, nor is a recipe that the user did not name.
        for (const bool again : {false, true}) {
            const Answers given(
                {Answers::File(m_Folder.filePath("a.png")), Answers::Press(QMessageBox::Yes)}); // that it exists
            window.Actions()->saveRecipe->trigger();
            QCOMPARE(window.MessageBar()->Text().contains("a.png.json exists"), again);
        }
        QVERIFY(QFile::exists(m_Folder.filePath("a.png.json")));
        QCOMPARE(Bytes(m_Folder.filePath("a.png")), photo);
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
        KMTileManager64& tiles = KMTileManager64::Instance();
        const qint64 budget = tiles.MemoryBudget();
        tiles.SetScratchLimit(0);
        tiles.SetMemoryBudget(4 * KMTileManager64::TileBytes);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("scratch file"));
        std::thread([] { HBTestRamp(500, 500); }).join();
        tiles.SetMemoryBudget(budget);
        tiles.SetScratchLimit(-1);
        QTRY_VERIFY(window.MessageBar()->Text().contains("Save your work"));
    }

    void aRecipeCanBeStopped() {
        HBEditorWindow window(false);
        window.Open(Photo("large.png", 3000, 2000));
        const QString recipe = m_Folder.filePath("stopped.json");
        HBRecipe steps{QVector<HBRecipeStep>(50)};
        // Not of tables, which would become one.
        const HBPanelEntry& hue = *HBFindPanel("HBHueSaturationWidget");
        steps.steps.fill({hue.className, hue.adjustment->save(HBHueSaturationParams{100, 20, 0, false})});
        QString error;
        QVERIFY(steps.Save(recipe, &error));
        QTimer::singleShot(0, qApp, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        QVERIFY(!window.Recipes()->Apply(recipe));
        QVERIFY(!window.Document().IsModified());
        QCOMPARE(window.MessageBar()->Text(), QString());
    }

    /// What a change of the stack makes behind can be given up, and nothing that waits for it is written then.
    void aChangeOfTheStackCanBeStopped() {
        HBEditorWindow window(false);
        window.Open(Photo("large.png", 3000, 2000));
        const HBAdjustment& hue = *HBFindAdjustment("HBHueSaturationWidget");
        HBRecipe steps;
        steps.steps.fill(HBStepOf(hue, HBHueSaturationParams{100, 20, 0, false}), 3);
        QVERIFY(window.Recipes()->Apply("three", steps));
        auto& document = const_cast<HBDocument&>(window.Document());
        const auto before = document.AllSteps();
        for (const bool isLong : {true, false}) {
            const int index = document.History().index();
            isLong ? document.SetSteps(before + QVector<HBRecipeStep>(60, before.first()), "sixty more")
                   : document.SetAmount(0, 50);
            QVERIFY(!document.Result().IsUpToDate());
            if (isLong) {
                QTimer::singleShot(0, qApp,
                                   [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
                QVERIFY(!window.Files()->SaveTo(m_Folder.filePath("stopped.png")));
                QVERIFY(!QFile::exists(m_Folder.filePath("stopped.png")));
            }
            document.GiveUp();
            QVERIFY(document.Result().IsUpToDate());
            QCOMPARE(document.AllSteps(), before);
            QCOMPARE(document.History().index(), index);
        }
        // Not the step of an open panel, which would then change another.
        document.Remove(0);
        QVERIFY(window.Panels()->OpenStep(1));
        const auto* giveUp = window.statusBar()->findChild<QToolButton*>();
        QVERIFY(!giveUp->isEnabled());
        window.Session()->Reject();
        QTRY_VERIFY(giveUp->isEnabled());
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
        QWidgetList controls = window.Session()->Widget()->findChildren<QWidget*>();
        controls.erase(std::remove_if(controls.begin(), controls.end(),
                                      [](const QWidget* widget) {
                                          return !(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisible() ||
                                                 !widget->isEnabled() || widget->focusProxy();
                                      }),
                       controls.end());
        QWidget* const first = window.focusWidget();
        QVERIFY(controls.contains(first));
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            QWidgetList left = controls;
            int steps = 0;
            do {
                left.removeOne(window.focusWidget());
                QTest::keyClick(window.focusWidget(), key);
            } while (window.focusWidget() != first && ++steps < 60); // a slider's handles are a step each
            QCOMPARE(window.focusWidget(), first);
            QVERIFY2(left.isEmpty(), qPrintable(left.value(0) ? left.value(0)->objectName() : QString()));
        }
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
        window.SelectionTool()->SetShape(Corner());
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
        } else if (panel == "HBLevelsWidget") {
            content->findChild<QSpinBox*>("m_pLowInput")->setValue(10); // else there is nothing to apply
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
        window.activateWindow(); // a slow machine has shown, while it opened the photo, the dialog that says so
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
