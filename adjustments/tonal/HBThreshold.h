// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

/// Threshold: pixels darker than a level become black, all others white.
struct HB_ADJUSTMENTS_EXPORT HBThresholdParams
{
    qint32 level = 128; ///< luminance from which a pixel is white

    static constexpr char Tag[] = "KMThreshold 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        // At 0 all is white, at 256 all is black; a form leaves both ends out.
        return std::make_tuple(
            HBNumber("level", &HBThresholdParams::level, {0, 256, HBNoNeutral, HBUnit::Levels}));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBThresholdParams& params);
