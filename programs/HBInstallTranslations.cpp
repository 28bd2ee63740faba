// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBInstallTranslations.h"

#include <HBTranslation.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

void HBInstallTranslations()
{
    auto* qt = new QTranslator(QCoreApplication::instance());
    if (qt->load(QLocale(), "qtbase", "_", QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(qt);
    const QString built = QCoreApplication::applicationDirPath() + "/../translations"; // in the build tree
    HBTranslatePanels(QLocale(), {built});
}
