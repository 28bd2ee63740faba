// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

class HBAdjustmentWidget;
class HBPickSurface;
class KMDocumentView;
class QGraphicsView;

/// Where the panel of a session picks colours from, and whether it is about to. GUI thread.
class HBSessionPicking : public QObject
{
    Q_OBJECT
public:
    HBSessionPicking(HBAdjustmentWidget* panel, QObject* parent);

    // As those of HBPanelSession.
    void SetView(QGraphicsView* view);
    void SetSurface(HBPickSurface* surface);
    bool IsPicking() const { return m_Picking; }

Q_SIGNALS:
    void Changed(bool picking);

private:
    void ListenToView(KMDocumentView* view);
    void Tell();

    const QPointer<HBAdjustmentWidget> m_pPanel;
    QPointer<HBPickSurface> m_pOwnSurface;
    QPointer<KMDocumentView> m_pView;
    bool m_Picking = false;
};
