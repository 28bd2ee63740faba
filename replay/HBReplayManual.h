// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Made from the tables of HBReplayOptions.h, so that they never lag behind the program.

/// The manual page, as roff with the macros of man(7).
QString HBReplayManual();

/// The completion of commands, options and values.
/// \param shell "bash", "zsh" or "fish"
QString HBReplayCompletion(const QString& shell);
