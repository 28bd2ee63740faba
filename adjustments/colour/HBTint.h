// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

#include <QColor>

/// Tint: the brightness of a pixel on a ramp between two colours, mixed with the picture.
struct HB_ADJUSTMENTS_EXPORT HBTintParams
{
    /// How the brightness is measured; of RGB each channel by itself. Stored: the numbers never change.
    enum Type : int { Average = 0, NTSC = 1, LUMA = 2, RGB = 3 };

    QColor blackTone = QColor(5, 6, 8);       ///< in place of black; its alpha plays no part
    QColor whiteTone = QColor(170, 209, 255); ///< in place of white; its alpha plays no part
    qint32 amount = 75;
    Type type = Average; ///< any other changes nothing

    static constexpr char Tag[] = "KMTint 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBTintParams;
        constexpr const char* types[] = {"average", "ntsc", "luma", "rgb"};
        return std::make_tuple(HBPlain("blackTone", &P::blackTone), HBPlain("whiteTone", &P::whiteTone),
                               HBNumber("amount", &P::amount, {0, 100, 0, HBUnit::Percent}),
                               HBChoice("type", &P::type, types));
    }
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBTintParams& params);
