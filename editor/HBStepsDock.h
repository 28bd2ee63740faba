// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDockWidget>

class HBDocument;
class HBStepList;
class QAction;
class QMainWindow;
class QMenu;

/// The list of the document's steps beside the photo, shown as long as there are any, and its entry of the View
/// menu. GUI thread.
class HBStepsDock : public QDockWidget
{
    Q_OBJECT
public:
    HBStepsDock(HBDocument* document, QMenu* menu, QMainWindow* window);

    HBStepList* List() const { return m_pList; }
    /// Checked while the user wants the list.
    QAction* WantedAction() const { return m_pWanted; }
    /// When the document has changed.
    void ShowOrHide();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    const HBDocument* const m_pDocument;
    HBStepList* const m_pList;
    QAction* const m_pWanted;
};
