// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEditorWindow.h"

#include "HBAppearance.h"
#include "HBBeforeAfter.h"
#include "HBEditorActions.h"
#include "HBEditorRecipes.h"
#include "HBFilmStrip.h"
#include "HBMessageBar.h"
#include "HBOfferLostSteps.h"
#include "HBOpenPanel.h"
#include "HBPanelController.h"
#include "HBPanelFinder.h"
#include "HBPanelPlacement.h"
#include "HBPhotoFiles.h"
#include "HBPhotoFrame.h"
#include "HBRecovery.h"
#include "HBSelectionCommands.h"
#include "HBSelectionTool.h"
#include "HBShortcutSheet.h"
#include "HBSideBySide.h"
#include "HBStackProgress.h"
#include "HBStepList.h"
#include "HBStepsDock.h"
#include "HBViewAids.h"

#include <KMDocumentView.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSettings>
#include <QSpinBox>
#include <QStatusBar>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>

namespace
{

constexpr char GeometryKey[] = "window/geometry";
constexpr char DockedKey[] = "view/docked";
constexpr char StripKey[] = "view/filmStrip";
constexpr char DarkKey[] = "view/dark";
constexpr char DockWidthKey[] = "view/dockWidth";
constexpr char StepsKey[] = "view/steps";

/// Does this widget take letters?
bool IsTyping(const QWidget* widget)
{
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QTextEdit*>(widget) ||
           qobject_cast<const QPlainTextEdit*>(widget);
}

} // namespace

HBEditorWindow::HBEditorWindow(bool remember, QWidget* parent)
    : QMainWindow(parent)
    , m_Folders(remember)
    , m_pView(new KMDocumentView(this))
    , m_pMessages(new HBMessageBar(this))
    , m_pSelection(new HBSelectionTool(m_pView, this))
    , m_pBeforeAfter(new HBBeforeAfter(m_pView, this))
    , m_pActions(new HBEditorActions(this))
    , m_pPlacement(new HBPanelPlacement(this))
    , m_pStrip(new HBFilmStrip(this))
    , m_pAids(new HBViewAids(this, m_pView, m_pBeforeAfter, m_pActions->ViewMenu()))
    , m_Context{this, m_pView, &m_Document, m_pMessages, &m_Folders, remember}
    , m_pPanels(std::make_unique<HBPanelController>(m_Context, m_pSelection, m_pAids, m_pPlacement))
    , m_pFiles(std::make_unique<HBPhotoFiles>(m_Context, m_pPanels.get(), m_pStrip, m_pActions->recent))
    , m_pRecipes(std::make_unique<HBEditorRecipes>(m_Context, m_pPanels.get(), m_pStrip, m_pActions->recipes))
{
    auto* photo = new HBPhotoFrame(m_pAids->SideBySide(), this);
    setCentralWidget(photo);
    m_pMessages->LieOver(photo);
    m_pView->SetWheelZooms(true);
    m_pView->SetHandDrags(true);
    setAcceptDrops(true);
    m_pView->SetPlaceholder(tr("Open a photo with Ctrl+O, or drop one here."));

    BuildStatusBar();
    BuildSteps();
    BuildStrip();
    ConnectActions();
    ConnectViewActions();
    ConnectPanels();
    m_pSelecting = std::make_unique<HBSelectionCommands>(m_Context, m_pActions, m_pSelection, m_pPanels.get());
    connect(&m_Document, &HBDocument::Changed, this, &HBEditorWindow::ShowDocument);
    connect(&m_Document, &HBDocument::Failed, m_pMessages, &HBMessageBar::ShowError);
    connect(&m_Document.History(), &QUndoStack::indexChanged, m_pMessages, &QWidget::hide); // what it told is over
    connect(m_pView, &KMDocumentView::ZoomChanged, this, &HBEditorWindow::ShowZoom);
    connect(m_pAids, &HBViewAids::Failed, m_pMessages, &HBMessageBar::ShowError);
    connect(m_pAids, &HBViewAids::Hinted, this, [this](const QString& text) { statusBar()->showMessage(text); });
    qApp->installEventFilter(this); // the keys that show the photo as it was work from a panel's dialog too
    resize(QSize(1100, 760).boundedTo(screen()->availableSize() * 9 / 10));
    ReadSettings();
    ShowDocument();
}

HBEditorWindow::~HBEditorWindow()
{
    qApp->removeEventFilter(this);
    m_pPanels->disconnect(this);
    m_Document.disconnect(this);
}

// ---- Its parts ----

