// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBSelectionShape.h>

#include <QJsonObject>
#include <QObject>
#include <QTimer>
#include <QVector>

class HBPanelSession;
class HBSelectionTool;

/// Undo and redo while a panel is open: what one gesture changes, a drag to its release, a typed number, a button,
/// or a new selection, is one entry. Ends with the panel.
class HBPanelGestures : public QObject
{
    Q_OBJECT
public:
    /// What the panel shows now is where it begins.
    HBPanelGestures(HBPanelSession* session, HBSelectionTool* selection, QObject* parent);
    ~HBPanelGestures() override;

    bool CanUndo() const;
    bool CanRedo() const { return m_Index + 1 < m_States.size(); }
    /// Whether they are others than at the beginning.
    bool AreValuesChanged() const;
    bool IsSelectionChanged() const;

public Q_SLOTS:
    void Undo();
    void Redo();

Q_SIGNALS:
    void Changed();
    /// A gesture has come to its end, or was undone or redone.
    void Done();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct State
    {
        QJsonObject values;
        HBSelectionShape selection;
    };
    State Present() const;
    bool IsPresent(const State& state) const;
    void Note();
    void OnTimeout();
    void GoTo(int index);

    HBPanelSession* m_pSession;
    HBSelectionTool* m_pSelection;
    QVector<State> m_States;
    int m_Index = 0;
    QTimer m_Rest; ///< since the last change
};
