// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayOptions.h"

#include "HBReplayExit.h"
#include "HBReplayWords.h"

#include <QCoreApplication>

#include <climits>

namespace
{

constexpr int Width = 100;
constexpr int Indent = 30;

constexpr char Photos[] = "apply verify";
constexpr char Results[] = "apply verify sheet";

/// The text in lines, all but the first indented.
QString Wrapped(const QString& text)
{
    QString wrapped;
    int column = Indent;
    for (const QString& word : text.split(' ')) {
        if (column + word.size() >= Width) {
            wrapped += '\n' + QString(Indent, ' ');
            column = Indent;
        }
        const bool first = column == Indent;
        wrapped += first ? word : ' ' + word;
        column += word.size() + !first;
    }
    return wrapped;
}

QString Row(const QString& name, const QString& text)
{
    const QString head = "  " + name;
    return (head.size() < Indent ? head.leftJustified(Indent) : head + '\n' + QString(Indent, ' ')) +
           Wrapped(text) + '\n';
}

QString Examples(const HBReplayCommand& command)
{
    QString text;
    for (const HBReplayExample& example : command.examples)
        text += QString("  panel-replay %1\n      %2\n").arg(example.line, HBReplayText(example.text));
    return text;
}

QString OptionRows(const char* command)
{
    QString rows;
    for (const HBReplayOption& option : HBReplayOptionTable()) {
        if (!option.ReadBy(command))
            continue;
        QString name = option.letter ? QString("-%1, --").arg(QLatin1Char(option.letter)) : QString("--");
        name += QLatin1String(option.name);
        if (option.argument)
            name += ' ' + QLatin1String(option.argument);
        rows += Row(name, HBReplayText(option.text));
    }
    return rows;
}

} // namespace

const std::vector<HBReplayCommand>& HBReplayCommands()
{
    static const std::vector<HBReplayCommand> commands{
        {"apply",
         "RECIPE [FILE|FOLDER...] -o DIR",
         QT_TRANSLATE_NOOP("PanelReplay", "Adjust photos as the recipe says."),
         1,
         INT_MAX,
         {{"apply warm.json *.jpg -o adjusted", QT_TRANSLATE_NOOP("PanelReplay", "adjust some photos")},
          {"apply warm.json photos --recursive -o adjusted --resume",
           QT_TRANSLATE_NOOP("PanelReplay", "a whole tree; typed again, it goes on where it was stopped")},
          {"apply warm.json photos --recursive -o adjusted --dry-run",
           QT_TRANSLATE_NOOP("PanelReplay", "only say what would be written")},
          {"apply warm.json a.jpg b.jpg -o web --format webp --name '{name}-{recipe}.{ext}'",
           QT_TRANSLATE_NOOP("PanelReplay", "web/a-warm.webp and web/b-warm.webp")},
          {"apply warm.json --files-from list.txt -o out --shard 3/8 --json > part-3.jsonl",
           QT_TRANSLATE_NOOP("PanelReplay", "the third of eight machines, with a report")}}},
        {"verify",
         "RECIPE [FILE|FOLDER...] -o DIR",
         QT_TRANSLATE_NOOP(
             "PanelReplay",
             "Adjust photos again, and compare with the results that are there. Nothing is written."),
         1,
         INT_MAX,
         {{"verify warm.json *.jpg -o adjusted",
           QT_TRANSLATE_NOOP("PanelReplay", "named as they were for apply")}}},
        {"sheet",
         "FILE -o DIR",
         QT_TRANSLATE_NOOP("PanelReplay",
                           "Show what every panel does to a photo: a picture each, and all of them on one sheet."),
         1,
         1,
         {{"sheet photo.jpg -o sheet",
           QT_TRANSLATE_NOOP("PanelReplay", "the sheet is sheet/photo-contact-sheet.png")}}},
        {"list",
         "",
         QT_TRANSLATE_NOOP("PanelReplay", "List the panels: class, tag of the stored record, group and title."),
         0,
         0,
         {{"list", QT_TRANSLATE_NOOP("PanelReplay", "columns stand between tabs")}}},
        {"explain",
         "RECIPE",
         QT_TRANSLATE_NOOP("PanelReplay", "Say what a recipe does, step by step, in words and units."),
         1,
         1,
         {{"explain warm.json", QT_TRANSLATE_NOOP("PanelReplay", "to read")},
          {"explain warm.json --json", QT_TRANSLATE_NOOP("PanelReplay", "for programs")}}},
        {"validate",
         "RECIPE...",
         QT_TRANSLATE_NOOP("PanelReplay", "Check recipes. The exit code is 2 if one of them is bad."),
         1,
         INT_MAX,
         {{"validate recipes/*.json", QT_TRANSLATE_NOOP("PanelReplay", "a line for each")}}},
        {"diff",
         "RECIPE RECIPE",
         QT_TRANSLATE_NOOP("PanelReplay", "Say in what two recipes differ. The exit code is 1 if they do."),
         2,
         2,
         {{"diff warm.json warmer.json",
           QT_TRANSLATE_NOOP("PanelReplay", "- and +: only in the first, only in the second")}}},
        {"schema",
         "",
         QT_TRANSLATE_NOOP("PanelReplay", "Print the JSON Schema of recipes."),
         0,
         0,
         {{"schema > recipe.schema.json", QT_TRANSLATE_NOOP("PanelReplay", "for editors and other tools")}}},
        {"merge",
         "REPORT...",
         QT_TRANSLATE_NOOP(
             "PanelReplay",
             "Join the reports of several workers (apply --json) into one, and name what is missing or done "
             "twice."),
         1,
         INT_MAX,
         {{"merge part-*.jsonl --files-from list.txt > report.jsonl",
           QT_TRANSLATE_NOOP("PanelReplay", "files of the list that no report says done are missing")}}},
        {"help",
         "[COMMAND]",
         QT_TRANSLATE_NOOP("PanelReplay",
                           "Show help, also of a command; or print the manual page, or a shell's completion."),
         0,
         1,
         {{"help apply", QT_TRANSLATE_NOOP("PanelReplay", "the same as panel-replay apply --help")},
          {"help --man | man -l -", QT_TRANSLATE_NOOP("PanelReplay", "all of it on one page")},
          {"help --completion bash > ~/.local/share/bash-completion/completions/panel-replay",
           QT_TRANSLATE_NOOP("PanelReplay", "Tab completes commands, options and values; an installed "
                                            "panel-replay has brought it already")}}},
    };
    return commands;
}

