// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayManual.h"

#include "HBReplayOptions.h"
#include "HBReplayWords.h"

namespace
{

QString Roff(QString text)
{
    text.replace('\\', "\\e").replace('-', "\\-").replace('\'', "\\(aq").replace('`', "\\(ga");
    text.replace('^', "\\(ha").replace('~', "\\(ti").replace('"', "\\(dq");
    return text.startsWith('.') ? "\\&" + text : text;
}

QString Bold(const QString& text)
{
    return "\\fB" + Roff(text) + "\\fR";
}

QString Item(const QString& head, const QString& text)
{
    return ".TP\n" + head + '\n' + Roff(text) + '\n';
}

QString ManualOption(const HBReplayOption& option)
{
    QString head = option.letter ? Bold(QString("-%1").arg(QLatin1Char(option.letter))) + ", " : QString();
    head += Bold("--" + QLatin1String(option.name));
    if (option.argument)
        head += " \\fI" + Roff(option.argument) + "\\fR";
    const QString commands = QString(option.commands).replace(' ', ", ");
    return Item(head,
                HBReplayText(option.text) +
                    (commands.isEmpty() ? QString() : '\n' + HBReplayWords::tr("Goes with: %1.").arg(commands)));
}

QString ManualCommand(const HBReplayCommand& command)
{
    QString page = QString(".SS %1 %2\n").arg(command.name, Roff(command.arguments)).replace(" \n", "\n") +
                   Roff(HBReplayText(command.text)) + '\n';
    for (const HBReplayExample& example : command.examples) {
        page += ".PP\n.nf\n" + Bold(QString("panel-replay ") + example.line) + "\n.fi\n.RS\n" +
                Roff(HBReplayText(example.text)) + "\n.RE\n";
    }
    return page;
}

} // namespace

QString HBReplayManual()
{
    QString page = ".\\\" Made by: panel-replay help --man\n";
    page += QString(".TH PANEL\\-REPLAY 1 \"\" \"panel\\-replay %1\"\n").arg(ADJUSTMENT_PANELS_VERSION);
    page += ".SH NAME\npanel\\-replay \\- " + Roff(HBReplayWords::tr("apply stored adjustments to photos")) + '\n';
    page += ".SH SYNOPSIS\n.B panel\\-replay\n\\fICOMMAND\\fR [\\fIOPTION\\fR...] [\\fIARGUMENT\\fR...]\n";
    page += ".SH DESCRIPTION\n" +
            Roff(HBReplayWords::tr(
                "Adjusts any number of photos as a recipe says that panel-editor has saved, without a "
                "display. Names of files may be of any bytes. Results are written whole or not at all, "
                "with the metadata and the color profile of the photo.")) +
            '\n';
    page += ".SH COMMANDS\n";
    for (const HBReplayCommand& command : HBReplayCommands())
        page += ManualCommand(command);
    page += ".SH OPTIONS\n";
    for (const HBReplayOption& option : HBReplayOptionTable())
        page += ManualOption(option);
    page += ".SH EXIT STATUS\n";
    for (const HBReplayExitText& exit : HBReplayExitTexts())
        page += Item(Bold(QString::number(exit.code)), HBReplayText(exit.text));
    page += ".SH ENVIRONMENT\n";
    page += Item(Bold("NO_COLOR"), HBReplayWords::tr("If it is set and not empty, messages have no colors."));
    page += Item(Bold("TMPDIR"),
                 HBReplayWords::tr("The folder for what does not fit into the memory; default: /var/tmp."));
    page += ".SH FILES\n";
    page += Item(
        Bold(".panel-replay.journal"),
        HBReplayWords::tr("In the results' folder: what has been done, a line of JSON for each file. --resume "
                          "reads it. With --shard, the share is in its name."));
    return page;
}
