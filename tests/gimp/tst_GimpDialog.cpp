// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpRun.h"
#include "HBTestImages.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBBrightnessContrast.h>

#include <QImage>
#include <QtTest>

namespace {

constexpr int Width = 300;
constexpr int Height = 200;
const QString title = "Brightness and Contrast - Background";

// A menu entry that stores the layer, called by a key as ours is.
const char storing[] = R"(
(define (script-fu-store image drawable)
  (file-png-save2 RUN-NONINTERACTIVE image drawable "now.png" "now.png" 0 1 0 0 0 0 0 0 1)
  (close-output-port (open-output-file "now.done")))
(script-fu-register "script-fu-store" "Store" "" "" "" "" "*" SF-IMAGE "Image" 0 SF-DRAWABLE "Drawable" 0)
(script-fu-menu-register "script-fu-store" "<Image>/Colors")
)";
const char keys[] = R"(
(gtk_accel_path "<Actions>/plug-in/adjustment-panels-apply" "<Primary><Alt>r")
(gtk_accel_path "<Actions>/plug-in/adjustment-panels-brightness-and-contrast" "<Primary><Alt>b")
(gtk_accel_path "<Actions>/plug-in/script-fu-store" "<Primary><Alt>s")
)";
const char opening[] = R"(
(let* ((image (car (gimp-file-load RUN-NONINTERACTIVE "photo.png" "photo.png")))
       (layer (car (gimp-image-get-active-layer image)))
       (mask (car (gimp-file-load-layer RUN-NONINTERACTIVE image "mask.png"))))
  (gimp-image-insert-layer image mask 0 0)
  (gimp-image-select-item image CHANNEL-OP-REPLACE mask)
  (gimp-image-remove-layer image mask)
  (gimp-image-set-active-layer image layer)
  (gimp-item-set-name layer "Background")
  (gimp-image-clean-all image)
  (gimp-display-new image))
)";

} // namespace

/// The dialog in GIMP on a display of its own, with keys alone: from the menu entry to what can be undone.
class tst_GimpDialog : public QObject {
    Q_OBJECT

private:
    void Start(QProcess* process, const QString& program, const QStringList& arguments) {
        QProcessEnvironment environment = m_Gimp.Environment();
        if (!m_Display.isEmpty()) environment.insert("DISPLAY", m_Display);
        process->setProcessEnvironment(environment);
        process->setWorkingDirectory(m_Gimp.Path({}));
        process->start(program, arguments);
    }
    QString Xdotool(const QStringList& arguments) {
        QProcess process;
        Start(&process, "xdotool", arguments);
        process.waitForFinished(30000);
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }
    /// The newest window whose name holds the text; empty if there is none.
    QString Window(const QString& name) {
        const QString found = Xdotool({"search", "--onlyvisible", "--name", name});
        return found.section('\n', -1);
    }
    void Press(const QString& window, const QStringList& pressed) {
        QString id; // a window that is at work may be without its name for a moment
        const bool found = QTest::qWaitFor([&] { return !(id = Window(window)).isEmpty(); }, 20000);
        QVERIFY2(found, qPrintable(window));
        Xdotool({"windowactivate", "--sync", id});
        Xdotool(QStringList{"key", "--delay", "60"} + pressed);
    }
    /// GIMP takes no keys while it is at work: they are pressed again if nothing came of them.
    bool PressUntil(const QString& key, const std::function<bool()>& reached) {
        for (int i = 0; i < 4 && !reached(); ++i) {
            Press("– GIMP", {key});
            if (QTest::qWaitFor(reached, 15000)) return true;
        }
        return reached();
    }
    void OpenDialog(const QString& key = "ctrl+alt+b", const QString& name = title) {
        const bool opened = PressUntil(key, [&] { return !Window(name).isEmpty(); });
        QVERIFY(opened);
        QTest::qWait(300); // the keyboard follows the window
    }
    void WaitUntilClosed(const QString& name = title) {
        const bool closed = QTest::qWaitFor([&] { return Window(name).isEmpty(); }, 20000);
        QVERIFY(closed);
    }

