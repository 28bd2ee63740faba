// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelSession.h"

#include "HBOverlayFrame.h"

#include <HBAdjustmentWidget.h>
#include <KMDocumentView.h>

namespace
{

constexpr int DrawingMilliseconds = 50; // as the panels that have a job

} // namespace

HBPanelSession::HBPanelSession(const HBPanelEntry& entry, KMDocumentView* view, QObject* parent)
    : QObject(parent)
    , m_Entry(entry)
    , m_pPanel(entry.create(true, nullptr))
{
    m_Drawing.setSingleShot(true);
    m_Drawing.setInterval(DrawingMilliseconds);
    connect(&m_Drawing, &QTimer::timeout, this, &HBPanelSession::Draw);
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
    if (IsOverlay())
        m_Drawing.start();
}

void HBPanelSession::OnImageReady()
{
    if (!m_Over)
        Q_EMIT PreviewReady(m_pPanel->AdjustedImage());
}

// ---- Overlays ----

void HBPanelSession::Draw()
{
    m_Drawing.stop();
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
    if (IsOverlay())
        Draw();
    else
        TakeResult();
}

void HBPanelSession::Reject()
{
    if (m_Over)
        return;
    m_Over = true;
    m_Finishing = false;
    m_Drawing.stop();
    Q_EMIT Rejected();
}

void HBPanelSession::TakeResult()
{
    if (!m_pPanel || !m_Finishing)
        return;
    m_pPanel->ProcessNow();
    if (m_pPanel->WaitForProcessingFinished(false))
        Finish();
}

void HBPanelSession::OnFinished(int result)
{
    if (!m_Finishing)
        return;
    if (result != 1)
        Resume({});
    else if (m_pPanel->HasPendingChange() && !m_pPanel->HasJobFailed())
        // The wait was for a job that had become obsolete. The next one counts only when this slot is left.
        QMetaObject::invokeMethod(this, &HBPanelSession::TakeResult, Qt::QueuedConnection);
    else
        Finish();
}

void HBPanelSession::Resume(const QString& reason)
{
    m_Finishing = false;
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
