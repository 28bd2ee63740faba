// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

#include <QColor>
#include <QPoint>
#include <QSize>

/// Replace colour: the region of similar colour that touches a corner, a plain background for example, gets
/// another colour. The selection does not limit the fill.
struct HB_ADJUSTMENTS_EXPORT HBReplaceColorParams
{
    /// The corner where the region begins. Stored: the numbers never change.
    enum PositionType : int { LeftTop = 0, RightTop = 1, LeftBottom = 2, RightBottom = 3 };

    qint32 tolerance = 0;                 ///< greatest difference per channel from the corner
    PositionType position = LeftTop;      ///< any that does not exist is LeftTop
    QColor color = QColor(255, 255, 255); ///< its own alpha counts for nothing
    qint32 opacity = 100;

    static constexpr char Tag[] = "KMReplaceColor 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBReplaceColorParams;
        constexpr const char* corners[] = {"leftTop", "rightTop", "leftBottom", "rightBottom"};
        return std::make_tuple(HBNumber("tolerance", &P::tolerance, {0, 255, HBNoNeutral, HBUnit::Levels}),
                               HBChoice("position", &P::position, corners), HBPlain("color", &P::color),
                               HBNumber("opacity", &P::opacity, {0, 100, 0, HBUnit::Percent}));
    }
};

/// What a record means for a picture: the pixel to lay over the region, where the region begins, and how far from
/// there a channel may be. All four bytes of the tolerance count, as unsigned ones, also those of a number out of
/// 0..255.
struct HB_ADJUSTMENTS_EXPORT HBColorReplacement
{
    HBRGBA32i replacement;
    QPoint seed;
    int tolerance = 0;
};
/// \param picture its size
HB_ADJUSTMENTS_EXPORT HBColorReplacement HBReplacementOf(const HBReplaceColorParams& params, const QSize& picture);

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBReplaceColorParams& params);
HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBColorReplacement& replacement);
