// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

#include <QPoint>
#include <QVector>

/// Curves: a tone curve for all channels together and for each. A curve's points are (input, output), both 0..255,
/// output growing upward. Index of a channel: 0 composite, 1 red, 2 green, 3 blue.
struct HB_ADJUSTMENTS_EXPORT HBCurvesParams
{
    qint32 channel = 0;        ///< shown for editing; changes no pixel
    QVector<QPoint> points[4]; ///< at least two each, by input; (0, 0), (255, 255) does nothing

    HBCurvesParams();

    static constexpr char Tag[] = "KMCurves 1.00000";
    /// A list that could not be read whole is empty.
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBCurvesParams;
        constexpr const char* channels[] = {"all", "red", "green", "blue"};
        return std::make_tuple(HBChoice("channel", &P::channel, channels), HBPlain("points", &P::points));
    }

    /// What a list counts as, to the picture and in an editor: one of less than 2 or more than 256 points does
    /// nothing, the points are cut to 0..255 and sorted by input. A list from an editor stays as it is.
    static QVector<QPoint> Editable(const QVector<QPoint>& points);
};

HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBCurvesParams& params);

/// The lists as data: by the channel's key, each point as [input, output].
HB_ADJUSTMENTS_EXPORT QVariant HBToVariant(const QVector<QPoint> (&points)[4]);
HB_ADJUSTMENTS_EXPORT void HBFromVariant(const QVariant& variant, QVector<QPoint> (&points)[4]);
