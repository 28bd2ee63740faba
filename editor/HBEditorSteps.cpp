// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// What the editor does with the stack of steps.

#include "HBBusyDialog.h"
#include "HBEditorActions.h"
#include "HBEditorWindow.h"
#include "HBMessageBar.h"
#include "HBOpenPanel.h"
#include "HBPresetStrip.h"
#include "HBRecovery.h"
#include "HBSelectionTool.h"
#include "HBStepList.h"

#include <QAction>
#include <QDockWidget>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QStatusBar>
#include <QToolButton>

namespace
{

// Less than a second on any machine: no need for a dialog with a button.
constexpr qint64 QuickPixels = 20000000;

} // namespace

void HBEditorWindow::BuildSteps()
{
    m_pSteps = new HBStepList(&m_Document, this);
    m_pStepsDock = new QDockWidget(tr("Steps"), this);
    m_pStepsDock->setObjectName("StepsDock");
    m_pStepsDock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    m_pStepsDock->setWidget(m_pSteps);
    addDockWidget(Qt::RightDockWidgetArea, m_pStepsDock);
    if (auto* panels = findChild<QDockWidget*>("PanelDock"))
        tabifyDockWidget(m_pStepsDock, panels);
    m_pStepsDock->toggleViewAction()->setVisible(false); // there is no list without steps
    m_pStepsDock->hide();
    m_pShowSteps = m_pActions->ViewMenu()->addAction(tr("S&teps"));
    m_pShowSteps->setStatusTip(tr("List what was done to the photo"));
    m_pShowSteps->setCheckable(true);
    m_pShowSteps->setChecked(true);
    connect(m_pShowSteps, &QAction::toggled, this, &HBEditorWindow::ShowSteps);
    connect(m_pSteps, &HBStepList::OpenAsked, this, &HBEditorWindow::OpenStep);

    m_pProgressBox = new QWidget(this);
    m_pProgress = new QProgressBar(m_pProgressBox);
    m_pProgress->setMaximumWidth(120);
    m_pProgress->setToolTip(tr("The photo is being made from its steps"));
    m_pGiveUp = new QToolButton(m_pProgressBox);
    m_pGiveUp->setText(tr("Cancel"));
    m_pGiveUp->setAutoRaise(true);
    m_pGiveUp->setToolTip(tr("Take back the change of the steps that takes so long"));
    connect(m_pGiveUp, &QToolButton::clicked, &m_Document, &HBDocument::GiveUp);
    auto* progress = new QHBoxLayout(m_pProgressBox);
    progress->setContentsMargins(0, 0, 0, 0);
    progress->addWidget(m_pProgress);
    progress->addWidget(m_pGiveUp);
    m_pProgressBox->hide();
    statusBar()->addPermanentWidget(m_pProgressBox);
    connect(&m_Document.Result(), &HBStackResult::Progress, this, &HBEditorWindow::ShowProgress);
    connect(&m_Document, &HBDocument::Failed, m_pMessages, &HBMessageBar::ShowError);
    connect(&m_Document.History(), &QUndoStack::indexChanged, m_pMessages, &QWidget::hide); // what it told is over
}

void HBEditorWindow::ShowSteps()
{
    const HBEditorActions& a = *m_pActions;
    const QUndoStack& history = m_Document.History();
    a.undo->setEnabled(m_pPanel ? m_pPanel->CanUndo() : history.canUndo());
    a.redo->setEnabled(m_pPanel ? m_pPanel->CanRedo() : history.canRedo());
    m_pGiveUp->setEnabled(!m_pPanel); // its step would be another, or none
    m_pSteps->SetOpened(m_pPanel, m_pPanel ? m_pPanel->OpenedStep() : -1);
    const bool isListed = m_pShowSteps->isChecked() && m_Document.StepCount() > 0;
    if (isListed != !m_pStepsDock->isHidden())
        m_pStepsDock->setVisible(isListed);
}

void HBEditorWindow::ShowProgress(int percent)
{
    m_pProgressBox->setVisible(percent >= 0);
    m_pProgress->setValue(qMax(0, percent));
}

void HBEditorWindow::Undo()
{
    if (m_pPanel)
        m_pPanel->Undo();
    else
        m_Document.History().undo();
}

void HBEditorWindow::Redo()
{
    if (m_pPanel)
        m_pPanel->Redo();
    else
        m_Document.History().redo();
}

// ---- Results ----

/// Waits for the result of steps on the photo. False if that was cancelled, or failed, which is said.
bool HBEditorWindow::Compute(const QVector<HBRecipeStep>& steps, HBImage<>* image)
{
    // What is made behind would take half of the processor, and as much memory.
    HBStackResult& result = m_Document.Result();
    result.SetHeld(true);
    const auto release = qScopeGuard([&result] { result.SetHeld(false); });
    HBStackWork work = result.WorkFor(steps);
    HBStackWork::Done done;
    const auto run = [&](HBJobControl* control) { done = work.Run(control); };
    const qint64 pixels = qint64(work.photo.Width()) * work.photo.Height() * work.rest.steps.size();
    const QString text = tr("Applying the steps");
    if (pixels <= QuickPixels)
        HBBusyDialog::Run(text, this, [&] { run(nullptr); });
    else if (!HBBusyDialog::RunCancellable(text, this, run))
        return false;
    if (done.image.IsEmpty()) {
        m_pMessages->ShowError(done.error);
        return false;
    }
    result.Know(steps, done.image);
    *image = done.image;
    return true;
}

