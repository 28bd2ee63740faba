// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBChannelTables.h"
#include "HBLevelsSettings.h"

/// Levels: for each colour, the channel's own setting and then the composite one, each
///
///     t = (level - input low) / (input high - input low), clamped to 0..1
///     result = output low + (output high - output low) × t^(1 / gamma)
///
/// so that a larger gamma brightens. Nothing is rounded before the end. An input range that is empty or upside
/// down (high <= low) is a step at low: t is 0 below it, 1 from it on. An output range upside down inverts.
///
/// Alpha is kept; the default settings, (0, 255) and gamma 1, are the exact identity.
class HB_IMAGINGLIB_EXPORT HBLevelsTransformation : public HBChannelTables
{
public:
    /// The identity.
    HBLevelsTransformation() = default;

    /// The arrays have four entries: 0 composite, 1 red, 2 green, 3 blue.
    /// \param input black and white point, levels; clamped to 0..255
    /// \param output what these become, levels; clamped to 0..255
    /// \param gamma 0.01..9.99, clamped; NaN counts as 1
    /// \param amount percent of the way from the source to the result, 0..100, clamped
    HBLevelsTransformation(const int input[][2], const int output[][2], const double gamma[], int amount);
    explicit HBLevelsTransformation(const HBLevelsSettings& settings)
        : HBLevelsTransformation(settings.input, settings.output, settings.gamma, 100)
    {
    }
};
