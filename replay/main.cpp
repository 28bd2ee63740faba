// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// panel-replay: applies stored adjustments to photos, without a window or a display.

#include "HBFileNames.h"
#include "HBInterrupt.h"
#include "HBRecipeCommands.h"
#include "HBReplayApply.h"
#include "HBReplayCompletion.h"
#include "HBReplayExit.h"
#include "HBReplayLog.h"
#include "HBReplayManual.h"
#include "HBReplayMerge.h"
#include "HBReplayOptions.h"
#include "HBReplaySheet.h"
#include "HBReplayWords.h"

#include <HBInstallTranslations.h>
#include <KMTheme.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QHash>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <langinfo.h>
#include <new>

namespace
{

int Refuse(const QString& problem)
{
    HBPrintError(problem);
    return HBBadUsage;
}

/// Without a locale, as under cron, Qt would not find files whose names are not ASCII.
void UseUtf8WithoutLocale()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "ANSI_X3.4-1968") == 0)
        qputenv("LC_ALL", "C.UTF-8");
}

/// While QGuiApplication starts, Qt looks for the folder of a display's session and warns where there is none, as
/// under cron: nothing that this program needs.
void PrintNoWarnings(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        HBPrintError(text);
}

int Sheet(const HBReplayOptions& options)
{
    HBReplayTarget target;
    HBPhotoOptions photo;
    QString problem;
    if (!HBReadTarget(options, &target, &photo, &problem))
        return Refuse(problem);
    if (!QDir().mkpath(target.folder))
        return Refuse(HBReplayWords::tr("%1: the folder cannot be made").arg(target.folder));
    const int failed = HBReplaySheet(options.Arguments().first(), target, photo);
    if (HBIsInterrupted())
        HBEndInterrupted();
    return failed == 0 ? HBAllDone : HBFileFailed;
}

int Help(const HBReplayOptions& options)
{
    const QString name = options.Arguments().value(0);
    const HBReplayCommand* command = HBFindReplayCommand(name);
    if (!command && !name.isEmpty())
        return Refuse(HBNoSuchCommand(name));
    const QString text = options.IsSet("man")          ? HBReplayManual()
                         : options.IsSet("completion") ? HBReplayCompletion(options.Value("completion"))
                                                       : HBReplayHelp(command);
    std::fputs(qPrintable(text), stdout);
    return HBAllDone;
}

int Run(const HBReplayOptions& options)
{
    using Function = int (*)(const HBReplayOptions&);
    const QHash<QString, Function> functions{
        {"apply", HBReplayApply},
        {"verify", HBReplayApply},
        {"sheet", Sheet},
        {"list", HBListPanels},
        {"explain", HBExplainRecipe},
        {"validate", HBValidateRecipes},
        {"diff", HBShowDifferences},
        {"schema", HBPrintSchema},
        {"merge", HBMergeReports},
        {"help", Help},
    };
    return functions.value(options.Command()->name)(options);
}

} // namespace

int main(int argc, char* argv[])
{
    HBWatchInterrupts();
    std::signal(SIGXFSZ, SIG_IGN); // a file over the size limit fails by itself, not the whole batch
    UseUtf8WithoutLocale();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without the arguments: QGuiApplication would take some of them for its own.
    char name[] = "panel-replay";
    char* nameOnly[] = {name, nullptr};
    int count = 1;
    qInstallMessageHandler(PrintNoWarnings);
    QGuiApplication application(count, nameOnly);
    qInstallMessageHandler(nullptr);
    application.setApplicationVersion(ADJUSTMENT_PANELS_VERSION);
    HBKeepAllFileNames();
    HBInstallTranslations();
    KMTheme::Install();

    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(HBDecodedFileName(argv[i]));
    for (const QString& argument : arguments) {
        if (!HBIsFileName(argument))
            return Refuse(HBReplayWords::tr("%1 is not UTF-8, which Qt 6 needs").arg(argument));
    }
    HBReplayOptions options;
    QString problem;
    if (!options.Parse(arguments, &problem))
        return Refuse(problem);
    if (options.IsSet("version")) {
        std::puts("panel-replay " ADJUSTMENT_PANELS_VERSION);
        return HBAllDone;
    }
    if (options.IsSet("help")) {
        std::fputs(qPrintable(HBReplayHelp(options.Command())), stdout);
        return HBAllDone;
    }
    if (!options.Check(&problem))
        return Refuse(problem);
    try {
        return HBFinishOutput(Run(options));
    } catch (const std::bad_alloc&) {
        HBPrintError(HBReplayWords::tr("there is not enough memory"));
        return HBFileFailed;
    }
}
