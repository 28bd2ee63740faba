// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBDocument.h"
#include "HBFolders.h"
#include "HBRecentFiles.h"

#include <HBPanelSession.h>

#include <QMainWindow>
#include <QPointer>
#include <QTemporaryDir>

#include <memory>

class HBBeforeAfter;
class HBEditorActions;
class HBFilmStrip;
class HBPresetStrip;
class HBRecipeMenu;
class HBMessageBar;
class HBOpenPanel;
class HBPanelPlacement;
class HBRecovery;
class HBSelectionTool;
class HBStepList;
class HBViewAids;
class KMDocumentView;
class QAction;
class QDockWidget;
class QLabel;
class QProgressBar;
class QToolButton;
struct HBLostStack;

/// The editor: one photo, its view, and at most one open panel.
class HBEditorWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// \param remember keep place, size and options between sessions
    explicit HBEditorWindow(bool remember, QWidget* parent = nullptr);
    ~HBEditorWindow() override;

    /// Reads the photo. If that fails, the message bar says why and the present photo stays. Asks first about a
    /// panel that is open and changes that are not saved.
    bool Open(const QString& path);
    /// Writes the present photo in the format of the suffix. If that fails, the message bar says why.
    bool SaveTo(const QString& path, const HBPhotoOptions& options = {});
    /// Opens a panel on the photo, in place of one that is open.
    bool OpenPanel(const HBPanelEntry& entry);
    bool ApplyRecipe(const QString& path);
    bool ApplyRecipe(const QString& title, const HBRecipe& recipe);
    /// Several make a film strip of their own, and the first is opened; a single one is opened in its folder.
    bool OpenAll(const QStringList& paths);
    /// Opens the panel of a step of the stack, with its values and its selection, on the photo as the steps before
    /// it have made it. OK changes that step.
    bool OpenStep(int step);
    /// Keeps unsaved steps in the folder from here on, and asks about those that an editor which did not come to
    /// its end has left there.
    void UseRecovery(const QString& folder);

    const HBDocument& Document() const { return m_Document; }
    /// Null while no panel is open.
    HBPanelSession* Session() const;
    KMDocumentView* View() const { return m_pView; }
    HBSelectionTool* SelectionTool() const { return m_pSelection; }
    HBMessageBar* MessageBar() const { return m_pMessages; }
    HBEditorActions* Actions() const { return m_pActions; }
    HBFilmStrip* FilmStrip() const { return m_pStrip; }
    /// Null while no panel is open.
    HBPresetStrip* Presets() const;
    HBStepList* StepList() const { return m_pSteps; }
    HBViewAids* ViewAids() const { return m_pAids; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ConnectActions();
    void ConnectSelection();
    void NoteSelection(int gesture = -1);
    void BuildStatusBar();
    void ReadSettings();
    void WriteSettings() const;

    bool MayLeavePhoto();
    bool MayLeavePanel();
    bool IsPanelSeen(const HBImage<>& shown);
    void KeepPanel();
    bool HasPanelWork();
    bool AcceptPanel();
    void ClosePanel();
    void DropPanel();
    void ApplyPanel(const HBImage<>& image);

    void BuildSteps();
    void ShowSteps();
    void ShowProgress(int percent);
    void BeginPanel(const HBPanelEntry& entry, const HBImage<>& source, int opened = -1);
    void ConnectPanel();
    bool Compute(const QVector<HBRecipeStep>& steps, HBImage<>* image);
    bool Settle();
    void Undo();
    void Redo();
    void OfferLost();
    void Restore(const HBLostStack& lost);

    void ChooseFile();
    bool Save();
    bool SaveAs();
    bool SaveOver();
    bool Write(const QString& text, const QString& path, const HBImage<>& image, const HBPhotoOptions& options,
               QStringList* warnings, HBPhotoEncoding* encoding = nullptr);
    bool Export();
    void SaveRecipe();
    void ChooseRecipe();
    bool TakeRecipe(HBRecipe* recipe);
    void KeepRecipe(const HBRecipeMenu* recipes);
    void PreviewRecipe(const QString& path);
    void CopySteps();
    void PasteSteps();
    void ApplyToMarked();
    void ConnectPhotos();
    void OpenNeighbour(int step);

    void MakePanelBox();
    void RepeatLast();
    void FindPanel();

    void ShowDocument();
    void ShowZoom(double zoom);

    static constexpr int StatusMilliseconds = 4000; ///< that a message stays in the status bar

    const bool m_Remember;
    HBFolders m_Folders;
    HBDocument m_Document;
    HBOpenPanel* m_pPanel = nullptr;
    QPointer<QWidget> m_pPanelBox; ///< the open panel below its presets
    QPointer<HBPresetStrip> m_pPresets;
    std::unique_ptr<QTemporaryDir> m_pNotRemembered; ///< where presets go when nothing is remembered
    HBRecipeStep m_LastStep;                         ///< what Repeat Last applies; of no panel at first
    HBStepList* m_pSteps = nullptr;
    QDockWidget* m_pStepsDock = nullptr;
    QAction* m_pShowSteps = nullptr;
    QWidget* m_pProgressBox = nullptr;
    QProgressBar* m_pProgress = nullptr;
    QToolButton* m_pGiveUp = nullptr; ///< beside it
    HBRecovery* m_pRecovery = nullptr;
    KMDocumentView* m_pView;
    HBMessageBar* m_pMessages;
    HBSelectionTool* m_pSelection;
    HBBeforeAfter* m_pBeforeAfter;
    HBEditorActions* m_pActions;
    HBViewAids* m_pAids = nullptr;
    HBPanelPlacement* m_pPlacement;
    HBFilmStrip* m_pStrip;
    HBRecentFiles m_Recent;
    QLabel* m_pSizeLabel = nullptr;
    QLabel* m_pZoomLabel = nullptr;
    int m_Quality = 92;  ///< what Save As offers
    bool m_Busy = false; ///< a file is being read or written
};
