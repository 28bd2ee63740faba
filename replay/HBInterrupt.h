// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <functional>

/// What an interrupted program says at its end; empty: nothing.
struct HBLastWords
{
    QByteArray message; ///< for standard error
    QByteArray line;    ///< for standard output
};

/// From now on the first SIGINT or SIGTERM ends the program within half a second. Whoever works asks
/// HBIsInterrupted() and calls HBEndInterrupted() when what it writes is whole; if nobody has done so 0.3 s
/// later, because output is not taken or a disk does not answer, a thread of its own does. A second signal
/// ends the program at once.
void HBWatchInterrupts();

/// Whether one has come. Any thread.
bool HBIsInterrupted();

/// \param words gives what to say; called more than once, by any thread. "interrupted" by default
void HBSetLastWords(std::function<HBLastWords()> words);

/// Says the last words, as far as there is somebody who takes them, and ends the process with exit code 130,
/// without waiting for its threads.
[[noreturn]] void HBEndInterrupted();
