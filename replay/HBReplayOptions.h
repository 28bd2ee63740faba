// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <vector>

// What the command line understands, as data: the parser, --help, the manual page and the shells' completions are
// made from it. Texts are untranslated here; HBReplayText() translates them.

struct HBReplayExample
{
    const char* line; ///< as typed, without the program's name
    const char* text;
};

struct HBReplayCommand
{
    const char* name;
    const char* arguments; ///< as "RECIPE FILE... -o DIR"
    const char* text;
    int fewest; ///< arguments behind the command
    int most;
    std::vector<HBReplayExample> examples;
};

struct HBReplayOption
{
    const char* name;
    char letter;          ///< its short form; 0: none
    const char* argument; ///< what its value is called; null: it takes none
    const char* text;
    const char* commands; ///< that know it, with a blank between two
    const char* choices;  ///< the only values, with a blank between two; null: any
    bool repeats = false; ///< may be given several times
    bool ReadBy(const char* command) const;
};

struct HBReplayExitText
{
    int code;
    const char* text;
};

const std::vector<HBReplayCommand>& HBReplayCommands();
const HBReplayCommand* HBFindReplayCommand(const QString& name); ///< null: there is none
const std::vector<HBReplayOption>& HBReplayOptionTable();
const std::vector<HBReplayExitText>& HBReplayExitTexts();
QString HBReplayText(const char* text);

/// The help of one command; null: of the program.
QString HBReplayHelp(const HBReplayCommand* command);

/// What to tell the user who named a command that there is not.
QString HBNoSuchCommand(const QString& name);

/// A command line, read by the tables.
class HBReplayOptions
{
public:
    HBReplayOptions();

    /// \param arguments with the program's name
    /// \param problem what is wrong; in words for the user
    bool Parse(const QStringList& arguments, QString* problem);
    /// Whether all is there that the command needs, and nothing else. Not asked when only help is wanted.
    bool Check(QString* problem) const;

    const HBReplayCommand* Command() const { return m_pCommand; } ///< null: none was named
    const QStringList& Arguments() const { return m_Arguments; }  ///< without the command
    bool IsSet(const char* option) const { return m_Parser.isSet(option); }
    QString Value(const char* option) const { return m_Parser.value(option); }
    QStringList Values(const char* option) const { return m_Parser.values(option); }

    /// The option as a number; leaves `value` alone if it is not set.
    bool Number(const char* option, double minimum, double maximum, double* value, QString* problem) const;
    /// The same for a whole number.
    bool Whole(const char* option, int minimum, int maximum, int* value, QString* problem) const;
    /// The option as bytes: "800M", "4G", "1.5G"; leaves `bytes` alone if it is not set.
    bool Bytes(const char* option, qint64* bytes, QString* problem) const;

private:
    QCommandLineParser m_Parser;
    const HBReplayCommand* m_pCommand = nullptr;
    QStringList m_Arguments;
};
