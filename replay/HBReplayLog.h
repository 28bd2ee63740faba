// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What the user sees on standard error while files are at work: on a terminal one line that changes, and
/// messages, which stay; elsewhere messages alone.
class HBReplayLog
{
public:
    explicit HBReplayLog(int files);
    ~HBReplayLog();

    /// A file is dealt with, well or not.
    void FileDone(const QString& path);
    void Message(const QString& text);

private:
    const int m_Files;
    int m_Done = 0;
    const bool m_Terminal;
    bool m_LineOpen = false;
};

/// "panel-replay: <text>" on standard error, as one line; on a terminal with its head in red, unless NO_COLOR is
/// set.
void HBPrintError(const QString& text);

/// What HBPrintError() would print, in the place of the line that changes, if there is one.
QByteArray HBLastErrorLine(const QString& text);

/// At the end of the program: what has been printed on standard output is with its reader, or the user is told.
/// \return the exit code, which is then not 0
int HBFinishOutput(int code);
