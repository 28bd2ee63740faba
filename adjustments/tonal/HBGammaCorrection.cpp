// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGammaCorrection.h"

#include <HBIterativeGammaCorrectionTransformation.h>

HBStages HBStagesOf(const HBGammaCorrectionParams& params)
{
    return {
        HBStageOf(HBIterativeGammaCorrectionTransformation(HBInForm(params, &HBGammaCorrectionParams::gamma)))};
}
