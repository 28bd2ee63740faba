// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelSession.h"

#include "HBOverlayFrame.h"

#include <HBAdjustmentWidget.h>
#include <KMDocumentView.h>

namespace
{

// A panel starts its job 50 ms after a change, by a coarse timer of the same thread. A longer timer that is started
// after it also fires after it, however late both are.
constexpr int SettlingMilliseconds = 75;

} // namespace

HBPanelSession::HBPanelSession(const HBPanelEntry& entry, KMDocumentView* view, QObject* parent)
    : QObject(parent)
    , m_Entry(entry)
    , m_pPanel(entry.create(true, nullptr))
{
    m_Settling.setSingleShot(true);
    m_Settling.setInterval(SettlingMilliseconds);
    m_Settling.setTimerType(Qt::PreciseTimer);
    connect(&m_Settling, &QTimer::timeout, this, &HBPanelSession::OnSettled);
    connect(&m_OverlayJob, &HBOverlayJob::Done, this, &HBPanelSession::OnDrawn);

    // Some panels listen to their controls only once they have been given values.
    QString reason;
    entry.restore(*m_pPanel, entry.save(*m_pPanel), &reason);
    m_pPanel->SetView(view);

    connect(m_pPanel, &HBAdjustmentWidget::ImageReady, this, &HBPanelSession::OnImageReady);
    connect(m_pPanel, &HBAdjustmentWidget::DataChanged, this, &HBPanelSession::OnDataChanged);
    connect(m_pPanel, &HBAdjustmentWidget::AboutUserParamsChanged, this, [this] { m_Changed = true; });
    connect(m_pPanel, &HBAdjustmentWidget::Finished, this, &HBPanelSession::OnFinished);
    connect(m_pPanel, &HBAdjustmentWidget::Ok, this, &HBPanelSession::Accept);
    connect(m_pPanel, &HBAdjustmentWidget::Cancel, this, &HBPanelSession::Reject);
    if (IsOverlay()) {
        m_pOverlayFrame = new HBOverlayFrame(m_pPanel);
        connect(m_pOverlayFrame, &HBOverlayFrame::Ok, this, &HBPanelSession::Accept);
        connect(m_pOverlayFrame, &HBOverlayFrame::Cancel, this, &HBPanelSession::Reject);
    }
}

HBPanelSession::~HBPanelSession()
{
    if (m_pPanel)
        m_pPanel->disconnect(this);
    delete m_pPanel;
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

HBRecipeStep HBPanelSession::Step() const
{
    return {QString::fromLatin1(m_Entry.className), m_pPanel ? m_Entry.save(*m_pPanel) : QJsonObject()};
}

void HBPanelSession::SetSource(const HBImage<>& image, const HBSelection& selection)
{
    m_Source = image;
    m_Selection = IsOverlay() ? HBSelection() : selection;
    if (!m_pPanel || m_Over)
        return;
    if (IsOverlay())
        Draw();
    else
        m_pPanel->SetImage(image, selection.mask, selection.offset, selection.bounds);
}

void HBPanelSession::OnDataChanged()
{
    m_Changed = true;
    m_Settling.start();
}

void HBPanelSession::OnImageReady()
{
    m_Stale = false;
    if (!m_Over)
        Q_EMIT PreviewReady(m_pPanel->AdjustedImage());
}

void HBPanelSession::OnSettled()
{
    if (IsOverlay())
        Draw();
    else if (m_Finishing)
        TakeResult();
}

// ---- Overlays ----

void HBPanelSession::Draw()
{
    m_Settling.stop();
    if (m_pPanel)
        m_OverlayJob.Draw(m_Source, m_Entry.draw(*m_pPanel));
}

void HBPanelSession::OnDrawn(const HBImage<>& image, const QString& error)
{
    if (m_Over || !m_pPanel)
        return;
    if (!m_Finishing) {
        if (error != m_Trouble)
            Q_EMIT Troubled(m_Trouble = error);
        Q_EMIT PreviewReady(image);
    } else if (!error.isEmpty()) {
        Resume(error);
    } else {
        m_Over = true;
        m_Finishing = false;
        Q_EMIT Accepted(image);
    }
}

// ---- OK and Cancel ----

void HBPanelSession::Accept()
{
    if (!m_pPanel || m_Finishing || m_Over)
        return;
    m_Finishing = true;
    // From here on a change would be dropped by the panel. A box that loses the focus takes its text in first.
    Widget()->setEnabled(false);
    if (IsOverlay()) {
        Draw();
        return;
    }
    if (m_Stale)
        SetSource(m_Source, m_Selection);
    if (!m_Settling.isActive())
        TakeResult();
}

void HBPanelSession::Reject()
{
    if (m_Over)
        return;
    m_Over = true;
    m_Finishing = false;
    m_Settling.stop();
    Q_EMIT Rejected();
}

void HBPanelSession::TakeResult()
{
    if (m_pPanel && m_pPanel->WaitForProcessingFinished(false))
        Finish();
}

void HBPanelSession::OnFinished(int result)
{
    if (!m_Finishing)
        return;
    if (result == 1) {
        Finish();
        return;
    }
    Resume({});
}

void HBPanelSession::Resume(const QString& reason)
{
    m_Finishing = false;
    m_Stale = true;
    m_pPanel->SetCancelProcessing(false);
    Widget()->setEnabled(true);
    Q_EMIT Resumed(reason);
}

void HBPanelSession::Finish()
{
    if (m_pPanel->HasJobFailed()) {
        Resume(tr("The photo could not be adjusted for want of memory."));
        return;
    }
    m_Over = true;
    m_Finishing = false;
    const HBImage<> adjusted = m_pPanel->AdjustedImage();
    const bool fits = adjusted.Width() == m_Source.Width() && adjusted.Height() == m_Source.Height();
    Q_EMIT Accepted(fits && !adjusted.IsEmpty() ? adjusted : m_Source);
}
