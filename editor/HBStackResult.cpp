// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStackResult.h"

#include <HBPoolJob.h>
#include <HBStage.h>

#include <QElapsedTimer>
#include <QSet>

#include <algorithm>
#include <exception>
#include <new>
#include <utility>

namespace
{

using Steps = HBStackResult::Steps;

constexpr int ProgressAfterMilliseconds = 400;
constexpr int ProgressEveryMilliseconds = 100;

/// Those that change anything.
Steps Acting(const Steps& all)
{
    Steps acting;
    std::copy_if(all.begin(), all.end(), std::back_inserter(acting),
                 [](const HBRecipeStep& step) { return step.on && step.amount > 0; });
    return acting;
}

int CommonCount(const Steps& one, const Steps& other)
{
    const int least = qMin(one.size(), other.size());
    return int(std::mismatch(one.begin(), one.begin() + least, other.begin()).first - one.begin());
}

} // namespace

/// Keeps the progress for whoever looks.
class HBStackResult::Control : public HBJobControl
{
public:
    Control() { m_Since.start(); }
    void SetProgress(int value) override { m_Progress = value; }
    int Percent() const { return m_Progress / 10; }
    bool TakesLong() const { return m_Since.elapsed() > ProgressAfterMilliseconds; }

private:
    std::atomic<int> m_Progress{0};
    QElapsedTimer m_Since;
};

HBStackWork::Done HBStackWork::Run(HBJobControl* control)
try {
    Done done;
    HBImage<> image = std::exchange(from, {});
    if (!first.steps.isEmpty()) {
        image = HBApplyRecipe(HBTarget{image}, first, &done.error, control, photo);
        if (image.IsEmpty())
            return done;
        done.checkpoint = image;
    }
    done.image = rest.steps.isEmpty() ? image : HBApplyRecipe(HBTarget{image}, rest, &done.error, control, photo);
    return done;
} catch (...) {
    return {{}, {}, HBFailureReason({{}, HBOutcome::Failed, std::current_exception()})};
}

HBStackResult::HBStackResult(QObject* parent) : QObject(parent)
{
    connect(&m_Watcher, &QFutureWatcherBase::finished, this, &HBStackResult::Finish);
    connect(&m_Glance, &QTimer::timeout, this, &HBStackResult::TellProgress);
    m_Glance.setInterval(ProgressEveryMilliseconds);
}

HBStackResult::~HBStackResult()
{
    if (m_pControl)
        m_pControl->Cancel();
    m_Watcher.disconnect(this);
    m_Watcher.waitForFinished();
}

void HBStackResult::SetPhoto(const HBImage<>& photo)
{
    if (m_pControl)
        m_pControl->Cancel();
    m_Kept.clear();
    m_Present.clear();
    m_Asked.clear();
    m_Wanted.clear();
    m_Trouble.clear();
    m_Shared = 0;
    m_Photo = m_Image = photo;
}

void HBStackResult::Want(const Steps& steps)
{
    const Steps acting = Acting(steps);
    m_Asked = steps;
    if (acting == m_Wanted && m_Trouble.isEmpty())
        return;
    m_Trouble.clear();
    m_Shared = CommonCount(m_Wanted, acting);
    m_Wanted = acting;
    if (m_pControl && m_Making != acting)
        m_pControl->Cancel();
    try {
        if (acting == m_Present)
            return Show(acting, HBImage<>(m_Image));
        const HBStackWork work = WorkTo(acting, 0);
        if (work.first.steps.isEmpty() && work.rest.steps.isEmpty())
            Show(acting, work.from);
        else
            Start();
    } catch (const std::bad_alloc&) {
        if (IsUpToDate())
            throw; // of who was told
        Fail();
    }
}

/// For want of memory, from a handler. What would make it must not throw: SetHeld is called at the end of scopes.
void HBStackResult::Fail()
{
    m_Trouble = HBFailureReason({{}, HBOutcome::Failed, std::current_exception()});
    Q_EMIT Failed(m_Trouble);
}

void HBStackResult::Know(const Steps& steps, const HBImage<>& image)
{
    const Steps acting = Acting(steps);
    Keep(acting, image);
    if (acting != m_Wanted || acting == m_Present)
        return;
    if (m_pControl)
        m_pControl->Cancel();
    m_Trouble.clear();
    Show(acting, image);
}

void HBStackResult::SetHeld(bool held)
{
    m_Held = held;
    if (held && m_pControl)
        m_pControl->Cancel();
    if (!held && !IsUpToDate() && m_Trouble.isEmpty())
        Start();
}

HBStackWork HBStackResult::WorkFor(const Steps& steps) const
{
    return WorkTo(Acting(steps), 0);
}

