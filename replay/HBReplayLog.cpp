// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayLog.h"

#include "HBFileNames.h"

#include <QFileInfo>

#include <cstdio>
#include <unistd.h>

namespace
{

constexpr char ClearLine[] = "\r\x1b[K";

void Print(const QString& text)
{
    std::fputs(qPrintable(text), stderr);
}

} // namespace

HBReplayLog::HBReplayLog(int files) : m_Files(files), m_Terminal(isatty(STDERR_FILENO)) {}

HBReplayLog::~HBReplayLog()
{
    if (m_LineOpen)
        Print("\n");
}

void HBReplayLog::FileDone(const QString& path)
{
    ++m_Done;
    const QString line =
        QString("[%1/%2] ").arg(m_Done).arg(m_Files) + HBShownOnTerminal(QFileInfo(path).fileName());
    Print(m_Terminal ? ClearLine + line : line + '\n');
    m_LineOpen = m_Terminal;
}

void HBReplayLog::Message(const QString& text)
{
    if (m_LineOpen)
        Print(ClearLine);
    m_LineOpen = false;
    HBPrintError(text);
}

void HBPrintError(const QString& text)
{
    Print("panel-replay: " + HBShownOnTerminal(text) + '\n');
}
