// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// panel-replay: applies stored adjustments to photos, without a window or a display.

#include "HBFileNames.h"
#include "HBInterrupt.h"
#include "HBReplayLog.h"
#include "HBReplayPipeline.h"
#include "HBReplayPlan.h"
#include "HBReplaySheet.h"

#include <HBPanelCatalog.h>
#include <HBTranslation.h>
#include <KMImageFileManager.h>

#include <KMTheme.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>
#include <new>

namespace
{

enum ExitCode { Done = 0, FileFailed = 1, BadUsage = 2 };

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(PanelReplay)
};

int Refuse(const QString& problem)
{
    HBPrintError(problem);
    return BadUsage;
}

/// Without a locale, as under cron, Qt would not find files whose names are not ASCII.
void UseUtf8WithoutLocale()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "ANSI_X3.4-1968") == 0)
        qputenv("LC_ALL", "C.UTF-8");
}

/// While QApplication starts, Qt looks for the folder of a display's session and warns where there is none, as under
/// cron: nothing that this program needs.
void PrintNoWarnings(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        HBPrintError(text);
}

void Describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(Text::tr(
        "Applies stored adjustments to photos.\n\n"
        "  panel-replay apply RECIPE FILE... -o DIR   adjust the files as the recipe says\n"
        "  panel-replay list                          list the panels: class, tag of its record, group, title\n"
        "  panel-replay sheet FILE -o DIR             show what every panel does to the photo\n\n"
        "Exit code: 0 all done, 1 a file failed, 2 wrong usage or a bad recipe."));
    parser.addPositionalArgument("command", Text::tr("apply, list or sheet"), "COMMAND");
    parser.addPositionalArgument("arguments", Text::tr("what the command works on"), "[ARGUMENT...]");
    parser.addVersionOption();
    parser.addOptions({
        {{"h", "help"}, Text::tr("Show this help.")},
        {{"o", "output"}, Text::tr("Folder for the results; made if it is not there."), "DIR"},
        {"quality", Text::tr("Quality of JPEG and WebP, 0..100, default 92; a WebP of 100 is lossless."), "N"},
        {"format", Text::tr("Format of the results, as jpg, png, tif or webp; default: each file's own."), "EXT"},
        {"overwrite", Text::tr("Replace files that are there already.")},
    });
}

bool ReadOptions(const QCommandLineParser& parser, HBReplayTarget* target, HBPhotoOptions* options,
                 QString* problem)
{
    target->folder = parser.value("output");
    target->suffix = parser.value("format").toLower();
    target->overwrite = parser.isSet("overwrite");
    if (!target->suffix.isEmpty() && !KMImageFileManager::SuffixesForWrite().contains(target->suffix)) {
        *problem = Text::tr("pictures cannot be written in the format \"%1\"").arg(target->suffix);
        return false;
    }
    if (parser.isSet("quality")) {
        bool isNumber = false;
        options->quality = parser.value("quality").toInt(&isNumber);
        if (!isNumber || options->quality < 0 || options->quality > 100) {
            *problem = Text::tr("the quality must be a number from 0 to 100");
            return false;
        }
    }
    if (target->folder.isEmpty()) {
        *problem = Text::tr("name the folder for the results with -o DIR");
        return false;
    }
    if (!QDir().mkpath(target->folder)) {
        *problem = Text::tr("%1: the folder cannot be made").arg(target->folder);
        return false;
    }
    return true;
}

int List()
{
    for (const HBPanelEntry& panel : HBPanelCatalog()) {
        const QStringList columns{panel.className, panel.tag ? panel.tag : "-", panel.Group(), panel.Title()};
        std::puts(qPrintable(columns.join('\t')));
    }
    return Done;
}

int Apply(const QString& recipePath, const QStringList& files, const HBReplayTarget& target,
          const HBPhotoOptions& options)
{
    HBRecipe recipe;
    QString problem;
    if (!HBRecipe::Load(recipePath, &recipe, &problem))
        return Refuse(problem);
    HBReplayPipeline pipeline(HBPlanReplay(files, target), recipe, options);
    const int failed = pipeline.Run();
    const ExitCode code = failed == 0 ? Done : FileFailed;
    if (HBIsInterrupted())
        std::_Exit(code); // its threads may be decoding or encoding for seconds yet
    return code;
}

int Run(const QCommandLineParser& parser)
{
    QStringList arguments = parser.positionalArguments();
    const QString command = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (command == "list" && arguments.isEmpty() && parser.optionNames().isEmpty())
        return List();
    const bool apply = command == "apply" && arguments.size() >= 2;
    const bool sheet = command == "sheet" && arguments.size() == 1;
    if (!apply && !sheet)
        return Refuse(Text::tr("wrong usage; try panel-replay --help"));

    HBReplayTarget target;
    HBPhotoOptions options;
    QString problem;
    if (!ReadOptions(parser, &target, &options, &problem))
        return Refuse(problem);
    HBWatchInterrupts();
    if (sheet)
        return HBReplaySheet(arguments.first(), target, options) == 0 ? Done : FileFailed;
    return Apply(arguments.takeFirst(), arguments, target, options);
}

} // namespace

int main(int argc, char* argv[])
{
    std::signal(SIGXFSZ, SIG_IGN); // a file over the size limit fails by itself, not the whole batch
    UseUtf8WithoutLocale();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without the arguments: QApplication would take some of them for its own.
    char name[] = "panel-replay";
    char* nameOnly[] = {name, nullptr};
    int count = 1;
    qInstallMessageHandler(PrintNoWarnings);
    QApplication application(count, nameOnly);
    qInstallMessageHandler(nullptr);
    application.setApplicationVersion(ADJUSTMENT_PANELS_VERSION);
    HBKeepAllFileNames();
    HBInstallTranslations();
    KMTheme::Install();

    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    QCommandLineParser parser;
    Describe(parser);
    if (!parser.parse(arguments))
        return Refuse(parser.errorText());
    if (parser.isSet("version")) {
        std::puts("panel-replay " ADJUSTMENT_PANELS_VERSION);
        return Done;
    }
    if (parser.isSet("help")) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        return Done;
    }
    try {
        return Run(parser);
    } catch (const std::bad_alloc&) {
        HBPrintError(Text::tr("there is not enough memory"));
        return FileFailed;
    }
}
