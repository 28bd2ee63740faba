// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustmentRow.h"
#include "HBBrightnessContrast.h"
#include "HBLevels.h"
#include "HBPictureCorrection.h"
#include "HBSign.h"
#include "HBWatermark.h"

#include <QCoreApplication>

namespace
{

// The groups, in the order of the menus.
constexpr char Tonal[] = QT_TRANSLATE_NOOP("HBAdjustment", "Tonal");
constexpr char Colour[] = QT_TRANSLATE_NOOP("HBAdjustment", "Color");
constexpr char Overlays[] = QT_TRANSLATE_NOOP("HBAdjustment", "Overlays");

} // namespace

const QVector<HBAdjustment>& HBAdjustments()
{
    static const QVector<HBAdjustment> table = {
        HBRecordRow<HBBrightnessContrastParams>("HBBrightnessContrastWidget", Tonal,
                                                QT_TRANSLATE_NOOP("HBAdjustment", "Brightness and Contrast")),
        HBRecordRow<HBLevelsParams>("HBLevelsWidget", Tonal, QT_TRANSLATE_NOOP("HBAdjustment", "Levels")),
        HBRecordRow<HBPictureCorrectionParams>("HBWBWidget", Colour,
                                               QT_TRANSLATE_NOOP("HBAdjustment", "Picture Correction")),
        HBRecordRow<HBSignParams>("HBSignWidget", Overlays, QT_TRANSLATE_NOOP("HBAdjustment", "Sign")),
        HBRecordRow<HBWatermarkParams>("HBWatermarkWidget", Overlays,
                                       QT_TRANSLATE_NOOP("HBAdjustment", "Watermark")),
    };
    return table;
}
