// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <exception>

/// The line that an exception in a job leaves on Qt's debug stream, as HBLogQuoted(); nothing for a null pointer.
/// Without memory even for the line it is cut to 1023 bytes. Any thread. Call it through HB_LOG_JOB_EXCEPTION.
void HBLogJobException(const char* date, const char* time, const std::exception_ptr& exception) noexcept;

/// A macro, because date and time are those of the panel's own unit.
#define HB_LOG_JOB_EXCEPTION(exception) HBLogJobException(__DATE__, __TIME__, exception)
