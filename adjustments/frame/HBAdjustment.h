// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

#include <QJsonObject>
#include <QVector>

#include <any>
#include <functional>

template <class Record, class = void>
struct HBAsksForSelection : std::false_type
{
};
template <class Record>
struct HBAsksForSelection<Record, std::void_t<decltype(HBStagesOf(std::declval<const Record&>(), true))>>
    : std::true_type
{
};

/// The stages of an adjustment with that record. Every adjustment has HBStagesOf(record), or, if it goes about a
/// selection otherwise than stage by stage, HBStagesOf(record, selected).
template <class Record>
HBStages HBMakeStages(const Record& record, bool selected)
{
    if constexpr (HBAsksForSelection<Record>::value)
        return HBStagesOf(record, selected);
    else
        return HBStagesOf(record);
}

/// Adjusts a picture, or what is selected of it: the same bytes as the panel gives. Any thread; the work is shared
/// with the pool (HBThreadPool). Only a whole outcome is a result (HBOutcome::IsWhole); HBFailureReason says why
/// it is not.
///
///     HBLevelsParams params;
///     params.gamma[0] = 1.2;
///     const HBOutcome adjusted = HBAdjust(params, {picture});
template <class Record>
HBOutcome HBAdjust(const Record& record, const HBTarget& target, HBJobControl* control = nullptr)
{
    const auto stages = [&] { return HBMakeStages(record, target.bounds.isValid()); };
    return HBRunStages(target, std::cref(stages), control); // by reference: a copy might take memory, and throw
}

/// One adjustment, as everything that works with all of them knows it. A record travels as std::any, which holds
/// the type of the adjustment's own record and nothing else.
struct HB_ADJUSTMENTS_EXPORT HBAdjustment
{
    const char* className; ///< of its panel; its key in recipes: never translated, never changed
    const char* tag;       ///< opens its stored record; null if it is stored as plain values
    const char* group;     ///< untranslated; see Group()
    const char* title;     ///< untranslated; see Title()
    HBFieldInfos fields;

    /// A new record as its constructor makes it. Not kept: a watermark's text and font are those of the present
    /// language and application font.
    std::any (*defaults)();
    const void* (*data)(const std::any& record); ///< the record itself, for the fields' `get`
    void* (*mutableData)(std::any& record);      ///< the same, for their `set`

    /// The record as a recipe step stores it: {"record": base64} or {"values": {key: number}}.
    QJsonObject (*save)(const std::any& record);
    /// Loads what `save` returned, however hostile; false with a reason, and the record left alone, if it is not
    /// exactly that. Other keys of `values` are ignored.
    bool (*restore)(const QJsonObject& values, std::any* record, QString* reason);

    /// \param selected whether there is a selection
    HBStages (*stages)(const std::any& record, bool selected);

    QString Group() const;
    QString Title() const;
    /// Whether it works on the whole picture, whatever is selected, as overlays do. Any thread.
    bool IgnoresSelection() const;
};

/// Our adjustments, in the order of the menus.
HB_ADJUSTMENTS_EXPORT const QVector<HBAdjustment>& HBAdjustments();

/// Adds an adjustment of the program's own, which recipes may name from here on; HBRecordRow (HBAdjustmentRow.h)
/// makes it. It is not copied and must live as long as the program. False if the class name is taken. Any thread.
HB_ADJUSTMENTS_EXPORT bool HBRegisterAdjustment(const HBAdjustment& adjustment);

/// The adjustment of the panel with that class name, ours or registered; null if there is none. Any thread.
HB_ADJUSTMENTS_EXPORT const HBAdjustment* HBFindAdjustment(const QString& className);
