// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelSession.h"

#include "HBAmountJob.h"
#include "HBOverlayFrame.h"
#include "HBOverlayJob.h"
#include "HBPanelManners.h"
#include "HBPanelSetupOnce.h"
#include "HBSessionPicking.h"
#include "HBSessionSight.h"
#include "HBSessionWait.h"

#include <HBAdjustmentWidget.h>
#include <HBChangedTiles.h>

namespace
{

// Whoever has not moved a control for so long means it; as the panels themselves.
constexpr int StillMilliseconds = 50;

} // namespace

HBPanelSession::HBPanelSession(const HBPanelEntry& entry, QObject* parent, HBPanelButtons buttons)
    : QObject(parent)
    , m_Entry(entry)
    , m_pWait(new HBSessionWait(entry.Title(), this))
{
    HBSetUpPanelsOnce();
    m_pPanel = entry.create(buttons == HBPanelButtons::Panel, nullptr);
    m_Still.setSingleShot(true);
    m_Still.setInterval(StillMilliseconds);
    connect(&m_Still, &QTimer::timeout, this, &HBPanelSession::OnStill);
    connect(m_pWait, &HBSessionWait::Cancelled, this, &HBPanelSession::OnWaitCancelled);

    // Some panels listen to their controls only once they have been given values.
    entry.set(*m_pPanel, entry.get(*m_pPanel));
    new HBPanelManners(entry, m_pPanel);
    m_pPicking = new HBSessionPicking(m_pPanel, this);
    connect(m_pPicking, &HBSessionPicking::Changed, this, &HBPanelSession::PickingChanged);
    if (entry.draw) {
        m_pOverlayJob = new HBOverlayJob(
            *entry.adjustment, [this] { return m_pPanel ? m_Entry.get(*m_pPanel) : std::any(); }, this);
    }
    ConnectPanel(buttons);
}

void HBPanelSession::ConnectPanel(HBPanelButtons buttons)
{
    connect(m_pPanel, &HBAdjustmentWidget::DataChanged, this, &HBPanelSession::OnChanged);
    connect(m_pPanel, &HBAdjustmentWidget::AboutUserParamsChanged, this, [this] { m_Changed = true; });
    connect(m_pPanel, &HBAdjustmentWidget::Ok, this, &HBPanelSession::Accept);
    connect(m_pPanel, &HBAdjustmentWidget::Cancel, this, &HBPanelSession::Reject);
    if (m_pOverlayJob) {
        connect(m_pOverlayJob, &HBOverlayJob::ImageReady, this, &HBPanelSession::OnImageReady);
        connect(m_pOverlayJob, &HBOverlayJob::Ended, this, &HBPanelSession::OnJobEnded);
        connect(m_pOverlayJob, &HBOverlayJob::RangeChanged, this, &HBPanelSession::OnProgressRange);
        connect(m_pOverlayJob, &HBOverlayJob::ProgressChanged, this, &HBPanelSession::OnProgressValue);
        if (buttons == HBPanelButtons::Panel) {
            m_pOverlayFrame = new HBOverlayFrame(m_pPanel);
            connect(m_pOverlayFrame, &HBOverlayFrame::Ok, this, &HBPanelSession::Accept);
            connect(m_pOverlayFrame, &HBOverlayFrame::Cancel, this, &HBPanelSession::Reject);
        }
        return;
    }
    // The panel would give up a running job with every change that is followed by a short rest, and show nothing
    // while a control is moved slowly. The session says when a job starts (Advance, OnStill).
    m_pPanel->disconnect(SIGNAL(DataChanged()), m_pPanel, SLOT(OnDataChanged()));
    connect(m_pPanel, &HBAdjustmentWidget::ImageReady, this, &HBPanelSession::OnImageReady);
    connect(m_pPanel, &HBAdjustmentWidget::ProgressRangeChanged, this, &HBPanelSession::OnProgressRange);
    connect(m_pPanel, &HBAdjustmentWidget::ProgressValueChanged, this, &HBPanelSession::OnProgressValue);
}

HBPanelSession::~HBPanelSession()
{
    m_pWait->End();
    if (m_pPanel)
        m_pPanel->disconnect(this);
    delete m_pOverlayJob; // it asks the panel
    delete m_pAmountJob;
    delete m_pSight;
    delete m_pPanel; // while the view it picks from is still there
    delete m_pOverlayFrame;
}

