// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBEditorContext.h"

#include <QObject>

class HBEditorActions;
class HBPanelController;
class HBSelectionTool;

/// Lets the selection's actions work the tool, and the document note what it selects, which its undo brings back.
/// GUI thread.
class HBSelectionCommands : public QObject
{
    Q_OBJECT
public:
    HBSelectionCommands(const HBEditorContext& editor, const HBEditorActions* actions, HBSelectionTool* tool,
                        const HBPanelController* panels);

private:
    void ConnectActions();
    void ConnectDocument(const HBPanelController* panels);

    const HBEditorContext m_Editor;
    const HBEditorActions* const m_pActions;
    HBSelectionTool* const m_pTool;
};
