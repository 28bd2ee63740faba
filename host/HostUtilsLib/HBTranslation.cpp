// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTranslation.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

#include <dlfcn.h>

namespace
{

/// Where this library is, or the program that it is a part of.
QString OwnFolder()
{
    Dl_info info;
    if (!dladdr(reinterpret_cast<const void*>(&HBTranslatePanels), &info) || !info.dli_fname)
        return {};
    return QFileInfo(QString::fromLocal8Bit(info.dli_fname)).canonicalPath();
}

bool Install(QTranslator* translator)
{
    return translator && QCoreApplication::installTranslator(translator);
}

/// Null if there is none in any of the folders.
QTranslator* Load(const QLocale& language, const char* name, const QStringList& folders)
{
    auto* translator = new QTranslator(QCoreApplication::instance());
    for (const QString& folder : folders) {
        if (translator->load(language, name, "_", folder))
            return translator;
    }
    delete translator;
    return nullptr;
}

} // namespace

void HBInstallTranslations()
{
    Install(Load(QLocale(), "qtbase", {QLibraryInfo::location(QLibraryInfo::TranslationsPath)}));
    HBTranslatePanels(QLocale());
}

bool HBTranslatePanels(const QLocale& language)
{
    static QPointer<QTranslator> installed;
    delete installed; // which takes it from the application
    const QString program = QCoreApplication::applicationDirPath();
    QStringList folders = {program + "/../translations", // in the build tree
                           program + "/../share/" DATA_FOLDER "/translations"};
    const QString own = OwnFolder();
    if (!own.isEmpty())
        folders << own + '/' + ADJUSTMENT_PANELS_TRANSLATIONS;
    const QLocale english(QLocale::English); // some texts of the sources are spelt otherwise, on purpose
    const bool isEnglish = language.language() == english.language() || language.language() == QLocale::C;
    installed = isEnglish ? nullptr : Load(language, "adjustment-panels", folders);
    const bool found = isEnglish || installed;
    if (!installed)
        installed = Load(english, "adjustment-panels", folders);
    Install(installed);
    return found;
}
