// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBJobLog.h"

#include "HBLogLine.h"

#include <cstdio>
#include <new>
#include <vector>

namespace
{

// Where the pixels of all jobs are transformed, as the log has always named it: fixed, on purpose.
constexpr int Line = 851;
constexpr char Header[] = "ImagingLib\\HBTransformImageColors.h";

/// As snprintf: cuts to `size`, returns the whole length. `content` is null for what is no standard exception.
int Format(char* buffer, std::size_t size, const char* date, const char* time, const char* content)
{
    if (content)
        return std::snprintf(buffer, size,
                             "Build date=%s, time=%s. Unexpected exception: line=%d, file=\"%s\". Exception "
                             "content:\"%s\"",
                             date, time, Line, Header, content);
    return std::snprintf(buffer, size,
                         "Build date=%s, time=%s. Unexpected unknown exception: line=%d, file=\"%s\"", date, time,
                         Line, Header);
}

/// The exception is often that there is no memory: then the line goes out without taking any.
void Log(const char* date, const char* time, const char* content)
{
    try {
        std::vector<char> text(std::size_t(Format(nullptr, 0, date, time, content)) + 1);
        Format(text.data(), text.size(), date, time, content);
        HBLogQuoted(text.data());
    } catch (const std::bad_alloc&) {
        char text[1024];
        Format(text, sizeof text, date, time, content);
        HBLogQuoted(text);
    }
}

} // namespace

void HBLogJobException(const char* date, const char* time, const std::exception_ptr& exception) noexcept
{
    if (!exception)
        return;
    try {
        std::rethrow_exception(exception);
    } catch (const std::exception& known) {
        Log(date, time, known.what());
    } catch (...) {
        Log(date, time, nullptr);
    }
}
