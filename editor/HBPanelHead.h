// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPhotoPicks.h"

#include <QPointer>
#include <QWidget>

class HBPanelSession;
class KMDocumentView;
class QCheckBox;
class QHBoxLayout;
class QLabel;
class QToolButton;

/// What the editor adds to any panel, above it: whether the photo shows its adjustment, values picked from the
/// photo, and what the panel does not show at the moment. The panel stays the session's.
class HBPanelHead : public QWidget
{
    Q_OBJECT
public:
    HBPanelHead(HBPanelSession* session, KMDocumentView* view);
    ~HBPanelHead() override;

    QCheckBox* PreviewBox() const { return m_pPreview; }
    const QVector<QToolButton*>& PickButtons() const { return m_PickButtons; }

Q_SIGNALS:
    void PreviewToggled(bool previewed);
    /// To be told to the user; empty: no more.
    void Noted(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void AddPicks(QHBoxLayout* row);
    void BeginPick(int index);
    void EndPick();
    void PickAt(const QPoint& position);
    void ShowHint();

    QPointer<HBPanelSession> m_pSession;
    QPointer<KMDocumentView> m_pView;
    QCheckBox* m_pPreview;
    QLabel* m_pHint;
    QVector<HBPhotoPick> m_Picks;
    QVector<QToolButton*> m_PickButtons;
    int m_Picking = -1;
};
