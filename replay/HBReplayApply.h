// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBReplayNames.h"
#include "HBReplayOptions.h"

#include <HBPhotoFile.h>

/// The commands apply and verify. After an interrupt, or with a thread that hangs, it ends the process itself.
int HBReplayApply(const HBReplayOptions& options);

/// The options of all commands that write pictures. The folder is not yet made.
bool HBReadTarget(const HBReplayOptions& options, HBReplayTarget* target, HBPhotoOptions* photo, QString* problem);
