// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpApply.h"

#include "HBGimpText.h"

#include <HBAdjustment.h>

#include <algorithm>
#include <atomic>
#include <new>
#include <thread>

namespace
{

// What is shown of the work: most of it is the way through GIMP's pipe.
constexpr double ReadShare = 0.4;
constexpr double JobShare = 0.2;

/// Shows the progress in GIMP. It is told by any thread, but GIMP may be spoken to by this one only, which takes
/// part in the work and asks before each tile.
class Progress : public HBJobControl
{
public:
    bool IsCancelled() const override
    {
        const int percent = m_Done / 10;
        if (percent > m_Shown && std::this_thread::get_id() == m_Thread)
            gimp_progress_update(ReadShare + JobShare * (m_Shown = percent) / 100);
        return HBJobControl::IsCancelled();
    }
    void SetProgress(int value) override { m_Done = value; }

private:
    const std::thread::id m_Thread = std::this_thread::get_id();
    std::atomic<int> m_Done{0};
    mutable std::atomic<int> m_Shown{0};
};

bool IgnoresSelection(const HBRecipe& recipe)
{
    return std::all_of(recipe.steps.begin(), recipe.steps.end(), [](const HBRecipeStep& step) {
        const HBAdjustment* adjustment = HBFindAdjustment(step.panel);
        return adjustment && adjustment->IgnoresSelection();
    });
}

} // namespace

bool HBApplyToLayer(const HBGimpLayer& layer, const HBRecipe& recipe, const QString& title, QStringList* notes,
                    QString* reason)
try {
    if (!layer.Check(reason))
        return false;
    if (layer.IsSelectionElsewhere() && !IgnoresSelection(recipe)) {
        *reason = HBGimpText::tr("Nothing of the layer is selected.");
        return false;
    }
    gimp_progress_init(title.toUtf8().constData());
    HBTarget target;
    layer.Read(&target, [](double share) { gimp_progress_update(ReadShare * share); });
    Progress progress;
    const HBImage<> adjusted = HBApplyRecipe(target, recipe, reason, &progress);
    HBGimpLayer::Written written;
    const auto tell = [](double share) {
        gimp_progress_update(ReadShare + JobShare + (1 - ReadShare - JobShare) * share);
    };
    if (adjusted.IsEmpty() || !layer.Write(target.source, adjusted, &written, reason, tell))
        return false;
    gimp_progress_end();
    *notes = written.notes;
    return true;
} catch (const std::bad_alloc&) {
    *reason = HBGimpText::tr("There is not enough memory.");
    return false;
}
