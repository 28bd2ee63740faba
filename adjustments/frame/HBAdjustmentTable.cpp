// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustmentRow.h"
#include "HBBrightnessContrast.h"
#include "HBCurves.h"
#include "HBExposure.h"
#include "HBGammaCorrection.h"
#include "HBLevels.h"
#include "HBPictureCorrection.h"
#include "HBPosterize.h"
#include "HBThreshold.h"

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
        HBValuesRow<HBExposureParams>("HBExposureWidget", Tonal, QT_TRANSLATE_NOOP("HBAdjustment", "Exposure")),
        HBValuesRow<HBGammaCorrectionParams>("HBGammaCorrectionWidget", Tonal,
                                             QT_TRANSLATE_NOOP("HBAdjustment", "Gamma")),
        HBValuesRow<HBPosterizeParams>("HBPosterizeWidget", Tonal, QT_TRANSLATE_NOOP("HBAdjustment", "Posterize")),
        HBRecordRow<HBLevelsParams>("HBLevelsWidget", Tonal, QT_TRANSLATE_NOOP("HBAdjustment", "Levels")),
        HBRecordRow<HBCurvesParams>("HBCurvesWidget", Tonal, QT_TRANSLATE_NOOP("HBAdjustment", "Curves")),
        HBRecordRow<HBThresholdParams>("HBThresholdWidget", Tonal, QT_TRANSLATE_NOOP("HBAdjustment", "Threshold")),
        HBRecordRow<HBPictureCorrectionParams>("HBWBWidget", Colour,
                                               QT_TRANSLATE_NOOP("HBAdjustment", "Picture Correction")),
    };
    return table;
}