const HBReplayCommand* HBFindReplayCommand(const QString& name)
{
    for (const HBReplayCommand& command : HBReplayCommands()) {
        if (name == QLatin1String(command.name))
            return &command;
    }
    return nullptr;
}

const std::vector<HBReplayExitText>& HBReplayExitTexts()
{
    static const std::vector<HBReplayExitText> texts{
        {HBAllDone, QT_TRANSLATE_NOOP("PanelReplay", "All is done.")},
        {HBFileFailed,
         QT_TRANSLATE_NOOP("PanelReplay", "A file failed; of diff: the recipes differ; of merge: photos are "
                                          "missing.")},
        {HBBadUsage, QT_TRANSLATE_NOOP("PanelReplay", "Wrong usage, or a bad recipe; nothing was written.")},
        {HBNothingMatched, QT_TRANSLATE_NOOP("PanelReplay", "No file matched.")},
        {HBWasInterrupted,
         QT_TRANSLATE_NOOP("PanelReplay", "Interrupted by Ctrl-C or SIGTERM; results are whole.")},
    };
    return texts;
}

const std::vector<HBReplayOption>& HBReplayOptionTable()
{
    static const std::vector<HBReplayOption> options{
        {"output", 'o', "DIR",
         QT_TRANSLATE_NOOP("PanelReplay", "Folder for the results; made if it is not there."), Results, nullptr},
        {"name", 0, "PATTERN",
         QT_TRANSLATE_NOOP(
             "PanelReplay",
             "Names of the results, of {name} and {ext} of the photo and {recipe}; default: {name}.{ext}."),
         Photos, nullptr},
        {"format", 0, "EXT",
         QT_TRANSLATE_NOOP("PanelReplay",
                           "Format of the results, as jpg, png, tif or webp; default: each file's own."),
         Results, nullptr},
        {"quality", 0, "N",
         QT_TRANSLATE_NOOP("PanelReplay",
                           "Quality of JPEG and WebP, 0..100, default 92; a WebP of 100 is lossless."),
         Results, nullptr},
        {"recursive", 'r', nullptr,
         QT_TRANSLATE_NOOP("PanelReplay", "Take the folders within folders, too; results keep them."), Photos,
         nullptr},
        {"files-from", 0, "FILE",
         QT_TRANSLATE_NOOP(
             "PanelReplay",
             "Read the names of the photos from a file, one a line; - is standard input. Folders of relative "
             "names "
             "are kept."),
         "apply verify merge", nullptr},
        {"null", '0', nullptr,
         QT_TRANSLATE_NOOP("PanelReplay",
                           "The names of --files-from end with a NUL byte, as find -print0 writes them."),
         "apply verify merge", nullptr},
        {"base", 0, "DIR",
         QT_TRANSLATE_NOOP("PanelReplay", "Results keep the folders that the photos have below this one."), Photos,
         nullptr},
        {"include", 0, "GLOB",
         QT_TRANSLATE_NOOP(
             "PanelReplay",
             "Take only such files; may be given several times. With a / it is compared with the path below the "
             "folder, else with the name; case does not matter."),
         Photos, nullptr, true},
        {"exclude", 0, "GLOB",
         QT_TRANSLATE_NOOP("PanelReplay", "Leave such files out; may be given several times."), Photos, nullptr,
         true},
        {"on-conflict", 0, "POLICY",
         QT_TRANSLATE_NOOP(
             "PanelReplay",
             "If a result is there already: fail (the default), skip, overwrite, or rename the new one."),
         "apply", "fail skip overwrite rename"},
        {"overwrite", 0, nullptr, QT_TRANSLATE_NOOP("PanelReplay", "The same as --on-conflict overwrite."),
         "apply sheet", nullptr},
        {"dry-run", 'n', nullptr,
         QT_TRANSLATE_NOOP("PanelReplay", "Check everything, say what would be written, and write nothing."),
         "apply", nullptr},
        {"resume", 0, nullptr,
         QT_TRANSLATE_NOOP(
             "PanelReplay",
             "Leave out what an earlier run with this recipe has finished, by the journal in the results' folder; "
             "and keep the journal."),
         "apply", nullptr},
        {"keep-going", 'k', nullptr,
         QT_TRANSLATE_NOOP("PanelReplay", "Go on after a file that failed (the default)."), Photos, nullptr},
        {"fail-fast", 0, nullptr, QT_TRANSLATE_NOOP("PanelReplay", "Start no further file once one has failed."),
         Photos, nullptr},
        {"jobs", 'j', "N", QT_TRANSLATE_NOOP("PanelReplay", "Use so many cores; default: all."), Photos, nullptr},
        {"memory", 0, "SIZE",
         QT_TRANSLATE_NOOP("PanelReplay", "Memory for pictures, as 800M or 4G; default: half of what the machine "
                                          "has, or the container. A photo "
                                          "that needs more is refused."),
         Photos, nullptr},
        {"max-seconds-per-file", 0, "N",
         QT_TRANSLATE_NOOP("PanelReplay",
                           "Give a file up that takes longer, or by the recipe's estimate would; default: 300."),
         Photos, nullptr},
        {"max-megapixels", 0, "N", QT_TRANSLATE_NOOP("PanelReplay", "Refuse larger photos; default: 1100."),
         Photos, nullptr},
        {"shard", 0, "I/N",
         QT_TRANSLATE_NOOP(
             "PanelReplay",
             "Do the I-th of N shares. auto: as the job array says (Slurm, PBS, SGE, Kubernetes, AWS Batch); "
             "auto/N "
             "where it does not tell how many tasks there are."),
         Photos, nullptr},
        {"json", 0, nullptr, QT_TRANSLATE_NOOP("PanelReplay", "Print JSON: a line for each file and one for all."),
         "apply verify list explain", nullptr},
        {"man", 0, nullptr, QT_TRANSLATE_NOOP("PanelReplay", "Print the manual page, for man."), "help", nullptr},
        {"completion", 0, "SHELL", QT_TRANSLATE_NOOP("PanelReplay", "Print the completion of a shell."), "help",
         "bash zsh fish"},
        {"help", 'h', nullptr, QT_TRANSLATE_NOOP("PanelReplay", "Show help, also of a command."), "", nullptr},
        {"version", 'v', nullptr, QT_TRANSLATE_NOOP("PanelReplay", "Show the version."), "", nullptr},
    };
    return options;
}

