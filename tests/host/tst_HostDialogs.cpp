// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBFontDialog.h>
#include <HBTestMain.h>
#include <KMApplication.h>
#include <KMColorDialog.h>
#include <KMFileDialog.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QSpinBox>
#include <QTimer>

#include <functional>
#include <limits>
#include <memory>

namespace {

/// Acts on the dialog that the next call opens, from inside its event loop.
template <class Dialog>
void WhenOpen(const std::function<void(Dialog*)>& action) {
    QTimer::singleShot(0, qApp, [action] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        action(dialog);
    });
}

} // namespace

/// The dialogs of colour, font and file.
class tst_HostDialogs : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        QCoreApplication::setOrganizationName("AdjustmentPanelsTest");
        QCoreApplication::setApplicationName("tst_HostDialogs");
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QVERIFY(m_Folder.isValid());
    }
    void ColorIsKeptExactly_data() {
        QTest::addColumn<QColor>("color");
        QTest::newRow("translucent") << QColor(1, 2, 3, 4);
        QTest::newRow("16 bits") << QColor::fromRgbF(0.5, 0.25, 0.001, 0.3);
        QTest::newRow("hue and saturation") << QColor::fromHsv(10, 255, 255);
        QTest::newRow("print") << QColor::fromCmyk(1, 2, 3, 4);
        QTest::newRow("none") << QColor();
    }

    void ColorIsKeptExactly() {
        QFETCH(QColor, color);
        KMColorDialog dialog(nullptr);
        QSignalSpy spy(&dialog, SIGNAL(ColorChanged(QColor)));
        dialog.SetColor(Qt::green);
        dialog.SetColor(color);
        QVERIFY(dialog.GetColor() == color);
        for (const int answer : {1, 0}) {
            WhenOpen<KMColorDialog>([answer](KMColorDialog* open) { static_cast<QDialog*>(open)->done(answer); });
            QCOMPARE(dialog.Exec(), answer);
            QVERIFY(dialog.GetColor() == color);
        }
        QCOMPARE(spy.count(), 0);
    }

    void ColorFollowsTheUser() {
        KMColorDialog dialog(nullptr);
        dialog.setWindowTitle("Select a color");
        dialog.SetColor(QColor::fromRgbF(0.5, 0.25, 0.75));
        QSignalSpy spy(&dialog, SIGNAL(ColorChanged(QColor)));
        WhenOpen<KMColorDialog>([&](KMColorDialog* open) {
            QCOMPARE(open->windowTitle(), QString("Select a color"));
            const auto spins = open->findChildren<QSpinBox*>(); // hue, saturation, value, red, green, blue, alpha
            QCOMPARE(spins.size(), 7);
            spins.at(3)->setValue(7);
            QCOMPARE(spy.count(), 1);
            QCOMPARE(spy.takeFirst().at(0).value<QColor>(), open->GetColor());
            QCOMPARE(open->GetColor().red(), 7);
            spins.at(6)->setValue(100);
            QCOMPARE(spy.count(), 1);
            QCOMPARE(open->GetColor().alpha(), 100);
            open->reject();
        });
        QCOMPARE(dialog.Exec(), 0);
        QCOMPARE(dialog.GetColor().rgba(),
                 qRgba(7, 64, 191, 100)); // what a cancel takes back is the panel's to decide
        dialog.SetColor(Qt::blue);
        QCOMPARE(dialog.GetColor(), QColor(Qt::blue));
        QCOMPARE(spy.count(), 1);
    }

    void DialogsMayDieWhileOpen() {
        for (const bool parentDies : {false, true}) {
            auto parent = std::make_unique<QWidget>();
            const QPointer<KMColorDialog> color(new KMColorDialog(parent.get()));
            const QPointer<HBFontDialog> font(new HBFontDialog(QFont(), parent.get()));
            if (!parentDies) {
                WhenOpen<KMColorDialog>([](KMColorDialog* open) { delete open; });
                QCOMPARE(color->Exec(), 0);
            }
            WhenOpen<HBFontDialog>([&](HBFontDialog*) { parent.reset(); });
            QCOMPARE(font->Exec(), 0);
            QVERIFY(!color && !font);
        }
    }

    void FontIsKeptExactly_data() {
        QTest::addColumn<QFont>("font");
        QFont font;
        font.setPointSizeF(17.3);
        font.setItalic(true);
        QTest::newRow("points") << font;
        font.setPointSizeF(1e9);
        QTest::newRow("huge") << font;
        font.setPointSizeF(std::numeric_limits<double>::quiet_NaN());
        QTest::newRow("not a number") << font;
        font.setPixelSize(33);
        font.setLetterSpacing(QFont::AbsoluteSpacing, 3);
        QTest::newRow("pixels") << font;
        font.setPixelSize(1000000000);
        QTest::newRow("huge pixels") << font;
        font.setFamily("No Such Font");
        QTest::newRow("missing") << font;
        QTest::newRow("upright") << QFont("DejaVu Sans", 17);
    }

    void FontIsKeptExactly() {
        QFETCH(QFont, font);
        HBFontDialog dialog(font, nullptr);
        for (const int answer : {1, 0}) {
            WhenOpen<HBFontDialog>([answer](HBFontDialog* open) { static_cast<QDialog*>(open)->done(answer); });
            QCOMPARE(dialog.Exec(), answer);
            QCOMPARE(dialog.GetSelectedFont().toString(), font.toString());
            QCOMPARE(dialog.GetSelectedFont().letterSpacing(), font.letterSpacing());
        }
        QVERIFY(dialog.currentFont().pointSizeF() <= HBFontDialog::MaximumPoints);
        // A machine may have no font that slants; upright must stay upright on any.
        QVERIFY(font.style() != QFont::StyleNormal || dialog.currentFont().style() == QFont::StyleNormal);
    }

    void FontFollowsTheUser() {
        QFont font;
        font.setPointSizeF(1e9);
        HBFontDialog dialog(font, nullptr);
        dialog.setWindowTitle("Font parameters");
        WhenOpen<HBFontDialog>([](HBFontDialog* open) {
            QCOMPARE(open->windowTitle(), QString("Font parameters"));
            const auto lists = open->findChildren<QListView*>(); // family, style, size
            QVERIFY(lists.size() >= 3);
            const auto edits = open->findChildren<QLineEdit*>();
            for (QLineEdit* edit : edits) {
                if (edit->isEnabled() && !edit->isReadOnly() && edit->validator())
                    QTest::keyClicks(edit, "\b\b\b\b24");
            }
            open->accept();
        });
        QCOMPARE(dialog.Exec(), 1);
        QCOMPARE(dialog.GetSelectedFont().pointSize(), 24);
    }

    void FileByChooser() {
        QStringList asked;
        QString answer = m_Folder.filePath("a.png");
        KMFileDialog::SetChooser([&](const QString& title, const QString& folder, const QString& filter) {
            asked = QStringList{title, folder, filter};
            return answer;
        });
        QCOMPARE(KMFileDialog::GetOpenFileName("title", "folder", "filter"), answer);
        QCOMPARE(asked, QStringList({"title", "folder", "filter"}));
        QCOMPARE(KMApplication::GetPathOpen(), m_Folder.path());
        answer.clear();
        QVERIFY(KMFileDialog::GetOpenFileName("title", "elsewhere", {}).isEmpty());
        QCOMPARE(KMApplication::GetPathOpen(), m_Folder.path());
        KMFileDialog::SetChooser(nullptr);
    }

    void FileByDialog() {
        const QString name = m_Folder.filePath("chosen.png");
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (const bool accept : {true, false}) {
            WhenOpen<QFileDialog>([&](QFileDialog* open) {
                QCOMPARE(open->windowTitle(), QString("Select an image"));
                QCOMPARE(open->directory(), QDir(m_Folder.path()));
                QCOMPARE(open->nameFilters(), QStringList({"Images (*.png)", "All files (*)"}));
                open->selectFile(name);
                open->findChild<QLineEdit*>("fileNameEdit")->setText(name);
                if (accept)
                    static_cast<QDialog*>(open)->accept();
                else
                    open->reject();
            });
            QCOMPARE(
                KMFileDialog::GetOpenFileName("Select an image", m_Folder.path(), "Images (*.png);;All files (*)"),
                accept ? name : QString());
            QVERIFY(!QApplication::activeModalWidget());
        }
    }

    void FileDialogDiesWithItsWindow() {
        auto window = std::make_unique<QWidget>();
        window->show();
        QApplication::setActiveWindow(window.get());
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        WhenOpen<QFileDialog>([&](QFileDialog*) { window.reset(); });
        QVERIFY(KMFileDialog::GetOpenFileName("title", m_Folder.path(), "All files (*)").isEmpty());
    }

private:
    const QTemporaryDir m_Folder;
};

HB_TEST_MAIN(tst_HostDialogs)
#include "tst_HostDialogs.moc"