/// Waits until the document's image is that of its steps.
bool HBEditorWindow::Settle()
{
    HBImage<> image;
    return m_Document.Result().IsUpToDate() || Compute(m_Document.AllSteps(), &image);
}

// ---- The panel of a step ----

bool HBEditorWindow::OpenStep(int step)
{
    if (step < 0 || step >= m_Document.StepCount() || !MayLeavePanel())
        return false;
    const HBPanelEntry* entry = HBFindPanel(m_Document.StepAt(step).panel);
    HBImage<> source;
    if (!entry || !Compute(m_Document.AllSteps().mid(0, step), &source))
        return false;
    BeginPanel(*entry, source, step);
    return true;
}

/// For the case of a crash.
void HBEditorWindow::KeepPanel()
{
    if (!m_pRecovery)
        return;
    const bool acts = m_pPanel && m_pPanel->Acts();
    m_pRecovery->SetPanel(acts ? m_pPanel->Step() : HBRecipeStep(), acts ? m_pPanel->OpenedStep() : -1);
}

void HBEditorWindow::ApplyPanel(const HBImage<>& image)
{
    const int opened = m_pPanel->OpenedStep();
    const HBRecipeStep step = m_pPanel->Step();
    // A panel that acts by the values it opens with does something though nobody has touched it.
    const bool isStep = m_pPanel->IsChanged() || (opened < 0 && IsPanelSeen(image));
    m_LastStep = step;
    QString ignored; // the step counts, not that it is remembered
    if (m_pPresets)
        m_pPresets->Presets().SetLast(step.values, &ignored);
    ClosePanel();
    if (!isStep) {
        NoteSelection();
        return;
    }
    if (opened < 0) {
        m_Document.Append({step}, HBDocument::TitleOf(step), image, m_pSelection->Shape());
        return;
    }
    m_Document.Replace(opened, step, image);
    m_pSteps->SetCurrent(opened);
}

// ---- What a crash has left ----

void HBEditorWindow::UseRecovery(const QString& folder)
{
    m_pRecovery = new HBRecovery(folder, &m_Document, this);
    connect(m_pRecovery, &HBRecovery::Failed, this, [this](const QString& reason) {
        m_pMessages->ShowNote(tr("Unsaved steps cannot be kept for the case of a crash: %1").arg(reason));
    });
    OfferLost();
}

void HBEditorWindow::OfferLost()
{
    for (const HBLostStack& lost : m_pRecovery->FindLost()) {
        QMessageBox question(
            QMessageBox::Question, tr("Panel Editor"),
            tr("The editor did not come to its end while “%1” had steps that were not saved (%2). Restore them?")
                .arg(QFileInfo(lost.photo).fileName())
                .arg(lost.steps.size() + (lost.HasPanel() && lost.opened < 0 ? 1 : 0)),
            QMessageBox::NoButton, this);
        question.setInformativeText(lost.photo);
        QPushButton* restore = question.addButton(tr("&Restore"), QMessageBox::AcceptRole);
        const QPushButton* discard = question.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
        question.addButton(tr("&Later"), QMessageBox::RejectRole);
        question.setDefaultButton(restore);
        question.exec();
        if (question.clickedButton() == discard)
            HBRecovery::Forget(lost);
        if (question.clickedButton() == restore) {
            Restore(lost);
            return; // any others next time: there is one photo
        }
    }
}

void HBEditorWindow::Restore(const HBLostStack& lost)
{
    if (!Open(lost.photo))
        return; // it is said why, and the steps are kept
    const bool isSame = lost.IsSamePhoto();
    const HBDocument::Steps steps = lost.StepsForFile();
    m_Document.SetSteps(steps, tr("Restored Steps"));
    if (lost.HasPanel()) // undone by itself, as an OK is
        m_Document.SetSteps(lost.StepsWithPanel(), HBDocument::TitleOf(lost.panel));
    if (m_pRecovery->Keep()) // this editor's own file has them now
        HBRecovery::Forget(lost);
    const bool isOff = steps.size() == lost.steps.size() && !lost.saved.isEmpty();
    if (isOff)
        m_pMessages->ShowNote(
            tr("The photo was saved with other steps. Those that were restored are switched off."));
    else if (!isSame)
        m_pMessages->ShowNote(tr("“%1” has changed since the steps were made.").arg(m_Document.FileName()));
    else if (lost.HasPanel())
        m_pMessages->ShowNote(
            tr("“%1” had not been applied yet. It is restored as if it had been; Undo takes it back.")
                .arg(HBDocument::TitleOf(lost.panel)));
}
