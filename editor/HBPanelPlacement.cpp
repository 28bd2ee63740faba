// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelPlacement.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QKeyEvent>
#include <QMainWindow>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

namespace
{

/// The panel as high as it wants to be at the top of a column that scrolls.
QWidget* Column(QWidget* panel)
{
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // a stop on the way that nothing shows
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel);
    layout->addStretch(1);
    area->setWidget(column);
    // The panel could be squeezed further, down to a curve of a finger's height: scroll instead.
    column->setMinimumHeight(panel->sizeHint().height());
    // Room for the controls without scrolling sideways.
    area->setMinimumWidth(panel->minimumSizeHint().width() + 2 * area->frameWidth() +
                          area->verticalScrollBar()->sizeHint().width());
    return area;
}

/// The first control that the tab key reaches; not the buttons, which are older than the controls, nor what stands
/// above the panel.
void FocusFirst(QWidget* panel)
{
    for (QWidget* widget = panel->nextInFocusChain(); panel->isAncestorOf(widget);
         widget = widget->nextInFocusChain()) {
        const bool passed = qobject_cast<QDialogButtonBox*>(widget->parentWidget()) ||
                            widget->parentWidget()->inherits("HBPresetStrip") ||
                            widget->parentWidget()->inherits("HBPanelHead");
        if ((widget->focusPolicy() & Qt::TabFocus) && !passed) {
            widget->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

/// To be called when the panel has its new window. A button keeps what the former window made of it: its OK would
/// be taken for the default button of a dialog that chose another one itself, and a button that had the focus
/// there would look like the default here.
void MakeOkDefault(QWidget* panel)
{
    for (QPushButton* button : panel->findChildren<QPushButton*>())
        button->setDefault(false);
    for (const QDialogButtonBox* box : panel->findChildren<QDialogButtonBox*>()) {
        if (QPushButton* ok = box->button(QDialogButtonBox::Ok))
            ok->setDefault(true);
    }
}

} // namespace

HBPanelPlacement::HBPanelPlacement(QMainWindow* window)
    : QObject(window)
    , m_pWindow(window)
    , m_pDock(new QDockWidget(window))
{
    m_pDock->setObjectName("PanelDock");
    m_pDock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    m_pDock->hide();
    m_pDock->toggleViewAction()->setVisible(false); // an empty side bar is of no use
    m_pDock->installEventFilter(this);
    window->addDockWidget(Qt::RightDockWidgetArea, m_pDock);
}

void HBPanelPlacement::Show(QWidget* panel, const QString& title, bool docked)
{
    panel->setParent(nullptr);
    Close();
    if (docked) {
        m_pDock->setWindowTitle(title);
        m_pDock->setWidget(Column(panel));
        MakeOkDefault(panel);
        m_pDock->show();
        m_pDock->raise(); // before the list of steps
        m_pWindow->resizeDocks({m_pDock}, {qMax(m_Width, m_pDock->minimumSizeHint().width())}, Qt::Horizontal);
    } else {
        m_pDialog = new QDialog(m_pWindow);
        m_pDialog->setWindowTitle(title);
        m_pDialog->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
        auto* layout = new QVBoxLayout(m_pDialog);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(panel);
        MakeOkDefault(panel);
        connect(m_pDialog, &QDialog::rejected, this, &HBPanelPlacement::Dismissed);
        m_pDialog->installEventFilter(this);
        m_pDialog->resize(m_pDialog->sizeHint().expandedTo(QSize(380, 0)));
        m_pDialog->setMinimumHeight(qMin(m_pDialog->height(), m_pWindow->screen()->availableSize().height() / 2));
        // In a corner of the window, not over the middle of the photo.
        const QRect window = m_pWindow->geometry();
        m_pDialog->move(window.right() - m_pDialog->width() - 40, window.top() + 100);
        m_pDialog->show();
    }
    panel->show();
    // Later: the menu that the panel was chosen from gives the focus back to where it was.
    QTimer::singleShot(0, panel, [panel] { FocusFirst(panel); });
}

void HBPanelPlacement::Close()
{
    if (m_pDialog) {
        m_pDialog->disconnect(this);
        m_pDialog->hide();
        m_pDialog->deleteLater();
        m_pDialog = nullptr;
    }
    if (m_pDock->isVisible() && !m_pDock->isFloating())
        m_Width = m_pDock->width(); // else the photo would change its scale with every panel
    m_pDock->hide();
    if (QWidget* column = m_pDock->widget()) {
        m_pDock->setWidget(nullptr);
        column->deleteLater();
    }
}

bool HBPanelPlacement::TakeKey(const QKeyEvent* key)
{
    const bool plain = !(key->modifiers() & ~Qt::KeypadModifier);
    if (plain && key->key() == Qt::Key_Escape) {
        Q_EMIT Dismissed();
        return true;
    }
    if (!plain || (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter))
        return false;
    auto* button = qobject_cast<QPushButton*>(QApplication::focusWidget());
    if (button && m_pDock->isAncestorOf(button))
        button->click();
    else
        Q_EMIT Confirmed();
    return true;
}

bool HBPanelPlacement::eventFilter(QObject* watched, QEvent* event)
{
    // Only the user closes it; the editor hides it.
    if (event->type() == QEvent::Close && (watched == m_pDock || watched == m_pDialog)) {
        event->ignore();
        Q_EMIT Closed();
        return true;
    }
    // What reaches the dock is what the control that has the focus had no use for.
    if (watched == m_pDock && event->type() == QEvent::KeyPress && TakeKey(static_cast<QKeyEvent*>(event)))
        return true;
    return QObject::eventFilter(watched, event);
}
