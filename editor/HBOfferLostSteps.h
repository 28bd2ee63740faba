// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBEditorContext.h"

class HBPhotoFiles;
class HBRecovery;

/// Asks about the steps that editors which did not come to their end have left, and opens the photo with those
/// that are wanted back. GUI thread.
/// \param recovery that finds them, and keeps them from then on
void HBOfferLostSteps(const HBEditorContext& editor, HBRecovery* recovery, HBPhotoFiles* files);