HBAdjustmentWidget* HBPanelSession::Panel() const
{
    return m_pPanel;
}

QWidget* HBPanelSession::Widget() const
{
    return m_pOverlayFrame ? static_cast<QWidget*>(m_pOverlayFrame) : m_pPanel;
}

void HBPanelSession::SetTarget(const HBTarget& target)
{
    if (!m_Target.source.IsSameAs(target.source))
        m_Preview = HBImage<>();
    m_Target = target;
    if (IsOverlay()) {
        m_Target.selection = HBImage<>();
        m_Target.bounds = QRect();
    }
    if (!m_pPanel || m_Over)
        return;
    m_Stopped = false;
    m_Unblended = false;
    if (m_pAmountJob)
        m_pAmountJob->GiveUp();
    if (m_pSight) {
        m_pSight->SetTarget(m_Target);
        AdvanceSoon();
    }
    if (IsOverlay())
        m_pOverlayJob->SetImage(target.source);
    else
        m_pPanel->SetImage(target.source, target.selection, target.offset, target.bounds);
    TellBusy();
}

void HBPanelSession::SetAmount(int amount)
{
    m_Amount = qBound(0, amount, HBRecipeStep::MaximumAmount);
    if (m_pSight)
        m_pSight->SetAmount(m_Amount);
    if (IsOverlay()) {
        m_pOverlayJob->SetAmount(m_Amount);
    } else if (!m_pAmountJob && m_Amount < HBRecipeStep::MaximumAmount) {
        m_pAmountJob = new HBAmountJob(this);
        connect(m_pAmountJob, &HBAmountJob::Ended, this, &HBPanelSession::OnBlended);
    }
}

void HBPanelSession::SetSight(const QRect& area, double zoom)
{
    if (m_Over || IsOverlay())
        return; // an overlay leaves alone the tiles that it does not touch
    if (!m_pSight) {
        m_pSight = new HBSessionSight(
            *m_Entry.adjustment, [this] { return m_Entry.get(*m_pPanel); },
            [this] { return !m_Over && m_pPanel && IsPending(); }, this);
        connect(m_pSight, &HBSessionSight::Ready, this, &HBPanelSession::SightReady);
        connect(m_pSight, &HBSessionSight::Over, this, &HBPanelSession::SightOver);
        m_pSight->SetTarget(m_Target);
        m_pSight->SetAmount(m_Amount);
    }
    if (m_pSight->SetSight(area, zoom))
        AdvanceSoon();
}

// ---- Picking ----

void HBPanelSession::SetView(QGraphicsView* view)
{
    m_pPicking->SetView(view);
}

void HBPanelSession::SetSurface(HBPickSurface* surface)
{
    m_pPicking->SetSurface(surface);
}

bool HBPanelSession::IsPicking() const
{
    return m_pPicking->IsPicking();
}

// ---- Values ----

HBRecipeStep HBPanelSession::Step() const
{
    return {QString::fromLatin1(m_Entry.className), m_pPanel ? m_Entry.save(*m_pPanel) : QJsonObject()};
}

bool HBPanelSession::SetStep(const HBRecipeStep& step, QString* reason)
{
    QString ignored;
    QString* why = reason ? reason : &ignored;
    if (!m_pPanel || step.panel != QLatin1String(m_Entry.className)) {
        *why = tr("These are values of another panel.");
        return false;
    }
    const bool changed = m_Changed;
    const bool restored = m_Entry.restore(*m_pPanel, step.values, why);
    m_Changed = changed; // some panels tell it as if it were the user
    if (restored)
        TakeNewValues();
    return restored;
}

QByteArray HBPanelSession::SaveValues() const
{
    return m_pPanel ? HBRecipe{{Step()}}.ToJson() : QByteArray();
}

bool HBPanelSession::RestoreValues(const QByteArray& values, QString* reason)
{
    QString ignored;
    QString* why = reason ? reason : &ignored;
    HBRecipe recipe;
    if (!HBRecipe::FromJson(values, &recipe, why))
        return false;
    if (recipe.steps.size() != 1) {
        *why = tr("These are values of another panel.");
        return false;
    }
    return SetStep(recipe.steps.first(), reason);
}

void HBPanelSession::Refresh()
{
    TakeNewValues();
}

void HBPanelSession::TakeNewValues()
{
    m_Stopped = false;
    m_Outdated = true;
    if (m_pSight)
        m_pSight->SetOutdated();
    m_Still.start();
    AdvanceSoon();
}

