// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEditorActions.h"

#include "HBEditorIcons.h"
#include "HBSelectionTool.h"

#include <HBPanelCatalog.h>

#include <QActionGroup>
#include <QCoreApplication>
#include <QHash>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QSpinBox>
#include <QToolBar>
#include <QToolButton>

#include <utility>

namespace
{

constexpr int MaximumFeather = 1000; // pixels

/// A text of the catalog as a menu entry: its "&" is no mnemonic.
QString Plain(QString text)
{
    return text.replace('&', "&&");
}

/// The keys that the field has for some panels.
QKeySequence KeyOf(const QByteArray& panel)
{
    constexpr std::pair<const char*, const char*> keys[] = {{"HBLevelsWidget", "Ctrl+L"},
                                                            {"HBCurvesWidget", "Ctrl+M"},
                                                            {"HBHueSaturationWidget", "Ctrl+U"},
                                                            {"HBColorBalanceWidget", "Ctrl+B"}};
    for (const auto& entry : keys) {
        if (panel == entry.first)
            return QKeySequence(entry.second);
    }
    return {};
}

/// The text with the first of its letters that no other entry of the menu has as its mnemonic.
QString WithMnemonic(const QWidget* menu, const QString& text)
{
    QString taken;
    for (const QAction* entry : menu->actions()) {
        const QString other = QString(entry->text()).remove("&&");
        const int mark = other.indexOf('&');
        if (mark >= 0)
            taken += other.mid(mark + 1, 1).toLower();
    }
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).isLetter() && !taken.contains(text.at(i).toLower()))
            return Plain(text.left(i)) + '&' + Plain(text.mid(i));
    }
    return Plain(text);
}

} // namespace

HBEditorActions::HBEditorActions(QMainWindow* window) : QObject(window), m_pWindow(window)
{
    AddFile();
    AddEdit();
    AddSelect();
    AddView();
    AddHelp();
    AddPanels();
    AddToolBar();
}

QAction* HBEditorActions::Add(QMenu* menu, const QString& text, const QKeySequence& key, const QString& hint)
{
    QAction* action = menu->addAction(text);
    action->setShortcut(key);
    // Also while the dialog of a panel is the active window.
    action->setShortcutContext(Qt::ApplicationShortcut);
    action->setStatusTip(hint);
    Describe(action);
    return action;
}

/// The tool tip: the name, and the key if there is one.
void HBEditorActions::Describe(QAction* action)
{
    const QString name = QString(action->text()).remove('&').remove(QChar(0x2026));
    const QString keys = action->shortcut().toString(QKeySequence::NativeText);
    action->setToolTip(keys.isEmpty() ? name : QString("%1 (%2)").arg(name, keys));
}

void HBEditorActions::AddFile()
{
    QMenu* menu = m_pWindow->menuBar()->addMenu(tr("&File"));
    open = Add(menu, tr("&Open…"), QKeySequence::Open, tr("Open a photo"));
    open->setIcon(HBMakeIcon(HBEditorIcon::Open));
    recent = menu->addMenu(tr("Open &Recent"));
    nextPhoto =
        Add(menu, tr("&Next Photo"), QKeySequence("Alt+Right"), tr("Open the next photo of the film strip"));
    previousPhoto =
        Add(menu, tr("Pre&vious Photo"), QKeySequence("Alt+Left"), tr("Open the photo before this one"));
    menu->addSeparator();
    save = Add(menu, tr("&Save"), QKeySequence::Save, tr("Write the photo to its file"));
    save->setIcon(HBMakeIcon(HBEditorIcon::Save));
    saveAs = Add(menu, tr("Save &As…"), QKeySequence("Ctrl+Shift+S"), tr("Write the photo to another file"));
    exportCopy = Add(menu, tr("&Export…"), QKeySequence("Ctrl+Shift+E"),
                     tr("Write a copy of the photo, in any format, quality and folder"));
    menu->addSeparator();
    saveRecipe =
        Add(menu, tr("Save &Recipe…"), {}, tr("Store the steps done so far, to apply them to other photos"));
    applyRecipe = Add(menu, tr("A&pply Recipe…"), {}, tr("Apply stored steps to the whole photo"));
    recipes = menu->addMenu(tr("Re&cipes"));
    applyToMarked = Add(menu, tr("Apply to &Marked Photos…"), QKeySequence("Ctrl+Shift+P"),
                        tr("Apply the steps done so far to the photos that are marked in the film strip"));
    menu->addSeparator();
    quit = Add(menu, tr("&Quit"), QKeySequence("Ctrl+Q"), tr("Leave the editor"));
    quit->setMenuRole(QAction::QuitRole);
}