/// From the longest state that the stack begins with.
/// \param shared after so many steps a state is worth keeping: what comes behind is being changed
HBStackWork HBStackResult::WorkTo(const Steps& acting, int shared) const
{
    HBStackWork work{m_Photo, m_Photo, {}, {}, 0};
    const auto offer = [&](const Steps& steps, const HBImage<>& image) {
        if (steps.size() >= work.before && steps.size() <= acting.size() &&
            CommonCount(steps, acting) == steps.size()) {
            work.from = image;
            work.before = steps.size();
        }
    };
    offer(m_Present, m_Image);
    for (const State& state : m_Kept)
        offer(state.steps, state.image);
    const int checkpoint = shared < acting.size() ? qMax(shared, work.before) : work.before;
    work.first.steps = acting.mid(work.before, checkpoint - work.before);
    work.rest.steps = acting.mid(checkpoint);
    return work;
}

void HBStackResult::Keep(const Steps& acting, const HBImage<>& image)
{
    if (acting.isEmpty() || image.IsEmpty())
        return;
    try {
        m_Kept.erase(std::remove_if(m_Kept.begin(), m_Kept.end(),
                                    [&](const State& state) { return state.steps == acting; }),
                     m_Kept.end());
        m_Kept.prepend({acting, image});
        Trim();
    } catch (const std::bad_alloc&) {
        m_Kept.clear(); // they can be made again
    }
}

void HBStackResult::Show(const Steps& acting, const HBImage<>& image)
{
    const State before{m_Present, m_Image};
    m_Present = acting;
    m_Image = image;
    Keep(before.steps, before.image); // whoever undoes wants it back
    Q_EMIT Ready();
}

/// Drops what was not used for longest, until what is kept has no more tiles of its own than the photo.
void HBStackResult::Trim()
{
    QSet<const KMTile*> known;
    const auto add = [&](const HBImage<>& image) {
        for (const KMTileRef& tile : image.Tiles())
            known.insert(tile.Get());
    };
    add(m_Photo);
    add(m_Image);
    const int most = known.size() + m_Photo.Tiles().size();
    for (int i = 0; i < m_Kept.size(); ++i) {
        add(m_Kept.at(i).image);
        if (known.size() > most)
            m_Kept.resize(i);
    }
}

void HBStackResult::Start()
{
    if (m_pControl || m_Held)
        return; // it was cancelled, and Finish comes here; or SetHeld does
    try {
        Begin();
    } catch (const std::bad_alloc&) {
        m_pControl.reset();
        m_Glance.stop();
        Fail();
    }
}

void HBStackResult::Begin()
{
    m_Making = m_Wanted;
    m_Work = WorkTo(m_Wanted, m_Shared);
    // What comes takes the place of what is kept now, but for what it is made from if that is no new one.
    const bool isNewBase = !m_Work.first.steps.isEmpty();
    m_Kept.erase(
        std::remove_if(m_Kept.begin(), m_Kept.end(),
                       [&](const State& state) { return isNewBase || !state.image.IsSameAs(m_Work.from); }),
        m_Kept.end());
    m_pControl = std::make_shared<Control>();
    m_Glance.start();
    HBWatchInPool(&m_Watcher, [work = std::make_shared<HBStackWork>(m_Work), control = m_pControl] {
        return work->Run(control.get());
    });
    m_Work.photo = m_Work.from = HBImage<>(); // the job has them
}

void HBStackResult::Finish()
{
    if (!m_pControl)
        return; // of the empty future below
    const HBStackWork::Done done = m_Watcher.result();
    m_Watcher.setFuture({}); // its result would keep the tiles
    const bool wanted = !m_pControl->IsCancelled() && m_Making == m_Wanted;
    m_pControl.reset();
    m_Glance.stop();
    Q_EMIT Progress(-1);
    if (!wanted) {
        if (!IsUpToDate() && m_Trouble.isEmpty())
            Start();
        return;
    }
    // What it was made from is the first to stay: what is behind that is being changed.
    State base{m_Making.mid(0, m_Work.before + m_Work.first.steps.size()), done.checkpoint};
    for (const State& state : qAsConst(m_Kept)) {
        if (state.steps == base.steps)
            base.image = state.image;
    }
    if (done.image.IsEmpty()) {
        m_Trouble = done.error;
        Q_EMIT Failed(m_Trouble);
    } else {
        Show(m_Making, done.image);
    }
    Keep(base.steps, base.image);
}

void HBStackResult::TellProgress()
{
    if (m_pControl && m_pControl->TakesLong())
        Q_EMIT Progress(m_pControl->Percent());
}
