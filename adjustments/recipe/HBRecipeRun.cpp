// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipeReason.h"
#include "HBRecipeSteps.h"
#include "HBStepManner.h"

#include <QElapsedTimer>

#include <algorithm>
#include <thread>

namespace
{

/// The steps that are on with their records, in legs: each is done in a run of its own, because what it works on
/// is another.
class Plan
{
public:
    struct Leg
    {
        int first;
        int last; ///< the same where a step has a selection, or an amount that its stages cannot have within them
    };

    bool Read(const HBRecipe& recipe, bool selected, QString* error)
    {
        for (int i = 0; i < recipe.steps.size(); ++i) {
            Step step{&recipe.steps.at(i), i, nullptr, {}, false};
            step.adjustment = HBReadStep(*step.stored, i, &step.record, error);
            if (!step.adjustment)
                return false;
            if (!step.stored->on)
                continue;
            const bool whole = step.stored->selection.IsNone();
            step.isOne = whole && step.IsInPart() && !selected && CanBecomeOne(step);
            const bool alone = !whole || (step.IsInPart() && !step.isOne);
            const bool joins = !alone && !m_Legs.empty() && !m_LastAlone;
            m_Steps.push_back(step);
            if (joins)
                ++m_Legs.back().last;
            else
                m_Legs.push_back({int(m_Steps.size()) - 1, int(m_Steps.size()) - 1});
            m_LastAlone = alone;
        }
        return true;
    }

    const std::vector<Leg>& Legs() const { return m_Legs; }
    int StepCount() const { return int(m_Steps.size()); }
    const HBSelectionShape& SelectionOf(const Leg& leg) const { return StepAt(leg.first).stored->selection; }
    /// What of the leg is to be left; all where its stages see to that.
    int AmountOf(const Leg& leg) const
    {
        const Step& step = StepAt(leg.first);
        return leg.first == leg.last && !step.isOne ? step.Amount() : HBRecipeStep::MaximumAmount;
    }

    HBStages MakeStages(const Leg& leg, bool selected)
    {
        HBStages stages;
        m_Owners.clear();
        m_Ranges = AmountOf(leg) < HBRecipeStep::MaximumAmount ? 1 : 0; // of the blending
        for (m_Current = leg.first; m_Current <= leg.last; ++m_Current) {
            const Step& step = StepAt(m_Current);
            HBStages own = step.adjustment->stages(step.record, selected);
            // Without a selection there is none to ignore: the stage may join a pass, and its progress counts.
            for (HBStage& stage : own)
                stage.ignoresSelection = stage.ignoresSelection && selected;
            if (step.isOne) {
                HBStage one = HBAmountOf(std::move(own), step.Amount());
                own.clear();
                own.push_back(std::move(one));
            }
            for (HBStage& stage : own) {
                m_Ranges += stage.ignoresSelection ? 0 : stage.ranges;
                m_Owners.push_back(m_Current);
                stages.push_back(std::move(stage));
            }
        }
        return stages;
    }

    /// How many ranges of progress the stages tell.
    int Ranges() const { return std::max(1, m_Ranges); }

    void NameFailure(const HBStageSpan& stages, const QString& reason, QString* error) const
    {
        // No stages: the present step's could not be made.
        const int first = stages.IsEmpty() ? m_Current : m_Owners[std::size_t(stages.first)];
        const int last = stages.IsEmpty() ? m_Current : m_Owners[std::size_t(stages.last)];
        if (first == last)
            NameFailure(first, reason, error);
        else
            *error = HBRecipeReason::tr("Steps %1 (%2) to %3 (%4): %5")
                         .arg(QString::number(StepAt(first).index + 1), StepAt(first).adjustment->Title(),
                              QString::number(StepAt(last).index + 1), StepAt(last).adjustment->Title(), reason);
    }
    void NameFailure(int step, const QString& reason, QString* error) const
    {
        HBFailStep(error, StepAt(step).index, StepAt(step).stored->panel, reason);
    }

private:
    struct Step
    {
        const HBRecipeStep* stored;
        int index; ///< in the recipe
        const HBAdjustment* adjustment;
        std::any record;
        bool isOne; ///< its stages are made one, which knows the amount

        int Amount() const { return qBound(0, stored->amount, HBRecipeStep::MaximumAmount); }
        bool IsInPart() const { return Amount() < HBRecipeStep::MaximumAmount; }
    };

    static bool CanBecomeOne(const Step& step)
    {
        try {
            return HBCanBecomeOne(step.adjustment->stages(step.record, false));
        } catch (...) {
            return false; // it will fail again where it can be said
        }
    }
    const Step& StepAt(int index) const { return m_Steps[std::size_t(index)]; }

    std::vector<Step> m_Steps;
    std::vector<Leg> m_Legs;
    std::vector<int> m_Owners;
    bool m_LastAlone = false;
    int m_Current = 0;
    int m_Ranges = 0;
};

/// Tells the ranges of all stages of all legs as one of 0 .. 1000.
class Thousandths : public HBJobControl
{
public:
    Thousandths(HBJobControl* listener, const Plan& plan) : m_pListener(listener), m_Plan(plan)
    {
        if (m_pListener)
            m_pListener->SetRange(0, 1000);
    }