void HBEditorWindow::BuildStatusBar()
{
    m_pSizeLabel = new QLabel(this);
    m_pZoomLabel = new QLabel(this);
    m_pSizeLabel->setToolTip(tr("Size of the photo in pixels"));
    m_pZoomLabel->setToolTip(tr("At 100 % each pixel of the photo is one of the screen"));
    for (QLabel* label : {m_pSizeLabel, m_pZoomLabel}) {
        label->setIndent(fontMetrics().averageCharWidth());
        statusBar()->addPermanentWidget(label);
    }
}

void HBEditorWindow::BuildSteps()
{
    m_pSteps = new HBStepsDock(&m_Document, m_pActions->ViewMenu(), this);
    connect(m_pSteps->List(), &HBStepList::OpenAsked, m_pPanels.get(), &HBPanelController::OpenStep);
    m_pProgress = new HBStackProgress(&m_Document, this);
    statusBar()->addPermanentWidget(m_pProgress);
}

void HBEditorWindow::BuildStrip()
{
    addDockWidget(Qt::BottomDockWidgetArea, m_pStrip);
    m_pStrip->hide();
    m_pStrip->toggleViewAction()->setVisible(false); // the View menu has one with a key
    connect(m_pActions->filmStrip, &QAction::toggled, m_pStrip, &QWidget::setVisible);
    connect(m_pStrip, &QDockWidget::visibilityChanged, this, [this] {
        // Not while the window itself is minimised.
        if (!isMinimized() && isVisible())
            m_pActions->filmStrip->setChecked(!m_pStrip->isHidden());
    });
    // Later: the list that was clicked is made anew.
    connect(m_pStrip, &HBFilmStrip::Chosen, m_pFiles.get(), &HBPhotoFiles::Open, Qt::QueuedConnection);
}

void HBEditorWindow::ConnectActions()
{
    const HBEditorActions& a = *m_pActions;
    connect(a.open, &QAction::triggered, m_pFiles.get(), &HBPhotoFiles::Choose);
    connect(a.nextPhoto, &QAction::triggered, this, [this] { OpenNeighbour(1); });
    connect(a.previousPhoto, &QAction::triggered, this, [this] { OpenNeighbour(-1); });
    connect(a.save, &QAction::triggered, m_pFiles.get(), &HBPhotoFiles::Save);
    connect(a.saveAs, &QAction::triggered, m_pFiles.get(), &HBPhotoFiles::SaveAs);
    connect(a.exportCopy, &QAction::triggered, m_pFiles.get(), &HBPhotoFiles::Export);
    connect(a.saveRecipe, &QAction::triggered, m_pRecipes.get(), &HBEditorRecipes::SaveAs);
    connect(a.applyRecipe, &QAction::triggered, m_pRecipes.get(), &HBEditorRecipes::ChooseFile);
    connect(a.applyToMarked, &QAction::triggered, m_pRecipes.get(), &HBEditorRecipes::ApplyToMarked);
    connect(a.quit, &QAction::triggered, this, &QWidget::close);
    connect(a.undo, &QAction::triggered, this, &HBEditorWindow::Undo);
    connect(a.redo, &QAction::triggered, this, &HBEditorWindow::Redo);
    connect(a.copySteps, &QAction::triggered, m_pRecipes.get(), &HBEditorRecipes::Copy);
    connect(a.pasteSteps, &QAction::triggered, m_pRecipes.get(), &HBEditorRecipes::Paste);
    connect(a.repeatLast, &QAction::triggered, m_pPanels.get(), &HBPanelController::RepeatLast);
    connect(a.findPanel, &QAction::triggered, this, &HBEditorWindow::FindPanel);
    connect(a.panels, &QActionGroup::triggered, this,
            [this](const QAction* action) { OpenPanel(HBPanelCatalog().at(action->data().toInt())); });
    connect(a.shortcuts, &QAction::triggered, this, [this] { HBShortcutSheet(menuBar(), this).exec(); });
}

void HBEditorWindow::ConnectViewActions()
{
    const HBEditorActions& a = *m_pActions;
    connect(a.fullScreen, &QAction::triggered, this,
            [this](bool full) { setWindowState(windowState().setFlag(Qt::WindowFullScreen, full)); });
    connect(a.zoomIn, &QAction::triggered, m_pView, &KMDocumentView::ZoomIn);
    connect(a.zoomOut, &QAction::triggered, m_pView, &KMDocumentView::ZoomOut);
    connect(a.zoomFit, &QAction::triggered, m_pView, &KMDocumentView::ZoomToFit);
    connect(a.zoomActual, &QAction::triggered, m_pView, &KMDocumentView::ZoomToActual);
    connect(a.split, &QAction::toggled, m_pBeforeAfter, &HBBeforeAfter::SetSplit);
    connect(a.showBefore, &QToolButton::pressed, this, [this] { m_pBeforeAfter->SetHeld(true); });
    connect(a.showBefore, &QToolButton::released, this, [this] { m_pBeforeAfter->SetHeld(false); });
    connect(a.dark, &QAction::toggled, this, HBUseDarkColors);
    connect(a.docked, &QAction::toggled, m_pPanels.get(), &HBPanelController::SetDocked);
}

