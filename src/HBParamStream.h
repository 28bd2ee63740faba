// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelStream.h"

#include <HBRecordStream.h>

#define HB_LOG_STREAM_ERROR(line, source, message) HBLogStreamError(__DATE__, __TIME__, line, source, message)
