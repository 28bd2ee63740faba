// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBOverlayFields.h"
#include "HBStage.h"

#include <QColor>
#include <QFont>
#include <QString>

/// Watermark: a text laid over the photo, once or in rows.
///
/// All lengths count in thousandths of the picture's shorter side, as in HBSignParams. The picture between the
/// margins is divided into equal cells, and each holds one copy in its middle, turned counter-clockwise by the
/// angle. A font's pixel is a thousandth, a point 4/3 of that; a text that its cell does not hold becomes smaller.
struct HB_ADJUSTMENTS_EXPORT HBWatermarkParams
{
    qint32 angle = 0; ///< any: it goes round
    QFont font;
    QString text;
    /// Four margins in its four corner values: not a rectangle, never take its width.
    QRect margins = QRect(QPoint(5, 5), QPoint(5, 5));
    QColor color = Qt::white;
    qint32 blendingMode = 0; ///< a QPainter::CompositionMode; any that is not in the list counts as 0
    qint32 opacity = 100;
    qint32 horizontalTiles = 1;
    qint32 verticalTiles = 1;

    /// The font and the text are the application's font and its language's "Watermark", if there is an application
    /// object.
    HBWatermarkParams();

    static constexpr char Tag[] = "KMWatermark 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBWatermarkParams;
        constexpr HBRange copies{1, 9, HBNoNeutral, HBUnit::Copies};
        return std::make_tuple(HBNumber("angle", &P::angle, {-179, 180, HBNoNeutral, HBUnit::Degrees}),
                               HBPlain("font", &P::font), HBPlain("text", &P::text),
                               HBMarginCross("margins", &P::margins), HBPlain("color", &P::color),
                               HBChoice("blending", &P::blendingMode, HBBlendingKeys),
                               HBNumber("opacity", &P::opacity, {0, 100, 0, HBUnit::Percent}),
                               HBNumber("horizontalTiles", &P::horizontalTiles, copies),
                               HBNumber("verticalTiles", &P::verticalTiles, copies));
    }
};

/// Draws on the whole picture, whatever is selected. Fails, with the font, if that is not installed or cannot draw
/// the text; if the margins leave no room; and if there is no QGuiApplication, without which there are no fonts.
/// Any thread.
HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBWatermarkParams& params);
