// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBExposure.h"

#include <HBIterativeExposureTransformation.h>

HBStages HBStagesOf(const HBExposureParams& params)
{
    using P = HBExposureParams;
    return {HBStageOf(
        HBIterativeExposureTransformation(HBInForm(params, &P::exposure), HBInForm(params, &P::offset)))};
}