    void Begin(const Plan::Leg& leg)
    {
        m_Base = 1000.0 * leg.first / m_Plan.StepCount();
        m_Span = 1000.0 * (leg.last + 1 - leg.first) / m_Plan.StepCount();
        m_Range = -1;
    }
    bool IsCancelled() const override { return HBIsCancelled(m_pListener); }
    void SetRange(int, int maximum) override
    {
        ++m_Range;
        m_Maximum = maximum;
    }
    void SetProgress(int value) override
    {
        if (m_Maximum > 0)
            Tell(int(m_Base + m_Span * (m_Range + double(value) / m_Maximum) / m_Plan.Ranges()));
    }
    void Tell(int done)
    {
        if (done > m_Told && m_pListener)
            m_pListener->SetProgress(m_Told = done);
    }

private:
    HBJobControl* m_pListener;
    const Plan& m_Plan;
    double m_Base = 0;
    double m_Span = 0;
    int m_Range = -1;
    int m_Maximum = 0;
    int m_Told = 0;
};

/// Does a leg to the picture in the target; false with `error` set if it fails, and without it if cancelled.
bool RunLeg(Plan& plan, const Plan::Leg& leg, const HBImage<>& photo, HBTarget* target, Thousandths* control,
            QString* error)
try {
    control->Begin(leg);
    HBTarget part =
        plan.SelectionOf(leg).IsNone() ? *target : HBSelectIn(*target, plan.SelectionOf(leg), photo, control);
    if (HBIsCancelled(control))
        return false;
    // What is not needed behind is changed where it is.
    const bool selected = part.bounds.isValid();
    const bool isInPart = plan.AmountOf(leg) < HBRecipeStep::MaximumAmount;
    const HBImage<> before = isInPart ? target->source : HBImage<>();
    target->source = HBImage<>();
    HBStageSpan failed;
    HBOutcome outcome = HBRunStages(
        std::move(part), [&] { return plan.MakeStages(leg, selected); }, control, &failed);
    if (isInPart)
        outcome = HBBlendAmount(before, plan.AmountOf(leg), std::move(outcome), control);
    if (outcome.status == HBOutcome::Failed)
        plan.NameFailure(failed, HBFailureReason(outcome), error);
    target->source = outcome.image;
    return outcome.IsWhole() && !HBIsCancelled(control);
} catch (...) {
    plan.NameFailure(leg.first, HBFailureReason({{}, HBOutcome::Failed, std::current_exception()}), error);
    return false;
}

/// Asks a function whether to go on, on the thread that made this: it takes part in all work, and so comes by.
class Asking : public HBJobControl
{
public:
    explicit Asking(const std::function<bool(int)>& function) : m_Function(function) { m_Since.start(); }

    bool IsCancelled() const override
    {
        if (!HBJobControl::IsCancelled() && std::this_thread::get_id() == m_Thread &&
            (m_Done != m_Told || m_Since.elapsed() >= Pause)) {
            m_Told = m_Done;
            m_Since.start();
            if (!m_Function(m_Told))
                const_cast<Asking*>(this)->Cancel();
        }
        return HBJobControl::IsCancelled();
    }
    void SetProgress(int value) override { m_Done = value; }

private:
    static constexpr int Pause = 5; // ms without progress, after which it is asked again

    const std::function<bool(int)>& m_Function;
    const std::thread::id m_Thread = std::this_thread::get_id();
    std::atomic<int> m_Done{0};
    mutable int m_Told = -1; // of the asked thread alone, as the next
    mutable QElapsedTimer m_Since;
};

} // namespace

HBImage<> HBApplyRecipe(const HBTarget& target, const HBRecipe& recipe, QString* error, HBJobControl* control,
                        const HBImage<>& photo)
try {
    error->clear();
    Plan plan;
    if (!plan.Read(recipe, target.bounds.isValid(), error))
        return {};
    Thousandths thousandths(control, plan);
    if (HBIsCancelled(control))
        return {};
    const HBImage<> looked = photo.IsEmpty() ? target.source : photo;
    HBTarget present = target; // whose tiles the caller holds, too
    for (const Plan::Leg& leg : plan.Legs()) {
        if (!RunLeg(plan, leg, looked, &present, &thousandths, error))
            return {};
    }
    thousandths.Tell(1000);
    return HBIsCancelled(control) ? HBImage<>() : present.source;
} catch (...) {
    *error = HBFailureReason({{}, HBOutcome::Failed, std::current_exception()});
    return {};
}

HBImage<> HBApplyRecipe(const HBImage<>& image, const HBRecipe& recipe, QString* error,
                        const std::function<bool(int)>& progress)
{
    if (!progress)
        return HBApplyRecipe(HBTarget{image, {}, {}, {}}, recipe, error, nullptr);
    Asking asking(progress);
    return HBApplyRecipe(HBTarget{image, {}, {}, {}}, recipe, error, &asking);
}
