// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBOverlayPanel.h"

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

// What tst_HBParamStream must know of each panel with a record. A new panel: one specialisation here and its name in
// RecordPanels below.

/// What holds for most panels.
struct CommonRecordCase {
    static constexpr const char* otherTag = nullptr; ///< a second tag that the panel reads
    /// Line numbers in the log, where they are fixed; 0: those of the panel's source.
    static constexpr int readLine = 0;
    static constexpr int writeLine = 0;
    static constexpr bool defaultsAfterFailedRead = false; ///< operator>> then sets the defaults
    static constexpr bool keepsAnyRecord = true;           ///< false: SetValue mends what no control could hold
    static constexpr bool hasJob = true;
    static constexpr bool keepsAlpha = true;     ///< false: paints over what is transparent
    static constexpr const char* hiddenBox = ""; ///< a box that does not show the record, on purpose
    /// What reading makes of a written record.
    template <class Params>
    static Params ReadBack(const Params& written) {
        return written;
    }
};

template <class Panel>
struct RecordCase;

template <>
struct RecordCase<HBBrightnessContrastWidget> : CommonRecordCase {
    static constexpr const char* readMessage = "Read brightness and contrast data error.";
    static constexpr const char* writeMessage = "Write brightness and contrast data error.";
    static constexpr const char* source = "src\\HBBrightnessContrastWidget";
    /// Differs from the defaults in every field, within their ranges.
    static HBBrightnessContrastWidget::Params Sample() { return {10, -20}; }
    static constexpr const char* fields = "0000000a ffffffec"; ///< of the sample, stream version Qt_5_15
    // How often OnReset() makes the closing calls.
    static constexpr int resetsFromSample = 2;
    static constexpr int resetsFromDefaults = 0;
};

template <>
struct RecordCase<HBLevelsWidget> : CommonRecordCase {
    static constexpr const char* readMessage = "Read levels data error.";
    static constexpr const char* writeMessage = "Write levels data error.";
    static constexpr const char* source = "src\\HBLevelsWidget";
    static HBLevelsWidget::Params Sample() {
        HBLevelsWidget::Params params;
        params = {2,
                  {{1, 250}, {10, 200}, {20, 180}, {30, 160}},
                  {112, 153, 98, 74}, // of the points and gammas
                  {{5, 240}, {250, 3}, {7, 230}, {9, 220}},
                  {2.0, 0.5, 1.25, 4.0}};
        return params;
    }
    // Each low point but the first twice, then the composite middle.
    static constexpr const char* fields = "00000002"
                                          "00000001 000000fa 0000000a"
                                          "0000000a 000000c8 00000014"
                                          "00000014 000000b4 0000001e"
                                          "0000001e 000000a0 00000070"
                                          "00000005 000000f0 000000fa 00000003"
                                          "00000007 000000e6 00000009 000000dc"
                                          "4000000000000000 3fe0000000000000"
                                          "3ff4000000000000 4010000000000000";
    static constexpr bool keepsAnyRecord = false; // a channel outside 0..3
    static constexpr int resetsFromSample = 1;
    static constexpr int resetsFromDefaults = 1;
    /// The middles are computed anew: 127 where the defaults say 128.
    static HBLevelsWidget::Params ReadBack(HBLevelsWidget::Params written) {
        for (int c = 0; c < 4; ++c)
            written.middle[c] =
                HBLevelsWidget::MiddleValue(written.input[c][0], written.input[c][1], written.gamma[c]);
        return written;
    }
};

