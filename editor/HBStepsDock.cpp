// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStepsDock.h"

#include "HBDocument.h"
#include "HBStepList.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

HBStepsDock::HBStepsDock(HBDocument* document, QMenu* menu, QMainWindow* window)
    : QDockWidget(tr("Steps"), window)
    , m_pDocument(document)
    , m_pList(new HBStepList(document, this))
    , m_pWanted(menu->addAction(tr("S&teps")))
{
    setObjectName("StepsDock");
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    setWidget(m_pList);
    window->addDockWidget(Qt::RightDockWidgetArea, this);
    if (auto* panels = window->findChild<QDockWidget*>("PanelDock"))
        window->tabifyDockWidget(this, panels);
    toggleViewAction()->setVisible(false); // there is no list without steps
    hide();
    m_pWanted->setStatusTip(tr("List what was done to the photo"));
    m_pWanted->setCheckable(true);
    m_pWanted->setChecked(true);
    connect(m_pWanted, &QAction::toggled, this, &HBStepsDock::ShowOrHide);
}

void HBStepsDock::ShowOrHide()
{
    const bool isListed = m_pWanted->isChecked() && m_pDocument->StepCount() > 0;
    if (isListed != !isHidden())
        setVisible(isListed);
}

/// By its cross.
void HBStepsDock::closeEvent(QCloseEvent* event)
{
    m_pWanted->setChecked(false);
    QDockWidget::closeEvent(event);
}