void HBEditorWindow::ConnectPanels()
{
    connect(m_pPanels.get(), &HBPanelController::Changed, this, &HBEditorWindow::ShowDocument);
    connect(m_pPanels.get(), &HBPanelController::HistoryChanged, this, &HBEditorWindow::ShowSteps);
    connect(m_pPanels.get(), &HBPanelController::StepReplaced, m_pSteps->List(), &HBStepList::SetCurrent);
}

HBStepList* HBEditorWindow::StepList() const
{
    return m_pSteps->List();
}

HBPanelSession* HBEditorWindow::Session() const
{
    return m_pPanels->Session();
}

void HBEditorWindow::ReadSettings()
{
    if (!m_Context.remember) {
        m_pActions->docked->setChecked(true);
        return;
    }
    const QSettings settings;
    m_pActions->docked->setChecked(settings.value(DockedKey, true).toBool());
    m_pActions->dark->setChecked(settings.value(DarkKey, false).toBool());
    m_pActions->filmStrip->setChecked(settings.value(StripKey, false).toBool());
    m_pSteps->WantedAction()->setChecked(settings.value(StepsKey, true).toBool());
    m_pFiles->ReadSettings(settings);
    m_pPlacement->SetWidth(qBound(0, settings.value(DockWidthKey, m_pPlacement->Width()).toInt(), 2000));
    m_pAids->ReadSettings(settings);
    restoreGeometry(settings.value(GeometryKey).toByteArray());
}

void HBEditorWindow::WriteSettings() const
{
    if (!m_Context.remember)
        return;
    QSettings settings;
    settings.setValue(DockedKey, m_pActions->docked->isChecked());
    settings.setValue(DarkKey, m_pActions->dark->isChecked());
    settings.setValue(StripKey, m_pActions->filmStrip->isChecked());
    settings.setValue(StepsKey, m_pSteps->WantedAction()->isChecked());
    m_pFiles->WriteSettings(&settings);
    settings.setValue(DockWidthKey, m_pPlacement->Width());
    m_pAids->WriteSettings(&settings);
    settings.setValue(GeometryKey, saveGeometry());
}

void HBEditorWindow::UseRecovery(const QString& folder)
{
    auto* recovery = new HBRecovery(folder, &m_Document, this);
    connect(recovery, &HBRecovery::Failed, this, [this](const QString& reason) {
        m_pMessages->ShowNote(tr("Unsaved steps cannot be kept for the case of a crash: %1").arg(reason));
    });
    m_pPanels->SetRecovery(recovery);
    HBOfferLostSteps(m_Context, recovery, m_pFiles.get());
}

// ---- What it does ----

bool HBEditorWindow::Open(const QString& path)
{
    return m_pFiles->Open(path);
}

bool HBEditorWindow::OpenAll(const QStringList& paths)
{
    if (paths.size() > 1) {
        m_pStrip->SetPhotos(paths);
        m_pActions->filmStrip->setChecked(true);
    }
    return Open(paths.value(0));
}

void HBEditorWindow::OpenNeighbour(int step)
{
    const QString photo = m_pStrip->Neighbour(step);
    if (!photo.isEmpty())
        Open(photo);
}

bool HBEditorWindow::OpenPanel(const HBPanelEntry& entry)
{
    return m_pPanels->Open(entry);
}

void HBEditorWindow::FindPanel()
{
    HBPanelFinder finder(this);
    if (finder.exec() == QDialog::Accepted && finder.Chosen())
        OpenPanel(*finder.Chosen());
}

void HBEditorWindow::Undo()
{
    if (HBOpenPanel* panel = m_pPanels->Panel())
        panel->Undo();
    else
        m_Document.History().undo();
}

void HBEditorWindow::Redo()
{
    if (HBOpenPanel* panel = m_pPanels->Panel())
        panel->Redo();
    else
        m_Document.History().redo();
}

// ---- Showing the state ----

