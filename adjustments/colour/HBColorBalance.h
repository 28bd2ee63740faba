// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

/// Colour balance: shifts between opposite colours, for the shadows, the midtones and the highlights by
/// themselves. Index of these in the three axes: 0, 1, 2.
struct HB_ADJUSTMENTS_EXPORT HBColorBalanceParams
{
    enum ToneRange { NoRange, Shadows, Midtones, Highlights };

    qint32 cyanRed[3] = {0, 0, 0};      ///< less is more cyan, more is more red
    qint32 magentaGreen[3] = {0, 0, 0}; ///< less is more magenta, more is more green
    qint32 yellowBlue[3] = {0, 0, 0};   ///< less is more yellow, more is more blue
    qint32 toneRange = Midtones;        ///< shown for editing; changes no pixel
    bool preserveLuminosity = true;     ///< stored for later use; changes no pixel

    static constexpr char Tag[] = "KMColorBalance 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBColorBalanceParams;
        constexpr HBRange shift{-100, 100, 0, HBUnit::Levels};
        constexpr const char* tones[] = {"shadows", "midtones", "highlights"};
        constexpr const char* ranges[] = {"none", "shadows", "midtones", "highlights"};
        return std::make_tuple(HBNumbers("cyanRed", &P::cyanRed, shift, tones),
                               HBNumbers("magentaGreen", &P::magentaGreen, shift, tones),
                               HBNumbers("yellowBlue", &P::yellowBlue, shift, tones),
                               HBChoice("toneRange", &P::toneRange, ranges),
                               HBPlain("preserveLuminosity", &P::preserveLuminosity));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBColorBalanceParams& params);