bool HBReplayOption::ReadBy(const char* command) const
{
    return QString(commands).split(' ').contains(QLatin1String(command));
}

QString HBReplayText(const char* text)
{
    return QCoreApplication::translate("PanelReplay", text);
}

QString HBReplayHelp(const HBReplayCommand* command)
{
    QString help;
    if (command) {
        help += HBReplayWords::tr("Examples:") + '\n' + Examples(*command) + '\n';
        help += HBReplayWords::tr("Usage:") +
                QString(" panel-replay %1 %2\n").arg(command->name, command->arguments).replace(" \n", "\n");
        help += HBReplayText(command->text) + '\n';
        const QString rows = OptionRows(command->name);
        if (!rows.isEmpty())
            help += '\n' + HBReplayWords::tr("Options:") + '\n' + rows;
    } else {
        help += HBReplayWords::tr("Applies stored adjustments to photos.") + "\n\n" +
                HBReplayWords::tr("Examples:") + '\n';
        help += Examples(HBReplayCommands().front());
        help += '\n' + HBReplayWords::tr("Commands; panel-replay COMMAND --help says more:") + '\n';
        for (const HBReplayCommand& each : HBReplayCommands())
            help += Row(QLatin1String(each.name), HBReplayText(each.text));
        help += '\n' + HBReplayWords::tr("Options:") + '\n' + OptionRows("");
    }
    help += '\n' + HBReplayWords::tr("Exit codes:") + '\n';
    for (const HBReplayExitText& exit : HBReplayExitTexts())
        help += Row(QString::number(exit.code), HBReplayText(exit.text));
    return help;
}

