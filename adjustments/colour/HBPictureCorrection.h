// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

/// Picture correction: automatic white balance, or an over- or underexposed picture made right, each with a
/// strength of its own; and a shift of the colour temperature.
struct HB_ADJUSTMENTS_EXPORT HBPictureCorrectionParams
{
    enum Mode { Auto, Overexposure, Underexposure };

    bool enchanced = false; ///< with an automatic stretch of the channels, in mode 0 only
    qint32 autoStrength = 50;
    qint32 overexposureStrength = 100;
    qint32 underexposureStrength = 100;
    qint32 mode = Auto; ///< any other corrects nothing
    bool useTemperature = false;
    qint32 temperature = 0; ///< -100 (cooler) .. 100 (warmer)
    qint32 temperatureStrength = 50;

    static constexpr char Tag[] = "KMWhiteBalance 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBPictureCorrectionParams;
        constexpr HBRange strength{0, 100, 0, HBUnit::Percent};
        constexpr const char* modes[] = {"automatic", "overexposed", "underexposed"};
        return std::make_tuple(HBPlain("enhanced", &P::enchanced),
                               HBNumber("autoStrength", &P::autoStrength, strength),
                               HBNumber("overexposureStrength", &P::overexposureStrength, strength),
                               HBNumber("underexposureStrength", &P::underexposureStrength, strength),
                               HBChoice("mode", &P::mode, modes), HBPlain("useTemperature", &P::useTemperature),
                               HBNumber("temperature", &P::temperature, {-100, 100, HBNoNeutral, HBUnit::Percent}),
                               HBNumber("temperatureStrength", &P::temperatureStrength, strength));
    }

    /// The strength that belongs to the mode; null for a mode that does not exist.
    qint32* ModeStrength() { return const_cast<qint32*>(std::as_const(*this).ModeStrength()); }
    const qint32* ModeStrength() const;
};

/// With a selection each stage is blended by it, so that partial coverage weighs repeatedly, on purpose.
HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBPictureCorrectionParams& params, bool selected);
