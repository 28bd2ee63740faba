// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionCommands.h"

#include "HBDocument.h"
#include "HBEditorActions.h"
#include "HBPanelController.h"
#include "HBSelectionTool.h"

#include <KMDocumentView.h>

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStatusBar>

HBSelectionCommands::HBSelectionCommands(const HBEditorContext& editor, const HBEditorActions* actions,
                                         HBSelectionTool* tool, const HBPanelController* panels)
    : m_Editor(editor)
    , m_pActions(actions)
    , m_pTool(tool)
{
    ConnectActions();
    ConnectDocument(panels);
}

void HBSelectionCommands::ConnectActions()
{
    const HBEditorActions& a = *m_pActions;
    connect(a.tools, &QActionGroup::triggered, this, [this](const QAction* action) {
        const auto tool = HBSelectionTool::Tool(action->data().toInt());
        m_pTool->SetTool(tool);
        m_Editor.view->SetHandDrags(tool == HBSelectionTool::Tool::None);
        m_pActions->toleranceShown->setVisible(tool == HBSelectionTool::Tool::Color);
        m_Editor.view->setFocus(); // for the tool's keys
    });
    connect(a.modes, &QActionGroup::triggered, m_pTool,
            [this](const QAction* action) { m_pTool->SetMode(HBSelectionTool::Mode(action->data().toInt())); });
    connect(a.selectAll, &QAction::triggered, m_pTool, &HBSelectionTool::SelectAll);
    connect(a.selectNothing, &QAction::triggered, m_pTool, &HBSelectionTool::SelectNothing);
    connect(a.invertSelection, &QAction::triggered, m_pTool, &HBSelectionTool::Invert);
    const auto changed = QOverload<int>::of(&QSpinBox::valueChanged);
    connect(a.feather, changed, m_pTool, &HBSelectionTool::SetFeather);
    connect(a.tolerance, changed, m_pTool, &HBSelectionTool::SetTolerance);
    connect(m_pTool, &HBSelectionTool::OptionsChanged, this, [this] {
        const QSignalBlocker feather(m_pActions->feather);
        const QSignalBlocker tolerance(m_pActions->tolerance);
        m_pActions->feather->setValue(m_pTool->Feather());
        m_pActions->tolerance->setValue(m_pTool->Tolerance());
    });
    connect(m_pTool, &HBSelectionTool::Told, this,
            [this](const QString& text) { m_Editor.window->statusBar()->showMessage(text); });
}

void HBSelectionCommands::ConnectDocument(const HBPanelController* panels)
{
    connect(m_pTool, &HBSelectionTool::Changed, this, [this, panels](int gesture) {
        if (!panels->Panel()) // which has a history of its own
            m_Editor.document->SetSelection(m_pTool->Shape(), gesture);
    });
    connect(m_Editor.document, &HBDocument::SelectionChanged, this, [this] {
        m_pTool->SetPhoto(m_Editor.document->Original());
        m_pTool->SetShape(m_Editor.document->Selection());
    });
}