void HBEditorWindow::ShowDocument()
{
    const bool open = m_Document.IsOpen();
    const HBOpenPanel* panel = m_pPanels->Panel();
    if (!panel)
        m_pView->SetPicture(m_Document.Image());
    m_pAids->ShowPhoto(panel ? panel->Source() : m_Document.Image(), m_Document.Original(), panel);

    m_pSelection->SetEscapeDeselects(!panel || !m_pActions->docked->isChecked());

    setWindowTitle(open ? tr("%1[*] – Panel Editor").arg(m_Document.FileName()) : tr("Panel Editor"));
    setWindowModified(m_Document.IsModified());
    m_pSizeLabel->setText(open ? tr("%1 × %2").arg(m_Document.Image().Width()).arg(m_Document.Image().Height())
                               : QString());
    ShowZoom(m_pView->Zoom());

    ShowSteps();
    const HBEditorActions& a = *m_pActions;
    for (QAction* action :
         {a.saveAs, a.exportCopy, a.saveRecipe, a.copySteps, a.pasteSteps, a.applyToMarked, a.applyRecipe,
          a.selectAll, a.selectNothing, a.invertSelection, a.zoomIn, a.zoomOut, a.zoomFit, a.zoomActual, a.split})
        action->setEnabled(open);
    a.save->setEnabled(m_Document.IsModified() || panel);
    a.nextPhoto->setEnabled(!m_pStrip->Neighbour(1).isEmpty());
    a.previousPhoto->setEnabled(!m_pStrip->Neighbour(-1).isEmpty());
    a.repeatLast->setEnabled(open && m_pPanels->CanRepeat());
    a.findPanel->setEnabled(open);
    a.panels->setEnabled(open);
    for (QActionGroup* group : {a.tools, a.modes})
        group->setEnabled(open);
    a.feather->setEnabled(open);
    a.showBefore->setEnabled(open);
}

void HBEditorWindow::ShowSteps()
{
    const HBOpenPanel* panel = m_pPanels->Panel();
    const QUndoStack& history = m_Document.History();
    m_pActions->undo->setEnabled(panel ? panel->CanUndo() : history.canUndo());
    m_pActions->redo->setEnabled(panel ? panel->CanRedo() : history.canRedo());
    m_pProgress->SetMayGiveUp(!panel); // its step would be another, or none
    m_pSteps->List()->SetOpened(panel, panel ? panel->OpenedStep() : -1);
    m_pSteps->ShowOrHide();
}

void HBEditorWindow::ShowZoom(double zoom)
{
    const double percent = zoom * 100;
    m_pZoomLabel->setText(m_Document.IsOpen() ? tr("%1 %").arg(percent, 0, 'f', percent < 10 ? 1 : 0) : QString());
}

// ---- Events ----

void HBEditorWindow::closeEvent(QCloseEvent* event)
{
    if (!m_pFiles->MayLeave()) {
        event->ignore();
        return;
    }
    WriteSettings();
    event->accept();
}

void HBEditorWindow::dragEnterEvent(QDragEnterEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (!urls.isEmpty() && urls.first().isLocalFile())
        event->acceptProposedAction();
}

void HBEditorWindow::dropEvent(QDropEvent* event)
{
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    event->acceptProposedAction();
    // Later: the program that the file comes from waits for the end of this event.
    QTimer::singleShot(0, this, [this, paths] {
        if (paths.value(0).endsWith(".json", Qt::CaseInsensitive))
            m_pRecipes->Preview(paths.first());
        else if (!paths.isEmpty())
            OpenAll(paths);
    });
}

/// A docked panel and the photo are one window: its OK and Cancel keys work there too.
void HBEditorWindow::keyPressEvent(QKeyEvent* event)
{
    const bool inPhoto = m_pPanels->Panel() && m_pActions->docked->isChecked() && m_pView->hasFocus();
    if (!inPhoto || !m_pPlacement->TakeKey(event))
        QMainWindow::keyPressEvent(event);
}

bool HBEditorWindow::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (watched == this && type == QEvent::WindowStateChange)
        m_pActions->fullScreen->setChecked(isFullScreen()); // the desktop can end it, too
    if (type == QEvent::ApplicationDeactivate && m_pBeforeAfter->IsHeld())
        m_pBeforeAfter->SetHeld(false); // the key's release will go elsewhere
    if ((type == QEvent::KeyPress || type == QEvent::KeyRelease) && watched->isWidgetType()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool mine = (key->key() == Qt::Key_Backslash || key->key() == Qt::Key_B) &&
                          !(key->modifiers() & ~Qt::KeypadModifier);
        const bool free = !IsTyping(qApp->focusWidget()) && !QApplication::activeModalWidget() &&
                          !QApplication::activePopupWidget();
        if (mine && m_Document.IsOpen() && (free || m_pBeforeAfter->IsHeld())) {
            if (!key->isAutoRepeat())
                m_pBeforeAfter->SetHeld(type == QEvent::KeyPress);
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}
