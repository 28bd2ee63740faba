// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// What the editor does with more than one photo: the film strip and its thumbnails, steps and presets that go from
// one to another.
#include "HBAnswers.h"
#include "HBTestMain.h"

#include <HBAdjustmentWidget.h>
#include <HBBatchDialog.h>
#include <HBEditorActions.h>
#include <HBEditorWindow.h>
#include <HBFilmStrip.h>
#include <HBMessageBar.h>
#include <HBPanelCatalog.h>
#include <HBPanelController.h>
#include <HBPresetStrip.h>
#include <HBRecipeDialog.h>
#include <HBThumbnail.h>
#include <KMDocumentView.h>

#include <QAction>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>

class tst_EditorPhotos : public QObject {
    Q_OBJECT

    QString Photo(const QString& name, QRgb color) {
        const QString path = m_Folder.filePath(name);
        QImage image(60, 40, QImage::Format_RGB32);
        image.fill(color);
        image.save(path);
        return path;
    }
    static void Brighten(HBEditorWindow* window, int by) {
        QVERIFY(window->OpenPanel(*HBFindPanel("HBBrightnessContrastWidget")));
        window->Session()->Panel()->findChild<QSpinBox*>("m_pBrightnessSpin")->setValue(by);
        Q_EMIT window->Session()->Panel()->Ok();
        QTRY_VERIFY(!window->Session());
    }
    static void Drop(HBEditorWindow* window, const QStringList& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths) urls.append(QUrl::fromLocalFile(path));
        data.setUrls(urls);
        QWidget* photo = window->View()->viewport();
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(photo, &enter);
        QDropEvent drop(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(photo, &drop);
    }

private Q_SLOTS:

    void initTestCase() {
        qputenv("XDG_CACHE_HOME", m_Folder.filePath("cache").toUtf8());
        qputenv("PATH", REPLAY_FOLDER ":" + qgetenv("PATH"));
    }

    void init() {
        m_A = Photo("photo 9.png", qRgb(100, 0, 0));
        m_B = Photo("photo 10.png", qRgb(0, 100, 0));
        m_C = Photo("photo 11;ü.png", qRgb(0, 0, 100));
    }

