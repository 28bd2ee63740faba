// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEditorWindow.h"

#include "HBAppearance.h"
#include "HBBeforeAfter.h"
#include "HBBusyDialog.h"
#include "HBEditorActions.h"
#include "HBFilmStrip.h"
#include "HBMessageBar.h"
#include "HBOpenPanel.h"
#include "HBPanelFinder.h"
#include "HBPanelHead.h"
#include "HBPanelPlacement.h"
#include "HBPhotoFrame.h"
#include "HBPresetStrip.h"
#include "HBSamePixels.h"
#include "HBSelectionTool.h"
#include "HBShortcutSheet.h"
#include "HBSideBySide.h"
#include "HBStepList.h"
#include "HBViewAids.h"

#include <KMDocumentView.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QEventLoop>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <new>
#include <utility>

namespace
{

constexpr char GeometryKey[] = "window/geometry";
constexpr char DockedKey[] = "view/docked";
constexpr char StripKey[] = "view/filmStrip";
constexpr char DarkKey[] = "view/dark";
constexpr char DockWidthKey[] = "view/dockWidth";
constexpr char StepsKey[] = "view/steps";
constexpr char QualityKey[] = "files/quality";

/// Does this widget take letters?
bool IsTyping(const QWidget* widget)
{
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QTextEdit*>(widget) ||
           qobject_cast<const QPlainTextEdit*>(widget);
}

} // namespace

HBEditorWindow::HBEditorWindow(bool remember, QWidget* parent)
    : QMainWindow(parent)
    , m_Remember(remember)
    , m_Folders(remember)
    , m_pView(new KMDocumentView(this))
    , m_pMessages(new HBMessageBar(this))
    , m_pSelection(new HBSelectionTool(m_pView, this))
    , m_pBeforeAfter(new HBBeforeAfter(m_pView, this))
    , m_pActions(new HBEditorActions(this))
    , m_pPlacement(new HBPanelPlacement(this))
    , m_pStrip(new HBFilmStrip(this))
    , m_Recent(remember, m_pActions->recent)
{
    m_pAids = new HBViewAids(this, m_pView, m_pBeforeAfter, m_pActions->ViewMenu());
    auto* photo = new HBPhotoFrame(m_pAids->SideBySide(), this);
    setCentralWidget(photo);
    m_pMessages->LieOver(photo);
    m_pView->SetWheelZooms(true);
    m_pView->SetHandDrags(true);
    setAcceptDrops(true);
    m_pView->SetPlaceholder(tr("Open a photo with Ctrl+O, or drop one here."));

    BuildStatusBar();
    BuildSteps();
    ConnectActions();
    ConnectSelection();
    ConnectPhotos();
    connect(&m_Document, &HBDocument::Changed, this, &HBEditorWindow::ShowDocument);
    connect(m_pView, &KMDocumentView::ZoomChanged, this, &HBEditorWindow::ShowZoom);
    connect(m_pAids, &HBViewAids::Failed, m_pMessages, &HBMessageBar::ShowError);
    connect(m_pAids, &HBViewAids::Hinted, this, [this](const QString& text) { statusBar()->showMessage(text); });
    connect(m_pPlacement, &HBPanelPlacement::Dismissed, this, [this] {
        if (m_pPanel)
            Session()->Reject();
    });
    connect(m_pPlacement, &HBPanelPlacement::Closed, this, &HBEditorWindow::MayLeavePanel);
    connect(m_pPlacement, &HBPanelPlacement::Confirmed, this, [this] {
        if (m_pPanel)
            Session()->Accept();
    });
    qApp->installEventFilter(this); // the keys that show the photo as it was work from a panel's dialog too
    resize(QSize(1100, 760).boundedTo(screen()->availableSize() * 9 / 10));
    ReadSettings();
    ShowDocument();
}

HBEditorWindow::~HBEditorWindow()
{
    qApp->removeEventFilter(this);
    delete m_pPanel;
    m_Document.disconnect(this);
}

