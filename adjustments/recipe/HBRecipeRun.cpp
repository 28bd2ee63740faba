// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipeSteps.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <thread>

namespace
{

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(HBRecipe)
};

/// The steps with their records, and which step each stage belongs to.
class Plan
{
public:
    bool Read(const HBRecipe& recipe, QString* error)
    {
        m_Steps.resize(std::size_t(recipe.steps.size()));
        for (int i = 0; i < recipe.steps.size(); ++i) {
            Step& step = m_Steps[std::size_t(i)];
            step.adjustment = HBReadStep(recipe.steps.at(i), i, &step.record, error);
            if (!step.adjustment)
                return false;
        }
        return true;
    }

    HBStages MakeStages(bool selected)
    {
        HBStages stages;
        for (m_Current = 0; m_Current < int(m_Steps.size()); ++m_Current) {
            const Step& step = m_Steps[std::size_t(m_Current)];
            for (HBStage& stage : step.adjustment->stages(step.record, selected)) {
                // Without a selection there is none to ignore: the stage may join a pass, and its progress counts.
                stage.ignoresSelection = stage.ignoresSelection && selected;
                m_Ranges += stage.ignoresSelection ? 0 : stage.ranges;
                m_Owners.push_back(m_Current);
                stages.push_back(std::move(stage));
            }
        }
        return stages;
    }

    /// How many ranges of progress the stages tell.
    int Ranges() const { return m_Ranges; }

    void NameFailure(const HBStageSpan& stages, const QString& reason, QString* error) const
    {
        // No stages: the present step's could not be made.
        const int first = stages.IsEmpty() ? m_Current : m_Owners[std::size_t(stages.first)];
        const int last = stages.IsEmpty() ? m_Current : m_Owners[std::size_t(stages.last)];
        if (first == last)
            HBFailStep(error, first, NameOf(first), reason);
        else
            *error = Text::tr("Steps %1 (%2) to %3 (%4): %5")
                         .arg(QString::number(first + 1), NameOf(first), QString::number(last + 1), NameOf(last),
                              reason);
    }

private:
    struct Step
    {
        const HBAdjustment* adjustment = nullptr;
        std::any record;
    };

    QString NameOf(int step) const
    {
        return QString::fromLatin1(m_Steps[std::size_t(step)].adjustment->className);
    }

    std::vector<Step> m_Steps;
    std::vector<int> m_Owners;
    int m_Current = 0;
    int m_Ranges = 0;
};

/// Tells the ranges of all stages as one of 0 .. 1000.
class Thousandths : public HBJobControl
{
public:
    Thousandths(HBJobControl* listener, const Plan& plan) : m_pListener(listener), m_Plan(plan)
    {
        if (m_pListener)
            m_pListener->SetRange(0, 1000);
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
            Tell(int(1000 * (m_Range + double(value) / m_Maximum) / m_Plan.Ranges()));
    }
    void Tell(int done)
    {
        if (done > m_Told && m_pListener)
            m_pListener->SetProgress(m_Told = done);
    }

private:
    HBJobControl* m_pListener;
    const Plan& m_Plan;
    int m_Range = -1;
    int m_Maximum = 0;
    int m_Told = 0;
};

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

HBImage<> HBApplyRecipe(const HBTarget& target, const HBRecipe& recipe, QString* error, HBJobControl* control)
try {
    error->clear();
    Plan plan;
    if (!plan.Read(recipe, error))
        return {};
    Thousandths thousandths(control, plan);
    if (HBIsCancelled(control))
        return {};
    HBStageSpan failed;
    const HBOutcome outcome = HBRunStages(
        target, [&] { return plan.MakeStages(target.bounds.isValid()); }, &thousandths, &failed);
    if (outcome.status == HBOutcome::Failed)
        plan.NameFailure(failed, HBFailureReason(outcome), error);
    if (outcome.IsWhole())
        thousandths.Tell(1000);
    return outcome.IsWhole() && !HBIsCancelled(control) ? outcome.image : HBImage<>();
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