void HBEditorActions::AddEdit()
{
    QMenu* menu = m_pWindow->menuBar()->addMenu(tr("&Edit"));
    undo = Add(menu, tr("&Undo"), QKeySequence::Undo, tr("Take the last change back"));
    undo->setIcon(HBMakeIcon(HBEditorIcon::Undo));
    redo = Add(menu, tr("&Redo"), QKeySequence::Redo, tr("Do the change again that was taken back"));
    redo->setIcon(HBMakeIcon(HBEditorIcon::Redo));
    redo->setShortcuts({QKeySequence("Ctrl+Shift+Z"), QKeySequence("Ctrl+Y")});
    // A spin box undoes its own text by the same keys.
    undo->setShortcutContext(Qt::WindowShortcut);
    redo->setShortcutContext(Qt::WindowShortcut);
    menu->addSeparator();
    copySteps = Add(menu, tr("&Copy Steps"), QKeySequence("Ctrl+Shift+C"),
                    tr("Remember the steps of this photo for another one"));
    pasteSteps = Add(menu, tr("&Paste Steps"), QKeySequence("Ctrl+Shift+V"),
                     tr("Apply the steps that were copied from another photo"));
    repeatLast = Add(menu, tr("Repeat &Last"), QKeySequence("Ctrl+F"),
                     tr("Apply the last adjustment once more, with the same values"));
    findPanel = Add(menu, tr("&Find Panel…"), QKeySequence("Ctrl+K"), tr("Open a panel by typing its name"));
}

void HBEditorActions::AddSelect()
{
    using Kind = HBSelectionTool::Tool;
    using Mode = HBSelectionTool::Mode;
    QMenu* menu = m_pWindow->menuBar()->addMenu(tr("&Select"));
    const auto choice = [&](QActionGroup* group, const QString& text, const char* key, const QString& hint,
                            HBEditorIcon icon, int data) {
        QAction* action = Add(menu, text, QKeySequence(QString(key)), hint);
        action->setShortcutContext(Qt::WindowShortcut); // plain letters are for typing in other windows
        action->setIcon(HBMakeIcon(icon));
        action->setCheckable(true);
        action->setData(data);
        group->addAction(action);
    };
    tools = new QActionGroup(this);
    const auto tool = [&](const QString& text, const char* key, const QString& hint, HBEditorIcon icon,
                          Kind kind) { choice(tools, text, key, hint, icon, int(kind)); };
    tool(tr("&No Tool"), "V", tr("Drag to move the photo"), HBEditorIcon::Hand, Kind::None);
    tool(tr("&Rectangle"), "R", tr("Drag a rectangle; hold Shift for a square"), HBEditorIcon::Rectangle,
         Kind::Rectangle);
    tool(tr("&Ellipse"), "E", tr("Drag an ellipse; hold Shift for a circle"), HBEditorIcon::Ellipse,
         Kind::Ellipse);
    tool(tr("&Lasso"), "L", tr("Draw round it, or click corner by corner; a double click closes"),
         HBEditorIcon::Lasso, Kind::Lasso);
    tool(tr("&Gradient"), "G", tr("Drag from where all is selected to where nothing is"), HBEditorIcon::Gradient,
         Kind::Gradient);
    tool(tr("&Color"), "W", tr("Click a color: all that is like it, by the tolerance"), HBEditorIcon::Color,
         Kind::Color);
    tool(tr("&Move"), "M", tr("Drag the selection, or move it with the arrow keys"), HBEditorIcon::Move,
         Kind::Move);
    tools->actions().first()->setChecked(true);
    menu->addSeparator();
    modes = new QActionGroup(this);
    const auto mode = [&](const QString& text, const QString& hint, HBEditorIcon icon, Mode kind) {
        choice(modes, text, "", hint, icon, int(kind));
    };
    mode(tr("Ne&w Selection"), tr("What is drawn takes the place of the selection"), HBEditorIcon::NewSelection,
         Mode::New);
    mode(tr("A&dd to Selection"), tr("What is drawn is selected, too; or hold Shift"), HBEditorIcon::Add,
         Mode::Add);
    mode(tr("&Subtract from Selection"), tr("What is drawn is selected no more; or hold Ctrl or Alt"),
         HBEditorIcon::Subtract, Mode::Subtract);
    mode(tr("In&tersect with Selection"), tr("Only what is drawn stays selected; or hold Shift with Ctrl or Alt"),
         HBEditorIcon::Intersect, Mode::Intersect);
    modes->actions().first()->setChecked(true);
    menu->addSeparator();
    selectAll = Add(menu, tr("Select &All"), QKeySequence::SelectAll, tr("Select the whole photo"));
    selectAll->setShortcutContext(Qt::WindowShortcut); // text fields have it too
    selectNothing = Add(menu, tr("Select N&othing"), QKeySequence("Ctrl+Shift+A"), tr("Work on the whole photo"));
    invertSelection =
        Add(menu, tr("&Invert Selection"), QKeySequence("Ctrl+Shift+I"), tr("Select what is not selected now"));
}

