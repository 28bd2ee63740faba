// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

class QDialog;
class QDockWidget;
class QKeyEvent;
class QMainWindow;

/// Where the open panel stands: in a dialog of its own or in the main window's side bar. The panel is not its own.
class HBPanelPlacement : public QObject
{
    Q_OBJECT
public:
    explicit HBPanelPlacement(QMainWindow* window);

    /// Shows the panel, or moves it when it is shown already.
    void Show(QWidget* panel, const QString& title, bool docked);
    void Close();

    /// Of the side bar, for whichever panel opens next; as narrow as the panel allows if that is wider.
    int Width() const { return m_Width; }
    void SetWidth(int width) { m_Width = width; }

    /// What Return and Escape mean in a dialog, for the side bar, which is none. False for any other key.
    bool TakeKey(const QKeyEvent* key);

Q_SIGNALS:
    /// Return was pressed in the side bar, and no button had the focus that it would press.
    void Confirmed();
    /// Escape was pressed in it.
    void Dismissed();
    /// The user wants to close the dialog or the side bar by its cross, which stays until Close().
    void Closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QMainWindow* m_pWindow;
    QDockWidget* m_pDock;
    QPointer<QDialog> m_pDialog;
    int m_Width = 380;
};
