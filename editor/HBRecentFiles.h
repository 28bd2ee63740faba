// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

/// The photos that were opened last, in a menu. GUI thread.
class HBRecentFiles : public QObject
{
    Q_OBJECT
public:
    static constexpr int Most = 12;

    /// \param remember keep them between sessions
    HBRecentFiles(bool remember, QMenu* menu);

    void Add(const QString& path);
    /// The last one first.
    QStringList Paths() const;

Q_SIGNALS:
    void Chosen(const QString& path);

private:
    void Fill();

    const bool m_Remember;
    QMenu* const m_pMenu;
    QStringList m_Paths;
};
