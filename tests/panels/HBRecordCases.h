// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBBlackAndWhiteWidget.h>
#include <HBBrightnessContrastWidget.h>
#include <HBColorizeWidget.h>
#include <HBPhotoFilterWidget.h>
#include <HBReplaceColorWidget.h>
#include <HBTintWidget.h>
#include <KMFillColorWidget.h>

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

/// What holds for the panels with colours of a dialog.
struct ColourRecordCase : CommonRecordCase
{
    static constexpr int resetsFromSample = 1; // always, also when nothing changes
    static constexpr int resetsFromDefaults = 1;
};

template <>
struct RecordCase<HBTintWidget> : ColourRecordCase
{
    static constexpr const char* tag = "KMTint 1.00000";
    static constexpr const char* readMessage = "Read tint data error.";
    static constexpr const char* writeMessage = "Write tint data error.";
    static constexpr const char* source = "src\\HBTintWidget";
    static HBTintWidget::Params Sample()
    {
        return {QColor(1, 2, 3, 128), QColor(200, 100, 50), 30, HBTintWidget::LUMA};
    }
    static constexpr const char* fields = "01 8080 0101 0202 0303 0000"
                                          "01 ffff c8c8 6464 3232 0000 0000001e 00000002";
};

template <>
struct RecordCase<HBBlackAndWhiteWidget> : ColourRecordCase
{
    static constexpr const char* tag = "KMBlackAndWhite 1.00000";
    static constexpr const char* otherTag = "KMDesaturate 1.00000";
    static constexpr const char* readMessage = "Read BlackAndWhite data error.";
    static constexpr const char* writeMessage = "Write BlackAndWhite data error.";
    static constexpr const char* source = "src\\HBBlackAndWhiteWidget";
    static HBBlackAndWhiteWidget::Params Sample() { return {0.25f, 0.5f, 0.125f, 5}; }
    static constexpr const char* fields = "00000005 3fd0000000000000 3fe0000000000000 3fc0000000000000";
};

template <>
struct RecordCase<HBPhotoFilterWidget> : ColourRecordCase
{
    static constexpr const char* tag = "KMPhotoFilter 1.00000";
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
struct RecordCase<HBColorizeWidget> : ColourRecordCase
{
    static constexpr const char* tag = "KMColorizeFilter 1.00000";
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
struct RecordCase<HBReplaceColorWidget> : ColourRecordCase
{
    static constexpr const char* tag = "KMReplaceColor 1.00000";
    static constexpr const char* readMessage = "Read sign data error."; // the sign panel's, on purpose
    static constexpr const char* writeMessage = "Write sign data error.";
    static constexpr const char* source = "src\\HBReplaceColorWidget";
    static constexpr int readLine = 410;
    static constexpr int writeLine = 397;
    static constexpr bool defaultsAfterFailedRead = true;
    static HBReplaceColorWidget::Params Sample()
    {
        return {40, HBReplaceColorWidget::RightBottom, QColor(16, 32, 48), 60};
    }
    static constexpr const char* fields = "00000028 00000003 01 ffff 1010 2020 3030 0000 0000003c";
};

template <>
struct RecordCase<KMFillColorWidget> : ColourRecordCase
{
    static constexpr const char* tag = "KMFillColor 1.00000";
    static constexpr const char* readMessage = "Read colorize data error."; // the colorize panel's, on purpose
    static constexpr const char* writeMessage = "Write colorize data error.";
    static constexpr const char* source = "src\\KMFillColorWidget";
    static constexpr int readLine = 308;
    static constexpr int writeLine = 295;
    static constexpr bool defaultsAfterFailedRead = true;
    static KMFillColorWidget::Params Sample() { return {QColor(16, 32, 48), 40}; }
    static constexpr const char* fields = "01 ffff 1010 2020 3030 0000 00000028";
};

template <class... Panels>
struct PanelList
{
};

using RecordPanels = PanelList<HBBrightnessContrastWidget, HBTintWidget, HBBlackAndWhiteWidget,
                               HBPhotoFilterWidget, HBColorizeWidget, HBReplaceColorWidget, KMFillColorWidget>;