QString HBNoSuchCommand(const QString& name)
{
    return HBReplayWords::tr("there is no command \"%1\"; try panel-replay --help").arg(name);
}

HBReplayOptions::HBReplayOptions()
{
    for (const HBReplayOption& option : HBReplayOptionTable()) {
        QStringList names{option.name};
        if (option.letter)
            names.append(QString(QLatin1Char(option.letter)));
        m_Parser.addOption({names, {}, QLatin1String(option.argument ? option.argument : "")});
    }
}

bool HBReplayOptions::Parse(const QStringList& arguments, QString* problem)
{
    if (!m_Parser.parse(arguments)) {
        *problem = m_Parser.errorText();
        return false;
    }
    m_Arguments = m_Parser.positionalArguments();
    if (m_Arguments.isEmpty())
        return true;
    const QString name = m_Arguments.takeFirst();
    m_pCommand = HBFindReplayCommand(name);
    if (!m_pCommand)
        *problem = HBNoSuchCommand(name);
    return m_pCommand != nullptr;
}

bool HBReplayOptions::Check(QString* problem) const
{
    const auto fail = [problem](const QString& text) {
        *problem = text;
        return false;
    };
    if (!m_pCommand)
        return fail(HBReplayWords::tr("wrong usage; try panel-replay --help"));
    const QString help = QString("panel-replay %1 --help").arg(m_pCommand->name);
    for (const HBReplayOption& option : HBReplayOptionTable()) {
        if (!IsSet(option.name))
            continue;
        if (!option.ReadBy(m_pCommand->name)) {
            return fail(HBReplayWords::tr("%1 has no option --%2; try %3")
                            .arg(QLatin1String(m_pCommand->name), QLatin1String(option.name), help));
        }
        if (option.choices && !QString(option.choices).split(' ').contains(Value(option.name))) {
            return fail(HBReplayWords::tr("--%1 must be one of: %2")
                            .arg(QLatin1String(option.name), QString(option.choices).replace(' ', ", ")));
        }
    }
    if (m_Arguments.size() < m_pCommand->fewest || m_Arguments.size() > m_pCommand->most)
        return fail(HBReplayWords::tr("wrong usage; try %1").arg(help));
    return true;
}

bool HBReplayOptions::Number(const char* option, double minimum, double maximum, double* value,
                             QString* problem) const
{
    if (!IsSet(option))
        return true;
    bool isNumber = false;
    const double number = Value(option).toDouble(&isNumber);
    if (!isNumber || !(number >= minimum && number <= maximum)) {
        *problem = HBReplayWords::tr("--%1 must be a number from %2 to %3")
                       .arg(QLatin1String(option))
                       .arg(minimum)
                       .arg(maximum, 0, 'g', 10);
        return false;
    }
    *value = number;
    return true;
}

bool HBReplayOptions::Whole(const char* option, int minimum, int maximum, int* value, QString* problem) const
{
    double number = *value;
    if (!Number(option, minimum, maximum, &number, problem))
        return false;
    if (number != int(number)) {
        *problem = HBReplayWords::tr("--%1 must be a whole number").arg(QLatin1String(option));
        return false;
    }
    *value = int(number);
    return true;
}

bool HBReplayOptions::Bytes(const char* option, qint64* bytes, QString* problem) const
{
    if (!IsSet(option))
        return true;
    QString text = Value(option).toUpper();
    const int power = QString("KMGT").indexOf(text.right(1)) + 1;
    if (power > 0 && !text.isEmpty())
        text.chop(1);
    bool isNumber = false;
    const double number = text.toDouble(&isNumber) * double(1LL << 10 * power);
    if (!isNumber || !(number >= 1 << 20 && number <= 1e15)) {
        *problem = HBReplayWords::tr("--%1 must be a size from 1M, as 800M or 4G").arg(QLatin1String(option));
        return false;
    }
    *bytes = qint64(number);
    return true;
}