void HBEditorWindow::ConnectActions()
{
    const HBEditorActions& a = *m_pActions;
    connect(a.open, &QAction::triggered, this, &HBEditorWindow::ChooseFile);
    connect(a.save, &QAction::triggered, this, &HBEditorWindow::Save);
    connect(a.saveAs, &QAction::triggered, this, &HBEditorWindow::SaveAs);
    connect(a.exportCopy, &QAction::triggered, this, &HBEditorWindow::Export);
    connect(a.saveRecipe, &QAction::triggered, this, &HBEditorWindow::SaveRecipe);
    connect(a.applyRecipe, &QAction::triggered, this, &HBEditorWindow::ChooseRecipe);
    connect(a.quit, &QAction::triggered, this, &QWidget::close);
    connect(a.undo, &QAction::triggered, this, &HBEditorWindow::Undo);
    connect(a.redo, &QAction::triggered, this, &HBEditorWindow::Redo);
    connect(a.repeatLast, &QAction::triggered, this, &HBEditorWindow::RepeatLast);
    connect(a.findPanel, &QAction::triggered, this, &HBEditorWindow::FindPanel);
    connect(a.fullScreen, &QAction::triggered, this,
            [this](bool full) { setWindowState(windowState().setFlag(Qt::WindowFullScreen, full)); });
    connect(a.shortcuts, &QAction::triggered, this, [this] { HBShortcutSheet(menuBar(), this).exec(); });
    connect(a.zoomIn, &QAction::triggered, m_pView, &KMDocumentView::ZoomIn);
    connect(a.zoomOut, &QAction::triggered, m_pView, &KMDocumentView::ZoomOut);
    connect(a.zoomFit, &QAction::triggered, m_pView, &KMDocumentView::ZoomToFit);
    connect(a.zoomActual, &QAction::triggered, m_pView, &KMDocumentView::ZoomToActual);
    connect(a.split, &QAction::toggled, m_pBeforeAfter, &HBBeforeAfter::SetSplit);
    connect(a.showBefore, &QToolButton::pressed, this, [this] { m_pBeforeAfter->SetHeld(true); });
    connect(a.showBefore, &QToolButton::released, this, [this] { m_pBeforeAfter->SetHeld(false); });
    connect(a.dark, &QAction::toggled, this, HBUseDarkColors);
    connect(a.docked, &QAction::toggled, this, [this](bool docked) {
        if (m_pPanel && m_pPanelBox)
            m_pPlacement->Show(m_pPanelBox, Session()->Entry().Title(), docked);
        ShowDocument();
    });
    connect(a.panels, &QActionGroup::triggered, this,
            [this](const QAction* action) { OpenPanel(HBPanelCatalog().at(action->data().toInt())); });
}

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

void HBEditorWindow::ReadSettings()
{
    if (!m_Remember) {
        m_pActions->docked->setChecked(true);
        return;
    }
    const QSettings settings;
    m_pActions->docked->setChecked(settings.value(DockedKey, true).toBool());
    m_pActions->dark->setChecked(settings.value(DarkKey, false).toBool());
    m_pActions->filmStrip->setChecked(settings.value(StripKey, false).toBool());
    m_pShowSteps->setChecked(settings.value(StepsKey, true).toBool());
    m_Quality = qBound(0, settings.value(QualityKey, m_Quality).toInt(), 100);
    m_pPlacement->SetWidth(qBound(0, settings.value(DockWidthKey, m_pPlacement->Width()).toInt(), 2000));
    m_pAids->ReadSettings(settings);
    restoreGeometry(settings.value(GeometryKey).toByteArray());
}

void HBEditorWindow::WriteSettings() const
{
    if (!m_Remember)
        return;
    QSettings settings;
    settings.setValue(DockedKey, m_pActions->docked->isChecked());
    settings.setValue(DarkKey, m_pActions->dark->isChecked());
    settings.setValue(StripKey, m_pActions->filmStrip->isChecked());
    settings.setValue(StepsKey, m_pShowSteps->isChecked());
    settings.setValue(QualityKey, m_Quality);
    settings.setValue(DockWidthKey, m_pPlacement->Width());
    m_pAids->WriteSettings(&settings);
    settings.setValue(GeometryKey, saveGeometry());
}

// ---- The open panel ----

bool HBEditorWindow::OpenPanel(const HBPanelEntry& entry)
{
    if (!m_Document.IsOpen() || !MayLeavePanel() || !Settle())
        return false;
    m_pMessages->hide(); // it was about another step
    BeginPanel(entry, m_Document.Image());
    return true;
}

