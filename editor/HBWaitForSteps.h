// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBEditorContext.h"

#include <HBRecipe.h>

/// Waits for the result of steps on the document's photo, which can be cancelled if it takes long. False if it
/// was, or if it failed, which is said. GUI thread.
bool HBWaitForSteps(const HBEditorContext& editor, const QVector<HBRecipeStep>& steps, HBImage<>* image);

/// The same until the document's image is that of its steps.
bool HBWaitForDocument(const HBEditorContext& editor);
