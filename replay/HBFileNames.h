// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

// File names of any bytes. Qt 5 can be taught them. Qt 6 knows names in UTF-8 only, and leaves all others out of a
// folder; there they are told, and each is refused.

/// From now on paths of any bytes go through QString and back unchanged: a byte that is not UTF-8 becomes a lone
/// low surrogate, U+DC00 + byte. Where the locale has another encoding, Qt's own is kept. Once, after the
/// application is made and before other threads run. Qt 5 only.
void HBKeepAllFileNames();

/// A name as the system gives it, in that form with either version of Qt.
QString HBDecodedFileName(const QByteArray& bytes);

/// Whether Qt can open a file of this name: it may take another one's place if not.
bool HBIsFileName(const QString& path);

/// What Qt's listing of the folder lacks; folders end with a slash.
QStringList HBNamesUnknownToQt(const QString& folder);

/// The text for a terminal: one line without control characters, written as \n, \x1b, \u202e; bytes that are not
/// UTF-8 as \xe4.
QString HBShownOnTerminal(const QString& text);
