// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFolders.h"

#include <KMApplication.h>

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace
{

QString KeyOf(HBFolders::Purpose purpose)
{
    constexpr const char* names[] = {"photos", "exports", "recipes", "presets"};
    return QString("folders/") + names[purpose];
}

} // namespace

QString HBFolders::Folder(Purpose purpose, const QString& photo) const
{
    QString used = m_Used.value(purpose);
    if (used.isEmpty() && m_Remember)
        used = QSettings().value(KeyOf(purpose)).toString();
    const QString beside = photo.isEmpty() ? QString() : QFileInfo(photo).absolutePath();
    const bool besideFirst = purpose == Photos;
    for (const QString& folder :
         {besideFirst ? beside : used, besideFirst ? used : beside, KMApplication::GetPathOpen()}) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir())
            return folder;
    }
    return QDir::homePath();
}

void HBFolders::SetUsed(Purpose purpose, const QString& path)
{
    m_Used[purpose] = QFileInfo(path).absolutePath();
    if (m_Remember)
        QSettings().setValue(KeyOf(purpose), m_Used[purpose]);
}