void HBEditorActions::AddPanels()
{
    panels = new QActionGroup(this);
    panels->setExclusive(false);
    QHash<QString, QMenu*> menus;
    const QVector<HBPanelEntry>& catalog = HBPanelCatalog();
    for (int i = 0; i < catalog.size(); ++i) {
        const QString group = catalog.at(i).Group();
        QMenu*& menu = menus[group];
        if (!menu)
            menu = AddPanelMenu(group);
        QAction* action = menu->addAction(WithMnemonic(menu, catalog.at(i).Title()) + QChar(0x2026));
        action->setShortcut(KeyOf(catalog.at(i).className));
        action->setShortcutContext(Qt::ApplicationShortcut);
        action->setData(i);
        panels->addAction(action);
    }
}

/// Left of the View menu.
QMenu* HBEditorActions::AddPanelMenu(const QString& group)
{
    QMenuBar* bar = m_pWindow->menuBar();
    auto* menu = new QMenu(WithMnemonic(bar, group), bar);
    bar->insertMenu(m_pViewMenu->menuAction(), menu);
    return menu;
}

void HBEditorActions::AddView()
{
    QMenu* menu = m_pViewMenu = m_pWindow->menuBar()->addMenu(tr("&View"));
    zoomIn = Add(menu, tr("Zoom &In"), QKeySequence("Ctrl++"), tr("Show the photo larger"));
    zoomIn->setShortcuts({QKeySequence("Ctrl++"), QKeySequence("Ctrl+="), QKeySequence("+")});
    zoomOut = Add(menu, tr("Zoom &Out"), QKeySequence("Ctrl+-"), tr("Show the photo smaller"));
    zoomOut->setShortcuts({QKeySequence("Ctrl+-"), QKeySequence("-")});
    // A minus is typed into spin boxes; those in a window take it before its shortcuts.
    zoomIn->setShortcutContext(Qt::WindowShortcut);
    zoomOut->setShortcutContext(Qt::WindowShortcut);
    zoomFit = Add(menu, tr("&Fit"), QKeySequence("Ctrl+0"), tr("Show the whole photo"));
    zoomFit->setIcon(HBMakeIcon(HBEditorIcon::Fit));
    zoomActual =
        Add(menu, tr("&100 %"), QKeySequence("Ctrl+1"), tr("Show each pixel of the photo on one of the screen"));
    zoomActual->setIcon(HBMakeIcon(HBEditorIcon::Actual));
    menu->addSeparator();
    split = Add(menu, tr("&Before and After"), QKeySequence("Shift+B"),
                tr("Show the photo as it was left of a line that can be dragged"));
    split->setShortcutContext(Qt::WindowShortcut); // a letter that is typed in other windows
    split->setIcon(HBMakeIcon(HBEditorIcon::Split));
    split->setCheckable(true);
    menu->addSeparator();
    filmStrip = Add(menu, tr("Film &Strip"), QKeySequence("F6"), tr("Show the photos of the folder in a row"));
    filmStrip->setCheckable(true);
    fullScreen = Add(menu, tr("F&ull Screen"), QKeySequence("F11"), tr("Give the whole screen to this window"));
    fullScreen->setCheckable(true);
    docked = Add(menu, tr("Show &Panels in the Side Bar"), {}, tr("Or else each in a window of its own"));
    docked->setCheckable(true);
    dark = Add(menu, tr("&Dark"), {}, tr("Dark window colors instead of the system's"));
    dark->setCheckable(true);
}

