// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelController.h"

#include "HBBusyDialog.h"
#include "HBDocument.h"
#include "HBMessageBar.h"
#include "HBOpenPanel.h"
#include "HBPanelPlacement.h"
#include "HBPresetStrip.h"
#include "HBRecovery.h"
#include "HBSamePixels.h"
#include "HBSelectionTool.h"
#include "HBViewAids.h"
#include "HBWaitForSteps.h"

#include <KMDocumentView.h>

#include <QEventLoop>
#include <QMainWindow>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTimer>
#include <QVBoxLayout>

#include <new>
#include <utility>

HBPanelController::HBPanelController(const HBEditorContext& editor, HBSelectionTool* selection, HBViewAids* aids,
                                     HBPanelPlacement* placement)
    : m_Editor(editor)
    , m_pSelection(selection)
    , m_pAids(aids)
    , m_pPlacement(placement)
{
    connect(m_pPlacement, &HBPanelPlacement::Dismissed, this, [this] {
        if (m_pPanel)
            Session()->Reject();
    });
    connect(m_pPlacement, &HBPanelPlacement::Closed, this, &HBPanelController::MayLeave);
    connect(m_pPlacement, &HBPanelPlacement::Confirmed, this, [this] {
        if (m_pPanel)
            Session()->Accept();
    });
}

HBPanelController::~HBPanelController()
{
    delete m_pPanel;
}

HBPanelSession* HBPanelController::Session() const
{
    return m_pPanel ? m_pPanel->Session() : nullptr;
}

HBPresetStrip* HBPanelController::Presets() const
{
    return m_pPresets;
}

void HBPanelController::SetDocked(bool docked)
{
    m_Docked = docked;
    if (m_pPanel && m_pBox)
        m_pPlacement->Show(m_pBox, Session()->Entry().Title(), docked);
    Q_EMIT Changed();
}

// ---- Opening ----

bool HBPanelController::Open(const HBPanelEntry& entry)
{
    if (!m_Editor.document->IsOpen() || !MayLeave() || !HBWaitForDocument(m_Editor))
        return false;
    m_Editor.messages->hide(); // it was about another step
    Begin(entry, m_Editor.document->Image());
    return true;
}

bool HBPanelController::OpenStep(int step)
{
    const HBDocument& document = *m_Editor.document;
    if (step < 0 || step >= document.StepCount() || !MayLeave())
        return false;
    const HBPanelEntry* entry = HBFindPanel(document.StepAt(step).panel);
    HBImage<> source;
    if (!entry || !HBWaitForSteps(m_Editor, document.AllSteps().mid(0, step), &source))
        return false;
    Begin(*entry, source, step);
    return true;
}

/// By a panel that is opened and confirmed, so that it is a step like any other.
void HBPanelController::RepeatLast()
{
    const HBPanelEntry* entry = HBFindPanel(m_LastStep.panel);
    const HBRecipeStep step = m_LastStep;
    if (!entry || !Open(*entry))
        return;
    Session()->SetStep(step);
    Session()->Accept();
}

void HBPanelController::Begin(const HBPanelEntry& entry, const HBImage<>& source, int opened)
{
    m_pPanel = new HBOpenPanel(entry, source, opened, m_Editor.document, m_pSelection, m_Editor.view, this);
    ConnectSession();
    MakeBox();
    m_pPlacement->Show(m_pBox, entry.Title(), m_Docked);
    Q_EMIT Changed();
    m_pPanel->Begin();
}

void HBPanelController::ConnectSession()
{
    HBMessageBar* const messages = m_Editor.messages;
    const HBPanelSession* session = m_pPanel->Session();
    connect(session, &HBPanelSession::Accepted, this, &HBPanelController::Apply);
    connect(session, &HBPanelSession::Rejected, this, &HBPanelController::Drop);
    connect(session, &HBPanelSession::Resumed, this, [messages](const QString& reason) {
        if (reason.isEmpty())
            messages->ShowNote(tr("The adjustment was stopped. The photo may not show your last change yet."));
        else
            messages->ShowError(reason);
    });
    connect(session, &HBPanelSession::Troubled, messages, [messages](const QString& reason) {
        if (reason.isEmpty())
            messages->hide();
        else
            messages->ShowError(reason);
    });
    connect(session, &HBPanelSession::PreviewReady, this, [this](const HBImage<>& preview) {
        if (m_pRecovery && m_pPanel->LookAt(preview))
            Keep();
    });
    connect(m_pPanel, &HBOpenPanel::Changed, this, &HBPanelController::HistoryChanged);
    connect(m_pPanel, &HBOpenPanel::Done, this, &HBPanelController::Keep);
    connect(m_pPanel, &HBOpenPanel::SelectionLacksMemory, this,
            [messages] { messages->ShowError(tr("There is not enough memory for this selection.")); });
}

