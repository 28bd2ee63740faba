// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonObject>

/// The object as one line, with its end. A byte of a path that is not UTF-8 (see HBKeepAllFileNames) is written as
/// the escape of its lone surrogate, "\udce4": Python's json and os.fsencode() give the very byte back.
QByteArray HBJsonLine(const QJsonObject& object);