template <>
struct RecordCase<HBCurvesWidget> : CommonRecordCase {
    static constexpr const char* readMessage = "Read curves data error.";
    static constexpr const char* writeMessage = "Write curves data error.";
    static constexpr const char* source = "src\\HBCurvesWidget";
    static HBCurvesWidget::Params Sample() {
        HBCurvesWidget::Params params;
        params.channel = 3;
        params.points[0] = {{0, 10}, {100, 50}, {250, 240}};
        params.points[1] = {{5, 0}, {255, 250}};
        params.points[2] = {{0, 255}, {255, 0}};
        params.points[3] = {{0, 0}, {60, 90}, {62, 100}, {200, 210}}; // closer than the editor makes them
        return params;
    }
    static constexpr const char* fields = "00000003"
                                          "00000003 00000000 0000000a 00000064 00000032 000000fa 000000f0"
                                          "00000002 00000005 00000000 000000ff 000000fa"
                                          "00000002 00000000 000000ff 000000ff 00000000"
                                          "00000004 00000000 00000000 0000003c 0000005a"
                                          "         0000003e 00000064 000000c8 000000d2";
    static constexpr bool keepsAnyRecord = false; // what no editor could hold
    static constexpr int resetsFromSample = 1;
    static constexpr int resetsFromDefaults = 1;
};

template <>
struct RecordCase<HBThresholdWidget> : CommonRecordCase {
    static constexpr const char* readMessage = "Read threshold data error.";
    static constexpr const char* writeMessage = "Write threshold data error.";
    static constexpr const char* source = "src\\HBThresholdWidget";
    static HBThresholdWidget::Params Sample() { return {200}; }
    static constexpr const char* fields = "000000c8";
    static constexpr int resetsFromSample = 1;
    static constexpr int resetsFromDefaults = 1;
};

template <>
struct RecordCase<HBHueSaturationWidget> : CommonRecordCase {
    static constexpr const char* readMessage = "Read hue and saturation data error.";
    static constexpr const char* writeMessage = "Write hue and saturation data error.";
    static constexpr const char* source = "src\\HBHueSaturationWidget";
    static HBHueSaturationWidget::Params Sample() { return {200, 10, -20, true}; }
    static constexpr const char* fields = "000000c8 0000000a ffffffec 00000001";
    static constexpr bool defaultsAfterFailedRead = true;
    static constexpr int resetsFromSample = 4;
    static constexpr int resetsFromDefaults = 0;
};

template <>
struct RecordCase<HBColorBalanceWidget> : CommonRecordCase {
    static constexpr const char* readMessage = "Read color balance data error.";
    static constexpr const char* writeMessage = "Write color balance data error.";
    static constexpr const char* source = "src\\HBColorBalanceWidget";
    static HBColorBalanceWidget::Params Sample() { return {{10, 20, 30}, {-1, -2, -3}, {70, 80, 90}, 3, false}; }
    // Luminosity and range first, unlike in the record.
    static constexpr const char* fields = "00000000 00000003"
                                          "0000000a 00000014 0000001e"
                                          "ffffffff fffffffe fffffffd"
                                          "00000046 00000050 0000005a";
    static constexpr int resetsFromSample = 1;
    static constexpr int resetsFromDefaults = 1;
};

template <>
struct RecordCase<HBWBWidget> : CommonRecordCase {
    static constexpr const char* readMessage = "Read WB data error.";
    static constexpr const char* writeMessage = "Write WB data error.";
    static constexpr const char* source = "src\\HBWBWidget";
    static HBWBWidget::Params Sample() { return {true, 11, 22, 33, 2, true, -44, 55}; }
    static constexpr const char* fields = "01 0000000b 00000016 00000021 00000002 01 ffffffd4 00000037";
    static constexpr int resetsFromSample = 1;
    static constexpr int resetsFromDefaults = 1;
};

template <>
struct RecordCase<HBTemperatureWidget> : CommonRecordCase {
    static constexpr const char* readMessage = "Read temperature data error.";
    static constexpr const char* writeMessage = "Write temperature data error.";
    static constexpr const char* source = "src\\HBTemperatureWidget";
    static constexpr const char* hiddenBox = "m_pStrength";
    static HBTemperatureWidget::Params Sample() { return {3000, -10, 80}; }
    static constexpr const char* fields = "00000bb8 fffffff6 00000050";
    static constexpr int resetsFromSample = 2; // the strength was not shown
    static constexpr int resetsFromDefaults = 0;
};

