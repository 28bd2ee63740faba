// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The manual page, as roff with the macros of man(7); made from the tables of HBReplayOptions.h.
QString HBReplayManual();
