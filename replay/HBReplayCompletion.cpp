// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayCompletion.h"

#include "HBReplayOptions.h"
#include "HBReplayWords.h"

namespace
{

/// What a value is, for a shell.
enum class Value { None, Words, Folder, File, Recipe, Other };

Value ValueOf(const HBReplayOption& option)
{
    const QLatin1String argument(option.argument);
    return !option.argument     ? Value::None
           : option.choices     ? Value::Words
           : argument == "DIR"  ? Value::Folder
           : argument == "FILE" ? Value::File
                                : Value::Other;
}

/// What is behind a command; of several kinds the wider one.
Value ArgumentOf(const HBReplayCommand& command)
{
    const QString arguments = command.arguments;
    return command.most == 0                                            ? Value::None
           : arguments.contains("COMMAND")                              ? Value::Words
           : arguments.contains("FILE") || arguments.contains("REPORT") ? Value::File
                                                                        : Value::Recipe;
}

QString CommandNames()
{
    QStringList names;
    for (const HBReplayCommand& command : HBReplayCommands())
        names.append(QLatin1String(command.name));
    return names.join(' ');
}

QStringList Spellings(const HBReplayOption& option)
{
    QStringList names{"--" + QLatin1String(option.name)};
    if (option.letter)
        names.append(QString("-%1").arg(QLatin1Char(option.letter)));
    return names;
}

QString Quoted(QString text)
{
    return '\'' + text.replace('\'', "'\\''") + '\'';
}

// ---- bash ----

QString BashValues()
{
    QString cases;
    for (const HBReplayOption& option : HBReplayOptionTable()) {
        const Value value = ValueOf(option);
        if (value == Value::None)
            continue;
        cases += "    " + Spellings(option).join('|') + ") ";
        cases += value == Value::Words    ? QString("_panel_replay_words \"%1\"").arg(option.choices)
                 : value == Value::Folder ? "_panel_replay_files -d"
                 : value == Value::File   ? "_panel_replay_files -f"
                                          : ":";
        cases += "; return ;;\n";
    }
    return cases;
}

QString BashOptions(const char* command)
{
    QStringList names;
    for (const HBReplayOption& option : HBReplayOptionTable()) {
        if (option.ReadBy(command))
            names += Spellings(option);
    }
    return names.join(' ');
}

QString BashCommands()
{
    QString cases;
    for (const HBReplayCommand& command : HBReplayCommands()) {
        const Value value = ArgumentOf(command);
        cases += QString("    %1) options=\"%2\"; arguments=%3 ;;\n")
                     .arg(command.name, BashOptions(command.name) + " --help",
                          value == Value::None    ? "none"
                          : value == Value::Words ? "commands"
                          : value == Value::File  ? "files"
                                                  : "recipes");
    }
    return cases;
}

QString Bash()
{
    return QString(R"(# Completion of panel-replay for bash. Made by: panel-replay help --completion bash

_panel_replay_words() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$cur")
}

_panel_replay_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$@" -- "$cur")
}

_panel_replay() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    local commands="%1" options="%2" arguments=commands command= i
    COMPREPLY=()
    # bash takes --option=value apart
    if [[ $cur == = ]]; then
        cur=
    elif [[ $prev == = ]]; then
        prev=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $prev in
%3    esac
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ " $commands " == *" ${COMP_WORDS[i]} "* ]]; then
            command=${COMP_WORDS[i]}
            break
        fi
    done
    case $command in
%4    esac
    if [[ $cur == -* ]]; then
        _panel_replay_words "$options"
        return
    fi
    case $arguments in
    commands) _panel_replay_words "$commands" ;;
    files) _panel_replay_files -f ;;
    recipes) _panel_replay_files -f -X '!*.json' -o plusdirs ;;
    esac
}

complete -F _panel_replay panel-replay
)")
        .arg(CommandNames(), BashOptions(""), BashValues(), BashCommands());
}

// ---- zsh ----

/// As _arguments wants it; in quotes.
QString ZshOption(const HBReplayOption& option)
{
    QString text = HBReplayText(option.text);
    text.replace('\\', "\\\\").replace('[', "\\[").replace(']', "\\]");
    const Value value = ValueOf(option);
    QString behind = '[' + text + ']';
    if (value != Value::None) {
        behind += ':' + QString(option.argument) + ':';
        behind += value == Value::Words    ? '(' + QString(option.choices) + ')'
                  : value == Value::Folder ? "_files -/"
                  : value == Value::File   ? "_files"
                                           : " ";
    }
    const QStringList names = Spellings(option);
    const QString before = option.repeats ? "*" : '(' + names.join(' ') + ')';
    QStringList entries;
    for (const QString& name : names) {
        const char* end = value == Value::None ? "" : name.startsWith("--") ? "=" : "+";
        entries.append(Quoted(before + name + end + behind));
    }
    return entries.join(' ');
}

