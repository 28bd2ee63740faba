// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What the user sees on standard error while files are at work: on a terminal one line that changes, elsewhere a
/// line a file; messages stay in either case.
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

/// "panel-replay: <text>" on standard error, as one line.
void HBPrintError(const QString& text);
