// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBBlackAndWhiteWidget.h>
#include <HBBrightnessContrastWidget.h>
#include <HBColorBalanceWidget.h>
#include <HBColorEnhancerWidget.h>
#include <HBColorizeWidget.h>
#include <HBCurvesWidget.h>
#include <HBHueSaturationWidget.h>
#include <HBLevelsWidget.h>
#include <HBPhotoFilterWidget.h>
#include <HBReplaceColorWidget.h>
#include <HBSignWidget.h>
#include <HBTemperatureWidget.h>
#include <HBThresholdWidget.h>
#include <HBTintWidget.h>
#include <HBWatermarkWidget.h>
#include <HBWBWidget.h>
#include <KMFillColorWidget.h>

template <class... Panels>
struct HBPanelList {
    /// Calls run(static_cast<Panel*>(nullptr)) for the panel of that name; false if it is none of these.
    template <class Run>
    static bool Visit(const QByteArray& name, const Run& run) {
        const auto visit = [&](auto* panel, const QMetaObject& meta) {
            if (name == meta.className()) run(panel);
            return name == meta.className();
        };
        return (visit(static_cast<Panels*>(nullptr), Panels::staticMetaObject) || ...);
    }
};

/// The panels with a record of their own type and its stream operators.
using HBRecordPanels =
    HBPanelList<HBBlackAndWhiteWidget, HBBrightnessContrastWidget, HBColorBalanceWidget, HBColorEnhancerWidget,
                HBColorizeWidget, HBCurvesWidget, HBHueSaturationWidget, HBLevelsWidget, HBPhotoFilterWidget,
                HBReplaceColorWidget, HBSignWidget, HBTemperatureWidget, HBThresholdWidget, HBTintWidget,
                HBWatermarkWidget, HBWBWidget, KMFillColorWidget>;