void HBEditorWindow::BeginPanel(const HBPanelEntry& entry, const HBImage<>& source, int opened)
{
    m_pPanel = new HBOpenPanel(entry, source, opened, &m_Document, m_pSelection, m_pView, this);
    ConnectPanel();
    MakePanelBox();
    m_pPlacement->Show(m_pPanelBox, entry.Title(), m_pActions->docked->isChecked());
    ShowDocument();
    m_pPanel->Begin();
}

void HBEditorWindow::ConnectPanel()
{
    const HBPanelSession* session = m_pPanel->Session();
    connect(session, &HBPanelSession::Accepted, this, &HBEditorWindow::ApplyPanel);
    connect(session, &HBPanelSession::Rejected, this, &HBEditorWindow::DropPanel);
    connect(session, &HBPanelSession::Resumed, this, [this](const QString& reason) {
        if (reason.isEmpty())
            m_pMessages->ShowNote(tr("The adjustment was stopped. The photo may not show your last change yet."));
        else
            m_pMessages->ShowError(reason);
    });
    connect(session, &HBPanelSession::Troubled, m_pMessages, [this](const QString& reason) {
        if (reason.isEmpty())
            m_pMessages->hide();
        else
            m_pMessages->ShowError(reason);
    });
    connect(session, &HBPanelSession::PreviewReady, this, [this](const HBImage<>& preview) {
        if (m_pRecovery && m_pPanel->LookAt(preview))
            KeepPanel();
    });
    connect(m_pPanel, &HBOpenPanel::Changed, this, &HBEditorWindow::ShowSteps);
    connect(m_pPanel, &HBOpenPanel::Done, this, &HBEditorWindow::KeepPanel);
    connect(m_pPanel, &HBOpenPanel::SelectionLacksMemory, this,
            [this] { m_pMessages->ShowError(tr("There is not enough memory for this selection.")); });
}

HBPanelSession* HBEditorWindow::Session() const
{
    return m_pPanel ? m_pPanel->Session() : nullptr;
}

HBPresetStrip* HBEditorWindow::Presets() const
{
    return m_pPresets;
}

void HBEditorWindow::MakePanelBox()
{
    if (!m_Remember && !m_pNotRemembered)
        m_pNotRemembered = std::make_unique<QTemporaryDir>();
    const QString folder = m_Remember
                               ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/presets"
                               : m_pNotRemembered->path();
    m_pPanelBox = new QWidget;
    m_pPresets = new HBPresetStrip(folder, Session(), &m_Folders);
    auto* layout = new QVBoxLayout(m_pPanelBox);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_pPresets);
    layout->addWidget(m_pAids->BeginPanel(Session()));
    connect(m_pPresets, &HBPresetStrip::Failed, m_pMessages, &HBMessageBar::ShowError);
    connect(m_pPanel, &HBOpenPanel::TargetSet, m_pPresets, &HBPresetStrip::ShowPreviews);
}

/// By a panel that is opened and confirmed, so that it is a step like any other.
void HBEditorWindow::RepeatLast()
{
    const HBPanelEntry* entry = HBFindPanel(m_LastStep.panel);
    const HBRecipeStep step = m_LastStep;
    if (!entry || !OpenPanel(*entry))
        return;
    Session()->SetStep(step);
    Session()->Accept();
}

void HBEditorWindow::FindPanel()
{
    HBPanelFinder finder(this);
    if (finder.exec() == QDialog::Accepted && finder.Chosen())
        OpenPanel(*finder.Chosen());
}

void HBEditorWindow::DropPanel()
{
    ClosePanel();
    NoteSelection();
}

void HBEditorWindow::ClosePanel()
{
    if (!m_pPanel)
        return;
    HBOpenPanel* panel = std::exchange(m_pPanel, nullptr);
    panel->Session()->disconnect(this);
    panel->disconnect(this);
    panel->End();
    KeepPanel();
    if (!panel->IsNewStep())
        m_pSelection->SetShape(m_Document.Selection());
    m_pView->SetOverrideCursor(QCursor());
    m_pView->EndSight();
    m_pPlacement->Close();
    m_pAids->EndPanel();
    ShowDocument();
    m_pView->setFocus();
}