QString ZshArguments(const HBReplayCommand& command)
{
    switch (ArgumentOf(command)) {
    case Value::None:
        return {};
    case Value::Words:
        return Quoted("1:command:(" + CommandNames() + ')');
    case Value::Recipe:
        return Quoted("*:recipe:_files -g \"*.json\"");
    default:
        return QString(command.arguments).startsWith("RECIPE")
                   ? Quoted("1:recipe:_files -g \"*.json\"") + ' ' + Quoted("*:photo:_files")
                   : Quoted("*:file:_files");
    }
}

QString Zsh()
{
    QString commands;
    QString cases;
    QString common;
    for (const HBReplayOption& option : HBReplayOptionTable()) {
        if (option.ReadBy(""))
            common += " \\\n    " + ZshOption(option);
    }
    for (const HBReplayCommand& command : HBReplayCommands()) {
        commands += "        " + Quoted(QString(command.name) + ':' + HBReplayText(command.text)) + '\n';
        cases += QString("    %1)\n        _arguments -s").arg(command.name);
        for (const HBReplayOption& option : HBReplayOptionTable()) {
            if (option.ReadBy(command.name))
                cases += " \\\n            " + ZshOption(option);
        }
        cases += " \\\n            " +
                 Quoted("(- *)--help[" + HBReplayWords::tr("Show help, also of a command.") + ']');
        const QString arguments = ZshArguments(command);
        cases += (arguments.isEmpty() ? QString() : " \\\n            " + arguments) + "\n        ;;\n";
    }
    return QString(R"(#compdef panel-replay
# Completion of panel-replay for zsh. Made by: panel-replay help --completion zsh

local context state state_descr line
local -a commands
typeset -A opt_args

_arguments -C%1 \
    '1:command:->command' '*::argument:->argument'
case $state in
command)
    commands=(
%2    )
    _describe -t commands command commands
    ;;
argument)
    case $words[1] in
%3    esac
    ;;
esac
)")
        .arg(common, commands, cases);
}

// ---- fish ----

QString FishQuoted(QString text)
{
    return '\'' + text.replace('\\', "\\\\").replace('\'', "\\'") + '\'';
}

QString FishOption(const HBReplayOption& option, const QString& condition)
{
    QString line = "complete -c panel-replay -n " + FishQuoted(condition) + " -l " + option.name;
    if (option.letter)
        line += QString(" -s ") + QLatin1Char(option.letter);
    switch (ValueOf(option)) {
    case Value::None:
        break;
    case Value::Words:
        line += " -x -a " + FishQuoted(option.choices);
        break;
    case Value::Folder:
        line += " -x -a '(__fish_complete_directories)'";
        break;
    case Value::File:
        line += " -r -F";
        break;
    default:
        line += " -x";
        break;
    }
    return line + " -d " + FishQuoted(HBReplayText(option.text)) + '\n';
}

QString Fish()
{
    QString script = "# Completion of panel-replay for fish. Made by: panel-replay help --completion fish\n\n";
    script += "complete -c panel-replay -f\n";
    for (const HBReplayOption& option : HBReplayOptionTable()) {
        if (option.ReadBy(""))
            script += FishOption(option, "__fish_use_subcommand");
    }
    for (const HBReplayCommand& command : HBReplayCommands()) {
        const QString condition = QString("__fish_seen_subcommand_from ") + command.name;
        script += QString("\ncomplete -c panel-replay -n __fish_use_subcommand -a %1 -d %2\n")
                      .arg(command.name, FishQuoted(HBReplayText(command.text)));
        const Value value = ArgumentOf(command);
        if (value != Value::None) {
            script += "complete -c panel-replay -n " + FishQuoted(condition) +
                      (value == Value::Words  ? " -a " + FishQuoted(CommandNames())
                       : value == Value::File ? QString(" -F")
                                              : QString(" -k -a '(__fish_complete_suffix .json)'")) +
                      '\n';
        }
        for (const HBReplayOption& option : HBReplayOptionTable()) {
            if (option.ReadBy(command.name))
                script += FishOption(option, condition);
        }
    }
    return script;
}

} // namespace

QString HBReplayCompletion(const QString& shell)
{
    return shell == "bash" ? Bash() : shell == "zsh" ? Zsh() : Fish();
}
