// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBIterativeAdjustmentTransformation.h"
#include "HBLevelsTransformation.h"

/// Levels over the tiles of an image.
class HBIterativeLevelsTransformation : public HBIterativeAdjustmentTransformation<HBLevelsTransformation>
{
public:
    /// See HBLevelsTransformation.
    HBIterativeLevelsTransformation(const int input[][2], const int output[][2], const double gamma[], int amount)
        : HBIterativeAdjustmentTransformation(HBLevelsTransformation(input, output, gamma, amount))
    {
    }
};
