// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBGimpLayer.h"

#include <HBRecipe.h>

// Changing a layer without a dialog. The thread of main() only.

/// Applies the steps to what is selected of the layer, as one step that can be undone; GIMP shows the progress.
/// False with a reason, and the layer left alone, if that cannot be done; then nothing is written to `notes`.
/// \param title of the progress
/// \param notes what was lost on the way, in words
bool HBApplyToLayer(const HBGimpLayer& layer, const HBRecipe& recipe, const QString& title, QStringList* notes,
                    QString* reason);
