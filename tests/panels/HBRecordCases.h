// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBBrightnessContrastWidget.h>

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

template <class... Panels>
struct PanelList
{
};

using RecordPanels = PanelList<HBBrightnessContrastWidget>;
