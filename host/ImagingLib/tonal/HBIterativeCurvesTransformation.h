// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBCurvesTransformation.h"
#include "HBIterativeAdjustmentTransformation.h"

/// Tone curves over the tiles of an image.
class HBIterativeCurvesTransformation : public HBIterativeAdjustmentTransformation<HBCurvesTransformation>
{
public:
    /// See HBCurvesTransformation.
    HBIterativeCurvesTransformation(const QVector<QPoint> points[4], int amount)
        : HBIterativeAdjustmentTransformation(HBCurvesTransformation(points, amount))
    {
    }
};
