// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEditorActions.h"
#include "HBEditorApplication.h"
#include "HBEditorStyle.h"
#include "HBEditorWindow.h"
#include "HBMessageBar.h"
#include "HBScreenshot.h"
#include "HBTileWarnings.h"

#include <HBInstallTranslations.h>
#include <HBPanelSetup.h>
#include <KMApplication.h>

#include <QAction>
#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QStandardPaths>
#include <QStringList>
#include <QTimer>

#include <csignal>
#include <cstdio>

namespace
{

struct Options
{
    QStringList photos;
    bool dark = false;
    HBScreenshotOptions screenshot;
};

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(PanelEditor)
};

void Describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(Text::tr("Adjusts photos with the adjustment panels."));
    parser.addPositionalArgument(
        "photo", Text::tr("The photos to open: the first, and all of them in a film strip."), "[PHOTO...]");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {"dark", Text::tr("Use dark window colors.")},
        {"screenshot", Text::tr("Write a picture of the window to FILE (PNG) and quit."), "FILE"},
        {"panel", Text::tr("For --screenshot: the panel to open, by its class name."), "CLASS"},
        {"values", Text::tr("For --screenshot: the recipe whose step gives the panel its values."), "RECIPE"},
        {"preset",
         Text::tr("For --screenshot: a recipe that is one of the panel's presets; may be given several times."),
         "RECIPE"},
        {"apply", Text::tr("For --screenshot: the recipe whose steps the photo has already."), "RECIPE"},
        {"size", Text::tr("For --screenshot: the size of the window, 1200x800 by default."), "WxH"},
    });
}

/// "1200x800"; not valid if it is something else.
QSize ParseSize(const QString& text)
{
    const QStringList numbers = text.split('x');
    const QSize size(numbers.value(0).toInt(), numbers.value(1).toInt());
    const bool sane = numbers.size() == 2 && size.width() >= 100 && size.height() >= 100 &&
                      size.width() <= 10000 && size.height() <= 10000;
    return sane ? size : QSize();
}

bool Parse(const QStringList& arguments, Options* options)
{
    QCommandLineParser parser;
    Describe(parser);
    parser.process(arguments); // ends the program at --help, --version and what it does not know
    options->photos = parser.positionalArguments();
    options->dark = parser.isSet("dark");
    options->screenshot.file = parser.value("screenshot");
    options->screenshot.panel = parser.value("panel");
    options->screenshot.recipe = parser.value("values");
    options->screenshot.presets = parser.values("preset");
    options->screenshot.applied = parser.value("apply");
    if (parser.isSet("size"))
        options->screenshot.size = ParseSize(parser.value("size"));
    if (options->screenshot.size.isValid())
        return true;
    std::fprintf(stderr, "%s\n", qPrintable(parser.helpText()));
    return false;
}

void Name()
{
    QCoreApplication::setOrganizationName("AdjustmentPanels");
    QCoreApplication::setApplicationName("panel-editor");
    QCoreApplication::setApplicationVersion(PANEL_EDITOR_VERSION);
    QGuiApplication::setDesktopFileName(PANEL_EDITOR_DESKTOP_ID); // by which Wayland finds the icon
}

QIcon Icon()
{
    QIcon icon;
    for (const int size : {16, 32, 48, 128})
        icon.addFile(QString(":/icons/%1.png").arg(size));
    return icon;
}

/// --help and --version need no screen.
void AnswerWithoutScreen(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const QStringList wanted = {"--help", "-h", "--version", "-v"};
    for (const QString& argument : wanted) {
        if (arguments.contains(argument)) {
            const QCoreApplication application(argc, argv);
            HBInstallTranslations();
            Options ignored;
            Parse({arguments.first(), argument}, &ignored);
        }
    }
}

} // namespace

int main(int argc, char* argv[])
{
    Name();
    std::signal(SIGXFSZ, SIG_IGN); // a file over the size limit cannot be saved, which is said; the steps stay
    AnswerWithoutScreen(argc, argv);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // which does so anyway
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    // As Qt 5 does by itself: a pixel of the photo is a whole number of the screen's.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::Round);
    HBEditorApplication application(argc, argv);
    QApplication::setStyle(new HBEditorStyle);
    HBInstallTranslations();
    QApplication::setWindowIcon(Icon());
    Options options;
    if (!Parse(application.arguments(), &options))
        return 2;

    KMApplication::SetTileMemory(0);
    KMApplication::KeepPathOpen();
    const bool screenshot = !options.screenshot.file.isEmpty();
    HBEditorWindow window(!screenshot);
    HBShowTileWarnings(window.MessageBar());
    const QString outOfMemory =
        Text::tr("There was not enough memory for that. Your photo and its steps are kept.");
    QObject::connect(&application, &HBEditorApplication::OutOfMemory, window.MessageBar(),
                     [&] { window.MessageBar()->ShowError(outOfMemory); });
    if (options.dark)
        window.Actions()->dark->setChecked(true);
    HBSetUpPanels(&window);
    if (screenshot) {
        if (!options.photos.isEmpty())
            window.OpenAll(options.photos);
        return HBTakeScreenshot(&window, options.screenshot) ? 0 : 1;
    }
    window.show();
    QTimer::singleShot(0, &window, [&] {
        window.UseRecovery(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/unsaved");
        if (!options.photos.isEmpty())
            window.OpenAll(options.photos);
    });
    return QApplication::exec();
}
