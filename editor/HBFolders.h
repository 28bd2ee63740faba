// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

/// Where file dialogs begin: each purpose remembers a folder of its own. GUI thread.
class HBFolders
{
public:
    enum Purpose { Photos, Exports, Recipes, Presets };

    /// \param remember keep them between sessions
    explicit HBFolders(bool remember) : m_Remember(remember) {}

    /// Photos: the folder of the present photo. Otherwise that of the last file chosen for this purpose; while
    /// there is none, the photo's, and the user's pictures.
    /// \param photo the present one; may be empty
    QString Folder(Purpose purpose, const QString& photo) const;
    /// That file was chosen.
    void SetUsed(Purpose purpose, const QString& path);

private:
    const bool m_Remember;
    QHash<int, QString> m_Used;
};