void HBEditorActions::AddHelp()
{
    QMenu* menu = m_pWindow->menuBar()->addMenu(tr("&Help"));
    shortcuts = Add(menu, tr("&Keys and Mouse"), QKeySequence("F1"), tr("All keys, and what the mouse does"));
    shortcuts->setShortcuts({QKeySequence("F1"), QKeySequence("Ctrl+/")});
    QAction* about = Add(menu, tr("&About Panel Editor"), {}, {});
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, [this] {
        QMessageBox::about(m_pWindow, tr("About Panel Editor"),
                           tr("<b>Panel Editor %1</b><p>Adjusts photos with the adjustment panels.</p>")
                               .arg(QCoreApplication::applicationVersion()));
    });
}

void HBEditorActions::AddToolBar()
{
    QToolBar* bar = m_pWindow->addToolBar(tr("Tools"));
    bar->setObjectName("Tools");
    bar->setMovable(false);
    bar->setIconSize(QSize(20, 20));
    bar->addActions({open, save});
    bar->addSeparator();
    bar->addActions({undo, redo});
    bar->addSeparator();
    bar->addActions(tools->actions());
    bar->addSeparator();
    bar->addActions(modes->actions());
    QAction* featherShown = nullptr;
    feather = AddNumber(bar, tr("Feather:"), MaximumFeather,
                        tr("Width of the soft edge of a selection, to either side"), &featherShown);
    feather->setSuffix(tr(" px"));
    feather->setAccessibleName(tr("Feather of the selection in pixels"));
    tolerance =
        AddNumber(bar, tr("Tolerance:"), 255,
                  tr("How far a channel may differ from the color that was clicked, in levels"), &toleranceShown);
    tolerance->setAccessibleName(tr("Tolerance of the selection by color in levels"));
    tolerance->setValue(HBSelectionTool::FirstTolerance);
    toleranceShown->setVisible(false);
    bar->addSeparator();

    bar->addActions({zoomFit, zoomActual});
    bar->addSeparator();
    bar->addAction(split);
    showBefore = new QToolButton(bar);
    showBefore->setAutoRaise(true);
    showBefore->setIcon(HBMakeIcon(HBEditorIcon::Before));
    showBefore->setToolTip(tr("Hold to see the photo as it was before (key B or \\)"));
    showBefore->setAccessibleName(tr("Show the photo as it was before, while held"));
    bar->addWidget(showBefore);
}

/// A number with its name, which are shown or hidden together.
QSpinBox* HBEditorActions::AddNumber(QToolBar* bar, const QString& label, int most, const QString& hint,
                                     QAction** shown)
{
    auto* box = new QWidget(bar);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(box->fontMetrics().averageCharWidth(), 0, 0, 0);
    auto* number = new QSpinBox(box);
    number->setRange(0, most);
    number->setToolTip(hint);
    number->setKeyboardTracking(false); // each value makes the selection anew
    layout->addWidget(new QLabel(label, box));
    layout->addWidget(number);
    *shown = bar->addWidget(box);
    return number;
}
