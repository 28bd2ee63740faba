// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentsExport.h"

#include <HBTileWalk.h>

#include <QImage>

// What makes a selection of a target's picture for those who have painted none. On failure they return false with
// a reason and leave the target as it was. Any thread. \throws std::bad_alloc

/// Selects a rectangle of target->source, wholly covered. What reaches beyond the picture is cut off; fails if
/// nothing is left.
HB_ADJUSTMENTS_EXPORT bool HBSelectRectangle(const QRect& rectangle, HBTarget* target, QString* reason);

/// Selects target->source by a mask of the same size: 0 leaves a pixel alone, 255 adjusts it wholly. Where the
/// mask is 0 everywhere, nothing is adjusted. Fails for a mask of another size, and for one that is not grey
/// alone: with colours, or with transparency, of which nobody could tell whether it or the grey is meant
/// (QImage::Format_Alpha8 counts as grey).
HB_ADJUSTMENTS_EXPORT bool HBSelectMask(const QImage& mask, HBTarget* target, QString* reason);