template <>
struct RecordCase<HBColorEnhancerWidget> : CommonRecordCase {
    static constexpr const char* readMessage = "Read color enhancer data error.";
    static constexpr const char* writeMessage = "Write color enhancer data error.";
    static constexpr const char* source = "src\\HBColorEnhancerWidget";
    static HBColorEnhancerWidget::Params Sample() { return {30, 60}; }
    static constexpr const char* fields = "0000001e 0000003c";
    static constexpr int resetsFromSample = 1;
    static constexpr int resetsFromDefaults = 1;
};

/// What holds for the panels with colours of a dialog.
struct ColourRecordCase : CommonRecordCase {
    static constexpr int resetsFromSample = 1; // always, also when nothing changes
    static constexpr int resetsFromDefaults = 1;
};

template <>
struct RecordCase<HBTintWidget> : ColourRecordCase {
    static constexpr const char* readMessage = "Read tint data error.";
    static constexpr const char* writeMessage = "Write tint data error.";
    static constexpr const char* source = "src\\HBTintWidget";
    static HBTintWidget::Params Sample() {
        return {QColor(1, 2, 3, 128), QColor(200, 100, 50), 30, HBTintWidget::LUMA};
    }
    static constexpr const char* fields = "01 8080 0101 0202 0303 0000"
                                          "01 ffff c8c8 6464 3232 0000 0000001e 00000002";
};

template <>
struct RecordCase<HBBlackAndWhiteWidget> : ColourRecordCase {
    static constexpr const char* otherTag = "KMDesaturate 1.00000";
    static constexpr const char* readMessage = "Read BlackAndWhite data error.";
    static constexpr const char* writeMessage = "Write BlackAndWhite data error.";
    static constexpr const char* source = "src\\HBBlackAndWhiteWidget";
    static HBBlackAndWhiteWidget::Params Sample() { return {0.25f, 0.5f, 0.125f, 5}; }
    static constexpr const char* fields = "00000005 3fd0000000000000 3fe0000000000000 3fc0000000000000";
};

template <>
struct RecordCase<HBPhotoFilterWidget> : ColourRecordCase {
    static constexpr const char* readMessage = "Read photo filter data error.";
    static constexpr const char* writeMessage = "Write photo filter data error.";
    static constexpr const char* source = "src\\HBPhotoFilterWidget";
    static constexpr int readLine = 381;
    static constexpr int writeLine = 368;
    static constexpr bool defaultsAfterFailedRead = true;
    static HBPhotoFilterWidget::Params Sample() { return {QColor(16, 32, 48), 70}; }
    static constexpr const char* fields = "01 ffff 1010 2020 3030 0000 00000046";
};

template <>
struct RecordCase<HBColorizeWidget> : ColourRecordCase {
    static constexpr const char* readMessage = "Read colorize data error.";
    static constexpr const char* writeMessage = "Write colorize data error.";
    static constexpr const char* source = "src\\HBColorizeWidget";
    static constexpr int readLine = 309;
    static constexpr int writeLine = 296;
    static constexpr bool defaultsAfterFailedRead = true;
    static HBColorizeWidget::Params Sample() { return {QColor(16, 32, 48), 70}; }
    static constexpr const char* fields = "01 ffff 1010 2020 3030 0000 00000046";
};

template <>
struct RecordCase<HBReplaceColorWidget> : ColourRecordCase {
    static constexpr const char* readMessage = "Read sign data error."; // the sign panel's, on purpose
    static constexpr const char* writeMessage = "Write sign data error.";
    static constexpr const char* source = "src\\HBReplaceColorWidget";
    static constexpr bool keepsAlpha = false;
    static constexpr int readLine = 410;
    static constexpr int writeLine = 397;
    static constexpr bool defaultsAfterFailedRead = true;
    static HBReplaceColorWidget::Params Sample() {
        return {40, HBReplaceColorWidget::RightBottom, QColor(16, 32, 48), 60};
    }
    static constexpr const char* fields = "00000028 00000003 01 ffff 1010 2020 3030 0000 0000003c";
};

