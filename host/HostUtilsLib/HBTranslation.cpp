// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTranslation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

void HBInstallTranslations()
{
    const QString program = QCoreApplication::applicationDirPath();
    const struct
    {
        const char* name;
        QString folder;
    } places[] = {{"qtbase", QLibraryInfo::location(QLibraryInfo::TranslationsPath)},
                  {"adjustment-panels", program + "/../translations"}, // in the build tree
                  {"adjustment-panels", program + "/../share/" DATA_FOLDER "/translations"}};
    for (const auto& place : places) {
        auto* translator = new QTranslator(QCoreApplication::instance());
        if (translator->load(QLocale(), place.name, "_", place.folder))
            QCoreApplication::installTranslator(translator);
        else
            delete translator;
    }
}