void HBPanelController::MakeBox()
{
    m_pBox = new QWidget;
    m_pPresets = new HBPresetStrip(PresetFolder(), Session(), m_Editor.folders);
    auto* layout = new QVBoxLayout(m_pBox);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_pPresets);
    layout->addWidget(m_pAids->BeginPanel(Session()));
    connect(m_pPresets, &HBPresetStrip::Failed, m_Editor.messages, &HBMessageBar::ShowError);
    connect(m_pPanel, &HBOpenPanel::TargetSet, m_pPresets, &HBPresetStrip::ShowPreviews);
}

QString HBPanelController::PresetFolder()
{
    if (m_Editor.remember)
        return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/presets";
    if (!m_pNotRemembered)
        m_pNotRemembered = std::make_unique<QTemporaryDir>();
    return m_pNotRemembered->path();
}

// ---- While it is open ----

/// Whether it has made another picture than that which it was given. Some panels do as they open.
bool HBPanelController::Acts(const HBImage<>& shown)
{
    const HBImage<> photo = m_pPanel->Source();
    bool same = false;
    HBBusyDialog::Run(tr("Looking for changes"), m_Editor.window, [&] {
        try {
            same = HBHaveSamePixels(shown, photo);
        } catch (const std::bad_alloc&) {
            // then they count as different, and the user is asked
        }
    });
    return !same;
}

bool HBPanelController::HasWork()
{
    if (!m_pPanel)
        return false;
    // What a step that is opened does, it does already.
    return m_pPanel->IsChanged() || (m_pPanel->IsNewStep() && Acts(m_Editor.view->Picture()));
}

/// For the case of a crash.
void HBPanelController::Keep()
{
    if (!m_pRecovery)
        return;
    const bool acts = m_pPanel && m_pPanel->Acts();
    m_pRecovery->SetPanel(acts ? m_pPanel->Step() : HBRecipeStep(), acts ? m_pPanel->OpenedStep() : -1);
}

// ---- Its end ----

bool HBPanelController::MayLeave()
{
    if (!HasWork()) {
        Drop();
        return true;
    }
    const auto answer = QMessageBox::question(
        m_Editor.window, tr("Panel Editor"), tr("Apply the changes of “%1”?").arg(Session()->Entry().Title()),
        QMessageBox::Apply | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Apply);
    if (answer == QMessageBox::Cancel)
        return false;
    if (answer == QMessageBox::Apply)
        return Accept();
    Drop();
    return true;
}

bool HBPanelController::Accept()
{
    HBPanelSession* session = Session();
    if (!session)
        return true;
    QEventLoop loop;
    connect(session, &HBPanelSession::Accepted, &loop, &QEventLoop::quit);
    connect(session, &HBPanelSession::Rejected, &loop, &QEventLoop::quit);
    connect(session, &HBPanelSession::Resumed, &loop, &QEventLoop::quit);
    connect(session, &QObject::destroyed, &loop, &QEventLoop::quit);
    // Queued, so that an answer that comes at once finds the loop running.
    QTimer::singleShot(0, session, &HBPanelSession::Accept);
    loop.exec();
    return !m_pPanel;
}

void HBPanelController::Apply(const HBImage<>& image)
{
    HBDocument* const document = m_Editor.document;
    const int opened = m_pPanel->OpenedStep();
    const HBRecipeStep step = m_pPanel->Step();
    // A panel that acts by the values it opens with does something though nobody has touched it.
    const bool isStep = m_pPanel->IsChanged() || (opened < 0 && Acts(image));
    m_LastStep = step;
    try {
        QString ignored; // the step counts, not that it is remembered
        if (m_pPresets)
            m_pPresets->Presets().SetLast(step.values, &ignored);
    } catch (const std::bad_alloc&) {
    }
    Close();
    if (!isStep) {
        document->SetSelection(m_pSelection->Shape());
        return;
    }
    if (opened < 0) {
        document->Append({step}, HBDocument::TitleOf(step), image, m_pSelection->Shape());
        return;
    }
    document->Replace(opened, step, image);
    Q_EMIT StepReplaced(opened);
}

void HBPanelController::Drop()
{
    Close();
    m_Editor.document->SetSelection(m_pSelection->Shape());
}

void HBPanelController::Close()
{
    if (!m_pPanel)
        return;
    HBOpenPanel* panel = std::exchange(m_pPanel, nullptr);
    panel->Session()->disconnect(this);
    panel->disconnect(this);
    panel->End();
    Keep();
    if (!panel->IsNewStep())
        m_pSelection->SetShape(m_Editor.document->Selection());
    m_Editor.view->SetOverrideCursor(QCursor());
    m_Editor.view->EndSight();
    m_pPlacement->Close();
    m_pAids->EndPanel();
    Q_EMIT Changed();
    m_Editor.view->setFocus();
}
