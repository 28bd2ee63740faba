// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBPanelSession.h>
#include <HBSelectionShape.h>

#include <QObject>

class HBDocument;
class HBPanelGestures;
class HBSelectionTool;
class KMDocumentView;

/// The panel that is open in the editor: what it works on, what of it the user has changed, and the step that its
/// OK makes. GUI thread.
class HBOpenPanel : public QObject
{
    Q_OBJECT
public:
    /// \param source what it works on; the view shows what the panel makes of it
    /// \param opened the step of the document that is opened again; -1: a new one
    HBOpenPanel(const HBPanelEntry& entry, const HBImage<>& source, int opened, const HBDocument* document,
                HBSelectionTool* selection, KMDocumentView* view, QObject* parent);
    ~HBOpenPanel() override;

    /// Once its widget is on the screen: gives it the values and the selection of the step that is opened again,
    /// and has it work.
    void Begin();
    /// It is no longer open, and is deleted later: this may be one of the session's own signals.
    void End();

    HBPanelSession* Session() const { return m_pSession; }
    const HBImage<>& Source() const { return m_Source; }
    int OpenedStep() const { return m_OpenedStep; }
    bool IsNewStep() const { return m_OpenedStep < 0; }

    /// By the user. To a new step a selection alone is nothing.
    bool IsChanged() const;
    /// Whether its OK would do something, as far as LookAt has been told.
    bool Acts() const { return IsChanged() || m_ActsUntouched; }
    /// What a panel shows that nobody has touched yet: some act by the values that they open with. False if that
    /// tells nothing new.
    bool LookAt(const HBImage<>& preview);
    /// What its OK makes of the stack.
    HBRecipeStep Step() const;

    bool CanUndo() const;
    bool CanRedo() const;
    void Undo();
    void Redo();

Q_SIGNALS:
    /// What can be undone is another.
    void Changed();
    /// A gesture has come to its end.
    void Done();
    /// It has the picture, or another part of it is selected.
    void TargetSet();
    /// The selection is as it was.
    void SelectionLacksMemory();

private:
    void HandOver();

    const HBDocument* const m_pDocument;
    HBSelectionTool* const m_pSelection;
    KMDocumentView* const m_pView;
    const HBImage<> m_Source;
    const int m_OpenedStep;
    HBPanelSession* const m_pSession;
    HBPanelGestures* m_pGestures = nullptr; ///< since Begin
    HBSelectionShape m_HandedOver;          ///< the selection that it works on
    bool m_ActsUntouched = false;           ///< it does something by the values that it opened with
};
