// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBEditorContext.h"

#include <HBPanelSession.h>

#include <QObject>
#include <QPointer>
#include <QTemporaryDir>

#include <memory>

class HBOpenPanel;
class HBPanelPlacement;
class HBPresetStrip;
class HBRecovery;
class HBSelectionTool;
class HBViewAids;
class QWidget;

/// The life of the panel that is open in the editor, one at most: opens it on the document's photo with its
/// presets, asks before it is left, and makes a step of the document of what its OK has done. GUI thread.
class HBPanelController : public QObject
{
    Q_OBJECT
public:
    HBPanelController(const HBEditorContext& editor, HBSelectionTool* selection, HBViewAids* aids,
                      HBPanelPlacement* placement);
    /// Without a question about an open panel.
    ~HBPanelController() override;

    /// Opens a panel on the photo, in place of one that is open. False without a photo, if the user stays with the
    /// open one, or if the steps have no result, which is said.
    bool Open(const HBPanelEntry& entry);
    /// Opens the panel of a step of the stack, with its values and its selection, on the photo as the steps before
    /// it have made it. OK changes that step.
    bool OpenStep(int step);
    /// Whether there is a last OK, which RepeatLast does again on the present photo.
    bool CanRepeat() const { return !m_LastStep.panel.isEmpty(); }
    void RepeatLast();

    /// Null while no panel is open, as the next two.
    HBOpenPanel* Panel() const { return m_pPanel; }
    HBPanelSession* Session() const;
    HBPresetStrip* Presets() const;

    /// Would anything be lost with the open panel?
    bool HasWork();
    /// As its OK, and waits for it. False if it goes on: the user stopped the wait, or it failed.
    bool Accept();
    /// As its Cancel, if one is open. The document notes what is selected.
    void Drop();
    /// Ends it, after asking what is to become of its changes. False if the user wants to stay.
    bool MayLeave();

    /// Moves an open panel.
    void SetDocked(bool docked);
    /// Keeps there what an open panel would apply.
    void SetRecovery(HBRecovery* recovery) { m_pRecovery = recovery; }

Q_SIGNALS:
    /// A panel has been opened, moved or closed.
    void Changed();
    /// What can be undone in it is another.
    void HistoryChanged();
    /// The OK of a panel has changed that step.
    void StepReplaced(int step);

private:
    void Begin(const HBPanelEntry& entry, const HBImage<>& source, int opened = -1);
    void ConnectSession();
    void MakeBox();
    QString PresetFolder();
    bool Acts(const HBImage<>& shown);
    void Keep();
    void Apply(const HBImage<>& image);
    void Close();

    const HBEditorContext m_Editor;
    HBSelectionTool* const m_pSelection;
    HBViewAids* const m_pAids;
    HBPanelPlacement* const m_pPlacement;
    HBRecovery* m_pRecovery = nullptr; ///< null: nothing is kept
    bool m_Docked = false;
    HBOpenPanel* m_pPanel = nullptr;
    QPointer<QWidget> m_pBox; ///< the open panel below its presets
    QPointer<HBPresetStrip> m_pPresets;
    std::unique_ptr<QTemporaryDir> m_pNotRemembered; ///< where presets go when nothing is remembered
    HBRecipeStep m_LastStep;                         ///< what RepeatLast applies; of no panel at first
};
