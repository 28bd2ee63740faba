// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustmentRow.h"
#include "HBBlackAndWhite.h"
#include "HBBrightnessContrast.h"
#include "HBColorize.h"
#include "HBFillColor.h"
#include "HBLevels.h"
#include "HBPhotoFilter.h"
#include "HBPictureCorrection.h"
#include "HBReplaceColor.h"

#include <QCoreApplication>

namespace
{

// The groups, in the order of the menus.
constexpr char Tonal[] = QT_TRANSLATE_NOOP("HBAdjustment", "Tonal");
constexpr char Colour[] = QT_TRANSLATE_NOOP("HBAdjustment", "Color");

} // namespace

const QVector<HBAdjustment>& HBAdjustments()
{
    static const QVector<HBAdjustment> table = {
        HBRecordRow<HBBrightnessContrastParams>("HBBrightnessContrastWidget", Tonal,
                                                QT_TRANSLATE_NOOP("HBAdjustment", "Brightness and Contrast")),
        HBRecordRow<HBLevelsParams>("HBLevelsWidget", Tonal, QT_TRANSLATE_NOOP("HBAdjustment", "Levels")),
        HBRecordRow<HBPictureCorrectionParams>("HBWBWidget", Colour,
                                               QT_TRANSLATE_NOOP("HBAdjustment", "Picture Correction")),
        HBRecordRow<HBBlackAndWhiteParams>("HBBlackAndWhiteWidget", Colour,
                                           QT_TRANSLATE_NOOP("HBAdjustment", "Black and White")),
        HBRecordRow<HBPhotoFilterParams>("HBPhotoFilterWidget", Colour,
                                         QT_TRANSLATE_NOOP("HBAdjustment", "Photo Filter")),
        HBRecordRow<HBColorizeParams>("HBColorizeWidget", Colour, QT_TRANSLATE_NOOP("HBAdjustment", "Colorize")),
        HBRecordRow<HBReplaceColorParams>("HBReplaceColorWidget", Colour,
                                          QT_TRANSLATE_NOOP("HBAdjustment", "Replace Color")),
        HBRecordRow<HBFillColorParams>("KMFillColorWidget", Colour,
                                       QT_TRANSLATE_NOOP("HBAdjustment", "Fill Color")),
    };
    return table;
}