    /// By the desktops' rules: others find ours, and we take theirs as long as they are of the present file.
    void Thumbnails() {
        const QByteArray uri = "file://" + m_Folder.path().toUtf8() + "/photo%2011%3B%C3%BC.png";
        const QString name = QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex() + ".png";
        const QString path = HBThumbnailPath(m_C);
        QCOMPARE(path, m_Folder.filePath("cache/thumbnails/large/" + name));
        QCOMPARE(HBThumbnail(m_C).pixel(5, 5), qRgb(0, 0, 100));
        QImage kept(path);
        QCOMPARE(kept.text("Thumb::URI").toUtf8(), uri);
        const qint64 time = QFileInfo(m_C).lastModified().toSecsSinceEpoch();
        QCOMPARE(kept.text("Thumb::MTime"), QString::number(time));
        QCOMPARE(int(QFile::permissions(path) & 0x77), 0);
        kept.fill(Qt::yellow);
        QVERIFY(kept.save(path));
        QCOMPARE(HBThumbnail(m_C).pixel(5, 5), qRgb(255, 255, 0));
        QFile file(m_C);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::fromSecsSinceEpoch(time - 100), QFileDevice::FileModificationTime));
        file.close();
        QCOMPARE(HBThumbnail(m_C).pixel(5, 5), qRgb(0, 0, 100));
        QVERIFY(HBThumbnail(m_Folder.filePath("missing.png")).isNull());
        QImage large(1000, 500, QImage::Format_RGB32);
        large.fill(Qt::red);
        large.save(m_Folder.filePath("cache/large.jpg"));
        QCOMPARE(HBThumbnail(m_Folder.filePath("cache/large.jpg")).size(), QSize(256, 128));
    }

    void StripOfAFolder() {
        HBEditorWindow window(false);
        window.show();
        window.Actions()->filmStrip->setChecked(true);
        QVERIFY(window.Open(m_B));
        QCOMPARE(window.FilmStrip()->Photos(), QStringList({m_A, m_B, m_C})); // 9 before 10
        for (const QString& photo : {m_A, m_B, m_C}) QTRY_VERIFY(QFile::exists(HBThumbnailPath(photo)));
        window.Actions()->nextPhoto->trigger();
        QCOMPARE(window.Document().Path(), m_C);
        QVERIFY(!window.Actions()->nextPhoto->isEnabled());
        window.Actions()->previousPhoto->trigger();
        window.Actions()->previousPhoto->trigger();
        QCOMPARE(window.Document().Path(), m_A);
        QVERIFY(!window.Actions()->previousPhoto->isEnabled());
        // Several make a strip of their own.
        Drop(&window, {m_C, m_A});
        QTRY_COMPARE(window.Document().Path(), m_C);
        QCOMPARE(window.FilmStrip()->Photos(), QStringList({m_C, m_A}));
        window.Actions()->nextPhoto->trigger();
        QCOMPARE(window.Document().Path(), m_A);
        auto* list = window.FilmStrip()->findChild<QListWidget*>("photos");
        list->selectAll();
        QCOMPARE(window.FilmStrip()->Marked().size(), 2);
    }

    void StepsGoToAnotherPhoto() {
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(m_A));
        window.Actions()->copySteps->trigger();
        QVERIFY(window.MessageBar()->Text().contains("no steps"));
        Brighten(&window, 30);
        window.Actions()->copySteps->trigger();
        {
            const Answers given({Answers::Press(QMessageBox::Discard)});
            QVERIFY(window.Open(m_B));
        }
        window.Actions()->pasteSteps->trigger();
        QVERIFY(window.Document().Image().PixelAt(1, 1) == HBRGBA32i(30, 130, 30));
        QApplication::clipboard()->setText("no recipe");
        window.Actions()->pasteSteps->trigger();
        QCOMPARE(window.Document().StepCount(), 1);
    }

    void BatchByTheReplayer() {
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(m_A));
        Brighten(&window, 30);
        const QString broken = m_Folder.filePath("broken.png");
        QFile file(broken);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no photo") > 0);
        file.close();
        HBBatchDialog dialog(window.Document().Recipe(), {m_B, broken, m_C});
        QVERIFY(!HBBatchDialog::Program().isEmpty());
        const QString results = m_Folder.filePath("results");
        dialog.findChild<QLineEdit*>("folder")->setText(results);
        QSignalSpy finished(&dialog, &HBBatchDialog::Finished);
        dialog.show();
        QTest::keyClick(dialog.findChild<QLineEdit*>("folder"), Qt::Key_Return);
        QVERIFY(finished.wait(30000));
        QCOMPARE(dialog.Done(), 2);
        QCOMPARE(dialog.Failed(), 1);
        QCOMPARE(QImage(results + "/photo 11;ü.png").pixel(1, 1), qRgb(30, 30, 130));
        QCOMPARE(QImage(m_C).pixel(1, 1), qRgb(0, 0, 100));
        QFile::remove(broken);
    }

    void Presets() {
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(m_A));
        Brighten(&window, 30); // and so there is a last use
        QVERIFY(window.OpenPanel(*HBFindPanel("HBBrightnessContrastWidget")));
        HBPresetStrip* strip = window.Panels()->Presets();
        auto* spin = window.Session()->Panel()->findChild<QSpinBox*>("m_pBrightnessSpin");
        auto* list = strip->findChild<QListWidget*>("presets");
        const auto titles = [&] {
            QStringList texts;
            for (int row = 0; row < list->count(); ++row) texts.append(list->item(row)->text());
            return texts;
        };
        QCOMPARE(titles(), QStringList({"Last used", "Default"}));
        Q_EMIT list->itemClicked(list->item(0));
        QCOMPARE(spin->value(), 30);
        spin->setValue(70);
        QVERIFY(strip->SaveAs("Bright"));
        QCOMPARE(titles(), QStringList({"Last used", "Default", "Bright"}));
        for (int row = 0; row < list->count(); ++row)
            QVERIFY(list->visualItemRect(list->item(row)).width() >=
                    list->fontMetrics().horizontalAdvance(list->item(row)->text()));
        // Each shows what it makes of this photo.
        const auto shown = [&](int row) {
            return list->item(row)->icon().pixmap(40).toImage().pixelColor(20, 20);
        };
        QTRY_COMPARE(shown(2), QColor(200, 100, 100));
        QCOMPARE(shown(1), QColor(130, 30, 30));
        const QString exported = m_Folder.filePath("Bright.adjustment-recipe.json");
        strip->Export("Bright", exported);
        QVERIFY(strip->Import(exported));
        QCOMPARE(titles().last(), QString("Bright"));
        QVERIFY(titles().contains("Bright 2"));
        Q_EMIT list->itemClicked(list->item(1));
        QCOMPARE(spin->value(), 0);
        Q_EMIT list->itemClicked(list->item(titles().indexOf("Bright 2")));
        QCOMPARE(spin->value(), 70);
        {
            const Answers given({Answers::Press(QMessageBox::Yes)});
            strip->Delete("Bright 2");
        }
        QCOMPARE(titles(), QStringList({"Last used", "Default", "Bright"}));
        QVERIFY(!strip->Import(m_A));
        QVERIFY(window.MessageBar()->Text().contains("photo 9.png"));
        Q_EMIT window.Session()->Panel()->Cancel();
    }

    void DroppedRecipeIsShownFirst() {
        const QString path = m_Folder.filePath("warm.adjustment-recipe.json");
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(m_A));
        Brighten(&window, 30);
        QString error;
        QVERIFY(window.Document().Recipe().Save(path, &error));
        const auto answer = [](QDialog* dialog) {
            QVERIFY(qobject_cast<HBRecipeDialog*>(dialog));
            const auto color = [&](const char* label) {
                const QImage image = dialog->findChild<QLabel*>(label)->pixmap(Qt::ReturnByValue).toImage();
                return image.isNull() ? QColor() : image.pixelColor(5, 5);
            };
            QTRY_COMPARE(color("before"), QColor(130, 30, 30));
            QCOMPARE(color("after"), QColor(160, 60, 60));
            QTest::keyClick(dialog, Qt::Key_Return);
        };
        {
            const Answers given({answer});
            Drop(&window, {path});
        }
        QTRY_VERIFY(window.Document().Image().PixelAt(1, 1) == HBRGBA32i(160, 60, 60));
    }

private:
    QTemporaryDir m_Folder;
    QString m_A, m_B, m_C;
};

HB_TEST_MAIN(tst_EditorPhotos)
#include "tst_EditorPhotos.moc"
