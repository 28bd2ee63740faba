// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSmallPreviews.h"

#include <QAction>
#include <QMenu>
#include <QVector>

#include <functional>

/// The user's own recipes, each with a small picture of what it makes of the photo. They are the files of one
/// folder, read anew whenever the menu opens. GUI thread.
class HBRecipeMenu : public QObject
{
    Q_OBJECT
public:
    /// \param folder made when there is something to keep
    HBRecipeMenu(const QString& folder, QMenu* menu, QObject* parent = nullptr);

    /// Asked when the menu opens.
    std::function<HBImage<>()> photo;

    QString Folder() const { return m_Folder; }
    /// Where a recipe of that name is kept.
    QString PathOf(const QString& name) const;

Q_SIGNALS:
    void Chosen(const QString& path);
    /// The present steps are to be kept under a name.
    void KeepWanted();

private:
    void Fill();

    const QString m_Folder;
    QMenu* const m_pMenu;
    QVector<QAction*> m_Shown; ///< in the order of the previews
    HBSmallPreviews m_Previews;
};
