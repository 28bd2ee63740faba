// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBReplayNames.h"

#include <HBPhotoFile.h>

/// Shows what every adjustment does: applies its demonstration recipe to the photo and writes a picture
/// each, "<photo>-<panel>", and all of them small as "<photo>-contact-sheet.png". Returns the number of pictures
/// that failed, each told on standard error. The paths written go to standard output.
int HBReplaySheet(const QString& photo, const HBReplayTarget& target, const HBPhotoOptions& options);
