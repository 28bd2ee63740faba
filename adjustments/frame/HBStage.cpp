// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStage.h"

#include "HBAdjustmentReason.h"
#include "HBSilentControl.h"

#include <new>

namespace
{

/// Tells a pass that stands for several as so many ranges, one after the other.
class Ranges : public HBJobControl
{
public:
    Ranges(HBJobControl* listener, int count) : m_pListener(listener), m_Count(count) {}

    bool IsCancelled() const override { return HBIsCancelled(m_pListener); }
    void SetRange(int minimum, int maximum) override
    {
        m_Maximum = maximum;
        if (!m_pListener)
            return;
        // Without tiles no value follows that could begin the next range.
        for (int range = 0; range < (maximum > 0 ? 1 : m_Count); ++range)
            m_pListener->SetRange(minimum, maximum);
    }
    void SetProgress(int value) override
    {
        if (!m_pListener)
            return;
        for (int tick = (value - 1) * m_Count; tick < value * m_Count; ++tick) {
            if (tick > 0 && tick % m_Maximum == 0)
                m_pListener->SetRange(0, m_Maximum);
            m_pListener->SetProgress(tick % m_Maximum + 1);
        }
    }

private:
    HBJobControl* m_pListener;
    const int m_Count;
    int m_Maximum = 0;
};

/// What is done in one pass.
struct Pass
{
    /// Operations that are no tables, one after the other on each tile; more would make a tile, and so the answer
    /// to a cancel, take long.
    static constexpr int MaximumFunctions = 16;

    HBOperation operation;
    std::shared_ptr<const HBImage<>> base;
    bool ignoresSelection = false;
    int functions = 0;
    int ranges = 0;
    HBStageSpan stages;
};

class Run
{
public:
    Run(HBTarget&& target, HBJobControl* control)
        : m_Target(std::move(target))
        , m_pControl(control)
        , m_Outcome{std::exchange(m_Target.source, {}), HBOutcome::Whole, nullptr}
    {
    }

    /// \param index of the stage in the run
    void Add(const HBStage& stage, int index)
    {
        m_AtWork = {index, index};
        if (stage.MustLook() && !Look(stage))
            return;
        m_AtWork = {index, index};
        const HBOperation operation = stage.prepare(m_Outcome.image, m_pControl);
        if (stage.seesPicture && HBIsCancelled(m_pControl)) {
            m_Outcome.status = HBOutcome::Cancelled; // the operation may be any
            return;
        }
        const bool together = m_Pass.ranges > 0 && m_Pass.functions < Pass::MaximumFunctions &&
                              m_Pass.ignoresSelection == stage.ignoresSelection &&
                              (stage.ignoresSelection || !m_Target.bounds.isValid());
        if (!together && !Finish({}))
            return;
        if (m_Pass.ranges == 0)
            m_Pass.stages.first = index;
        m_Pass.stages.last = index;
        m_Pass.operation = HBThen(m_Pass.operation, operation);
        m_Pass.functions += operation.transform ? 1 : 0;
        if (stage.base)
            m_Pass.base = stage.base;
        m_Pass.ignoresSelection = stage.ignoresSelection;
        m_Pass.ranges += stage.ranges;
    }