template <>
struct RecordCase<KMFillColorWidget> : ColourRecordCase {
    static constexpr bool keepsAlpha = false;
    static constexpr const char* readMessage = "Read colorize data error."; // the colorize panel's, on purpose
    static constexpr const char* writeMessage = "Write colorize data error.";
    static constexpr const char* source = "src\\KMFillColorWidget";
    static constexpr int readLine = 308;
    static constexpr int writeLine = 295;
    static constexpr bool defaultsAfterFailedRead = true;
    static KMFillColorWidget::Params Sample() { return {QColor(16, 32, 48), 40}; }
    static constexpr const char* fields = "01 ffff 1010 2020 3030 0000 00000028";
};

/// What holds for the overlays.
struct OverlayRecordCase : CommonRecordCase {
    static constexpr bool defaultsAfterFailedRead = true;
    static constexpr bool hasJob = false;
    static constexpr int resetsFromSample = 1;
    static constexpr int resetsFromDefaults = 1;
};

template <>
struct RecordCase<HBOverlayPanel<HBSignWidget>> : OverlayRecordCase {
    static constexpr const char* readMessage = "Read sign data error.";
    static constexpr const char* writeMessage = "Write sign data error.";
    static constexpr const char* source = "src\\HBSignWidget";
    static constexpr int readLine = 591;
    static constexpr int writeLine = 578;
    static HBSignWidget::Params Sample() {
        return {Qt::AlignRight | Qt::AlignBottom, "a.png", QRect(QPoint(1, 2), QPoint(3, 4)), 13, 40};
    }
    // The margins before the name.
    static constexpr const char* fields = "00000042 00000001 00000002 00000003 00000004"
                                          "0000000a 0061 002e 0070 006e 0067 0000000d 00000028";
};

template <>
struct RecordCase<HBOverlayPanel<HBWatermarkWidget>> : OverlayRecordCase {
    static constexpr const char* readMessage = "Read watermark data error.";
    static constexpr const char* writeMessage = "Write watermark data error.";
    static constexpr const char* source = "src\\HBWatermarkWidget";
    static constexpr int readLine = 561;
    static constexpr int writeLine = 548;
    static HBWatermarkWidget::Params Sample() {
        HBWatermarkWidget::Params params;
        params.angle = -30;
        params.font = QFont("Mono", 20, QFont::Bold);
        params.text = "ab";
        params.margins = QRect(QPoint(1, 2), QPoint(3, 4));
        params.color = QColor(16, 32, 48);
        params.blendingMode = 15;
        params.opacity = 40;
        params.horizontalTiles = 3;
        params.verticalTiles = 2;
        return params;
    }
    // The margins, the text, the font as Qt stores it, the colour, the rest.
    static constexpr const char* fields = "ffffffe2 00000001 00000002 00000003 00000004 00000004 0061 0062"
                                          "00000008 004d 006f 006e 006f ffffffff 4034000000000000 ffffffff"
                                          "050001004b100000010000000000000000000000000000"
                                          "01 ffff 1010 2020 3030 0000 0000000f 00000028 00000003 00000002";
};

template <class... Panels>
struct PanelList {};

using RecordPanels =
    PanelList<HBBrightnessContrastWidget, HBLevelsWidget, HBCurvesWidget, HBThresholdWidget, HBHueSaturationWidget,
              HBColorBalanceWidget, HBWBWidget, HBTemperatureWidget, HBColorEnhancerWidget, HBTintWidget,
              HBBlackAndWhiteWidget, HBPhotoFilterWidget, HBColorizeWidget, HBReplaceColorWidget,
              KMFillColorWidget, HBOverlayPanel<HBSignWidget>, HBOverlayPanel<HBWatermarkWidget>>;
