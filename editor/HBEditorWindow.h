// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBDocument.h"
#include "HBEditorContext.h"
#include "HBFolders.h"

#include <HBPanelSession.h>

#include <QMainWindow>

#include <memory>

class HBBeforeAfter;
class HBEditorActions;
class HBEditorRecipes;
class HBFilmStrip;
class HBMessageBar;
class HBPanelController;
class HBPanelPlacement;
class HBPhotoFiles;
class HBSelectionCommands;
class HBSelectionTool;
class HBStackProgress;
class HBStepList;
class HBStepsDock;
class HBViewAids;
class KMDocumentView;
class QLabel;

/// The editor: one photo, its view, and at most one open panel. The window puts its parts together, has the
/// actions work them, and shows the state; what is done with panels, files and recipes is theirs.
class HBEditorWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// \param remember keep place, size and options between sessions
    explicit HBEditorWindow(bool remember, QWidget* parent = nullptr);
    ~HBEditorWindow() override;

    /// Several make a film strip of their own, and the first is opened; a single one is opened in its folder.
    bool OpenAll(const QStringList& paths);
    /// Keeps unsaved steps in the folder from here on, and asks about those that an editor which did not come to
    /// its end has left there.
    void UseRecovery(const QString& folder);

    const HBDocument& Document() const { return m_Document; }
    HBPanelController* Panels() const { return m_pPanels.get(); }
    HBPhotoFiles* Files() const { return m_pFiles.get(); }
    HBEditorRecipes* Recipes() const { return m_pRecipes.get(); }
    KMDocumentView* View() const { return m_pView; }
    HBSelectionTool* SelectionTool() const { return m_pSelection; }
    HBMessageBar* MessageBar() const { return m_pMessages; }
    HBEditorActions* Actions() const { return m_pActions; }
    HBFilmStrip* FilmStrip() const { return m_pStrip; }
    HBStepList* StepList() const;
    HBViewAids* ViewAids() const { return m_pAids; }

    // Short for Files()->Open, Panels()->Open and Panels()->Session.
    bool Open(const QString& path);
    bool OpenPanel(const HBPanelEntry& entry);
    HBPanelSession* Session() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildStatusBar();
    void BuildSteps();
    void BuildStrip();
    void ConnectActions();
    void ConnectViewActions();
    void ConnectPanels();
    void ReadSettings();
    void WriteSettings() const;

    void Undo();
    void Redo();
    void FindPanel();
    void OpenNeighbour(int step);

    void ShowDocument();
    void ShowSteps();
    void ShowZoom(double zoom);

    HBFolders m_Folders;
    HBDocument m_Document;
    KMDocumentView* m_pView;
    HBMessageBar* m_pMessages;
    HBSelectionTool* m_pSelection;
    HBBeforeAfter* m_pBeforeAfter;
    HBEditorActions* m_pActions;
    HBPanelPlacement* m_pPlacement;
    HBFilmStrip* m_pStrip;
    HBViewAids* m_pAids = nullptr;
    HBStepsDock* m_pSteps = nullptr;
    HBStackProgress* m_pProgress = nullptr;
    QLabel* m_pSizeLabel = nullptr;
    QLabel* m_pZoomLabel = nullptr;
    const HBEditorContext m_Context; ///< of the parts below, which end before all above
    std::unique_ptr<HBPanelController> m_pPanels;
    std::unique_ptr<HBPhotoFiles> m_pFiles;
    std::unique_ptr<HBEditorRecipes> m_pRecipes;
    std::unique_ptr<HBSelectionCommands> m_pSelecting;
};
