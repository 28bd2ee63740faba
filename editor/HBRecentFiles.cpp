// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecentFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace
{

constexpr char PathsKey[] = "files/recent";

}

HBRecentFiles::HBRecentFiles(bool remember, QMenu* menu) : m_Remember(remember), m_pMenu(menu)
{
    connect(menu, &QMenu::aboutToShow, this, &HBRecentFiles::Fill);
}

/// Another window may have added some.
QStringList HBRecentFiles::Paths() const
{
    return m_Remember ? QStringList(QSettings().value(PathsKey).toStringList().mid(0, Most)) : m_Paths;
}

void HBRecentFiles::Add(const QString& path)
{
    m_Paths = Paths();
    m_Paths.removeAll(path);
    m_Paths.prepend(path);
    m_Paths = m_Paths.mid(0, Most);
    if (m_Remember)
        QSettings().setValue(PathsKey, m_Paths);
}

void HBRecentFiles::Fill()
{
    m_pMenu->clear();
    int number = 0;
    for (const QString& path : Paths()) {
        if (!QFileInfo::exists(path))
            continue;
        const QString name = QFileInfo(path).fileName().replace('&', "&&");
        QAction* action = m_pMenu->addAction(++number < 10 ? QString("&%1 %2").arg(number).arg(name) : name);
        action->setStatusTip(QDir::toNativeSeparators(path));
        connect(action, &QAction::triggered, this, [this, path] { Q_EMIT Chosen(path); });
    }
    if (number == 0)
        m_pMenu->addAction(tr("No photos yet"))->setEnabled(false);
}
