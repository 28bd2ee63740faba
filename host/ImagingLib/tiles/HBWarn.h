// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"

/// As qWarning("%s%s"), but where Qt cannot write it for want of memory it goes to stderr as it is: what is warned
/// of is often just that. Any thread.
HB_IMAGINGLIB_EXPORT void HBWarn(const char* text, const char* reason = "") noexcept;
