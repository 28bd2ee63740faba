// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMTheme.h"

#include <QDir>

/// Outside every namespace, as the macro demands. Without the call a static build would drop the pictures. It is
/// named after the file, and global: a program may have a theme.qrc too.
static void InitResource()
{
    Q_INIT_RESOURCE(adjustment_panels_theme);
}

void KMTheme::Install()
{
    InitResource();
    const QString prefix = QStringLiteral("theme");
    const QString folder = QStringLiteral(":/theme");
    if (!QDir::searchPaths(prefix).contains(folder))
        QDir::addSearchPath(prefix, folder);
}
