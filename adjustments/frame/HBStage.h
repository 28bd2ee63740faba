// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBOperation.h"

#include <HBPictureLook.h>

#include <QString>

#include <functional>
#include <stdexcept>
#include <vector>

/// A step of an adjustment: what it must see of the picture, and the operation that follows from it. Made anew for
/// each run, because its looks keep what they counted.
struct HBStage
{
    /// From what the looks have counted, and from the picture itself if `seesPicture`: all steps before are worked
    /// in then. Throws std::bad_alloc or HBAdjustmentError; returns anything if the control says cancelled.
    std::function<HBOperation(const HBImage<>& picture, const HBJobControl* control)> prepare;
    HBPictureLooks looks;
    bool seesPicture = false;
    /// What the operation changes, and is blended with, instead of what the stages before have made of the
    /// picture; null: that.
    std::shared_ptr<const HBImage<>> base;
    /// Works on the whole picture, whatever is selected, and reports no progress.
    bool ignoresSelection = false;
    /// Each pixel's result depends on its own bytes alone, wherever it stands: a part of the picture can be made
    /// without the rest.
    bool isPixelByPixel = false;
    /// How many ranges of progress a listener is told: one for each pass that this stage stands for.
    int ranges = 1;

    bool MustLook() const { return seesPicture || base || !looks.empty(); }
};
/// In the order in which they are applied.
using HBStages = std::vector<HBStage>;

/// A stage that depends on the record alone.
template <class Transformation>
HBStage HBStageOf(const Transformation& transformation)
{
    HBStage stage;
    stage.prepare = [operation = HBOperationOf(transformation)](const HBImage<>&, const HBJobControl*) {
        return operation;
    };
    stage.isPixelByPixel = true; // a transformation is not told where its pixels are
    return stage;
}

/// Why an adjustment cannot be made, in words for the user: a stamp that is not there, for example.
class HB_ADJUSTMENTS_EXPORT HBAdjustmentError : public std::runtime_error
{
public:
    explicit HBAdjustmentError(const QString& reason);
    ~HBAdjustmentError() override;
    QString Reason() const { return m_Reason; }

private:
    QString m_Reason;
};

/// Why an outcome is a failure, in words for the user; empty if it is none.
HB_ADJUSTMENTS_EXPORT QString HBFailureReason(const HBOutcome& outcome);

/// Consecutive stages of a run, counted from 0.
struct HBStageSpan
{
    int first = 0;
    int last = -1;
    bool IsEmpty() const { return last < first; }
};

/// Runs the stages over the target, on the calling thread and those of the pool (HBThreadPool). Consecutive stages
/// that need not look at the whole picture between them run tile by tile in one pass, unless there is a selection:
/// then each is blended by it in turn. Tiles of a target that is moved in, and that nobody else holds, are changed
/// where they are. Any thread; throws nothing but what the control throws.
/// \param stages makes them; may throw what HBStage::prepare may
/// \param failed if the outcome is a failure, the stages that were at work; none if they could not be made. May be
///        null
HB_ADJUSTMENTS_EXPORT HBOutcome HBRunStages(HBTarget&& target, const std::function<HBStages()>& stages,
                                            HBJobControl* control = nullptr, HBStageSpan* failed = nullptr);
/// The same, with a copy of the target.
HB_ADJUSTMENTS_EXPORT HBOutcome HBRunStages(const HBTarget& target, const std::function<HBStages()>& stages,
                                            HBJobControl* control = nullptr, HBStageSpan* failed = nullptr);
