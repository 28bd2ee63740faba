// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOpenPanel.h"

#include "HBDocument.h"
#include "HBOverlayBox.h"
#include "HBPanelGestures.h"
#include "HBSamePixels.h"
#include "HBSelectionTool.h"

#include <KMDocumentView.h>

#include <new>
#include <utility>

HBOpenPanel::HBOpenPanel(const HBPanelEntry& entry, const HBImage<>& source, int opened,
                         const HBDocument* document, HBSelectionTool* selection, KMDocumentView* view,
                         QObject* parent)
    : QObject(parent)
    , m_pDocument(document)
    , m_pSelection(selection)
    , m_pView(view)
    , m_Source(source)
    , m_OpenedStep(opened)
    , m_pSession(new HBPanelSession(entry, this))
{
    m_pSession->SetView(view);
    connect(m_pSession, &HBPanelSession::PreviewReady, view, &KMDocumentView::SetPicture);
    connect(m_pSession, &HBPanelSession::SightReady, view, &KMDocumentView::ShowSight);
    connect(m_pSession, &HBPanelSession::SightOver, view, &KMDocumentView::EndSight);
    connect(view, &KMDocumentView::SightChanged, m_pSession, &HBPanelSession::SetSight);
    if (HBOverlayBox::IsFor(entry)) {
        if (IsNewStep())
            HBOverlayBox::SetFirstSize(m_pSession);
        new HBOverlayBox(m_pSession, view);
    }
}

HBOpenPanel::~HBOpenPanel()
{
    delete m_pGestures; // it looks at the session and at the selection
    delete m_pSession;
}

void HBOpenPanel::Begin()
{
    if (!IsNewStep()) {
        const HBRecipeStep step = m_pDocument->StepAt(m_OpenedStep);
        m_pSelection->SetShape(step.selection);
        m_pSession->SetAmount(step.amount);
        m_pSession->SetStep(step);
    }
    connect(m_pSelection, &HBSelectionTool::Changed, this, &HBOpenPanel::HandOver);
    m_pGestures = new HBPanelGestures(m_pSession, m_pSelection, this);
    connect(m_pGestures, &HBPanelGestures::Changed, this, &HBOpenPanel::Changed);
    connect(m_pGestures, &HBPanelGestures::Done, this, &HBOpenPanel::Done);
    m_pSession->SetSight(m_pView->SightArea(), m_pView->Zoom());
    HandOver();
}

void HBOpenPanel::End()
{
    m_pSession->disconnect(m_pView);
    delete std::exchange(m_pGestures, nullptr);
    m_pSelection->disconnect(this);
    deleteLater();
}

void HBOpenPanel::HandOver()
{
    try {
        m_pSession->SetTarget(m_pSelection->SelectIn(m_Source, m_pDocument->Original()));
        m_HandedOver = m_pSelection->Shape();
        Q_EMIT TargetSet();
    } catch (const std::bad_alloc&) {
        Q_EMIT SelectionLacksMemory();
        // What is shown is what the panel works on.
        if (m_pSelection->Shape() != m_HandedOver)
            m_pSelection->SetShape(m_HandedOver);
    }
}

bool HBOpenPanel::IsChanged() const
{
    return m_pGestures && (m_pGestures->AreValuesChanged() || (!IsNewStep() && m_pGestures->IsSelectionChanged()));
}

bool HBOpenPanel::LookAt(const HBImage<>& preview)
{
    if (!IsNewStep() || !m_pGestures || m_pGestures->AreValuesChanged())
        return false;
    try {
        m_ActsUntouched = !HBHaveSamePixels(preview, m_Source);
    } catch (const std::bad_alloc&) {
        m_ActsUntouched = true; // rather a step too many than one that is lost
    }
    return true;
}

HBRecipeStep HBOpenPanel::Step() const
{
    HBRecipeStep step = m_pSession->Step();
    if (m_pSession->HasSelection() && !m_pSession->Entry().adjustment->IgnoresSelection()) // overlays have none
        step.selection = m_pSelection->Shape();
    if (!IsNewStep())
        step.amount = m_pDocument->StepAt(m_OpenedStep).amount;
    return step;
}

bool HBOpenPanel::CanUndo() const
{
    return m_pGestures && m_pGestures->CanUndo();
}

bool HBOpenPanel::CanRedo() const
{
    return m_pGestures && m_pGestures->CanRedo();
}

void HBOpenPanel::Undo()
{
    if (m_pGestures)
        m_pGestures->Undo();
}

void HBOpenPanel::Redo()
{
    if (m_pGestures)
        m_pGestures->Redo();
}
