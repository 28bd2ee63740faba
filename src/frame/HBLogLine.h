// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

/// Leaves the text, in the local encoding, as a line on Qt's debug stream, quoted and escaped. Where Qt cannot
/// write it for want of memory it goes to stderr as it is. Any thread.
void HBLogQuoted(const char* text) noexcept;
