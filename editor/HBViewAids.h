// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

#include <QObject>
#include <QPointer>

class HBBeforeAfter;
class HBPanelHead;
class HBPanelSession;
class HBResultHistogram;
class HBSideBySide;
class HBViewColors;
class KMDocumentView;
class QAction;
class QDockWidget;
class QLabel;
class QMainWindow;
class QMenu;
class QSettings;

/// What helps to judge the photo in the window: true colours, clipping marked, what it is compared with, the pixel
/// under the mouse. Brings its own entries of the View menu and its labels of the status bar.
class HBViewAids : public QObject
{
    Q_OBJECT
public:
    HBViewAids(QMainWindow* window, KMDocumentView* view, HBBeforeAfter* beforeAfter, QMenu* menu);

    /// What stands in place of the view in the window.
    HBSideBySide* SideBySide() const { return m_pSideBySide; }
    HBViewColors* Colors() const { return m_pColors; }
    QAction* SideBySideAction() const { return m_pBeside; }
    QAction* CompareOpenedAction() const { return m_pCompareOpened; }
    HBResultHistogram* Histogram() const { return m_pHistogram; }
    HBPanelHead* Head() const;

    /// What is to be shown in place of the session's widget; ends with EndPanel.
    QWidget* BeginPanel(HBPanelSession* session);
    void EndPanel();

    /// \param present without the step that is being made
    /// \param opened as it was opened
    /// \param isAdjusting whether a step is being made
    void ShowPhoto(const HBImage<>& present, const HBImage<>& opened, bool isAdjusting);
    QString PixelText() const;

    void ReadSettings(const QSettings& settings);
    void WriteSettings(QSettings* settings) const;

Q_SIGNALS:
    void Failed(const QString& reason);
    /// A hint that need not be kept in sight.
    void Hinted(const QString& text);

private:
    QAction* AddToggle(QMenu* menu, const QString& text, const QString& key, const QString& hint);
    void ShowBefore();
    void ShowPixel(const QPoint& pixel);

    KMDocumentView* m_pView;
    HBBeforeAfter* m_pBeforeAfter;
    HBViewColors* m_pColors;
    HBSideBySide* m_pSideBySide;
    QDockWidget* m_pHistogramDock;
    HBResultHistogram* m_pHistogram;
    QPointer<HBPanelHead> m_pHead; ///< of the open panel
    QLabel* m_pPixelLabel;
    QLabel* m_pProfileLabel;
    QAction* m_pBeside;
    QAction* m_pCompareOpened;
    QAction* m_pClipping;
    HBImage<> m_Present;
    HBImage<> m_Opened;
    bool m_IsAdjusting = false;
};
