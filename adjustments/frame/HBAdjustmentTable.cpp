// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustmentRow.h"
#include "HBBlackAndWhite.h"
#include "HBBrightnessContrast.h"
#include "HBColorBalance.h"
#include "HBColorEnhancer.h"
#include "HBColorize.h"
#include "HBCurves.h"
#include "HBExposure.h"
#include "HBFillColor.h"
#include "HBGammaCorrection.h"
#include "HBHueSaturation.h"
#include "HBLevels.h"
#include "HBPhotoFilter.h"
#include "HBPictureCorrection.h"
#include "HBPosterize.h"
#include "HBReplaceColor.h"
#include "HBSign.h"
#include "HBTemperature.h"
#include "HBThreshold.h"
#include "HBTint.h"
#include "HBWatermark.h"

#include <QCoreApplication>

#include <algorithm>

namespace
{

// The groups, in the order of the menus.
constexpr char Tonal[] = QT_TRANSLATE_NOOP("HBAdjustment", "Tonal");
constexpr char Color[] = QT_TRANSLATE_NOOP("HBAdjustment", "Color");
constexpr char Overlays[] = QT_TRANSLATE_NOOP("HBAdjustment", "Overlays");

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
        HBRecordRow<HBHueSaturationParams>("HBHueSaturationWidget", Color,
                                           QT_TRANSLATE_NOOP("HBAdjustment", "Hue and Saturation")),
        HBRecordRow<HBColorBalanceParams>("HBColorBalanceWidget", Color,
                                          QT_TRANSLATE_NOOP("HBAdjustment", "Color Balance")),
        HBRecordRow<HBPictureCorrectionParams>("HBWBWidget", Color,
                                               QT_TRANSLATE_NOOP("HBAdjustment", "Picture Correction")),
        HBRecordRow<HBTemperatureParams>("HBTemperatureWidget", Color,
                                         QT_TRANSLATE_NOOP("HBAdjustment", "Temperature")),
        HBRecordRow<HBColorEnhancerParams>("HBColorEnhancerWidget", Color,
                                           QT_TRANSLATE_NOOP("HBAdjustment", "Color Enhancer")),
        HBRecordRow<HBTintParams>("HBTintWidget", Color, QT_TRANSLATE_NOOP("HBAdjustment", "Tint")),
        HBRecordRow<HBBlackAndWhiteParams>("HBBlackAndWhiteWidget", Color,
                                           QT_TRANSLATE_NOOP("HBAdjustment", "Black and White")),
        HBRecordRow<HBPhotoFilterParams>("HBPhotoFilterWidget", Color,
                                         QT_TRANSLATE_NOOP("HBAdjustment", "Photo Filter")),
        HBRecordRow<HBColorizeParams>("HBColorizeWidget", Color, QT_TRANSLATE_NOOP("HBAdjustment", "Colorize")),
        HBRecordRow<HBReplaceColorParams>("HBReplaceColorWidget", Color,
                                          QT_TRANSLATE_NOOP("HBAdjustment", "Replace Color")),
        HBRecordRow<HBFillColorParams>("KMFillColorWidget", Color,
                                       QT_TRANSLATE_NOOP("HBAdjustment", "Fill Color")),
        HBRecordRow<HBSignParams>("HBSignWidget", Overlays, QT_TRANSLATE_NOOP("HBAdjustment", "Sign")),
        HBRecordRow<HBWatermarkParams>("HBWatermarkWidget", Overlays,
                                       QT_TRANSLATE_NOOP("HBAdjustment", "Watermark")),
    };
    return table;
}

QString HBAdjustment::Group() const
{
    return QCoreApplication::translate("HBAdjustment", group);
}

QString HBAdjustment::Title() const
{
    return QCoreApplication::translate("HBAdjustment", title);
}

bool HBAdjustment::IgnoresSelection() const
{
    const HBStages made = stages(defaults(), true);
    return !made.empty() &&
           std::all_of(made.begin(), made.end(), [](const HBStage& stage) { return stage.ignoresSelection; });
}
