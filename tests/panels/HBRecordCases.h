// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBBrightnessContrastWidget.h>
#include <HBCurvesWidget.h>
#include <HBLevelsWidget.h>
#include <HBThresholdWidget.h>

// What tst_HBParamStream must know of each panel with a record. A new panel: one specialisation here and its name in
// RecordPanels below.

/// What holds for most panels.
struct CommonRecordCase
{
    static constexpr const char* otherTag = nullptr; ///< a second tag that the panel reads
    /// Line numbers in the log, where they are fixed; 0: those of the panel's source.
    static constexpr int readLine = 0;
    static constexpr int writeLine = 0;
    static constexpr bool defaultsAfterFailedRead = false; ///< operator>> then sets the defaults
    static constexpr bool keepsAnyRecord = true;           ///< false: SetValue mends what no control could hold
    static constexpr bool hasJob = true;
    /// What reading makes of a written record.
    template <class Params>
    static Params ReadBack(const Params& written)
    {
        return written;
    }
};

template <class Panel>
struct RecordCase;

template <>
struct RecordCase<HBBrightnessContrastWidget> : CommonRecordCase
{
    static constexpr const char* tag = "KMBrightnessContrast 1.00000";
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
struct RecordCase<HBLevelsWidget> : CommonRecordCase
{
    static constexpr const char* tag = "KMLevels 1.00000";
    static constexpr const char* readMessage = "Read levels data error.";
    static constexpr const char* writeMessage = "Write levels data error.";
    static constexpr const char* source = "src\\HBLevelsWidget";
    static HBLevelsWidget::Params Sample()
    {
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
    static HBLevelsWidget::Params ReadBack(HBLevelsWidget::Params written)
    {
        for (int c = 0; c < 4; ++c)
            written.middle[c] =
                HBLevelsWidget::MiddleValue(written.input[c][0], written.input[c][1], written.gamma[c]);
        return written;
    }
};

template <>
struct RecordCase<HBCurvesWidget> : CommonRecordCase
{
    static constexpr const char* tag = "KMCurves 1.00000";
    static constexpr const char* readMessage = "Read curves data error.";
    static constexpr const char* writeMessage = "Write curves data error.";
    static constexpr const char* source = "src\\HBCurvesWidget";
    static HBCurvesWidget::Params Sample()
    {
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
struct RecordCase<HBThresholdWidget> : CommonRecordCase
{
    static constexpr const char* tag = "KMThreshold 1.00000";
    static constexpr const char* readMessage = "Read threshold data error.";
    static constexpr const char* writeMessage = "Write threshold data error.";
    static constexpr const char* source = "src\\HBThresholdWidget";
    static HBThresholdWidget::Params Sample() { return {200}; }
    static constexpr const char* fields = "000000c8";
    static constexpr int resetsFromSample = 1;
    static constexpr int resetsFromDefaults = 1;
};

template <class... Panels>
struct PanelList
{
};

using RecordPanels = PanelList<HBBrightnessContrastWidget, HBLevelsWidget, HBCurvesWidget, HBThresholdWidget>;
