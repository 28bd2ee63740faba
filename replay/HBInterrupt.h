// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

/// From now on the first SIGINT or SIGTERM only sets a flag, so that no file is left in pieces; a second one ends
/// the program at once.
void HBWatchInterrupts();

/// Whether one has come.
bool HBIsInterrupted();
