// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// What the editor does with selections.

#include "HBEditorActions.h"
#include "HBEditorWindow.h"
#include "HBSelectionTool.h"

#include <KMDocumentView.h>

#include <QAction>
#include <QActionGroup>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStatusBar>

void HBEditorWindow::ConnectSelection()
{
    const HBEditorActions& a = *m_pActions;
    connect(a.tools, &QActionGroup::triggered, this, [this](const QAction* action) {
        const auto tool = HBSelectionTool::Tool(action->data().toInt());
        m_pSelection->SetTool(tool);
        m_pView->SetHandDrags(tool == HBSelectionTool::Tool::None);
        m_pActions->toleranceShown->setVisible(tool == HBSelectionTool::Tool::Color);
        m_pView->setFocus(); // for the tool's keys
    });
    connect(a.modes, &QActionGroup::triggered, m_pSelection, [this](const QAction* action) {
        m_pSelection->SetMode(HBSelectionTool::Mode(action->data().toInt()));
    });
    connect(a.selectAll, &QAction::triggered, m_pSelection, &HBSelectionTool::SelectAll);
    connect(a.selectNothing, &QAction::triggered, m_pSelection, &HBSelectionTool::SelectNothing);
    connect(a.invertSelection, &QAction::triggered, m_pSelection, &HBSelectionTool::Invert);
    const auto changed = QOverload<int>::of(&QSpinBox::valueChanged);
    connect(a.feather, changed, m_pSelection, &HBSelectionTool::SetFeather);
    connect(a.tolerance, changed, m_pSelection, &HBSelectionTool::SetTolerance);
    connect(m_pSelection, &HBSelectionTool::OptionsChanged, this, [this] {
        const QSignalBlocker feather(m_pActions->feather);
        const QSignalBlocker tolerance(m_pActions->tolerance);
        m_pActions->feather->setValue(m_pSelection->Feather());
        m_pActions->tolerance->setValue(m_pSelection->Tolerance());
    });
    connect(m_pSelection, &HBSelectionTool::Changed, this, &HBEditorWindow::NoteSelection);
    connect(m_pSelection, &HBSelectionTool::Told, this,
            [this](const QString& text) { statusBar()->showMessage(text); });
    connect(&m_Document, &HBDocument::SelectionChanged, this, [this] {
        m_pSelection->SetPhoto(m_Document.Original());
        m_pSelection->SetShape(m_Document.Selection());
    });
}

/// What is selected, for undo. An open panel has a history of its own.
void HBEditorWindow::NoteSelection(int gesture)
{
    if (!m_pPanel)
        m_Document.SetSelection(m_pSelection->Shape(), gesture);
}
