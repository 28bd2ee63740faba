// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

/// Posterize. Stored as a plain value.
struct HB_ADJUSTMENTS_EXPORT HBPosterizeParams
{
    qint32 levels = 4; ///< that each colour keeps

    static constexpr auto Fields()
    {
        return std::make_tuple(
            HBNumber("levels", &HBPosterizeParams::levels, {2, 255, HBNoNeutral, HBUnit::Levels}));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBPosterizeParams& params);
