// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBWarn.h"

#include <QtGlobal>

#include <cstdio>

void HBWarn(const char* text, const char* reason) noexcept
{
    try {
        qWarning("%s%s", text, reason);
    } catch (...) { // whatever the message handler throws, too
        std::fprintf(stderr, "%s%s\n", text, reason);
    }
}
