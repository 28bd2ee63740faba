// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A shell's completion of commands, options and values; made from the tables of HBReplayOptions.h.
/// \param shell "bash", "zsh" or "fish"
QString HBReplayCompletion(const QString& shell);