    /// What GIMP's layer holds by now.
    QImage Layer() {
        const QString done = m_Gimp.Path("now.done");
        QFile::remove(done);
        const bool stored = PressUntil("ctrl+alt+s", [&] { return QFile::exists(done); });
        return stored ? QImage(m_Gimp.Path("now.png")).convertToFormat(QImage::Format_ARGB32) : QImage();
    }

    HBGimpRun m_Gimp;
    QString m_Display;
    HBGimpChild m_X;
    HBGimpChild m_Manager;
    HBGimpChild m_Program;
    QImage m_Photo;
    QImage m_Adjusted;

private Q_SLOTS:
    void initTestCase() {
        const QString missing = HBGimpRun::Missing({"gimp", "Xvfb", "openbox", "xdotool"});
        if (!missing.isEmpty()) QSKIP(qPrintable(missing));
        const HBImage<> photo =
            HBTestPicture(Width, Height, [](int x, int y) { return qRgb(x % 200, y, (x + y) % 200); });
        const HBImage<> mask = HBTestPicture(Width, Height, [](int x, int y) {
            const int c = QRect(40, 30, 200, 120).contains(x, y) ? qBound(1, x, 255) : 0;
            return qRgba(c, c, c, c);
        });
        m_Photo = photo.ToQImage();
        HBBrightnessContrastParams params;
        params.brightness = 40;
        m_Adjusted = HBAdjust(params, {photo, mask, {}, QRect(40, 30, 200, 120)}).image.ToQImage();
        const HBRecipe recipe{{HBStepOf(*HBFindAdjustment("HBBrightnessContrastWidget"), std::any(params))}};
        QString error;
        QVERIFY2(recipe.Save(m_Gimp.Path("recipe.json"), &error), qPrintable(error));
        QVERIFY(m_Photo.convertToFormat(QImage::Format_RGB32).save(m_Gimp.Path("photo.png")));
        QVERIFY(mask.ToQImage().save(m_Gimp.Path("mask.png")));
        QVERIFY(m_Gimp.Write("scripts/store.scm", storing) && m_Gimp.Write("home/menurc", keys) &&
                m_Gimp.Write("open.scm", opening));

        Start(&m_X, "Xvfb", {"-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp"});
        QTRY_VERIFY_WITH_TIMEOUT(m_X.canReadLine(), 20000);
        m_Display = ':' + QString::fromLatin1(m_X.readLine().trimmed());
        Start(&m_Manager, "openbox", {});
        Start(&m_Program, "gimp",
              {"-d", "-f", "-s", "--batch-interpreter", "plug-in-script-fu-eval", "-b", "(load \"open.scm\")"});
        QTRY_VERIFY_WITH_TIMEOUT(!Window("photo.png.*– GIMP").isEmpty(), 120000);
        QCOMPARE(Layer(), m_Photo);
    }

    void CancelChangesNothing() {
        OpenDialog();
        Press(title, {"Page_Up", "Escape"});
        WaitUntilClosed();
        QCOMPARE(Layer(), m_Photo);
    }

    void OkIsOneUndoStep() {
        OpenDialog();
        Press(title, {"Page_Up", "Page_Up", "Page_Up", "Page_Up", "Return"});
        WaitUntilClosed();
        QCOMPARE(Layer(), m_Adjusted);
        Press("– GIMP", {"ctrl+z"});
        QCOMPARE(Layer(), m_Photo);
        Press("– GIMP", {"ctrl+y"});
        QCOMPARE(Layer(), m_Adjusted);
        Press("– GIMP", {"ctrl+z"});
    }

    void ValuesAreRemembered() {
        OpenDialog();
        Press(title, {"Return"});
        WaitUntilClosed();
        QCOMPARE(Layer(), m_Adjusted);
    }

    void RecipeOfAFile() {
        Press("– GIMP", {"ctrl+z"});
        OpenDialog("ctrl+alt+r", "Apply Recipe");
        Xdotool({"type", "--delay", "60", m_Gimp.Path("recipe.json")});
        Xdotool({"key", "Return"});
        WaitUntilClosed("Apply Recipe");
        QCOMPARE(Layer(), m_Adjusted);
    }

    void cleanupTestCase() {
        for (HBGimpChild* process : {&m_Program, &m_Manager, &m_X}) {
            process->kill();
            process->waitForFinished();
        }
    }
};

HB_TEST_MAIN(tst_GimpDialog)
#include "tst_GimpDialog.moc"
