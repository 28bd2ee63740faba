// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPosterize.h"

#include <HBIterativePosterizeTransformation.h>

HBStages HBStagesOf(const HBPosterizeParams& params)
{
    return {HBStageOf(HBIterativePosterizeTransformation(HBClamped(params, &HBPosterizeParams::levels)))};
}