    /// Makes the picture of all stages so far, and shows its tiles to the looks while they are in the cache; false
    /// if that is not a whole picture.
    bool Finish(const HBPictureLooks& looks)
    {
        if (!IsWhole() || m_Pass.ranges == 0)
            return IsWhole();
        const Pass pass = std::exchange(m_Pass, {});
        m_AtWork = pass.stages;
        HBTarget target = m_Target;
        target.source = pass.base ? *pass.base : std::exchange(m_Outcome.image, {}); // as nobody needs it behind
        if (pass.ignoresSelection)
            target.bounds = {};
        // Blended rows come after the tiles, so that a look would see tiles that are not done.
        const HBTileFunction function = HBTileFunctionOf(pass.operation);
        // Nor need a tile that nothing changes become the picture's own.
        const bool hot = !looks.empty() && !target.bounds.isValid() && function;
        for (const std::shared_ptr<HBPictureLook>& look : looks)
            look->Begin(target.source);
        Ranges ranges(m_pControl, pass.ranges);
        HBSilentControl silent(m_pControl);
        HBJobControl* const control = pass.ignoresSelection ? static_cast<HBJobControl*>(&silent) : &ranges;
        m_Outcome = HBWalkTiles(
            std::move(target),
            [function, lanes = HBLookLanes(hot ? looks : HBPictureLooks())](HBTileAccess& tile) mutable {
                if (function)
                    function(tile);
                if (!lanes.IsEmpty())
                    lanes.Add(tile.Pixels(), tile.Area(), tile.Index());
            },
            control);
        if (IsWhole() && !hot && !looks.empty())
            LookAtOnce(looks);
        return IsWhole();
    }

    void Fail(const std::exception_ptr& exception)
    {
        m_Outcome.status = HBOutcome::Failed;
        m_Outcome.exception = exception;
    }
    bool IsWhole() const { return m_Outcome.IsWhole(); }
    HBOutcome TakeOutcome() { return std::move(m_Outcome); }
    const HBStageSpan& AtWork() const { return m_AtWork; }

private:
    bool Look(const HBStage& stage)
    {
        if (m_Pass.ranges > 0)
            return Finish(stage.looks);
        if (!stage.looks.empty())
            LookAtOnce(stage.looks);
        return IsWhole();
    }

    void LookAtOnce(const HBPictureLooks& looks)
    {
        if (!HBLookAt(m_Outcome.image, looks, m_pControl))
            m_Outcome.status = HBOutcome::Cancelled;
    }

    HBTarget m_Target; ///< its source is in the outcome
    HBJobControl* m_pControl;
    HBOutcome m_Outcome;
    Pass m_Pass;          ///< prepared, and not yet run
    HBStageSpan m_AtWork; ///< or at work last
};

} // namespace

HBAdjustmentError::HBAdjustmentError(const QString& reason)
    : std::runtime_error(reason.toStdString())
    , m_Reason(reason)
{
}

HBAdjustmentError::~HBAdjustmentError() = default;

QString HBFailureReason(const HBOutcome& outcome)
try {
    if (!outcome.exception)
        return {};
    try {
        std::rethrow_exception(outcome.exception);
    } catch (const HBAdjustmentError& error) {
        return error.Reason();
    } catch (const std::bad_alloc&) {
        return HBAdjustmentReason::tr("there is not enough memory");
    } catch (const std::exception& error) {
        return HBAdjustmentReason::tr("the adjustment failed: %1").arg(QString::fromLocal8Bit(error.what()));
    } catch (...) {
        return HBAdjustmentReason::tr("the adjustment failed");
    }
} catch (const std::bad_alloc&) {
    return QStringLiteral("there is not enough memory"); // takes none, not even for a translation
}

HBOutcome HBRunStages(HBTarget&& target, const std::function<HBStages()>& stages, HBJobControl* control,
                      HBStageSpan* failed)
{
    Run run(std::move(target), control);
    try {
        HBStages all = stages();
        for (int index = 0; index < int(all.size()) && run.IsWhole(); ++index) {
            // What a stage keeps, whole pictures even, goes with it.
            const HBStage stage = std::exchange(all[std::size_t(index)], {});
            run.Add(stage, index);
        }
        run.Finish({});
    } catch (...) {
        run.Fail(std::current_exception());
    }
    if (failed)
        *failed = run.AtWork();
    return run.TakeOutcome();
}

HBOutcome HBRunStages(const HBTarget& target, const std::function<HBStages()>& stages, HBJobControl* control,
                      HBStageSpan* failed)
{
    if (failed)
        *failed = {};
    return HBWorkOnCopy(target,
                        [&](HBTarget&& copy) { return HBRunStages(std::move(copy), stages, control, failed); });
}
