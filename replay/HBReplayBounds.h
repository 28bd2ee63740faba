// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBRecipeCost.h"

#include <QSize>

/// What one photo may take. Recipes and photos may be anybody's files: some of a few kilobytes would keep a
/// machine busy for an hour, or fill its memory.
struct HBReplayBounds
{
    double seconds = 300;
    double megapixels = 1100;  ///< a gigapixel is worked on
    bool anyMegapixels = true; ///< false: nor more than the size of the file can be meant to hold
    qint64 memory = 0;         ///< bytes

    /// Why a photo of that size is refused before it is read; empty: it is not.
    /// \param size as the head of the file tells it; not valid: unknown
    /// \param fileBytes of the photo's file
    /// \param threads that adjust
    QString Problem(const QSize& size, qint64 fileBytes, const HBRecipeCost& recipe, int threads) const;
};
