// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

/// Brightness and contrast. The simplest complete adjustment: every other one is built like it.
struct HB_ADJUSTMENTS_EXPORT HBBrightnessContrastParams
{
    qint32 brightness = 0; ///< levels to add
    qint32 contrast = 0;

    static constexpr char Tag[] = "KMBrightnessContrast 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBBrightnessContrastParams;
        return std::make_tuple(HBNumber("brightness", &P::brightness, {-127, 127, 0, HBUnit::Levels}),
                               HBNumber("contrast", &P::contrast, {-127, 127, 0}));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBBrightnessContrastParams& params);
