// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// From now on paths of any bytes go through QString and back unchanged: a byte that is not UTF-8 becomes a lone
/// low surrogate, U+DC00 + byte. Where the locale has another encoding, Qt's own is kept. Once, after the
/// application is made and before other threads run.
void HBKeepAllFileNames();

/// The text for a terminal: one line without control characters, written as \n, \x1b, \u202e; bytes that are not
/// UTF-8 as \xe4.
QString HBShownOnTerminal(const QString& text);