void HBPanelSession::Reset()
{
    if (m_pPanel)
        m_pPanel->OnReset();
}

void HBPanelSession::OnChanged()
{
    m_Changed = true;
    TakeNewValues();
}

// ---- The jobs ----

bool HBPanelSession::IsWorking() const
{
    return m_pOverlayJob ? m_pOverlayJob->IsProcessing()
                         : (m_pPanel && m_pPanel->IsProcessing()) || (m_pAmountJob && m_pAmountJob->IsWorking());
}

bool HBPanelSession::IsPending() const
{
    return m_pOverlayJob ? m_pOverlayJob->HasPendingChange()
                         : m_Unblended || (m_pPanel && m_pPanel->HasPendingChange());
}

bool HBPanelSession::IsUpToDate() const
{
    return !m_Preview.IsEmpty() && !IsPending();
}

HBImage<> HBPanelSession::Adjusted() const
{
    return m_pOverlayJob ? m_pOverlayJob->AdjustedImage() : m_pPanel->AdjustedImage();
}

void HBPanelSession::StartNow()
{
    m_Outdated = false;
    if (!IsWorking())
        m_pWait->ForgetProgress();
    if (m_pOverlayJob)
        m_pOverlayJob->ProcessNow();
    else if (m_pPanel->HasPendingChange())
        m_pPanel->ProcessNow();
    else if (m_Unblended && !m_pAmountJob->IsWorking())
        BlendAdjusted();
}

void HBPanelSession::SetCancelProcessing(bool cancel)
{
    if (m_pOverlayJob)
        m_pOverlayJob->SetCancelProcessing(cancel);
    else if (m_pPanel)
        m_pPanel->SetCancelProcessing(cancel);
    if (cancel && m_pAmountJob)
        m_pAmountJob->GiveUp();
}

/// A control rests. A job that runs for older values is given up for the present ones, but never two in a row:
/// where a control moves slowly and jobs take long, none would come to its end.
void HBPanelSession::OnStill()
{
    const bool follows = m_pSight && m_pSight->IsFollowing();
    if (follows)
        AdvanceSoon();                               // the whole has waited for this
    const bool mayGiveUp = !m_GivenUpOne || follows; // what is in sight is shown meanwhile
    if (m_Over || !m_pPanel || !m_Outdated || !mayGiveUp || !IsWorking())
        return;
    m_GivenUpOne = true;
    StartNow();
}

void HBPanelSession::AdvanceSoon()
{
    if (m_AdvanceSoon)
        return;
    m_AdvanceSoon = true;
    // One start for all that a gesture changes, and never from within a signal of the panel.
    QMetaObject::invokeMethod(this, &HBPanelSession::Advance, Qt::QueuedConnection);
}

/// Starts the next job if there is something to do and none runs, and ends the wait for the final image.
void HBPanelSession::Advance()
{
    m_AdvanceSoon = false;
    if (m_Over || !m_pPanel)
        return;
    const bool stopped = m_Stopped || (m_Finishing && m_WaitCancelled);
    const bool follows = m_pSight && !m_Finishing && IsPending() && m_pSight->Follow();
    // While a hand moves, what it sees goes first.
    const bool rests = !follows || !m_Still.isActive();
    if (!IsWorking() && IsPending() && !stopped && rests)
        StartNow();
    if (m_Finishing && !IsWorking()) {
        if (IsPending())
            Resume(m_WaitCancelled ? QString() : FailureReason());
        else
            Finish();
        return;
    }
    TellBusy();
}

QString HBPanelSession::FailureReason() const
{
    if (m_pOverlayJob)
        return m_pOverlayJob->FailureReason();
    if (!m_AmountFailure.isEmpty())
        return m_AmountFailure;
    return m_pPanel && m_pPanel->HasJobFailed() ? tr("The photo could not be adjusted for want of memory.")
                                                : QString();
}

void HBPanelSession::OnImageReady()
{
    if (m_Over || !m_pPanel || m_Target.source.IsEmpty())
        return;
    m_GivenUpOne = false;
    m_AmountFailure.clear();
    const QString reason = FailureReason();
    if (reason.isEmpty() && m_pAmountJob)
        BlendAdjusted();
    else
        ShowAdjusted(Adjusted(), reason);
}

