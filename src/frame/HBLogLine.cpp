// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLogLine.h"

#include <QDebug>

#include <cstdio>

void HBLogQuoted(const char* text) noexcept
{
    try {
        QString line;
        QDebug(&line).nospace() << QString::fromLocal8Bit(text);
        // Not by qDebug(): that hands its line over in a destructor, where running out of memory ends the process.
        qt_message_output(QtDebugMsg, QMessageLogContext(), line);
    } catch (...) { // whatever the message handler throws, too
        std::fputs(text, stderr);
        std::fputc('\n', stderr);
    }
}
