// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayLog.h"

#include "HBFileNames.h"
#include "HBReplayExit.h"
#include "HBReplayWords.h"

#include <QFileInfo>

#include <cstdio>
#include <unistd.h>

namespace
{

constexpr char ClearLine[] = "\r\x1b[K";

void PrintError(const QString& text)
{
    std::fputs(qPrintable(text), stderr);
}

QString ErrorLine(const QString& text)
{
    // no-color.org: any value that is not empty
    static const bool colored = isatty(STDERR_FILENO) && qEnvironmentVariableIsEmpty("NO_COLOR") &&
                                qgetenv("TERM") != "dumb" && !qEnvironmentVariableIsEmpty("TERM");
    return (colored ? "\x1b[31mpanel-replay:\x1b[m " : "panel-replay: ") + HBShownOnTerminal(text) + '\n';
}

} // namespace

HBReplayLog::HBReplayLog(int files) : m_Files(files), m_Terminal(isatty(STDERR_FILENO)) {}

HBReplayLog::~HBReplayLog()
{
    if (m_LineOpen)
        PrintError("\n");
}

void HBReplayLog::FileDone(const QString& path)
{
    ++m_Done;
    if (!m_Terminal)
        return;
    PrintError(ClearLine + QString("[%1/%2] ").arg(m_Done).arg(m_Files) +
               HBShownOnTerminal(QFileInfo(path).fileName()));
    m_LineOpen = true;
}

void HBReplayLog::Message(const QString& text)
{
    if (m_LineOpen)
        PrintError(ClearLine);
    m_LineOpen = false;
    HBPrintError(text);
}

void HBPrintError(const QString& text)
{
    PrintError(ErrorLine(text));
}

QByteArray HBLastErrorLine(const QString& text)
{
    return ((isatty(STDERR_FILENO) ? ClearLine : "") + ErrorLine(text)).toLocal8Bit();
}

int HBFinishOutput(int code)
{
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return code;
    HBPrintError(HBReplayWords::tr("standard output could not be written; what it holds is not whole"));
    return code == HBAllDone ? HBFileFailed : code;
}