void HBPanelSession::BlendAdjusted()
{
    m_Unblended = true;
    m_pAmountJob->Ask(m_Target.source, Adjusted(), m_Amount);
}

void HBPanelSession::OnBlended(const HBOutcome& outcome)
{
    const QPointer<HBPanelSession> self(this);
    if (!m_Over && m_pPanel && outcome.status != HBOutcome::Cancelled) {
        m_Unblended = !outcome.IsWhole();
        m_AmountFailure = HBFailureReason(outcome);
        ShowAdjusted(outcome.image, m_AmountFailure);
    }
    if (self)
        OnJobEnded();
}

/// \param reason why it is not whole; empty: it is
void HBPanelSession::ShowAdjusted(const HBImage<>& adjusted, const QString& reason)
{
    const bool failed = !reason.isEmpty();
    m_Stopped = failed;
    const QPointer<HBPanelSession> self(this);
    if (!m_Finishing || !failed) // else Resumed says it
        Trouble(reason);
    if (!self || m_Over || !m_pPanel)
        return;
    const HBImage<> image = failed ? m_Target.source : adjusted;
    const QRegion changed = HBChangedTiles(m_Preview, image);
    m_Preview = image;
    Q_EMIT PreviewReady(image, changed);
    if (self && m_pSight && (failed || !IsPending()))
        m_pSight->End();
    if (self && m_Finishing && !IsPending())
        Finish();
}

void HBPanelSession::OnJobEnded()
{
    // One that starts in its place knows all.
    m_Outdated = false;
    AdvanceSoon();
}

void HBPanelSession::OnProgressRange(int minimum, int maximum)
{
    m_pWait->SetRange(minimum, maximum);
    if (!m_pOverlayJob && !IsWorking())
        OnJobEnded(); // the panel tells a last range then
}

void HBPanelSession::OnProgressValue(int value)
{
    if (m_Over)
        return;
    const QPointer<HBPanelSession> self(this);
    Q_EMIT ProgressChanged(m_pWait->PercentAt(value));
    if (self)
        m_pWait->SetPosition(value);
}

void HBPanelSession::TellBusy()
{
    const bool busy = !m_Over && IsWorking() && !m_Target.source.IsEmpty();
    if (busy != m_Busy)
        Q_EMIT BusyChanged(m_Busy = busy);
}

void HBPanelSession::Trouble(const QString& reason)
{
    if (reason != m_Trouble)
        Q_EMIT Troubled(m_Trouble = reason);
}

// ---- OK and Cancel ----

void HBPanelSession::Accept()
{
    if (!m_pPanel || m_Finishing || m_Over)
        return;
    m_Finishing = true;
    m_WaitCancelled = false;
    m_Stopped = false;
    // A box that loses the focus takes its text in first.
    Widget()->setEnabled(false);
    if (!IsPending()) {
        Finish();
        return;
    }
    m_pWait->Begin(Widget());
    StartNow();
    TellBusy();
    AdvanceSoon(); // for a panel that had nothing to start
}

void HBPanelSession::Reject()
{
    if (m_Over)
        return;
    if (End())
        Q_EMIT Rejected();
}

void HBPanelSession::Resume(const QString& reason)
{
    m_Finishing = false;
    m_Stopped = true;
    m_pWait->End();
    SetCancelProcessing(false);
    Widget()->setEnabled(true);
    const QPointer<HBPanelSession> self(this);
    TellBusy();
    if (self)
        Q_EMIT Resumed(reason);
}

void HBPanelSession::OnWaitCancelled()
{
    m_WaitCancelled = true;
    SetCancelProcessing(true);
    AdvanceSoon(); // if none runs; else when the job has ended
}

void HBPanelSession::Finish()
{
    const HBImage<> adjusted = m_pAmountJob ? m_Preview : Adjusted();
    const HBImage<> source = m_Target.source;
    const bool fits = adjusted.Width() == source.Width() && adjusted.Height() == source.Height();
    const HBImage<> image = fits && !adjusted.IsEmpty() ? adjusted : source;
    if (End())
        Q_EMIT Accepted(image);
}

/// False if someone who heard of it has destroyed the session.
bool HBPanelSession::End()
{
    m_Over = true;
    m_Finishing = false;
    if (m_pSight)
        m_pSight->GiveUp();
    m_Still.stop();
    m_pWait->End();
    SetCancelProcessing(true);
    const QPointer<HBPanelSession> self(this);
    TellBusy();
    return self;
}
