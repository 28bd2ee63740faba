// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelStream.h"

#include "HBLogLine.h"

#include <cstdio>

void HBLogStreamError(const char* date, const char* time, int line, const char* source,
                      const char* message) noexcept
{
    char text[512]; // all of it is fixed, and short
    std::snprintf(text, sizeof text, "Build date=%s, time=%s. Line=%d, file=\"%s\". %s", date, time, line, source,
                  message);
    HBLogQuoted(text);
}
