// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

/// Black and white: a weighted sum of the three colours, with fixed weights or the user's own.
struct HB_ADJUSTMENTS_EXPORT HBBlackAndWhiteParams
{
    enum Type { Average, Luminance, D65, NTSC, CIE, Custom };
    static constexpr float AverageWeight = 0.333f;

    float r = AverageWeight; ///< the user's own weights; their sum need not be 1
    float g = AverageWeight;
    float b = AverageWeight;
    qint32 type = Average; ///< any that does not exist is Custom

    bool IsCustom() const { return type < Average || type >= Custom; }
    /// The weights that the type stands for.
    float GetR() const;
    float GetG() const;
    float GetB() const;

    static constexpr char Tag[] = "KMBlackAndWhite 1.00000";
    static constexpr char OldTag[] = "KMDesaturate 1.00000"; ///< read, never written
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBBlackAndWhiteParams;
        constexpr HBRange weight{0, 1, HBNoNeutral, HBUnit::None,
                                 3}; // of the form: the job takes them as they are
        constexpr const char* types[] = {"average", "luminance", "d65", "ntsc", "cie", "custom"};
        return std::make_tuple(HBNumber("red", &P::r, weight), HBNumber("green", &P::g, weight),
                               HBNumber("blue", &P::b, weight), HBChoice("type", &P::type, types));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBBlackAndWhiteParams& params);
