// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

#include <HBHistogrammCalculator.h>
#include <HBLevelsSettings.h>

/// Levels: black point, white point and gamma of the input and the two ends of the output, for all channels
/// together and for each. Index of a channel: 0 composite, 1 red, 2 green, 3 blue.
struct HB_ADJUSTMENTS_EXPORT HBLevelsParams
{
    qint32 channel = 0;                                             ///< shown for editing; changes no pixel
    qint32 input[4][2] = {{0, 255}, {0, 255}, {0, 255}, {0, 255}};  ///< black and white point
    qint32 middle[4] = {128, 128, 128, 128};                        ///< position of the gamma handle, from gamma
    qint32 output[4][2] = {{0, 255}, {0, 255}, {0, 255}, {0, 255}}; ///< low may exceed high
    double gamma[4] = {1.0, 1.0, 1.0, 1.0};                         ///< more brightens

    static constexpr char Tag[] = "KMLevels 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBLevelsParams;
        constexpr const char* ends[] = {"all.black",   "all.white",   "red.black",  "red.white",
                                        "green.black", "green.white", "blue.black", "blue.white"};
        constexpr const char* channels[] = {"all", "red", "green", "blue"};
        return std::make_tuple(HBChoice("channel", &P::channel, channels),
                               HBNumbers("input", &P::input, {0, 255, HBNoNeutral, HBUnit::Levels}, ends),
                               HBNumbers("output", &P::output, {0, 255, HBNoNeutral, HBUnit::Levels}, ends),
                               HBNumbers("gamma", &P::gamma, {0.01, 9.99, 1, HBUnit::Exponent, 2}, channels));
    }

    /// Position of the gamma handle between the points: the middle at gamma 1, low at 9.99, high at 0.01. Any
    /// arguments.
    static int MiddleValue(int low, int high, double gamma);
    /// The gamma of a handle's position; 1 if the points leave no room for one.
    static double ToneValue(int low, int high, int position);
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBLevelsParams& params);

/// The settings that stretch each of the three channels between its own black and white (HBStretchRange).
HB_ADJUSTMENTS_EXPORT HBLevelsSettings HBAutomaticLevels(const HBHistogrammCalculator::Counts& counts);
