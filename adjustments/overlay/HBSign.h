// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBOverlayFields.h"
#include "HBStage.h"

#include <QString>
#include <Qt>

/// Sign: a picture, a signature or a logo, stamped onto the photo.
///
/// All lengths, the stamp's own pixels too, count in thousandths of the picture's shorter side, so that one record
/// looks the same on a thumbnail and on the full photo. The stamp is aligned between the margins and made smaller,
/// never larger, to fit between them.
struct HB_ADJUSTMENTS_EXPORT HBSignParams
{
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignTop; ///< one horizontal and one vertical flag
    QString fileName;                                       ///< of the stamp; null until one is chosen
    /// Four margins in its four corner values: not a rectangle, never take its width.
    QRect margins = QRect(QPoint(5, 5), QPoint(5, 5));
    quint32 blendingMode = 0; ///< a QPainter::CompositionMode; any that is not in the list counts as 0
    qint32 opacity = 100;

    static constexpr char Tag[] = "KMSign 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBSignParams;
        return std::make_tuple(HBPlain("alignment", &P::alignment), HBFile("file", &P::fileName),
                               HBMarginCross("margins", &P::margins),
                               HBChoice("blending", &P::blendingMode, HBBlendingKeys),
                               HBNumber("opacity", &P::opacity, {0, 100, 0, HBUnit::Percent}));
    }
};

/// An alignment as words ("left top", "hcenter bottom"); one with other flags as its number.
HB_ADJUSTMENTS_EXPORT QVariant HBToVariant(const Qt::Alignment& alignment);
HB_ADJUSTMENTS_EXPORT void HBFromVariant(const QVariant& variant, Qt::Alignment& alignment);

/// Draws on the whole picture, whatever is selected. Fails, with the file and the reason, if the stamp cannot be
/// read, and if the margins leave no room. Any thread; needs no application object.
HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBSignParams& params);
