// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelSession.h"

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
    connect(&m_Settling, &QTimer::timeout, this, [this] {
        if (m_Finishing)
            TakeResult();
    });

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
}

HBPanelSession::~HBPanelSession()
{
    if (m_pPanel)
        m_pPanel->disconnect(this);
    delete m_pPanel;
}

HBAdjustmentWidget* HBPanelSession::Panel() const
{
    return m_pPanel;
}

HBRecipeStep HBPanelSession::Step() const
{
    return {QString::fromLatin1(m_Entry.className), m_pPanel ? m_Entry.save(*m_pPanel) : QJsonObject()};
}

void HBPanelSession::SetSource(const HBImage<>& image, const HBSelection& selection)
{
    m_Source = image;
    m_Selection = selection;
    if (m_pPanel && !m_Over)
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
        emit PreviewReady(m_pPanel->AdjustedImage());
}

// ---- OK and Cancel ----

void HBPanelSession::Accept()
{
    if (!m_pPanel || m_Finishing || m_Over)
        return;
    m_Finishing = true;
    // From here on a change would be dropped by the panel. A box that loses the focus takes its text in first.
    m_pPanel->setEnabled(false);
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
    emit Rejected();
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
    Resume(false);
}

void HBPanelSession::Resume(bool failed)
{
    m_Finishing = false;
    m_Stale = true;
    m_pPanel->SetCancelProcessing(false);
    m_pPanel->setEnabled(true);
    emit Resumed(failed);
}

void HBPanelSession::Finish()
{
    if (m_pPanel->HasJobFailed()) {
        Resume(true);
        return;
    }
    m_Over = true;
    m_Finishing = false;
    const HBImage<> adjusted = m_pPanel->AdjustedImage();
    // A panel without a job of its own changes nothing.
    const bool fits = adjusted.Width() == m_Source.Width() && adjusted.Height() == m_Source.Height();
    emit Accepted(fits && !adjusted.IsEmpty() ? adjusted : m_Source);
}
