// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QAction;
class QActionGroup;
class QKeySequence;
class QMainWindow;
class QMenu;
class QSpinBox;
class QToolBar;
class QToolButton;

/// The editor's commands with their names, keys and hints, and the menus and the tool bar that show them. What
/// they do is the window's business.
class HBEditorActions : public QObject
{
    Q_OBJECT
public:
    explicit HBEditorActions(QMainWindow* window);

    QAction* open;
    QMenu* recent;
    QAction* nextPhoto;
    QAction* previousPhoto;
    QAction* save;
    QAction* saveAs;
    QAction* exportCopy;
    QAction* saveRecipe;
    QAction* applyRecipe;
    QMenu* recipes;
    QAction* applyToMarked;
    QAction* quit;
    QAction* undo;
    QAction* redo;
    QAction* copySteps;
    QAction* pasteSteps;
    QAction* repeatLast;
    QAction* findPanel;
    QActionGroup* tools; ///< the data of each is its HBSelectionTool::Tool
    QActionGroup* modes; ///< the data of each is its HBSelectionTool::Mode
    QAction* selectAll;
    QAction* selectNothing;
    QAction* invertSelection;
    QSpinBox* feather;
    QSpinBox* tolerance;
    QAction* toleranceShown; ///< in the tool bar
    QAction* zoomIn;
    QAction* zoomOut;
    QAction* zoomFit;
    QAction* zoomActual;
    QAction* split;
    QToolButton* showBefore; ///< while it is held down
    QAction* filmStrip;
    QAction* fullScreen;
    QAction* docked;
    QAction* dark;
    QMenu* ViewMenu() const { return m_pViewMenu; }
    QActionGroup* panels; ///< the data of each is its place in the catalog
    QAction* shortcuts;

private:
    QAction* Add(QMenu* menu, const QString& text, const QKeySequence& key, const QString& hint);
    static void Describe(QAction* action);
    void AddFile();
    void AddEdit();
    void AddSelect();
    void AddPanels();
    QMenu* AddPanelMenu(const QString& group);
    void AddView();
    void AddHelp();
    void AddToolBar();
    QSpinBox* AddNumber(QToolBar* bar, const QString& label, int most, const QString& hint, QAction** shown);

    QMainWindow* m_pWindow;
    QMenu* m_pViewMenu = nullptr;
};