/// Whether the open panel has made another picture than that which it was given. Some panels do as they open.
bool HBEditorWindow::IsPanelSeen(const HBImage<>& shown)
{
    const HBImage<> photo = m_pPanel->Source();
    bool same = false;
    HBBusyDialog::Run(tr("Looking for changes"), this, [&] {
        try {
            same = HBHaveSamePixels(shown, photo);
        } catch (const std::bad_alloc&) {
            // then they count as different, and the user is asked
        }
    });
    return !same;
}

/// Would anything be lost with the open panel?
bool HBEditorWindow::HasPanelWork()
{
    if (!m_pPanel)
        return false;
    // What a step that is opened does, it does already.
    return m_pPanel->IsChanged() || (m_pPanel->IsNewStep() && IsPanelSeen(m_pView->Picture()));
}

/// As its OK, and waits for it. False if it goes on: the user stopped the wait, or it failed.
bool HBEditorWindow::AcceptPanel()
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

/// Ends an open panel, after asking what is to become of its changes. False if the user wants to stay.
bool HBEditorWindow::MayLeavePanel()
{
    if (!HasPanelWork()) {
        DropPanel();
        return true;
    }
    const auto answer = QMessageBox::question(
        this, tr("Panel Editor"), tr("Apply the changes of “%1”?").arg(Session()->Entry().Title()),
        QMessageBox::Apply | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Apply);
    if (answer == QMessageBox::Cancel)
        return false;
    if (answer == QMessageBox::Apply)
        return AcceptPanel();
    DropPanel();
    return true;
}

/// One question at most, about the open panel and the photo at once.
bool HBEditorWindow::MayLeavePhoto()
{
    const bool panel = HasPanelWork();
    if (!panel && !m_Document.IsModified()) {
        DropPanel();
        return true;
    }
    const QString text =
        panel ? tr("“%1” has changes that are not saved, those of the open panel “%2” among them. Save them all?")
                    .arg(m_Document.FileName(), Session()->Entry().Title())
              : tr("“%1” has changes that are not saved. Save them?").arg(m_Document.FileName());
    const auto answer =
        QMessageBox::question(this, tr("Panel Editor"), text,
                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Cancel)
        return false;
    if (answer == QMessageBox::Save)
        return (!panel || AcceptPanel()) && Save();
    DropPanel();
    return true;
}

// ---- Showing the state ----

void HBEditorWindow::ShowDocument()
{
    const bool open = m_Document.IsOpen();
    const bool panel = m_pPanel;
    if (!panel)
        m_pView->SetPicture(m_Document.Image());
    m_pAids->ShowPhoto(panel ? m_pPanel->Source() : m_Document.Image(), m_Document.Original(), panel);

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
    a.repeatLast->setEnabled(open && !m_LastStep.panel.isEmpty());
    a.findPanel->setEnabled(open);
    a.panels->setEnabled(open);
    for (QActionGroup* group : {a.tools, a.modes})
        group->setEnabled(open);
    a.feather->setEnabled(open);
    a.showBefore->setEnabled(open);
}

void HBEditorWindow::ShowZoom(double zoom)
{
    const double percent = zoom * 100;
    m_pZoomLabel->setText(m_Document.IsOpen() ? tr("%1 %").arg(percent, 0, 'f', percent < 10 ? 1 : 0) : QString());
}

// ---- Events ----

void HBEditorWindow::closeEvent(QCloseEvent* event)
{
    if (!MayLeavePhoto()) {
        event->ignore();
        return;
    }
    DropPanel();
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
            PreviewRecipe(paths.first());
        else if (!paths.isEmpty())
            OpenAll(paths);
    });
}

/// A docked panel and the photo are one window: its OK and Cancel keys work there too.
void HBEditorWindow::keyPressEvent(QKeyEvent* event)
{
    const bool inPhoto = m_pPanel && m_pActions->docked->isChecked() && m_pView->hasFocus();
    if (!inPhoto || !m_pPlacement->TakeKey(event))
        QMainWindow::keyPressEvent(event);
}

bool HBEditorWindow::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (watched == m_pStepsDock && type == QEvent::Close)
        m_pShowSteps->setChecked(false); // by its cross
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
