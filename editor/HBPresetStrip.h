// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSmallPreviews.h"

#include <HBPanelSession.h>
#include <HBPresets.h>

#include <QPointer>
#include <QWidget>

class HBFolders;
class QListWidget;
class QToolButton;

/// The presets of the open panel as small pictures of what each makes of the present photo: a click applies one.
/// First come the values of the last use, and the defaults. GUI thread.
class HBPresetStrip : public QWidget
{
    Q_OBJECT
public:
    /// \param folder of the presets' files
    /// \param session must outlive this
    HBPresetStrip(const QString& folder, HBPanelSession* session, HBFolders* folders, QWidget* parent = nullptr);

    HBPresets& Presets() { return m_Presets; }
    /// Whether each preset has its picture.
    bool IsComplete() const { return m_IsComplete; }
    /// The photo is another.
    void ShowPreviews();

    // Of a preset by its name; asked for where none is given.
    void Save();
    bool SaveAs(const QString& name);
    void Rename(const QString& name);
    void Delete(const QString& name);
    bool Import(const QString& path);
    void Export(const QString& name, const QString& path);

Q_SIGNALS:
    void Failed(const QString& reason);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry
    {
        QString title;
        QString name; ///< of the preset; empty: one of those that cannot be changed
        QJsonObject values;
    };

    void List();
    void Apply(int row);
    void ShowMenu(const QPoint& position);
    void Try(bool done, const QString& reason);

    const QPointer<HBPanelSession> m_pSession;
    HBFolders* const m_pFolders;
    HBPresets m_Presets;
    QVector<Entry> m_Entries;
    HBSmallPreviews m_Previews;
    QListWidget* m_pList;
    bool m_IsComplete = true;
};
